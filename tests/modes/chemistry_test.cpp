#include "support/registers_screen_host.h"

#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

// The screen of analyses, by its keys.

namespace
{

constexpr std::size_t sulphate = 0;
constexpr std::size_t ph = 4;
constexpr std::size_t calcium = 5;
constexpr std::size_t soilSulphate = 26;
constexpr std::size_t kind = 29;
constexpr int firstCell = 2;

Reference<DBProject> site()
{
    auto project = makeReference<DBProject>();
    ChemistryRecord water;
    water.cells[sulphate] = L"192";
    water.cells[calcium] = L"120";
    water.cells[kind] = L"вода";
    project->addChemistry({L"Скв-1", L"3.5"}, water);
    ChemistryRecord soil;
    soil.cells[soilSulphate] = L"620";
    soil.cells[kind] = L"грунт";
    project->addChemistry({L"Скв-2", L"1.0"}, soil);
    return project;
}

class ChemistryHost : public ScreenHost
{
public:
    ChemistryHost()
        : ScreenHost("chemistry19.dll", ModeChemistry, site())
    {
    }

    QTableView* table() const override
    {
        return page()->findChild<QTableView*>(
            inEquivalents ? QStringLiteral("equivalents") : QStringLiteral("milligrams"));
    }
    QTabWidget* pages() const { return screen->findChild<QTabWidget*>(QStringLiteral("pages")); }
    QWidget* page() const { return pages()->currentWidget(); }
    void turnTo(int place) const
    {
        pages()->setCurrentIndex(place);
        QCoreApplication::sendPostedEvents();
    }
    const ChemistryRecord* record(const wchar_t* point, const wchar_t* depth) const
    {
        const auto found = project->getChemistry().find({point, depth});
        return found == project->getChemistry().end() ? nullptr : &found->second;
    }
    std::size_t count() const { return project->getChemistry().size(); }

    bool inEquivalents = false;
};

class Chemistry : public ::testing::Test
{
protected:
    ChemistryHost host;
};

} // namespace

TEST_F(Chemistry, RowsAreTypedDeletedAndTakenBack)
{
    host.turnTo(0);
    EXPECT_EQ(host.cell(0, 0), QStringLiteral("Скв-1"));
    host.goTo(0, 0);
    host.press(Qt::Key_Insert);
    host.type(QStringLiteral("Скв-9"));
    host.press(Qt::Key_Tab);
    host.type(QStringLiteral("2,5"));
    host.press(Qt::Key_Tab);
    host.type(QStringLiteral("< 20"));
    host.press(Qt::Key_Return);
    const ChemistryRecord* added = host.record(L"Скв-9", L"2.5");
    ASSERT_TRUE(added);
    EXPECT_EQ(added->cells[sulphate], L"< 20");
    EXPECT_EQ(added->cells[kind], L"вода"); // begun on the page of waters, it stays there
    for (int row = 0; row < 2; ++row)
        if (host.cell(row, 0) == QStringLiteral("Скв-9"))
            host.goTo(row, 0);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(host.count(), 2U);
    host.controller.undo();
    EXPECT_TRUE(host.record(L"Скв-9", L"2.5"));
    EXPECT_TRUE(host.store());
}

TEST_F(Chemistry, BadInputIsMarkedAndKept)
{
    host.turnTo(0);
    host.enter(0, firstCell + static_cast<int>(ph), QStringLiteral("14,5"));
    EXPECT_EQ(host.record(L"Скв-1", L"3.5")->cells[ph], L"14.5");
    EXPECT_TRUE(host.isWarned(0, firstCell + static_cast<int>(ph)));
    host.enter(0, firstCell + 1, QStringLiteral("много"));
    EXPECT_EQ(host.record(L"Скв-1", L"3.5")->cells[1], L"много");
    EXPECT_TRUE(host.isWarned(0, firstCell + 1));
    // A second analysis of one place, also where the first stands among the soils.
    host.enter(1, 0, QStringLiteral("Скв-2"));
    host.enter(1, 1, QStringLiteral("1,0"));
    EXPECT_EQ(host.count(), 2U);
    EXPECT_TRUE(host.isMarked(1, 1));
    EXPECT_TRUE(host.toolTip(1, 1).contains(QStringLiteral("уже есть")));
    EXPECT_FALSE(host.store());
    host.enter(1, 1, QStringLiteral("1,5"));
    EXPECT_EQ(host.count(), 3U);
    EXPECT_TRUE(host.store());
}

