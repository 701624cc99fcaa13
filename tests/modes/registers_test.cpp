#include "db/exact_key.h"
#include "modules/unsaved_cells.h"
#include "support/change_counter.h"
#include "support/registers_screen_host.h"

#include <QAbstractScrollArea>
#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

static QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

static Reference<DBProject> projectWithPoints(const std::vector<std::wstring>& names)
{
    auto project = makeReference<DBProject>();
    PointRow row;
    row.absoluteMark = L"100,5";
    for (const std::wstring& name : names)
        project->addPointRegisterEntry({name, 1}, {row});
    return project;
}

static std::string depthsOf(DBProject& project, const std::wstring& point)
{
    std::string depths;
    for (const auto& [key, layer] : project.getLithology())
        if (key.pointName == point)
            depths += QString::fromStdWString(key.depth).toStdString() + " ";
    return depths;
}

class Litology : public testing::Test
{
protected:
    enum Column { Bottom, Thickness, Mark, Index, Description, Element };

    static Reference<DBProject> project()
    {
        auto made = projectWithPoints({L"1", L"2"});
        made->addLithology({L"1", L"3"}, {L"aQ", L"песок"});
        made->addLithology({L"1", L"12"}, {L"gQ", L"глина"});
        made->addLithology({L"2", L"7"}, {L"tQ", L"насыпь"});
        return made;
    }

    ScreenHost host{"litology19.dll", ModeLitology, project()};

    // Without the elements, which the tests of their own speak of.
    void expectTable(const char* expected)
    {
        QStringList rows = host.cells().split(QLatin1Char('\n'));
        for (QString& row : rows) {
            QStringList cells = row.split(QLatin1Char('|'));
            if (cells.size() > Element)
                cells.removeAt(Element);
            row = cells.join(QLatin1Char('|'));
        }
        EXPECT_EQ(rows.join(QLatin1Char('\n')).toStdString(), expected);
    }
};

TEST_F(Litology, ShowsThicknessesAndMarksAndStoresWhatIsTyped)
{
    expectTable("3|3|97,5|aQ|песок\n12|9|88,5|gQ|глина");
    host.goTo(1, Element);
    host.press(Qt::Key_Tab); // past the end
    host.type(text("5.20"));
    host.press(Qt::Key_Tab);
    host.type(text("eQ"));
    host.press(Qt::Key_Tab);
    host.type(text(" суглинок "));
    host.press(Qt::Key_Return);
    expectTable("3|3|97,5|aQ|песок\n5.20|2.20|95,30|eQ| суглинок \n12|6.80|88,5|gQ|глина");
    const auto layer = findExact(host.project->getLithology(), {L"1", L"5.20"});
    ASSERT_NE(layer, host.project->getLithology().end());
    EXPECT_EQ(layer->second.geoIndex, L"eQ");
    EXPECT_EQ(layer->second.description, L" суглинок ");
    EXPECT_TRUE(host.store());
}

TEST_F(Litology, EveryPointHasItsOwnHistory)
{
    host.enter(0, Bottom, text("4"));
    host.choose(1);
    EXPECT_EQ(host.controller.editedSample(), L"2");
    EXPECT_FALSE(host.controller.undoRedo()->canUndo(host.controller.undoContext()));
    host.enter(0, Index, text("новый"));
    host.goTo(0, Bottom);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(depthsOf(*host.project, L"2"), "");
    host.controller.undo();
    expectTable("7|7|93,5|новый|насыпь");
    host.controller.undo();
    expectTable("7|7|93,5|tQ|насыпь");
    EXPECT_EQ(depthsOf(*host.project, L"1"), "4 12 ");
    host.choose(0);
    host.controller.undo();
    EXPECT_EQ(depthsOf(*host.project, L"1"), "3 12 ");
    host.controller.redo();
    expectTable("4|4|96,5|aQ|песок\n12|8|88,5|gQ|глина");
}

