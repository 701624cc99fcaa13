#include "common/sheets/sheet_texts.h"
#include "common/sheets/sheets.h"
#include "core/base/reference.h"
#include "db/db_project.h"
#include "modes/support/sheets_host.h"
#include "persistence/project_file.h"

#include <QClipboard>
#include <gtest/gtest.h>

#include <algorithm>

using SheetList = const std::vector<Sheet>& (*)();
static constexpr SheetList allSheets[] = {laboratorySheets,
    elementSheets,
    soundingSheets,
    sectionSheets,
    columnSheets,
    subsidenceSheets,
    chemistrySheets,
    overviewSheets,
    stratigraphicColumnSheets,
    stratigraphicOrderSheets};

static std::string narrow(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size())).toStdString();
}

// The rows as lines, cells parted by bars.
static std::string textOf(const Sheet& sheet, const SheetSource& source)
{
    const SheetRows rows = rowsOf(sheet, source);
    std::string text;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < rows.columns(); ++column)
            text += (column == 0 ? "" : "|") + narrow(rows.cell(row, column));
        text += "\n";
    }
    return text;
}

static const Sheet& sheetNamed(SheetList sheets, std::string_view name)
{
    for (const Sheet& sheet : sheets()) {
        if (sheet.name == name)
            return sheet;
        if (sheet.detail && sheet.detail->name == name)
            return *sheet.detail;
    }
    throw std::out_of_range(std::string(name));
}

static PointRow rowWithMark(const std::wstring& mark)
{
    PointRow row;
    row.absoluteMark = mark;
    return row;
}

static Reference<DBProject> sample(const std::wstring& name)
{
    const std::wstring path = QStringLiteral(TELLURIX_SAMPLES).toStdWString() + L"/" + name;
    std::vector<std::uint8_t> bytes;
    lookAtProjectFile(path, bytes);
    ReadReport report;
    return readProject(path, bytes, report);
}

TEST(Sheets, layersFollowEachOtherFromTheTopOfEachPoint)
{
    const auto project = makeReference<DBProject>();
    project->addPointRegisterEntry({L"2", 1}, {rowWithMark(L"101.5")});
    // Two spellings of one number stand mixed in the register; "10,5" reads as 10 there.
    project->addLithology({L"2", L"10.2"}, {L"dP", L"Глина"});
    project->addLithology({L"2", L"10,5"}, {L"dP", L"Глина плотная"});
    project->addLithology({L"02", L"4"}, {L"t", L"Насыпной грунт"});
    project->addLithology({L"2", L"0.7"}, {L"", L"Почва"});
    EXPECT_EQ(textOf(sheetNamed(stratigraphicOrderSheets, "stratigraphicIge/layers"), {*project}),
        "2|1|0|0.7|0.7|100.8||Почва\n"
        "2|2|0.7|10.2|9.5|91.3|dP|Глина\n"
        "2|3|10.2|10,5|0,3|91,0|dP|Глина плотная\n"
        "02|1|0|4|4||t|Насыпной грунт\n");
    EXPECT_EQ(textOf(sheetNamed(stratigraphicOrderSheets, "stratigraphicIge/indices"), {*project}),
        "(без индекса)|1|1|0.7|0.7\n"
        "dP|1|2|0,3|9.5\n"
        "t|1|1|4|4\n");
    EXPECT_EQ(textOf(sheetNamed(stratigraphicColumnSheets, "stratigraphic/layers"),
                  {*project, languageRussian, L"02"}),
        "1|0|4|4||t|Насыпной грунт\n");
}

TEST(Sheets, columnMergesTheRegistersOfAPointByDepth)
{
    const auto project = makeReference<DBProject>();
    project->addPointRegisterEntry({L"С-1", 1}, {rowWithMark(L"100")});
    project->addLithology({L"С-1", L"2.5"}, {L"aQ", L"Песок"});
    project->addLithology({L"С-1", L"6"}, {L"dP", L"Глина"});
    project->addLithology({L"С-2", L"2.5"}, {L"aQ", L"Чужой слой"});
    project->addSample({L"С-1", L"2.50"}, {1});
    project->addSample({L"С-1", L"3"}, {7});
    project->addWaterLevel({L"С-1", L"4.1"}, {{2019, 8, 7}, 1, 0});
    project->addConsistency({L"С-1", L"6.0"}, {3});
    const Sheet& column = sheetNamed(columnSheets, "igk/column");
    EXPECT_EQ(textOf(column, {*project, languageRussian, L"С-1"}),
        "2.5|aQ|2.5|97.5|Песок|Монолит (М)||\n"
        "3|||||7||\n"
        "4.1||||||появился, 07.08.2019|\n"
        "6|dP|3.5|94|Глина|||полутвердая\n");
    EXPECT_NE(textOf(column, {*project, languageUkrainian, L"С-1"}).find("напівтверда"), std::string::npos);
    EXPECT_EQ(textOf(sheetNamed(columnSheets, "igk/points"), {*project}),
        "С-1|Скв.|100|6|2|2|1|1\n"
        "С-2|||2.5|1|||\n");
}

