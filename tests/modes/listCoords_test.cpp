#include "db/exact_key.h"
#include "modes/support/change_counter.h"
#include "modes/support/listCoords_host.h"
#include "platform/files.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QLabel>
#include <QMessageBox>

static PointRow placed(const std::wstring& x, const std::wstring& y)
{
    PointRow row;
    row.text0 = x;
    row.text1 = y;
    return row;
}

// Three points, the second with rows in other registers and a second row of its own.
static Reference<DBProject> smallProject()
{
    auto project = makeReference<DBProject>();
    project->setFilePath(L"ABC.TLX");
    project->setFileStem(L"ABC");
    project->addPointRegisterEntry({L"1", 1}, {placed(L"100", L"200")});
    project->addPointRegisterEntry({L"2", 2}, {placed(L"150", L"300,5"), placed(L"7", L"8")});
    project->addPointRegisterEntry({L"10", 3}, {placed(L"", L"")});
    project->addLithology({L"2", L"1.5"}, {L"aQ", L"Песок"});
    project->addSample({L"2", L"1"}, {1});
    return project;
}

static const PointRow& firstRow(DBProject& project, const std::wstring& name)
{
    return findExact(project.getPointRegister(), {name, 0})->second.front();
}

static bool holds(DBProject& project, const std::wstring& name)
{
    return findExact(project.getPointRegister(), {name, 0}) != project.getPointRegister().end();
}

// Presses a button of the next box, by its text, and keeps what the box said.
class NextBox
{
public:
    explicit NextBox(const QString& button)
    {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            said = box->text() + QLatin1Char('\n') + box->informativeText();
            for (QAbstractButton* each : box->buttons())
                if (each->text() == button)
                    each->click();
        });
        timer_.start(5);
    }

    QString said;

private:
    QTimer timer_;
};

static const QString cancel = QStringLiteral("Отмена");

TEST(ListCoords, CellsAreStoredAsTyped)
{
    struct Row {
        int column;
        QString typed;
        std::function<bool(DBProject&)> isStored;
    };
    const auto text = [](auto cell, const wchar_t* wanted) {
        return [=](DBProject& project) { return firstRow(project, L"1").*cell == wanted; };
    };
    const Row rows[] = {
        {2, QStringLiteral("301032,450"), text(&PointRow::text0, L"301032.450")},
        {3, QStringLiteral(" 12 "), text(&PointRow::text1, L" 12 ")},
        {4, QStringLiteral("15.65"), text(&PointRow::absoluteMark, L"15.65")},
        {5, QStringLiteral("-0,1"), text(&PointRow::text3, L"-0.1")},
        {7, QStringLiteral("3"), text(&PointRow::text4, L"3")},
        {8, QStringLiteral("4"), text(&PointRow::text5, L"4")},
        {9, QStringLiteral("31.12.2019"), text(&PointRow::text6, L"31.12.2019")},
        {6,
            QStringLiteral("Поперечный"),
            [](DBProject& project) { return firstRow(project, L"1").kindA == 3; }},
        {10, QStringLiteral("200"), [](DBProject& project) { return firstRow(project, L"1").kindB == 200; }},
        {1,
            QStringLiteral("Шурф"),
            [](DBProject& project) {
                return findExact(project.getPointRegister(), {L"1", 0})->first.pointKind == 2;
            }},
    };
    for (const Row& row : rows) {
        ListCoordsHost host(smallProject());
        host.typeInto(0, row.column, row.typed);
        EXPECT_TRUE(row.isStored(*host.project)) << row.column;
        host.controller->undo();
        EXPECT_FALSE(row.isStored(*host.project)) << row.column;
        host.controller->redo();
        EXPECT_TRUE(row.isStored(*host.project)) << row.column;
        EXPECT_TRUE(Q_EMIT host.screen->signalUpdateDB());
    }
}