TEST_F(Litology, ADepthThatCannotBeStoredStaysAsTyped)
{
    const struct {
        const char* typed;
        const char* reason;
    } cases[] = {
        {"", "Введите глубину"},
        {"abc", "не число"},
        {"1e99", "не число"},
        {"nan", "не число"},
        {"4.2 / туго", "не число"},
        {"12", "уже есть"},
        {"12.0", "как одно число 12"},
    };
    for (const auto& [typed, reason] : cases) {
        SCOPED_TRACE(typed);
        host.goTo(0, Bottom);
        host.press(Qt::Key_F2);
        host.press(Qt::Key_Backspace);
        host.type(text(typed));
        host.press(Qt::Key_Return);
        for (const char* when :
            {"at once", "over a reload", "over a change of the point", "over a new screen"}) {
            SCOPED_TRACE(when);
            EXPECT_EQ(host.cell(0, Bottom), text(typed));
            EXPECT_TRUE(host.isMarked(0, Bottom));
            EXPECT_TRUE(host.toolTip(0, Bottom).contains(text(reason)))
                << host.toolTip(0, Bottom).toStdString();
            EXPECT_EQ(depthsOf(*host.project, L"1"), "3 12 ") << "the row holds its old depth";
            host.status.clear();
            EXPECT_FALSE(host.store());
            EXPECT_TRUE(host.status.contains(text("Точка 1, строка 1"))) << host.status.toStdString();
            if (when == std::string("at once")) {
                host.activate();
            } else if (when == std::string("over a reload")) {
                host.choose(1);
                EXPECT_FALSE(host.store()) << "whichever point is on view";
                host.choose(0);
            } else {
                host.make();
            }
        }
        host.enter(0, Bottom, text("3"));
        EXPECT_FALSE(host.isMarked(0, Bottom));
        EXPECT_TRUE(host.store());
    }
}

TEST_F(Litology, UndoTakesBackWhatCouldNotBeStoredToo)
{
    host.enter(0, Bottom, text("12"));
    host.enter(0, Description, text("ил"));
    EXPECT_EQ(findExact(host.project->getLithology(), {L"1", L"3"})->second.description, L"ил");
    host.controller.undo();
    EXPECT_TRUE(host.isMarked(0, Bottom));
    host.controller.undo();
    expectTable("3|3|97,5|aQ|песок\n12|9|88,5|gQ|глина");
    EXPECT_TRUE(host.store());
    host.controller.redo();
    EXPECT_TRUE(host.isMarked(0, Bottom));
}

TEST_F(Litology, ATypedCellIsOneChangeToldOnce)
{
    ChangeCounter counter(host.controller);
    host.enter(0, Description, text("ил"));
    EXPECT_EQ(counter.calls, 1);
    host.enter(0, Bottom, text("2,5"));
    EXPECT_EQ(counter.calls, 2) << "a comma that is mended is none more";
    host.enter(0, Bottom, text("2.5"));
    EXPECT_EQ(counter.calls, 2) << "nothing has changed";
}

TEST_F(Litology, TwoRowsCanChangeTheirDepths)
{
    host.enter(0, Bottom, text("12"));
    EXPECT_TRUE(host.isMarked(0, Bottom));
    host.enter(1, Bottom, text("3"));
    expectTable("3|3|97,5|gQ|глина\n12|9|88,5|aQ|песок");
    EXPECT_TRUE(host.store());
    EXPECT_EQ(depthsOf(*host.project, L"1"), "3 12 ");
    EXPECT_EQ(findExact(host.project->getLithology(), {L"1", L"3"})->second.description, L"глина");
}

TEST_F(Litology, ANewRowIsNoFaultUntilSomethingIsTyped)
{
    host.goTo(0, Bottom);
    host.press(Qt::Key_Insert);
    expectTable("3|3|97,5|aQ|песок\n||||\n12|9|88,5|gQ|глина");
    EXPECT_TRUE(host.store());
    host.press(Qt::Key_Right);
    host.enter(1, Description, text("торф"));
    EXPECT_TRUE(host.isMarked(1, Bottom));
    EXPECT_FALSE(host.store());
    host.enter(1, Bottom, text("4"));
    EXPECT_TRUE(host.store());
    EXPECT_EQ(depthsOf(*host.project, L"1"), "3 4 12 ");
}