TEST(Sheets, namesComeFromTheDictionariesWhereTheyHaveThem)
{
    const auto project = makeReference<DBProject>();
    LabSample sample;
    sample.code = L"7";
    sample.physical = {{0, true, L"0,28"}, {99, false, L"1"}};
    sample.grading = {{9, L"6.0"}, {200, L"1.5"}};
    sample.shear = {{3, {{1, L"0.02"}}}, {77, {{250, L"0.03"}}}};
    project->addLabSample({L"1", L"2"}, sample);
    const auto text = [&](const char* name) {
        return textOf(sheetNamed(laboratorySheets, name), {*project});
    };
    EXPECT_EQ(text("laboratory/physical"),
        "1|2|7|Влажность грунта пpиpодная|0,28|да\n"
        "1|2|7|99|1|\n");
    EXPECT_EQ(text("laboratory/shear"),
        "1|2|7|Консолидированно-дренированное испытание|0.025|0.02\n"
        "1|2|7|77|250|0.03\n");
    const std::string grading = text("laboratory/grading");
    EXPECT_TRUE(grading.starts_with("1|2|7|||||||||6.0|")) << grading;
    EXPECT_TRUE(grading.ends_with("|200: 1.5\n")) << grading;
}

TEST(Sheets, sectionsStandInEitherRegister)
{
    const auto project = makeReference<DBProject>();
    project->addSectionLine(L"Разрез 10-10'", {{L"С-1", 1}, {L"С-2", 2}});
    project->addSectionLine(L"Разрез 2-2'", {});
    project->addSectionPoint(L"Разрез 10-10'", {L"С-1", L"С-2", 0, 0, 99.5F, 0});
    project->addSectionPoint(L"Разрез 3-3'", {L"С-4", L"С-5", 0, 0, 0, 7});
    EXPECT_EQ(textOf(sheetNamed(sectionSheets, "section/lines"), {*project}),
        "Разрез 2-2'||||||\n"
        "Разрез 10-10'|2|С-1 – С-2|С-1|99.5|С-2|\n"
        "Разрез 3-3'|||С-4||С-5|7\n");
}

// A project in which everything is filled fills every sheet to the last column; an empty one opens in all.
TEST(Sheets, showAllThatAProjectHolds)
{
    const auto full = sample(L"ALLTEXT.TLX");
    const auto empty = makeReference<DBProject>();
    for (const SheetList sheets : allSheets)
        for (const Sheet& sheet : sheets()) {
            SCOPED_TRACE(std::string(sheet.name));
            const SheetRows rows = rowsOf(sheet, {*full});
            EXPECT_GT(rows.size(), 0U);
            for (std::size_t column = 0; column < rows.columns(); ++column)
                EXPECT_TRUE(sheet.columns[column].onlyWhenFilled || !rows.isColumnEmpty(column))
                    << narrow(sheet.columns[column].title);
            EXPECT_FALSE(sheet.whenEmpty.empty());
            rowsOf(sheet, {*empty});
            if (sheet.detail) {
                EXPECT_GT(rowsOf(*sheet.detail, {*full, languageRussian, rows.cell(0, 0)}).size(), 0U);
                EXPECT_EQ(rowsOf(*sheet.detail, {*full, languageRussian, L"нет такой"}).size(), 0U);
            }
        }
}

TEST(SheetScreens, keepTheContractWithTheShell)
{
    const auto project = sample(L"ALLTEXT.TLX");
    for (const SheetModule& module : sheetModules) {
        SCOPED_TRACE(module.file);
        SheetHost host(module, nullptr);
        EXPECT_NE(host.labels().find("Проект не открыт"), std::string::npos);
        std::vector<std::pair<TX_Modes, bool>> told;
        const auto keep = [&told](TX_Modes mode, bool value) { told.emplace_back(mode, value); };
        QObject::connect(host.screen.get(), &TXWidget::signalDeleteRecord, keep);
        QObject::connect(host.screen.get(), &TXWidget::signalAddRecord, keep);
        for (DBProject* open : {static_cast<DBProject*>(nullptr), project.get()}) {
            host.controller.setProject(open);
            Q_EMIT host.screen->signalUpdateComplexPoints();
            Q_EMIT host.screen->signalUpdateInfo();
            Q_EMIT host.screen->signalUpdateMode();
            Q_EMIT host.screen->signalCloseAllEditCell();
            Q_EMIT host.screen->signalDelSelectedRecord();
            Q_EMIT host.screen->signalAddSelectedRecord();
            Q_EMIT host.screen->signalPrint();
            Q_EMIT host.screen->signalChangeLanguage();
            Q_EMIT host.screen->signalUpdateSetup();
            EXPECT_TRUE(Q_EMIT host.screen->signalUpdateDB());
        }
        EXPECT_EQ(told, (std::vector<std::pair<TX_Modes, bool>>(4, {module.mode, false})));
        EXPECT_EQ(host.count().find("Показано 0"), std::string::npos);
        EXPECT_EQ(host.count().find("Показано "), 0U);
    }
}

