#include "support/registers_screen_host.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace
{

// One layer of four metres with a collapse test whose share is 0.03 at 50 kPa; saturated density 1.9444.
Reference<DBProject> site()
{
    auto project = makeReference<DBProject>();
    project->addLithology({L"Скв-1", L"4.0"}, {L"", L""});
    project->addNumberedLink(L"Скв-1:1", L"1");
    project->addStrataElement(L"1", {});
    LabSample sample;
    sample.code = L"7";
    sample.physical = {{0, true, L"0.2"}, {1, true, L"1.8"}, {2, true, L"2.70"}};
    CompressionGroup& group = sample.compression[23];
    group.numbers[0] = 20000;
    group.cells = {
        {0, L"0", L"0", L"", 0, L""}, {4, L"0", L"0.6", L"", 0, L""}, {8, L"0", L"1.2", L"", 0, L""}};
    project->addLabSample({L"Скв-1", L"2.0"}, sample);
    return project;
}

class Subsidence : public ::testing::Test
{
protected:
    QTableView* table(const char* name) { return host.screen->findChild<QTableView*>(QLatin1String(name)); }
    void turnTo(int page)
    {
        host.screen->findChild<QTabWidget*>(QStringLiteral("pages"))->setCurrentIndex(page);
        QCoreApplication::sendPostedEvents();
    }
    void enter(QTableView* view, int row, int column, const QString& text)
    {
        view->setFocus();
        view->selectionModel()->setCurrentIndex(
            view->model()->index(row, column), QItemSelectionModel::ClearAndSelect);
        host.press(Qt::Key_F2);
        host.type(text);
        host.press(Qt::Key_Return);
    }
    const SubsidenceCell& cell(std::size_t place)
    {
        return host.project->getSubsidence().at(L"Скв-1").at(place);
    }

    ScreenHost host{"subsidence19.dll", ModeSubsidence, site()};
};

} // namespace

TEST_F(Subsidence, TypedFiguresRuleUntilAllIsCalculatedAnew)
{
    turnTo(1);
    QTableView* points = table("subsidence/points");
    ASSERT_TRUE(points);
    // Two parts of two metres: 19.07 and 57.2 kPa, 0.01144 and 0.0343 of two metres.
    EXPECT_EQ(points->model()->index(0, 1).data().toString(), QStringLiteral("9.16"));
    EXPECT_EQ(points->model()->index(0, 4).data().toString(), QStringLiteral("Тип II"));
    EXPECT_TRUE(host.project->getSubsidence().empty()) << "looking changes nothing";
    enter(points, 0, 1, QStringLiteral("4,2"));
    EXPECT_EQ(cell(0).text, L"4.2");
    EXPECT_EQ(cell(0).title, L"Тип I");
    EXPECT_TRUE(points->model()->index(0, 1).data(EditGridModel::WarningRole).toBool());
    EXPECT_TRUE(
        points->model()->index(0, 1).data(Qt::ToolTipRole).toString().contains(QStringLiteral("9.16")));
    Q_EMIT host.screen->signalCalc();
    EXPECT_EQ(cell(0).text, L"4.2");
    EXPECT_EQ(cell(1).text, L"4.00");
    EXPECT_EQ(host.project->getSubsidenceGroups().at(L"Скв-1").size(), 2U);
    host.screen->findChild<QPushButton*>(QStringLiteral("again"))->click();
    EXPECT_EQ(cell(0).text, L"9.16");
    EXPECT_EQ(cell(0).title, L"Тип II");
    host.controller.undo();
    EXPECT_EQ(cell(0).text, L"4.2");
    host.controller.undo();
    host.controller.undo();
    EXPECT_TRUE(host.project->getSubsidence().empty());
    // Not a number stays out of it.
    enter(points, 0, 3, QStringLiteral("нет"));
    EXPECT_FALSE(points->model()->index(0, 1).data(EditGridModel::WarningRole).toBool());
    EXPECT_TRUE(host.store());
}

TEST_F(Subsidence, LayersAreTypedToo)
{
    turnTo(1);
    QTableView* rows = table("subsidence/rows");
    ASSERT_EQ(rows->model()->rowCount(), 2);
    enter(rows, 1, 3, QStringLiteral("0,05"));
    // 0.05 of two metres in the place of 6.86 cm.
    EXPECT_EQ(rows->model()->index(1, 4).data().toString(), QStringLiteral("10.00"));
    EXPECT_TRUE(rows->model()->index(1, 3).data(EditGridModel::WarningRole).toBool());
    EXPECT_EQ(table("subsidence/points")->model()->index(0, 1).data().toString(), QStringLiteral("12.29"));
    enter(table("subsidence/points"), 0, 5, QStringLiteral("нет такой"));
    EXPECT_EQ(host.project->getSubsidenceNames().at(L"Скв-1"), std::vector<std::wstring>{L"нет такой"});
    EXPECT_EQ(table("subsidence/points")->model()->rowCount(), 1);
}

TEST_F(Subsidence, SamplesThatThePointLacksAreMarked)
{
    turnTo(1);
    auto* view = table("subsidence/points");
    ASSERT_TRUE(view);
    const int samples = view->model()->columnCount() - 1;
    const auto warned = [&] {
        return view->model()->index(0, samples).data(EditGridModel::WarningRole).toBool();
    };
    enter(view, 0, samples, QStringLiteral("7"));
    EXPECT_FALSE(warned());
    enter(view, 0, samples, QStringLiteral("7, 77"));
    EXPECT_TRUE(warned());
    EXPECT_TRUE(
        view->model()->index(0, samples).data(Qt::ToolTipRole).toString().contains(QStringLiteral("«77»")));
}

TEST_F(Subsidence, FoundationIsTheProjects)
{
    turnTo(0);
    auto* kind = host.screen->findChild<QComboBox*>(QStringLiteral("kind"));
    auto* width = host.screen->findChild<QLineEdit*>(QStringLiteral("width"));
    auto* pressure = host.screen->findChild<QLineEdit*>(QStringLiteral("pressure"));
    EXPECT_FALSE(width->isEnabled());
    kind->setCurrentIndex(1);
    Q_EMIT kind->activated(1);
    EXPECT_EQ(host.settings.typeCalcSubsidence(), 1);
    EXPECT_TRUE(width->isEnabled());
    width->setFocus();
    host.type(QStringLiteral("1,5"));
    pressure->setFocus();
    host.type(QStringLiteral("200"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.project->getNumberedLinks().at(L"Фундамент:0"), L"1.5;;;200");
    pressure->selectAll();
    host.type(QStringLiteral("много"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(pressure->text(), QStringLiteral("200"));
}
