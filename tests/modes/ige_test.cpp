#include "common/edit_grid.h"
#include "core/base/reference.h"
#include "core/facade/tellurix_controller.h"
#include "db/db_project.h"
#include "db/exact_key.h"
#include "ige/assignment_view.h"
#include "ige/element_look.h"
#include "ige/ige_screen.h"
#include "ige/result_table.h"
#include "site/element_links.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{

class IgeScreenTest : public testing::Test
{
protected:
    IgeScreenTest()
    {
        for (const wchar_t* point : {L"С-1", L"С-2"}) {
            project->addLithology({point, L"2"}, {L"dQ_III", L"Суглинок твердый"});
            project->addLithology({point, L"5"}, {L"aQ_III", L"Песок мелкий"});
        }
        project->addStrataElement(L"1", {});
        project->addNumberedLink(L"С-1:1", L"1");
        // Six densities and one that the rule takes out.
        const wchar_t* densities[] = {L"1.92", L"1.93", L"1.94", L"1.93", L"1.92", L"1.94", L"2.60"};
        for (int i = 0; i < 7; ++i) {
            LabSample sample;
            sample.physical = {{1, true, densities[i]}};
            project->addLabSample({L"С-1", L"1." + std::to_wstring(i)}, sample);
        }
        controller.setCurrentMode(ModeIge);
        screen.resize(1200, 700);
        screen.show();
        look();
        turnTo(0); // not where another test has left
    }

    static void look() { QCoreApplication::sendPostedEvents(); }
    EditGrid& grid() { return *screen.findChild<EditGrid*>(QStringLiteral("elements")); }
    QFrame& notice() { return *screen.findChild<QFrame*>(QStringLiteral("notice")); }
    void turnTo(int page)
    {
        screen.findChild<QTabWidget*>()->setCurrentIndex(page);
        look();
    }
    void type(int row, int column, const wchar_t* text)
    {
        GridRows rows = grid().rows().rows();
        rows[row].cells[column] = QString::fromWCharArray(text);
        Q_EMIT grid().edited(rows);
    }
    // Keys as a person presses them: into the open cell, else into the table.
    void goTo(int row, int column)
    {
        QApplication::setActiveWindow(&screen);
        grid().setFocus();
        grid().selectionModel()->setCurrentIndex(
            grid().model()->index(row, column), QItemSelectionModel::ClearAndSelect);
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void enter(int row, int column, const QString& text)
    {
        goTo(row, column);
        press(Qt::Key_F2);
        press(Qt::Key_A, Qt::ControlModifier);
        for (const QChar& letter : text)
            QTest::sendKeyEvent(
                QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, letter, Qt::NoModifier);
        press(Qt::Key_Return);
    }
    void paste(int row, int column, const QString& text)
    {
        goTo(row, column);
        QApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
    }
    QString offer() { return notice().findChild<QPushButton*>()->text(); }
    std::wstring names()
    {
        std::wstring all;
        for (const auto& [name, record] : project->getStrataElements())
            all += name + L" ";
        return all;
    }
    const StrataElement& element(const wchar_t* name)
    {
        return findExact(project->getStrataElements(), name)->second;
    }
    std::wstring link(const wchar_t* key)
    {
        const auto found = findExact(project->getNumberedLinks(), key);
        return found == project->getNumberedLinks().end() ? L"-" : found->second;
    }

    Reference<Settings> settings = makeReference<Settings>();
    Reference<DBProject> project = makeReference<DBProject>();
    TellurixController controller{settings.get(), project.get()};
    IgeScreen screen{ModeIge, &controller};
};

} // namespace

TEST_F(IgeScreenTest, TextsThatTheFileWouldLoseAreRefusedAndOfferedInLatin)
{
    type(0, 1, L"аQ_III"); // a Cyrillic a
    EXPECT_EQ(element(L"1").texts[0], L"");
    EXPECT_TRUE(notice().isVisible());
    notice().findChild<QPushButton*>()->click();
    EXPECT_EQ(element(L"1").texts[0], L"aQ_III");
    EXPECT_FALSE(notice().isVisible());

    type(0, 5, L"1 85"); // the density
    EXPECT_EQ(element(L"1").texts[1], L"");
    type(0, 5, L"№");
    EXPECT_TRUE(notice().isVisible());
    EXPECT_EQ(element(L"1").texts[1], L"");
    type(0, 2, L"Суглинок твёрдый");
    EXPECT_EQ(elementName(project->getNumberedLinks(), L"1"), L"Суглинок твёрдый");
    controller.undo();
    controller.undo();
    EXPECT_EQ(element(L"1").texts[0], L"");
}