TEST(ListCoords, ATypedCellIsOneChangeToldOnce)
{
    ListCoordsHost host(smallProject());
    ChangeCounter counter(*host.controller);
    host.typeInto(0, 4, QStringLiteral("15.65"));
    EXPECT_EQ(counter.calls, 1);
    host.typeInto(0, 2, QStringLiteral("301032,450"));
    EXPECT_EQ(counter.calls, 2) << "a comma that is mended is none more";
    host.typeInto(0, 4, QStringLiteral("15.65"));
    EXPECT_EQ(counter.calls, 2) << "nothing has changed";
    host.typeInto(0, 0, QStringLiteral("Скв-1"));
    EXPECT_EQ(counter.calls, 3);
}

TEST(ListCoords, KeysLeadFromTheFilterToTheTableAndTakeItAway)
{
    ListCoordsHost host(smallProject());
    auto* filter = host.part<QLineEdit>("pointFilter");
    for (const int key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Escape}) {
        filter->setFocus();
        host.press(Qt::Key_A, Qt::ControlModifier);
        host.type(QStringLiteral("шурф"));
        EXPECT_EQ(host.table()->model()->rowCount(), 2) << "with the spare row";
        host.press(key);
        EXPECT_TRUE(host.table()->hasFocus()) << key;
        EXPECT_EQ(host.table()->model()->rowCount(), key == Qt::Key_Escape ? 4 : 2) << key;
    }
}

TEST(ListCoords, EditOfFirstRowLeavesFurtherRowsAlone)
{
    ListCoordsHost host(smallProject());
    host.typeInto(1, 2, QStringLiteral("151"));
    const auto& rows = findExact(host.project->getPointRegister(), {L"2", 0})->second;
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].text0, L"151");
    EXPECT_EQ(rows[1].text0, L"7");
}

TEST(ListCoords, RefusedNameStaysInTheTable)
{
    const QString names[] = {QStringLiteral("№5"),
        QStringLiteral("12345678901"),
        QStringLiteral("2-1"),
        QStringLiteral("10"),
        QStringLiteral("0"),
        QString()};
    for (const QString& name : names) {
        ListCoordsHost host(smallProject());
        host.typeInto(0, 0, name);
        if (name.isEmpty()) {
            host.select(0, 0);
            host.press(Qt::Key_Delete);
        }
        EXPECT_EQ(host.cell(0, 0), name);
        EXPECT_TRUE(host.tip(0, 0).startsWith(QStringLiteral("Не записано"))) << name.toStdString();
        EXPECT_TRUE(holds(*host.project, L"1")) << name.toStdString();
        EXPECT_EQ(host.project->getPointRegister().size(), 3U);
        EXPECT_FALSE(Q_EMIT host.screen->signalUpdateDB());
        EXPECT_TRUE(host.status.contains(QStringLiteral("Точка 1, «Имя точки»")))
            << host.status.toStdString();
        Q_EMIT host.screen->signalUpdateInfo();
        EXPECT_EQ(host.cell(0, 0), name);
        host.controller->undo();
        EXPECT_EQ(host.cell(0, 0), QStringLiteral("1"));
        EXPECT_TRUE(Q_EMIT host.screen->signalUpdateDB());
    }
}

