#include "core/base/typed_number.h"
#include "support/registers_screen_host.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <gtest/gtest.h>

#include <cmath>

namespace
{

Reference<DBProject> site()
{
    auto project = makeReference<DBProject>();
    PointRow place;
    place.text0 = L"0";
    place.text1 = L"0";
    project->addPointRegisterEntry({L"Скв-1", 1}, {place});
    project->addPointRegisterEntry({L"ТСЗ-1", 3}, {place});
    project->addPointRegisterEntry({L"ТСЗ-2", 3}, {place});
    project->addLithology({L"Скв-1", L"12"}, {L"", L""});
    project->addNumberedLink(L"Скв-1:1", L"1");
    StrataElement clay;
    clay.code = 4;
    project->addStrataElement(L"1", clay);
    std::vector<SoundingRow> rows;
    for (int i = 1; i <= 40; ++i)
        rows.push_back({numberText(i * 0.2, 1), {L"3", L"50", L"", L""}});
    project->addSounding({L"ТСЗ-1", 3, L"зонд", L"27.05.2019"}, rows);
    project->setSoundingValueD(1);
    project->addSoundingTriple(1, {300, 0, 100});
    project->addSoundingTriple(2, {11000, 400, 600});
    return project;
}

const std::vector<SoundingRow>* journal(DBProject& project, const std::wstring& point)
{
    for (const auto& [key, rows] : project.getSoundings())
        if (key.pointName == point)
            return &rows;
    return nullptr;
}

Reference<DBProject> sample(const std::wstring& name)
{
    const std::wstring path = QStringLiteral(TELLURIX_SAMPLES).toStdWString() + L"/" + name;
    std::vector<std::uint8_t> bytes;
    lookAtProjectFile(path, bytes);
    ReadReport report;
    return readProject(path, bytes, report);
}

void turnTo(ScreenHost& host, int page)
{
    host.screen->findChild<QTabWidget*>(QStringLiteral("pages"))->setCurrentIndex(page);
    QCoreApplication::sendPostedEvents();
}

} // namespace

TEST(StaticScreen, JournalsAreEditedAndKeepTheirHead)
{
    ScreenHost host{"static19.dll", ModeStatic, site()};
    turnTo(host, 0);
    auto* table = host.screen->findChild<QTableView*>(QStringLiteral("journal"));
    ASSERT_TRUE(table);
    const auto cell = [&](int row, int column) { return table->model()->index(row, column); };
    EXPECT_EQ(cell(0, 1).data().toString().toStdString(), "3");
    EXPECT_EQ(cell(0, 5).data().toString().toStdString(), "1.7"); // friction by cone
    ASSERT_TRUE(table->model()->setData(cell(0, 1), QStringLiteral("2,5"), Qt::EditRole));
    EXPECT_EQ((*journal(*host.project, L"ТСЗ-1"))[0].cells[0], L"2.5");
    // In kilopascals: marked and told of.
    table->model()->setData(cell(1, 1), QStringLiteral("2500"), Qt::EditRole);
    EXPECT_TRUE(cell(1, 1).data(EditGridModel::WarningRole).toBool());
    EXPECT_TRUE(host.status.contains(QStringLiteral("кПа")));

    for (QLineEdit* field : host.screen->findChildren<QLineEdit*>())
        if (field->text() == QStringLiteral("зонд")) {
            field->setText(QStringLiteral("зонд II"));
            Q_EMIT field->editingFinished();
        }
    const auto& key = host.project->getSoundings().begin()->first;
    EXPECT_EQ(key.device, L"зонд II");
    EXPECT_EQ(key.date, L"27.05.2019");
    EXPECT_EQ(journal(*host.project, L"ТСЗ-1")->size(), 40u);
    EXPECT_TRUE(host.store());
}