TEST_F(Litology, WarnsOfWhatIsStoredButWrong)
{
    host.enter(0, Bottom, text("3,8"));
    EXPECT_EQ(depthsOf(*host.project, L"1"), "3.8 12 ");
    EXPECT_TRUE(host.status.contains(text("Запятая"))) << host.status.toStdString();
    host.controller.undo();
    EXPECT_EQ(depthsOf(*host.project, L"1"), "3,8 12 ");
    EXPECT_TRUE(host.isWarned(0, Bottom));
    EXPECT_TRUE(host.toolTip(0, Bottom).contains(text("прочтут «3,8» как 3"))) << "as the orderings do";
    host.enter(1, Bottom, text("3.5"));
    EXPECT_FALSE(host.isMarked(1, Bottom)) << "3,8 stands above, read as 3";
    EXPECT_EQ(host.cell(1, Thickness), text("-0,3"));
    EXPECT_TRUE(host.isWarned(1, Thickness));
    host.goTo(1, Description);
    host.press(Qt::Key_Delete);
    EXPECT_TRUE(host.isWarned(1, Description));
    EXPECT_TRUE(host.store());
}

TEST_F(Litology, CommasOfAnOpenedProjectAreMendedForTheWholeRegister)
{
    const auto buttonShown = [&]() -> QPushButton* {
        for (QPushButton* button : host.screen->findChildren<QPushButton*>())
            if (button->text() == text("Исправить") && button->isVisible())
                return button;
        return nullptr;
    };
    EXPECT_FALSE(buttonShown());
    host.project->addLithology({L"2", L"9,5"}, {L"a", L"ил"});
    host.project->addLithology({L"2", L"1 010"}, {L"b", L"торф"});
    host.project->addLithology({L"1", L"12.0"}, {});
    host.project->addLithology({L"1", L"4,2"}, {L"c", L"песок"});
    host.activate();
    EXPECT_EQ(depthsOf(*host.project, L"1"), "3 4,2 12 ") << "nothing is mended unasked";
    ASSERT_TRUE(buttonShown());
    QTest::mouseClick(buttonShown(), Qt::LeftButton);
    EXPECT_EQ(depthsOf(*host.project, L"1"), "3 4.2 12 ");
    EXPECT_EQ(depthsOf(*host.project, L"2"), "7 9.5 1010 ");
    EXPECT_EQ(findExact(host.project->getLithology(), {L"2", L"1010"})->second.description, L"торф");
    EXPECT_FALSE(buttonShown());
    host.controller.undo();
    EXPECT_EQ(depthsOf(*host.project, L"1"), "3 4,2 12 ");
    EXPECT_EQ(depthsOf(*host.project, L"2"), "1 010 7 9,5 ") << "as the registers read them";
}

TEST_F(Litology, TellsTheShellWhatIsNotStoredAndShowsIt)
{
    const auto unsaved = [&] { return host.screen->property(unsavedCellsProperty).toStringList(); };
    host.enter(0, Bottom, text("туго"));
    host.choose(1);
    host.goTo(1, Description);
    host.type(text("без глубины"));
    host.press(Qt::Key_Tab);
    ASSERT_EQ(unsaved().size(), 2);
    EXPECT_TRUE(unsaved()[0].startsWith(text("Точка 2, строка 2, «Подошва")));
    EXPECT_TRUE(unsaved()[1].startsWith(text("Точка 1, строка 1, «Подошва")));
    EXPECT_TRUE(unsaved()[1].contains(text("«туго» — не число")));
    host.screen->setProperty(shownCellProperty, 1);
    EXPECT_EQ(host.controller.editedSample(), L"1");
    EXPECT_EQ(host.table()->currentIndex(), host.table()->model()->index(0, Bottom));
    host.controller.undo();
    EXPECT_EQ(unsaved().size(), 1);
}

TEST_F(Litology, PasteStoresWhatCanBeStoredInOneStep)
{
    host.goTo(0, Bottom);
    QGuiApplication::clipboard()->setText(text("1\t\t\ta\tА\n1.0\t\t\tb\tБ\n\t\t\tc\tВ\n2,5\t\t\td\tГ\n"));
    host.press(Qt::Key_V, Qt::ControlModifier);
    expectTable("1|1|99,5|a|А\n1.0|||b|Б\n|||c|В\n2.5|1.5|98,0|d|Г");
    EXPECT_EQ(depthsOf(*host.project, L"1"), "1 2.5 12 ") << "12 is held by the row that is 1.0 now";
    host.controller.undo();
    expectTable("1|1|99,5|a|А\n1.0|||b|Б\n|||c|В\n2,5|1,5|98,0|d|Г");
    host.controller.undo();
    expectTable("3|3|97,5|aQ|песок\n12|9|88,5|gQ|глина");
    EXPECT_EQ(depthsOf(*host.project, L"1"), "3 12 ");
}