// The rest of a row waits for its name; a name waits for the one that stands in its way.
TEST(ListCoords, NewPointIsStoredWithItsName)
{
    ListCoordsHost host(smallProject());
    host.select(2, 0);
    host.press(Qt::Key_Insert);
    host.press(Qt::Key_Escape);
    EXPECT_TRUE(Q_EMIT host.screen->signalUpdateDB());
    host.typeInto(3, 2, QStringLiteral("77,5"));
    host.typeInto(3, 1, QStringLiteral("Что-то"));
    EXPECT_EQ(host.project->getPointRegister().size(), 3U);
    EXPECT_FALSE(Q_EMIT host.screen->signalUpdateDB());
    host.typeInto(3, 0, QStringLiteral("5"));
    ASSERT_TRUE(holds(*host.project, L"5"));
    EXPECT_EQ(firstRow(*host.project, L"5").text0, L"77.5");
    const int row = host.rowOf(QStringLiteral("5"));
    EXPECT_EQ(row, 2);
    EXPECT_EQ(host.cell(row, 1), QStringLiteral("Что-то"));
    EXPECT_TRUE(host.tip(row, 1).contains(QStringLiteral("Скважина")));
    for (int step = 0; step < 5; ++step)
        host.controller->undo();
    EXPECT_EQ(host.project->getPointRegister().size(), 3U);
    EXPECT_EQ(host.table()->model()->rowCount(), 3 + 1) << "and the spare row";
}

TEST(ListCoords, NameWaitsForTheOneInItsWay)
{
    ListCoordsHost host(smallProject());
    host.typeInto(0, 0, QStringLiteral("10"));
    EXPECT_TRUE(holds(*host.project, L"1"));
    host.typeInto(2, 0, QStringLiteral("11"));
    EXPECT_FALSE(holds(*host.project, L"1"));
    EXPECT_EQ(firstRow(*host.project, L"10").text0, L"100");
    EXPECT_EQ(host.table()->currentIndex().row(), 3) << "below the third";
    EXPECT_TRUE(Q_EMIT host.screen->signalUpdateDB());
}

TEST(ListCoords, RenameCarriesThroughWhenTheUserAgrees)
{
    for (const bool agrees : {false, true}) {
        ListCoordsHost host(smallProject());
        NextBox box(agrees ? QStringLiteral("Переименовать") : cancel);
        host.typeInto(1, 0, QStringLiteral("C-2"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !box.said.isEmpty(); }, 2000));
        EXPECT_TRUE(box.said.contains(QStringLiteral("«2» в «C-2»"))) << box.said.toStdString();
        EXPECT_TRUE(box.said.contains(QStringLiteral("Литология: 1\nПробы: 1")));
        QApplication::processEvents();
        EXPECT_EQ(holds(*host.project, L"C-2"), agrees);
        EXPECT_EQ(host.project->getLithology().begin()->first.pointName, agrees ? L"C-2" : L"2");
        EXPECT_EQ(host.project->getSamples().begin()->first.pointName, agrees ? L"C-2" : L"2");
        host.controller->undo();
        EXPECT_TRUE(holds(*host.project, L"2"));
        EXPECT_EQ(host.project->getLithology().begin()->first.pointName, L"2");
    }
}

TEST(ListCoords, DeletionTakesTheRowsOfOtherRegistersAlong)
{
    ListCoordsHost host(smallProject());
    host.select(1, 0);
    EXPECT_TRUE(host.canDelete);
    const auto places = [&host] {
        std::vector<const void*> found;
        for (const auto& point : host.project->getPointRegister())
            found.push_back(&point);
        return found;
    };
    {
        const auto before = places();
        NextBox box(cancel);
        Q_EMIT host.screen->signalDelSelectedRecord();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !box.said.isEmpty(); }, 2000));
        EXPECT_TRUE(holds(*host.project, L"2"));
        EXPECT_EQ(places(), before) << "a question copies no register there and back";
    }
    {
        NextBox box(QStringLiteral("Удалить"));
        Q_EMIT host.screen->signalDelSelectedRecord();
        // The shell's own call, before the box had time to open by itself.
        Q_EMIT host.screen->signalCloseAllEditCell();
        EXPECT_TRUE(box.said.contains(QStringLiteral("Удалить точку «2»?"))) << box.said.toStdString();
    }
    EXPECT_FALSE(holds(*host.project, L"2"));
    EXPECT_TRUE(host.project->getLithology().empty());
    host.controller->undo();
    EXPECT_EQ(findExact(host.project->getPointRegister(), {L"2", 0})->second.size(), 2U);
    EXPECT_EQ(host.project->getLithology().size(), 1U);
    host.controller->redo();
    EXPECT_FALSE(holds(*host.project, L"2"));
    EXPECT_EQ(host.rowOf(QStringLiteral("2")), -1);
    host.controller->undo();
    // Nothing of others goes along: no question.
    host.select(host.rowOf(QStringLiteral("1")), 0);
    Q_EMIT host.screen->signalDelSelectedRecord();
    EXPECT_FALSE(holds(*host.project, L"1"));
}