TEST(StaticScreen, PagesTellTheShellWhatTheyCanDo)
{
    ScreenHost host{"static19.dll", ModeStatic, site()};
    const int views[] = {1, 4, 0, 2};
    for (int page = 0; page < 4; ++page) {
        turnTo(host, page);
        EXPECT_EQ(host.controller.probingView(), views[page]);
        EXPECT_EQ(host.controller.probingSubView(), page == 0 ? 1 : 0);
    }
}

TEST(StaticScreen, ResultsOfPilesGoIntoTheProject)
{
    ScreenHost host{"static19.dll", ModeStatic, site()};
    turnTo(host, 3);
    Q_EMIT host.screen->signalCalc();
    const auto& rows = host.project->getSoundingCalcRows();
    ASSERT_EQ(rows.size(), 3u); // 4, 5 and 6 m
    EXPECT_EQ(rows[0].cells[0], L"4.00");
    EXPECT_EQ(rows[0].cells[1], L"106.00");
    EXPECT_EQ(rows[0].cells[2], L"1");
    // qs 3000, b1 0.77; fs 50 in clay with 0.675 along 4 m.
    EXPECT_EQ(rows[0].cells[3], L"369.9");
    EXPECT_EQ(rows[0].cells[7], L"369.9");
}

// By real mouse and keys: the boundary is where the cursor shows it, as for a person.
TEST(StaticScreen, OwnLayersAreDraggedSplitTypedAndWritten)
{
    const Reference<DBProject> project = site();
    project->addStrataElement(L"2", {});
    std::vector<SoundingRow> rows = *journal(*project, L"ТСЗ-1");
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i].cells[3] = i < 20 ? L"1" : L"2";
    project->setSoundings({{{L"ТСЗ-1", 3, L"зонд", L"27.05.2019"}, rows}});
    ScreenHost host{"static19.dll", ModeStatic, project};
    turnTo(host, 2);
    QTimer::singleShot(50, host.screen.get(), [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        QApplication::setActiveWindow(dialog); // there is no window manager to do it
        auto* table = dialog->findChild<QTableView*>(QStringLiteral("own_layers"));
        QWidget* canvas = nullptr;
        for (QWidget* widget : dialog->findChildren<QWidget*>())
            if (widget->accessibleName().startsWith(QStringLiteral("График qc")))
                canvas = widget;
        ASSERT_TRUE(canvas);
        const auto cells = [&] {
            QStringList all;
            for (int row = 0; row < table->model()->rowCount(); ++row)
                for (int column : {0, 1, 2})
                    all += table->model()->index(row, column).data().toString();
            return all.join(QLatin1Char(' '));
        };
        const auto button = [&](const char* name) {
            QTest::mouseClick(dialog->findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
        };
        EXPECT_EQ(cells(), QStringLiteral("0.00 4.00 1 4.00 8.00 2"));
        const int middle = canvas->width() / 2;
        const auto move = [&](int y, Qt::MouseButtons buttons) {
            QMouseEvent event(QEvent::MouseMove, QPointF(middle, y), Qt::NoButton, buttons, {});
            QCoreApplication::sendEvent(canvas, &event);
        };
        int y = canvas->height() / 4;
        move(y, Qt::NoButton);
        EXPECT_NE(canvas->cursor().shape(), Qt::SizeVerCursor);
        while (y < canvas->height() && canvas->cursor().shape() != Qt::SizeVerCursor)
            move(++y, Qt::NoButton);
        y += 4; // the edge of its reach was met first
        QTest::mousePress(canvas, Qt::LeftButton, {}, {middle, y});
        move(y + 10, Qt::LeftButton);
        move(y + 40, Qt::LeftButton);
        QTest::mouseRelease(canvas, Qt::LeftButton, {}, {middle, y + 40});
        const QString dragged = table->model()->index(0, 1).data().toString();
        EXPECT_GT(dragged.toDouble(), 4.2);
        EXPECT_LT(dragged.toDouble(), 6.0);
        EXPECT_EQ(cells(), QStringLiteral("0.00 %1 1 %1 8.00 2").arg(dragged));
        EXPECT_NEAR(std::remainder(dragged.toDouble(), 0.05), 0, 1e-6) << "nobody means a pixel";
        // A shortcut needs a window manager; the button that has it does not.
        EXPECT_EQ(dialog->findChild<QPushButton*>(QStringLiteral("undo"))->shortcut(),
            QKeySequence(QKeySequence::Undo));
        button("undo");
        EXPECT_EQ(cells(), QStringLiteral("0.00 4.00 1 4.00 8.00 2")) << "a drag is one step";

        QTest::mouseClick(canvas, Qt::LeftButton, {}, {middle, canvas->height() - 20});
        EXPECT_EQ(table->currentIndex().row(), 1);
        button("split");
        EXPECT_EQ(cells(), QStringLiteral("0.00 4.00 1 4.00 6.00 2 6.00 8.00 2"));
        table->setCurrentIndex(table->model()->index(0, 0));
        button("join");
        EXPECT_EQ(cells(), QStringLiteral("0.00 6.00 1 6.00 8.00 2"));
        table->setFocus();
        table->setCurrentIndex(table->model()->index(0, 1));
        host.press(Qt::Key_F2);
        host.type(QStringLiteral("5,1"));
        host.press(Qt::Key_Return);
        EXPECT_EQ(cells(), QStringLiteral("0.00 5.10 1 5.10 8.00 2"));
        dialog->accept();
    });
    QTest::mouseClick(host.screen->findChild<QPushButton*>(QStringLiteral("own")), Qt::LeftButton);
    const auto* written = journal(*project, L"ТСЗ-1");
    EXPECT_EQ((*written)[24].depth, L"5.0");
    EXPECT_EQ((*written)[24].cells[3], L"1");
    EXPECT_EQ((*written)[25].cells[3], L"2");
    host.controller.undo();
    EXPECT_EQ((*journal(*project, L"ТСЗ-1"))[24].cells[3], L"2");
}