// Layers of point 1 at 3, 12 and 20 m belong to the elements 5, 6 and none, the one of point 2 to 6.
class LayersOfElements : public Litology
{
protected:
    LayersOfElements()
    {
        for (const wchar_t* name : {L"5", L"6", L"7"})
            host.project->addStrataElement(name, {});
        host.project->addLithology({L"1", L"20"}, {L"dP", L"мел"});
        host.project->addNumberedLink(L"1:1", L"5");
        host.project->addNumberedLink(L"1:2", L"6");
        host.project->addNumberedLink(L"2:1", L"6");
        host.project->addNumberedLink(L"ИГЭ 5:0", L"Песок");
        host.activate();
    }

    // What the project holds: the depth of each layer with its element.
    std::string links()
    {
        std::string all;
        std::size_t number = 0;
        for (const auto& [key, layer] : host.project->getLithology()) {
            if (key.pointName != L"1")
                continue;
            const auto link = findExact(host.project->getNumberedLinks(), L"1:" + std::to_wstring(++number));
            const bool isLinked = link != host.project->getNumberedLinks().end();
            all += QString::fromStdWString(key.depth + L"=" + (isLinked ? link->second : L"-") + L" ")
                       .toStdString();
        }
        return all;
    }
};

TEST_F(LayersOfElements, LinksGoWithTheirLayersThroughEveryEditAndBack)
{
    const std::string before = "3=5 12=6 20=- ";
    EXPECT_EQ(links(), before);
    const auto undone = [&](int steps, const std::string& after) {
        EXPECT_EQ(links(), after);
        for (int step = 0; step < steps; ++step)
            host.controller.undo();
        EXPECT_EQ(links(), before);
        for (int step = 0; step < steps; ++step)
            host.controller.redo();
        EXPECT_EQ(links(), after);
        for (int step = 0; step < steps; ++step)
            host.controller.undo();
        EXPECT_EQ(host.project->getNumberedLinks().size(), 4U) << "nor are others touched";
    };
    // Typed into the spare row, above them all.
    host.enter(3, Bottom, text("1"));
    undone(1, "1=- 3=5 12=6 20=- ");
    // Deleted: the first, then all.
    host.goTo(0, Bottom);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    undone(1, "12=6 20=- ");
    host.goTo(0, Bottom);
    host.press(Qt::Key_A, Qt::ControlModifier);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    undone(1, "");
    // To another depth, past its neighbours; the two steps of a comma.
    host.enter(0, Bottom, text("15"));
    undone(1, "12=6 15=5 20=- ");
    host.enter(2, Bottom, text("5,5"));
    EXPECT_EQ(links(), "3=5 5.5=- 12=6 ");
    undone(2, "3=5 5.5=- 12=6 ");
    // Two change places, by one paste and with a comma on the way.
    host.goTo(0, Bottom);
    QGuiApplication::clipboard()->setText(text("12\n3,0\n"));
    host.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(links(), "3.0=6 12=5 20=- ");
    host.controller.undo();
    host.controller.undo();
    EXPECT_EQ(links(), before);
}

TEST_F(LayersOfElements, AnUndoneEditKeepsWhatWasGivenMeanwhile)
{
    host.enter(3, Bottom, text("1"));
    EXPECT_EQ(links(), "1=- 3=5 12=6 20=- ");
    // On the screen of the elements, the layer at 20 m.
    host.project->addNumberedLink(L"1:4", L"7");
    findExact(host.project->getNumberedLinks(), L"1:2")->second = L"7";
    host.choose(1);
    host.choose(0);
    host.controller.undo();
    EXPECT_EQ(links(), "3=7 12=6 20=7 ");
    host.controller.redo();
    EXPECT_EQ(links(), "1=- 3=7 12=6 20=7 ");
}