TEST_F(IgeScreenTest, ANewNumberGoesWithItsLayersAndBack)
{
    type(0, 0, L"7");
    EXPECT_EQ(link(L"С-1:1"), L"7");
    EXPECT_EQ(project->getStrataElements().begin()->first, L"7");
    type(0, 0, L"a:b");
    EXPECT_EQ(project->getStrataElements().begin()->first, L"7");
    EXPECT_TRUE(notice().isVisible());
    controller.undo();
    EXPECT_EQ(link(L"С-1:1"), L"1");
    GridRows none;
    Q_EMIT grid().edited(none);
    EXPECT_EQ(link(L"С-1:1"), L"-");
    EXPECT_TRUE(project->getStrataElements().empty());
    controller.undo();
    EXPECT_EQ(link(L"С-1:1"), L"1");
}

TEST_F(IgeScreenTest, KeysAndPastesLetNothingInThatTheFileWouldLose)
{
    enter(0, 1, QStringLiteral("аQ_III")); // a Cyrillic a
    EXPECT_TRUE(notice().isVisible());
    EXPECT_EQ(offer(), QStringLiteral("Записать «aQ_III»"));
    EXPECT_EQ(element(L"1").texts[0], L"");
    QTest::mouseClick(notice().findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(element(L"1").texts[0], L"aQ_III");
    enter(0, 1, QStringLiteral("aQ III"));
    EXPECT_EQ(offer(), QStringLiteral("Записать «aQIII»"));
    EXPECT_EQ(element(L"1").texts[0], L"aQ_III");
    paste(0, 5, QStringLiteral("1,95\t1.90№\n"));
    EXPECT_EQ(element(L"1").texts[1] + L"|" + element(L"1").texts[2], L"|") << "a block goes in whole or not";
    paste(0, 5, QStringLiteral("1,95\t1.90\n"));
    EXPECT_EQ(element(L"1").texts[1] + L"|" + element(L"1").texts[2], L"1.95|1.90");
    paste(1, 0, QStringLiteral("2\tжQ\tПесок\n"));
    EXPECT_EQ(names(), L"1 ") << "nor as a new row";
    paste(1, 0, QStringLiteral("2\taQ\tПесок\tПесок\n"));
    EXPECT_EQ(names(), L"1 2 ");
    EXPECT_EQ(element(L"2").code, 1);
    goTo(0, 0);
    press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(names(), L"2 ");
    EXPECT_EQ(link(L"С-1:1"), L"-");
    controller.undo();
    EXPECT_EQ(link(L"С-1:1"), L"1");
    EXPECT_TRUE(Q_EMIT screen.signalUpdateDB());
}

TEST_F(IgeScreenTest, NamesThatDoNotMixAreOfferedOneFormAtOnce)
{
    enter(1, 0, QStringLiteral("2а"));
    EXPECT_EQ(names(), L"1 ");
    ASSERT_EQ(offer(), QStringLiteral("Дать всем вид «ИГЭ-2а»"));
    QTest::mouseClick(notice().findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(names(), L"ИГЭ-1 ИГЭ-2а ");
    EXPECT_EQ(link(L"С-1:1"), L"ИГЭ-1");
    EXPECT_EQ(grid().model()->index(1, 0).data().toString(), QStringLiteral("2а")) << "shown short";
    enter(2, 0, QStringLiteral("10"));
    EXPECT_EQ(names(), L"ИГЭ-1 ИГЭ-10 ИГЭ-2а ") << "typed short";
    controller.undo();
    controller.undo();
    EXPECT_EQ(names(), L"1 ");
    EXPECT_EQ(link(L"С-1:1"), L"1");

    enter(1, 0, QStringLiteral("1.1")); // reads as 1
    ASSERT_EQ(offer(), QStringLiteral("Дать всем вид «ИГЭ-1.1»"));
    QTest::mouseClick(notice().findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(names(), L"ИГЭ-1 ИГЭ-1.1 ");
    enter(0, 0, QStringLiteral("1.1"));
    EXPECT_TRUE(notice().isVisible()) << "there is one of that name";
    EXPECT_EQ(names(), L"ИГЭ-1 ИГЭ-1.1 ");
}

TEST_F(IgeScreenTest, ChosenLayersBecomeAnElementOfTheirOwn)
{
    project->addNumberedLink(L"С-2:1", L"1");
    project->addNumberedLink(L"ИГЭ 1:0", L"Суглинок");
    Q_EMIT screen.signalUpdateInfo();
    look();
    goTo(0, 1);
    QTimer::singleShot(0, [] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* list = dialog->findChild<QListWidget*>();
        ASSERT_EQ(list->count(), 2);
        list->setCurrentRow(1);
        QTest::keyClick(list, Qt::Key_Space);
        for (QPushButton* button : dialog->findChildren<QPushButton*>())
            if (button->text() == QStringLiteral("Разделить"))
                return QTest::mouseClick(button, Qt::LeftButton);
        dialog->reject();
    });
    for (QPushButton* button : screen.findChildren<QPushButton*>())
        if (button->text() == QStringLiteral("Разделить…"))
            QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(names(), L"1 2 ");
    EXPECT_EQ(link(L"С-1:1") + link(L"С-2:1"), L"12");
    EXPECT_EQ(elementName(project->getNumberedLinks(), L"2"), L"Суглинок");
    controller.undo();
    EXPECT_EQ(names(), L"1 ");
    EXPECT_EQ(link(L"С-2:1"), L"1");
}

TEST_F(IgeScreenTest, StatisticsOpenWhereThereAreSamples)
{
    project->addStrataElement(L"2", {});
    findExact(project->getNumberedLinks(), L"С-1:1")->second = L"2";
    Q_EMIT screen.signalUpdateInfo();
    look();
    turnTo(2);
    EXPECT_EQ(screen.findChild<QComboBox*>(QStringLiteral("element"))->currentData().toString(),
        QStringLiteral("2"));
}

TEST_F(IgeScreenTest, TheSummaryMarksTypedValuesAndThoseOfTables)
{
    for (const auto& [number, value] :
        {std::pair(0, L"0.212"), std::pair(2, L"2.71"), std::pair(3, L"0.312"), std::pair(4, L"0.188")})
        project->getLabSamples().begin()->second.physical.push_back({number, true, value});
    project->getStrataElements().begin()->second.code = 3;
    project->getStrataElements().begin()->second.texts[1] = L"1.88";
    Q_EMIT screen.signalUpdateInfo();
    look();
    turnTo(3);
    auto* table = screen.findChild<ResultTable*>(QStringLiteral("ige/summary"));
    const auto text = [&](int column) { return table->model()->index(0, column).data().toString(); };
    EXPECT_EQ(text(9), QStringLiteral("1.88*"));
    EXPECT_FALSE(text(10).contains(QLatin1Char('*')));
    EXPECT_EQ(text(12), QStringLiteral("23†"));
    EXPECT_TRUE(text(18).endsWith(QStringLiteral("†"))) << text(18).toStdString();
    const auto notes = screen.findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(notes.begin(), notes.end(), [](const QLabel* label) {
        return label->text().contains(QStringLiteral("по таблицам СНиП"));
    }));
}

TEST_F(IgeScreenTest, FiveThousandElementsAreBorne)
{
    for (int number = 2; number <= 5000; ++number)
        project->addStrataElement(std::to_wstring(number), {});
    Q_EMIT screen.signalUpdateInfo();
    look();
    EXPECT_EQ(grid().rows().rows().size(), 5000);
    enter(0, 0, QStringLiteral("5001"));
    EXPECT_EQ(link(L"С-1:1"), L"5001");
}

TEST_F(IgeScreenTest, LayersAreGivenByDragAndByKeyboard)
{
    turnTo(1);
    auto* view = screen.findChild<AssignmentView*>();
    ASSERT_EQ(view->points().size(), 2);
    // Down the second column, from its first layer into the second.
    const int x = 52 + 68 + 20;
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, {x, 60});
    QMouseEvent move(
        QEvent::MouseMove, QPointF(x, view->viewport()->height() - 40), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(view->viewport(), &move);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, {x, view->viewport()->height() - 40});
    EXPECT_EQ(link(L"С-2:1"), L"1");
    EXPECT_EQ(link(L"С-2:2"), L"1");
    EXPECT_EQ(link(L"С-1:2"), L"-");

    view->setFocus();
    QTest::keyClick(view, Qt::Key_Left);
    QTest::keyClick(view, Qt::Key_Down);
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_EQ(link(L"С-1:2"), L"1");
    QTest::keyClick(view, Qt::Key_Delete);
    EXPECT_EQ(link(L"С-1:2"), L"-");
    controller.undo();
    controller.undo();
    controller.undo();
    EXPECT_EQ(link(L"С-2:1"), L"-");
}