TEST(ListCoords, PastedBlockAddsPoints)
{
    ListCoordsHost host(makeReference<DBProject>());
    host.project->setFilePath(L"A.TLX");
    QApplication::clipboard()->setText(
        QStringLiteral("Скв-1\tСкв.\t10,5\t20\r\nСкв-2\t2\t11\t21\r\nСкв-1\t1\t0\t0\r\n"));
    host.select(0, 0);
    QTest::keyClick(host.table(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(host.project->getPointRegister().size(), 2U);
    EXPECT_EQ(firstRow(*host.project, L"Скв-1").text0, L"10.5");
    EXPECT_EQ(findExact(host.project->getPointRegister(), {L"Скв-2", 0})->first.pointKind, 2);
    EXPECT_EQ(host.table()->model()->rowCount(), 3 + 1);
    EXPECT_FALSE(Q_EMIT host.screen->signalUpdateDB());
    host.controller->undo();
    EXPECT_EQ(firstRow(*host.project, L"Скв-1").text0, L"10,5") << "as it was pasted";
    host.controller->undo();
    EXPECT_TRUE(host.project->getPointRegister().empty());
    EXPECT_EQ(host.table()->model()->rowCount(), 1);
}

// A section's end without a mark takes that of its point when the file is opened, which must be a number.
TEST(ListCoords, MarkThatAFileNeedsToOpenStaysANumber)
{
    const auto project = smallProject();
    findExact(project->getPointRegister(), {L"1", 0})->second.front().absoluteMark = L"5";
    project->addSectionPoint(L"Разрез 1-1'", {L"1", L"9", 0, 0, 0.F, 5.F});
    ListCoordsHost host(project);
    host.typeInto(0, 4, QStringLiteral("нет"));
    EXPECT_EQ(firstRow(*project, L"1").absoluteMark, L"5");
    EXPECT_EQ(host.cell(0, 4), QStringLiteral("нет"));
    EXPECT_FALSE(Q_EMIT host.screen->signalUpdateDB());
    host.typeInto(0, 4, QStringLiteral("6"));
    EXPECT_EQ(firstRow(*project, L"1").absoluteMark, L"6");
    EXPECT_TRUE(Q_EMIT host.screen->signalUpdateDB());
    EXPECT_FALSE(host.tip(0, 4).contains(QStringLiteral("без дробной части")));
    host.typeInto(0, 4, QStringLiteral("6,5"));
    EXPECT_EQ(firstRow(*project, L"1").absoluteMark, L"6.5");
    host.controller->undo();
    EXPECT_EQ(firstRow(*project, L"1").absoluteMark, L"6,5") << "as typed, with a warning";
    EXPECT_TRUE(host.tip(0, 4).contains(QStringLiteral("без дробной части")));
}

TEST(ListCoords, HeadIsStoredLineByLine)
{
    ListCoordsHost host(smallProject());
    const auto type = [&](const char* line, const QString& text) {
        auto* edit = host.part<QLineEdit>(line);
        edit->setFocus();
        edit->selectAll();
        host.type(text);
        host.press(Qt::Key_Return);
    };
    type("projectCode", QStringLiteral("19-01"));
    type("projectTitle", QStringLiteral("Мост"));
    type("projectFile", QStringLiteral("Мост.2"));
    EXPECT_EQ(host.project->getProjectCode(), L"19-01");
    EXPECT_EQ(host.project->getProjectName(), L"Мост");
    EXPECT_EQ(host.project->getFilePath(), L"Мост.2.TLX");
    EXPECT_EQ(host.project->getFileStem(), L"Мост.2");
    host.controller->undo();
    EXPECT_EQ(host.project->getFilePath(), L"ABC.TLX");
    EXPECT_EQ(host.project->getFileStem(), L"ABC");
    host.controller->undo();
    EXPECT_EQ(host.project->getProjectName(), L"Новый");
    EXPECT_EQ(host.part<QLineEdit>("projectTitle")->text(), QStringLiteral("Новый"));
    // Text that nobody has confirmed yet is no less typed when the shell saves.
    host.part<QLineEdit>("projectTitle")->setFocus();
    host.part<QLineEdit>("projectTitle")->end(false);
    host.type(QStringLiteral("!"));
    EXPECT_TRUE(Q_EMIT host.screen->signalUpdateDB());
    EXPECT_EQ(host.project->getProjectName(), L"Новый!");
    // A screen that goes while a line has the focus takes the text along and nothing else.
    host.type(QStringLiteral("?"));
    host.screen.reset();
    EXPECT_EQ(host.project->getProjectName(), L"Новый!");
}

TEST(ListCoords, FileNameThatCannotBeIsRefused)
{
    const QString names[] = {QStringLiteral("a/b"),
        QStringLiteral("a?"),
        QStringLiteral(".TLX"),
        QStringLiteral("nul"),
        QStringLiteral("a."),
        QStringLiteral("☺"),
        QStringLiteral("TLXXXXX"),
        QStringLiteral("Занято")};
    ListCoordsHost host(smallProject());
    for (const wchar_t* folder : {L"Проекты", L"Проекты\\Занято"})
        ASSERT_TRUE(createFolder(host.folder.file(folder)));
    ASSERT_TRUE(createFolder(host.folder.file(L"Проекты\\Занято\\Занято.TLX")));
    auto* file = host.part<QLineEdit>("projectFile");
    for (const QString& name : names) {
        file->setFocus();
        file->selectAll();
        host.type(name);
        host.press(Qt::Key_Return);
        EXPECT_EQ(host.project->getFilePath(), L"ABC.TLX") << name.toStdString();
        EXPECT_EQ(file->text(), name);
        EXPECT_TRUE(host.part<QLabel>("projectNotice")->isVisible());
        EXPECT_FALSE(Q_EMIT host.screen->signalUpdateDB());
        host.press(Qt::Key_Escape);
        EXPECT_EQ(file->text(), QStringLiteral("ABC.TLX"));
        EXPECT_TRUE(Q_EMIT host.screen->signalUpdateDB());
    }
}

TEST(ListCoords, NewProjectIsAskedForItsName)
{
    auto project = makeReference<DBProject>();
    project->setFilePath(L"TLXXXXX.TLX");
    ListCoordsHost host(project);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeModalWidget() != nullptr; }, 2000));
    QWidget* dialog = QApplication::activeModalWidget();
    auto* file = dialog->findChild<QLineEdit*>(QStringLiteral("newProjectFile"));
    dialog->findChild<QLineEdit*>(QStringLiteral("newProjectCode"))->setFocus();
    host.type(QStringLiteral("19/02"));
    EXPECT_EQ(file->text(), QStringLiteral("19-02.TLX"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(project->getProjectCode(), L"19/02");
    EXPECT_EQ(project->getFilePath(), L"19-02.TLX");
    EXPECT_EQ(project->getFileStem(), L"19-02");
    EXPECT_FALSE(host.part<QLabel>("projectNotice")->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeModalWidget() == nullptr; }, 2000));
    host.controller->undo();
    EXPECT_EQ(project->getFilePath(), L"TLXXXXX.TLX");
    EXPECT_TRUE(host.part<QLabel>("projectNotice")->isVisible());
}