TEST_F(LayersOfElements, ElementsAreChosenPastedAndUndoneInTheRegister)
{
    EXPECT_EQ(host.cell(0, Element), text("5"));
    host.enter(2, Element, text("7"));
    EXPECT_EQ(links(), "3=5 12=6 20=7 ");
    host.goTo(1, Element);
    host.press(Qt::Key_Delete);
    EXPECT_EQ(links(), "3=5 12=- 20=7 ");
    host.controller.undo();
    host.goTo(0, Element);
    QGuiApplication::clipboard()->setText(text("6\n9\n"));
    host.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(links(), "3=6 12=6 20=7 ") << "9 is no element";
    EXPECT_TRUE(host.isMarked(1, Element));
    EXPECT_TRUE(host.toolTip(1, Element).contains(text("«9» в проекте нет")));
    EXPECT_FALSE(host.store());
    host.controller.undo();
    host.controller.undo();
    EXPECT_EQ(links(), "3=5 12=6 20=- ");
    EXPECT_TRUE(host.store());

    eraseExact(host.project->getStrataElements(), std::wstring(L"6"));
    host.activate();
    EXPECT_TRUE(host.isWarned(1, Element));
    host.enter(0, Description, text("ил"));
    EXPECT_EQ(links(), "3=5 12=6 20=- ") << "a link to what is gone is not lost either";
}

TEST_F(LayersOfElements, APointWithAColonTakesNone)
{
    host.project->addPointRegisterEntry({L"С:2", 1}, {});
    host.project->addLithology({L"С:2", L"4"}, {});
    host.activate();
    host.choose(2);
    ASSERT_EQ(host.controller.editedSample(), L"С:2");
    EXPECT_TRUE(host.isWarned(0, Element));
    host.enter(0, Element, text("7"));
    EXPECT_EQ(host.project->getNumberedLinks().size(), 4U);
}

TEST_F(Litology, AClickInTheColumnChoosesTheRow)
{
    const auto areas = host.screen->findChildren<QAbstractScrollArea*>();
    const auto column = std::find_if(areas.begin(), areas.end(), [](const QAbstractScrollArea* area) {
        return area->metaObject()->className() == std::string("LithologyColumn");
    });
    ASSERT_NE(column, areas.end());
    QWidget* drawing = (*column)->viewport();
    host.goTo(0, Index);
    // To scale the first layer takes the upper quarter.
    QTest::mouseClick(drawing, Qt::LeftButton, {}, {drawing->width() - 20, drawing->height() / 2});
    EXPECT_EQ(host.table()->currentIndex(), host.table()->model()->index(1, Index));
    QTest::mouseClick(drawing, Qt::LeftButton, {}, {drawing->width() - 20, drawing->height() / 6});
    EXPECT_EQ(host.table()->currentIndex().row(), 0);
}

TEST_F(Litology, TheShellsActionsAddAndDelete)
{
    bool canDelete = true;
    QObject::connect(host.screen.get(), &TXWidget::signalDeleteRecord, [&](TX_Modes mode, bool value) {
        EXPECT_EQ(mode, ModeLitology);
        canDelete = value;
    });
    host.goTo(0, Bottom);
    host.press(Qt::Key_F2);
    host.type(text("4"));
    Q_EMIT host.screen->signalAddSelectedRecord(); // an open cell is committed first
    EXPECT_EQ(depthsOf(*host.project, L"1"), "4 12 ");
    EXPECT_EQ(host.rowCount(), 3);
    host.table()->selectAll();
    Q_EMIT host.screen->signalDelSelectedRecord();
    EXPECT_EQ(depthsOf(*host.project, L"1"), "");
    EXPECT_FALSE(canDelete);
}

TEST_F(Litology, FollowsThePointOfTheScreenBefore)
{
    host.controller.setCurrentMode(ModeWaters);
    host.controller.setEditedSample(L"2");
    host.activate();
    expectTable("7|7|93,5|tQ|насыпь");
    // Another mode's item that is no point leaves the screen where it was.
    host.controller.setEditedSample(L"Проба 7");
    host.activate();
    EXPECT_EQ(host.controller.editedSample(), L"2");
    expectTable("7|7|93,5|tQ|насыпь");
}

TEST_F(Litology, RowsThatTheRegistersRefuseAreNotLost)
{
    // Beside other numbers, a name that reads as 0 cannot be told from them.
    host.project->addPointRegisterEntry({L"0", 2}, {});
    host.activate();
    host.choose(0);
    ASSERT_EQ(host.controller.editedSample(), L"0");
    host.table()->setFocus();
    host.press(Qt::Key_Insert);
    host.type(text("2"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.cell(0, Bottom), text("2"));
    EXPECT_TRUE(host.toolTip(0, Bottom).contains(text("Переименуйте точку")));
    EXPECT_FALSE(host.store());
    EXPECT_EQ(host.project->getLithology().size(), 3U);
}

TEST_F(Litology, PointsAreFoundByTyping)
{
    host.list()->setFocus();
    host.type(text("2"));
    EXPECT_EQ(host.list()->model()->rowCount(), 1);
    EXPECT_EQ(host.controller.editedSample(), L"1") << "typing alone chooses nothing";
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.controller.editedSample(), L"2");
    EXPECT_TRUE(host.table()->hasFocus());
    host.press(Qt::Key_Escape);
    EXPECT_TRUE(host.list()->hasFocus());
    host.press(Qt::Key_Escape);
    EXPECT_EQ(host.list()->model()->rowCount(), 2);
    host.press(Qt::Key_Up);
    EXPECT_EQ(host.controller.editedSample(), L"1");
}