TEST(StaticScreen, BearsAnyProject)
{
    for (const wchar_t* name : {L"ALLTEXT.TLX", L"ALLNUM.TLX"}) {
        const Reference<DBProject> project = sample(name);
        ScreenHost host{"static19.dll", ModeStatic, project};
        for (DBProject* open : {project.get(), static_cast<DBProject*>(nullptr)}) {
            host.controller.setProject(open);
            host.activate();
            for (int page = 3; page >= 0; --page) {
                turnTo(host, page);
                Q_EMIT host.screen->signalCalc();
                Q_EMIT host.screen->signalAddSelectedRecord();
                Q_EMIT host.screen->signalDelSelectedRecord();
            }
        }
    }
}

// The graph beside the journal: a peak is clicked and the cursor stands at its reading; typing draws it anew.
TEST(StaticScreen, AClickOnTheGraphLeadsToTheReading)
{
    ScreenHost host{"static19.dll", ModeStatic, site()};
    turnTo(host, 0);
    auto* table = host.screen->findChild<QTableView*>(QStringLiteral("journal"));
    auto* graph = host.screen->findChild<QWidget*>(QStringLiteral("readings"));
    ASSERT_TRUE(table && graph);
    // Depths of 0.2 to 8 m: a click at three quarters of the height is near 6 m, whatever the margins.
    const QPoint place(graph->width() / 2, graph->height() * 3 / 4);
    QTest::mouseClick(graph, Qt::LeftButton, Qt::NoModifier, place);
    const double depth = table->model()->index(table->currentIndex().row(), 0).data().toString().toDouble();
    EXPECT_NEAR(depth, 5.7, 0.6);
    EXPECT_EQ(QApplication::focusWidget(), table);
    const QImage before = graph->grab().toImage();
    host.type(QStringLiteral("5.75")); // over the depth
    host.press(Qt::Key_Return);
    EXPECT_NE(graph->grab().toImage(), before);
}