TEST(ListCoords, NamingLaterLeavesAWarning)
{
    auto project = makeReference<DBProject>();
    project->setFilePath(L"TLXXXXX.TLX");
    ListCoordsHost host(project);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeModalWidget() != nullptr; }, 2000));
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeModalWidget() == nullptr; }, 2000));
    EXPECT_TRUE(host.part<QLabel>("projectNotice")->text().contains(QStringLiteral("TLXXXXX.TLX")));
    Q_EMIT host.screen->signalUpdateInfo();
    Q_EMIT host.screen->signalUpdateMode();
    QTest::qWait(20);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(ListCoords, PlanAndTableChooseTogether)
{
    ListCoordsHost host(smallProject());
    EXPECT_EQ(host.part<QLabel>("planCounts")->text(), QStringLiteral("Точек: 3. Без координат: 1"));
    QWidget* plan = host.part<QWidget>("pointPlan");
    const auto rowAt = [&](QPointF place) {
        host.select(2, 0);
        QTest::mouseClick(plan, Qt::LeftButton, {}, place.toPoint());
        return host.table()->currentIndex().row();
    };
    // The second point lies 50 m north and 100,5 m east of the first: up and right of it on the sheet.
    const QRectF free = QRectF(plan->rect()).marginsRemoved({64, 64, 64, 40});
    const double half = qMin(free.width() / 100.5, free.height() / 50) / 2;
    const QPointF low = free.center() + QPointF(-half * 100.5, half * 50);
    const QPointF high = free.center() + QPointF(half * 100.5, -half * 50);
    EXPECT_EQ(rowAt(low), 0);
    EXPECT_EQ(rowAt(high), 1);
    EXPECT_EQ(rowAt(free.center()), 2);
    // A drag moves the sheet and chooses nothing.
    QTest::mousePress(plan, Qt::LeftButton, {}, low.toPoint());
    QMouseEvent drag(QEvent::MouseMove, low + QPointF(40, -30), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(plan, &drag);
    QTest::mouseRelease(plan, Qt::LeftButton, {}, (low + QPointF(40, -30)).toPoint());
    EXPECT_EQ(host.table()->currentIndex().row(), 2);
    EXPECT_EQ(rowAt(low + QPointF(40, -30)), 0);
    QTest::keyClick(plan, Qt::Key_F);
    EXPECT_EQ(rowAt(low), 0);
    // Zooming keeps what is under the cursor.
    QWheelEvent wheel(low, plan->mapToGlobal(low.toPoint()), {}, {0, 240}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(plan, &wheel);
    EXPECT_EQ(rowAt(low), 0);
    EXPECT_EQ(rowAt(high), 2);
}

TEST(ListCoords, CommandsOutliveTheScreen)
{
    ListCoordsHost host(smallProject());
    host.typeInto(0, 2, QStringLiteral("5"));
    host.typeInto(0, 0, QStringLiteral("№"));
    host.screen.reset();
    host.controller->undo();
    host.controller->undo();
    EXPECT_EQ(firstRow(*host.project, L"1").text0, L"100");
    host.make();
    EXPECT_EQ(host.cell(0, 2), QStringLiteral("100"));
    host.controller->redo();
    EXPECT_EQ(host.cell(0, 2), QStringLiteral("5"));
}

// A close that was called off leaves the shell without a current mode, and the screen in front of the user.
TEST(ListCoords, FollowsAnUndoAfterACloseThatWasCalledOff)
{
    ListCoordsHost host(smallProject());
    host.controller->detachAll();
    host.controller->reset();
    const QString before = host.cell(0, 2);
    host.typeInto(0, 2, QStringLiteral("777"));
    ASSERT_EQ(host.cell(0, 2), QStringLiteral("777"));
    host.controller->undo();
    EXPECT_EQ(host.cell(0, 2), before);
    host.controller->redo();
    EXPECT_EQ(host.cell(0, 2), QStringLiteral("777"));
}
