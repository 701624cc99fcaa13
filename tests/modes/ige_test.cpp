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
#include <QFrame>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
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