TEST_F(Chemistry, BlockFromASpreadsheetGoesIn)
{
    host.turnTo(1);
    QApplication::clipboard()->setText(QStringLiteral("Скв-5\t2,0\t300\nСкв-6\t2,2\t310\n"));
    host.goTo(1, 0);
    host.press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_TRUE(host.record(L"Скв-6", L"2.2"));
    EXPECT_EQ(host.record(L"Скв-6", L"2.2")->cells[soilSulphate], L"310")
        << "what soils are judged by comes first";
    EXPECT_EQ(host.record(L"Скв-6", L"2.2")->cells[kind], L"")
        << "sulphates of soil alone make it one of soil";
    host.turnTo(0);
    EXPECT_EQ(host.cell(0, 0), QStringLiteral("Скв-1"));
    EXPECT_NE(host.cell(1, 0), QStringLiteral("Скв-5"));
    host.controller.undo();
    EXPECT_EQ(host.count(), 2U);
}

TEST_F(Chemistry, EquivalentsAreTypedAndMilligramsKept)
{
    host.turnTo(0);
    auto* units = host.page()->findChild<QComboBox*>(QStringLiteral("units"));
    units->setCurrentIndex(1);
    host.inEquivalents = true;
    const int column = firstCell + static_cast<int>(calcium);
    EXPECT_EQ(host.cell(0, column), QStringLiteral("5.988"));
    EXPECT_TRUE(host.table()
                    ->model()
                    ->headerData(column, Qt::Horizontal)
                    .toString()
                    .contains(QStringLiteral("мг-экв/л")));
    host.enter(0, firstCell, QStringLiteral("4"));
    EXPECT_EQ(host.record(L"Скв-1", L"3.5")->cells[sulphate], L"192.125");
    EXPECT_EQ(host.record(L"Скв-1", L"3.5")->cells[calcium], L"120") << "only shown in equivalents";
    units->setCurrentIndex(0);
    host.inEquivalents = false;
    EXPECT_EQ(host.cell(0, firstCell), QStringLiteral("192.125"));
}

TEST_F(Chemistry, ProtectionIsChosenForTheSite)
{
    host.turnTo(2);
    auto* cement = host.page()->findChild<QComboBox*>(QStringLiteral("cement"));
    ASSERT_TRUE(cement);
    const auto choose = [](QComboBox* box, const QVariant& value) {
        box->setCurrentIndex(box->findData(value));
        Q_EMIT box->activated(box->currentIndex());
    };
    choose(cement, QStringLiteral("сульфатостойкий"));
    choose(host.page()->findChild<QComboBox*>(QStringLiteral("cover")), 30);
    choose(host.page()->findChild<QComboBox*>(QStringLiteral("filtration")), false);
    EXPECT_EQ(host.project->getNumberedLinks().at(L"Коррозия:0"), L"сульфатостойкий;30;Кф до 0.1;");
    host.controller.undo();
    EXPECT_EQ(host.project->getNumberedLinks().at(L"Коррозия:0"), L"сульфатостойкий;30;;");
    EXPECT_EQ(host.page()->findChild<QComboBox*>(QStringLiteral("filtration"))->currentData(), true);
}

TEST_F(Chemistry, ReportIsWrittenByTheAction)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("анализы.html"));
    host.turnTo(1);
    QTimer::singleShot(50, host.screen.get(), [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        auto* format = dialog->findChild<QComboBox*>();
        format->setCurrentIndex(format->findText(QStringLiteral("HTML"), Qt::MatchContains));
        dialog->findChild<QLineEdit*>(QStringLiteral("file"))->setText(path);
        dialog->accept();
    });
    Q_EMIT host.screen->signalPrint();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString written = QString::fromUtf8(file.readAll());
    EXPECT_TRUE(written.contains(QStringLiteral("SO<sub>4</sub>")));
    for (const char* text : {"Скв-1", "192", "Скв-2", "620", "W4"})
        EXPECT_TRUE(written.contains(QString::fromUtf8(text))) << text;
}