TEST_F(Litology, AnUndoStepWithoutAProjectDoesNothing)
{
    host.enter(0, Bottom, text("4"));
    host.controller.setProject(nullptr);
    host.activate();
    EXPECT_EQ(host.table()->model()->rowCount(), 0);
    EXPECT_TRUE(host.store());
    host.controller.setEditedSample(L"1");
    host.controller.undo();
    EXPECT_EQ(depthsOf(*host.project, L"1"), "4 12 ");
}

TEST_F(Litology, WhatWasTypedIntoOneProjectDoesNotComeUpInAnother)
{
    host.enter(0, Bottom, text("abc"));
    const auto other = projectWithPoints({L"1"});
    other->addLithology({L"1", L"3"}, {L"aQ", L"песок"});
    host.controller.setProject(other.get());
    host.activate();
    expectTable("3|3|97,5|aQ|песок");
    EXPECT_TRUE(host.store());
}

TEST(Samples, KindsAreNamesAndUnknownNumbersStay)
{
    auto project = projectWithPoints({L"Скв-1"});
    project->addSample({L"Скв-1", L"1.5"}, {1});
    project->addSample({L"Скв-1", L"2"}, {77});
    ScreenHost host("tests19.dll", ModeTests, project);
    EXPECT_EQ(host.cells(), text("1.5|Монолит (М)\n2|77"));
    host.enter(1, 0, text("2.5"));
    host.enter(0, 1, text("вал"));
    EXPECT_EQ(host.cells(), text("1.5|Валовая (В)\n2.5|77"));
    EXPECT_EQ(findExact(project->getSamples(), {L"Скв-1", L"2.5"})->second.sampleKind, 77);

    host.goTo(1, 0);
    host.press(Qt::Key_Insert);
    host.type(text("9"));
    host.press(Qt::Key_Tab);
    EXPECT_TRUE(host.isMarked(2, 1)) << "no kind, no sample";
    EXPECT_EQ(project->getSamples().size(), 2U);
    host.type(text("кирпич"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.cell(2, 1), text("кирпич"));
    EXPECT_TRUE(host.isMarked(2, 1));
    host.enter(2, 1, text("0"));
    EXPECT_EQ(host.cell(2, 1), text("Нарушенная (Б|Н)"));
    EXPECT_TRUE(host.store());
    EXPECT_EQ(project->getSamples().size(), 3U);
}

TEST(Samples, OfTwoRowsWithOneDepthTheSecondIsMarkedBeforeEitherHasItsKind)
{
    auto project = projectWithPoints({L"Скв-1"});
    ScreenHost host("tests19.dll", ModeTests, project);
    host.goTo(0, 0);
    host.type(text("9"));
    host.press(Qt::Key_Return);
    host.type(text("9.0"));
    host.press(Qt::Key_Return);
    EXPECT_FALSE(host.isMarked(0, 0));
    EXPECT_TRUE(host.toolTip(1, 0).contains(text("как одно число 9"))) << host.toolTip(1, 0).toStdString();
    // Whichever is completed first has the depth; the other stays as it was typed, and says so.
    host.enter(1, 1, text("вал"));
    EXPECT_EQ(host.cells(), text("9|\n9.0|Валовая (В)"));
    EXPECT_TRUE(host.isMarked(0, 0));
    EXPECT_FALSE(host.isMarked(1, 0));
    host.enter(0, 1, text("мон"));
    EXPECT_EQ(host.cells(), text("9|Монолит (М)\n9.0|Валовая (В)"));
    EXPECT_FALSE(host.store());
    EXPECT_EQ(project->getSamples().size(), 1U);
    host.enter(0, 0, text("8"));
    EXPECT_TRUE(host.store());
    EXPECT_EQ(project->getSamples().size(), 2U);
    for (int i = 0; i < 5; ++i)
        host.controller.undo();
    EXPECT_EQ(host.cells(), text(""));
    EXPECT_TRUE(project->getSamples().empty());
}

TEST(Waters, DatesAreReadAsPeopleWriteThem)
{
    auto project = projectWithPoints({L"1"});
    project->addWaterLevel({L"1", L"4"}, {{2018, 0, 0}, 5, 0});
    ScreenHost host("waters19.dll", ModeWaters, project);
    const auto level = [&]() -> WaterValue& {
        return findExact(project->getWaterLevels(), {L"1", L"4"})->second;
    };
    EXPECT_EQ(host.cells(), text("4|00.00.2018|1|"));
    host.goTo(0, 3);
    host.press(Qt::Key_Space);
    EXPECT_EQ(host.cells(), text("4|00.00.2018|1|1"));
    EXPECT_EQ(level().date, (Date3{2018, 0, 0})) << "what is not edited stays";
    EXPECT_EQ(level().flagA, 5);

    const struct {
        const char* typed;
        const char* shown;
        bool isDate;
        Date3 stored;
    } cases[] = {
        {"29.02.2020", "29.02.2020", true, {2020, 2, 29}},
        {"29.02.2019", "29.02.2019", false, {2020, 2, 29}},
        {"1.3.19", "01.03.2019", true, {2019, 3, 1}},
        {"5/12/1987", "05.12.1987", true, {1987, 12, 5}},
        {"вчера", "вчера", false, {1987, 12, 5}},
        {"1.1.0000", "1.1.0000", false, {1987, 12, 5}},
        {"31.12.99", "31.12.1999", true, {1999, 12, 31}},
    };
    for (const auto& [typed, shown, isDate, stored] : cases) {
        SCOPED_TRACE(typed);
        host.enter(0, 1, text(typed));
        EXPECT_EQ(host.cell(0, 1), text(shown));
        EXPECT_EQ(host.isMarked(0, 1), !isDate);
        EXPECT_EQ(host.store(), isDate);
        EXPECT_EQ(level().date, stored);
    }
    host.goTo(0, 1);
    host.press(Qt::Key_Delete);
    EXPECT_EQ(level().date, Date3{});
    EXPECT_TRUE(host.store());
}

TEST(Consistents, IntervalsBeginWhereTheOneAboveEnds)
{
    auto project = projectWithPoints({L"1"});
    project->addConsistency({L"1", L"2.5"}, {4});
    project->addConsistency({L"1", L"10"}, {5});
    ScreenHost host("consistents19.dll", ModeConsistents, project);
    EXPECT_EQ(host.cells(), text("0|2.5|тугопластичная\n2.5|10|мягкопластичная"));
    host.settings.setReportLanguage(languageUkrainian);
    host.activate();
    EXPECT_EQ(host.cells(), text("0|2.5|тугопластична\n2.5|10|м'якопластична"));
    host.enter(0, 2, text("текуча"));
    EXPECT_EQ(findExact(project->getConsistency(), {L"1", L"2.5"})->second.consistencyKind, 2);
    host.enter(0, 1, text("11"));
    EXPECT_EQ(host.cells(), text("0|10|м'якопластична\n10|11|текуча"));
}

TEST(RegisterScreens, SayWhatIsMissing)
{
    for (const auto& [file, mode] : {std::pair{"litology19.dll", ModeLitology},
             {"tests19.dll", ModeTests},
             {"waters19.dll", ModeWaters},
             {"consistents19.dll", ModeConsistents}}) {
        SCOPED_TRACE(file);
        ScreenHost host(file, mode, makeReference<DBProject>());
        EXPECT_FALSE(host.table()->isVisible());
        EXPECT_TRUE(host.store());
        Q_EMIT host.screen->signalAddSelectedRecord();
        Q_EMIT host.screen->signalDelSelectedRecord();
        host.project->addLithology({L"ничья", L"3"}, {});
        host.project->addSample({L"ничья", L"3"}, {});
        host.project->addWaterLevel({L"ничья", L"3"}, {});
        host.project->addConsistency({L"ничья", L"3"}, {});
        host.activate();
        EXPECT_TRUE(host.table()->isVisible()) << "rows without a point are shown all the same";
        EXPECT_EQ(host.rowCount(), 1);
    }
}