TEST_F(IgeScreenTest, AProposalIsShownBeforeItIsTaken)
{
    turnTo(1);
    screen.findChild<QPushButton*>(QStringLiteral("propose"))->click();
    look();
    EXPECT_EQ(project->getStrataElements().size(), 1u);
    EXPECT_EQ(screen.findChild<AssignmentView*>()->points()[1].layers[0].proposed, QStringLiteral("1"));
    screen.findChild<QPushButton*>(QStringLiteral("takeProposal"))->click();
    EXPECT_EQ(project->getStrataElements().size(), 2u);
    EXPECT_EQ(link(L"С-2:1"), L"1") << "as its like in the other point";
    EXPECT_EQ(link(L"С-1:2"), L"2");
    EXPECT_EQ(elementName(project->getNumberedLinks(), L"2"), L"Песок мелкий");
    EXPECT_EQ(element(L"2").texts[0], L"aQ_III");
    controller.undo();
    EXPECT_EQ(project->getStrataElements().size(), 1u);
    EXPECT_EQ(link(L"С-1:2"), L"-");
}

TEST_F(IgeScreenTest, AnOutlierIsTakenBackByHandAndAnotherOut)
{
    turnTo(2);
    auto* values = screen.findChild<ResultTable*>(QStringLiteral("ige/values"));
    auto* statistics = screen.findChild<ResultTable*>(QStringLiteral("ige/statistics"));
    const auto count = [&] { return statistics->model()->index(0, 1).data().toString().toStdString(); };
    ASSERT_EQ(values->model()->rowCount(), 7);
    EXPECT_EQ(count(), "6");
    EXPECT_TRUE(values->model()->index(6, 4).data(Qt::FontRole).value<QFont>().strikeOut());
    QApplication::setActiveWindow(&screen);
    values->setFocus();
    values->setCurrentResult(6);
    QTest::keyClick(values, Qt::Key_Space);
    EXPECT_EQ(findExact(project->getLabSamples(), {L"С-1", L"1.6"})->second.physical[0].value, L"2.60!");
    EXPECT_EQ(count(), "7");
    values->setCurrentResult(0);
    QTest::keyClick(values, Qt::Key_Space);
    EXPECT_FALSE(findExact(project->getLabSamples(), {L"С-1", L"1.0"})->second.physical[0].enabled);
    EXPECT_EQ(count(), "6");
    controller.undo();
    controller.undo();
    EXPECT_EQ(count(), "6");
    EXPECT_EQ(findExact(project->getLabSamples(), {L"С-1", L"1.6"})->second.physical[0].value, L"2.60");
}

TEST_F(IgeScreenTest, EveryPageBearsNoProjectAndAnEmptyOne)
{
    const auto empty = makeReference<DBProject>();
    for (DBProject* open : {static_cast<DBProject*>(nullptr), empty.get()})
        for (int page = 0; page < 5; ++page) {
            controller.setProject(open);
            turnTo(page);
            Q_EMIT screen.signalUpdateInfo();
            look();
            Q_EMIT screen.signalCalc();
            Q_EMIT screen.signalDelSelectedRecord();
            EXPECT_TRUE(Q_EMIT screen.signalUpdateDB());
        }
}

TEST(ElementLook, HatchesAreDigits)
{
    EXPECT_EQ(hatchNumber(hatchBytes(34)), 34u);
    EXPECT_EQ(hatchNumber({}), 0u);
    EXPECT_EQ(hatchNumber({1, 2, 3}), 0u);
    EXPECT_TRUE(hatchBytes(0).empty());
    StrataElement element;
    element.valueB = storedColor(QColor(0x12, 0x34, 0x56));
    EXPECT_EQ(colorOf(element), QColor(0x12, 0x34, 0x56));
    element.valueB = 13;
    element.code = 1;
    EXPECT_NE(colorOf(element), QColor(0, 0, 13));
}