TEST(SheetScreens, filterCountCopyAndTabs)
{
    const auto project = sample(L"PORTADOWN.TLX");
    SheetHost host(sheetModules[0], project.get());
    EXPECT_EQ(host.count(), "Показано 325 из 325");

    QTest::keyClicks(host.filter(), QStringLiteral("cbh02 26"));
    EXPECT_EQ(host.count(), "Показано 1 из 325");
    QTest::keyClick(host.filter(), Qt::Key_Down);
    QTableView* samples = host.table("laboratory/samples");
    EXPECT_TRUE(samples->hasFocus());
    QTest::keyClick(samples, Qt::Key_Home);
    QTest::keyClick(samples, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(samples, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "CBH02\t1,20\n");

    // The filter goes along to the next sheet, and Escape takes it away.
    QTest::keyClick(samples, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(host.screen->findChild<QTabWidget*>()->currentIndex(), 1);
    QTest::keyClick(host.table("laboratory/physical"), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(host.filter()->hasFocus());
    QTest::keyClicks(host.filter(), QStringLiteral("nothing"));
    EXPECT_EQ(host.count(), "Показано 0 из 727");
    EXPECT_NE(host.labels().find("Ничего не найдено"), std::string::npos);
    QTest::keyClick(host.filter(), Qt::Key_Escape);
    EXPECT_EQ(host.count(), "Показано 727 из 727");
}

TEST(SheetScreens, detailsFollowTheCurrentRow)
{
    const auto project = sample(L"PORTADOWN.TLX");
    SheetHost host(stratigraphicColumnSheets(), ModeStratigraphic, project.get());
    QTableView* columns = host.table("stratigraphic/columns");
    QTableView* layers = host.table("stratigraphic/layers");
    EXPECT_EQ(layers->model()->rowCount(), 5);
    columns->setFocus();
    QTest::keyClick(columns, Qt::Key_Down);
    EXPECT_EQ(layers->model()->rowCount(), 12);
    EXPECT_NE(host.labels().find("Слои колонки: CBH02"), std::string::npos);
    QTest::keyClicks(host.filter(), QStringLiteral("fbh03"));
    EXPECT_NE(host.labels().find("Слои колонки: FBH03"), std::string::npos);
}

TEST(SheetScreens, followTheProject)
{
    const auto project = makeReference<DBProject>();
    for (const wchar_t* name : {L"С-1", L"С-2", L"С-3"})
        project->addLithology({name, L"2"}, {L"aQ", L"Песок"});
    SheetHost host(stratigraphicOrderSheets(), ModeStratigraphicIge, project.get());
    QTableView* layers = host.table("stratigraphicIge/layers");
    layers->setFocus();
    QTest::keyClick(layers, Qt::Key_Down);

    // Nothing new: the user's place stays; a new row: seen at once, the place stays as well.
    host.controller.notify();
    EXPECT_EQ(host.count(), "Показано 3 из 3");
    EXPECT_EQ(layers->currentIndex().row(), 1);
    project->addLithology({L"С-2", L"5"}, {L"dP", L"Глина"});
    host.controller.notify();
    EXPECT_EQ(host.count(), "Показано 4 из 4");
    EXPECT_EQ(layers->currentIndex().row(), 1);

    // Another project comes with the observers dropped; the first word of the shell brings them back.
    const auto other = makeReference<DBProject>();
    host.controller.detachAll();
    host.controller.setProject(other.get());
    Q_EMIT host.screen->signalUpdateInfo();
    EXPECT_NE(host.labels().find("В проекте нет слоев"), std::string::npos);
    other->addLithology({L"С-9", L"2"}, {L"aQ", L"Песок"});
    host.controller.notify();
    EXPECT_EQ(host.count(), "Показано 1 из 1");

    // Out of view it reads nothing; closed it is told nothing.
    host.screen->hide();
    other->addLithology({L"С-9", L"3"}, {L"aQ", L"Песок"});
    host.controller.notify();
    EXPECT_EQ(host.count(), "Показано 1 из 1");
    host.screen->show();
    EXPECT_EQ(host.count(), "Показано 2 из 2");
    host.screen.reset();
    host.controller.notify();
}
