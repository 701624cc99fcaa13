#include "core/base/reference.h"
#include "db/db_project.h"
#include "dictionaries/dictionary.h"
#include "persistence/project_file.h"
#include "platform/utf8.h"
#include "tables/tables.h"

#include <gtest/gtest.h>

#include <algorithm>

using TableList = const std::vector<Table>& (*)();
static constexpr TableList allTables[] = {laboratoryTables,
    elementTables,
    soundingTables,
    sectionTables,
    columnTables,
    subsidenceTables,
    chemistryTables,
    overviewTables,
    stratigraphicColumnTables,
    stratigraphicOrderTables};

static std::string narrow(std::wstring_view text)
{
    return toUtf8(text);
}

// The rows as lines, cells parted by bars.
static std::string textOf(const Table& table, const TableSource& source)
{
    const TextRows rows = rowsOf(table, source);
    std::string text;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < rows.columns(); ++column)
            text += (column == 0 ? "" : "|") + narrow(rows.cell(row, column));
        text += "\n";
    }
    return text;
}

static const Table& tableNamed(TableList tables, std::string_view name)
{
    for (const Table& table : tables()) {
        if (table.name == name)
            return table;
        if (table.detail && table.detail->name == name)
            return *table.detail;
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
    const std::wstring path = *fromUtf8(TELLURIX_SAMPLES) + L"/" + name;
    std::vector<std::uint8_t> bytes;
    lookAtProjectFile(path, bytes);
    ReadReport report;
    return readProject(path, bytes, report);
}

TEST(Tables, layersFollowEachOtherFromTheTopOfEachPoint)
{
    const auto project = makeReference<DBProject>();
    project->addPointRegisterEntry({L"2", 1}, {rowWithMark(L"101.5")});
    // Two spellings of one number stand mixed in the register; "10,5" reads as 10 there.
    project->addLithology({L"2", L"10.2"}, {L"dP", L"Глина"});
    project->addLithology({L"2", L"10,5"}, {L"dP", L"Глина плотная"});
    project->addLithology({L"02", L"4"}, {L"t", L"Насыпной грунт"});
    project->addLithology({L"2", L"0.7"}, {L"", L"Почва"});
    EXPECT_EQ(textOf(tableNamed(stratigraphicOrderTables, "stratigraphicIge/layers"), {*project}),
        "02|1|0|4|4||t|Насыпной грунт\n"
        "2|1|0|0.7|0.7|100.8||Почва\n"
        "2|2|0.7|10.2|9.5|91.3|dP|Глина\n"
        "2|3|10.2|10,5|0,3|91,0|dP|Глина плотная\n");
    EXPECT_EQ(textOf(tableNamed(stratigraphicOrderTables, "stratigraphicIge/indices"), {*project}),
        "(без индекса)|1|1|0.7|0.7\n"
        "dP|1|2|0,3|9.5\n"
        "t|1|1|4|4\n");
    EXPECT_EQ(textOf(tableNamed(stratigraphicColumnTables, "stratigraphic/layers"),
                  {*project, languageRussian, L"02"}),
        "1|0|4|4||t|Насыпной грунт\n");
}

// The registers have "Скв-11" before "Скв-2".
TEST(Tables, pointsStandAsAPersonReadsThem)
{
    const auto project = makeReference<DBProject>();
    for (const wchar_t* name : {L"Скв-11", L"Скв-2", L"скв-1"}) {
        project->addPointRegisterEntry({name, 1}, {rowWithMark(L"100")});
        project->addLithology({name, L"2"}, {});
        project->addSounding({name, 3, L"", L""}, {});
    }
    project->addLithology({L"Ш-10", L"2"}, {});
    project->addLithology({L"Ш-9", L"2"}, {});
    const auto points = [&](TableList tables, const char* name) {
        const TextRows rows = rowsOf(tableNamed(tables, name), {*project});
        std::string names;
        for (std::size_t row = 0; row < rows.size(); ++row)
            names += narrow(rows.cell(row, 0)) + " ";
        return names;
    };
    EXPECT_EQ(points(columnTables, "igk/points"), "скв-1 Скв-2 Скв-11 Ш-9 Ш-10 ");
    EXPECT_EQ(points(stratigraphicOrderTables, "stratigraphicIge/layers"), "скв-1 Скв-2 Скв-11 Ш-9 Ш-10 ");
    EXPECT_EQ(points(soundingTables, "static/soundings"), "скв-1 Скв-2 Скв-11 ");
}

TEST(Tables, columnMergesTheRegistersOfAPointByDepth)
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
    const Table& column = tableNamed(columnTables, "igk/column");
    EXPECT_EQ(textOf(column, {*project, languageRussian, L"С-1"}),
        "2.5|aQ|2.5|97.5|Песок|Монолит (М)||\n"
        "3|||||7||\n"
        "4.1||||||появился, 07.08.2019|\n"
        "6|dP|3.5|94|Глина|||полутвердая\n");
    EXPECT_NE(textOf(column, {*project, languageUkrainian, L"С-1"}).find("напівтверда"), std::string::npos);
    EXPECT_EQ(textOf(tableNamed(columnTables, "igk/points"), {*project}),
        "С-1|Скв.|100|6|2|2|1|1\n"
        "С-2|||2.5|1|||\n");
}

TEST(Tables, namesComeFromTheDictionariesWhereTheyHaveThem)
{
    const auto project = makeReference<DBProject>();
    LabSample sample;
    sample.code = L"7";
    sample.physical = {{0, true, L"0,28"}, {99, false, L"1"}};
    sample.grading = {{9, L"6.0"}, {200, L"1.5"}};
    sample.shear = {{3, {{1, L"0.02"}}}, {77, {{250, L"0.03"}}}};
    project->addLabSample({L"1", L"2"}, sample);
    const auto text = [&](const char* name) {
        return textOf(tableNamed(laboratoryTables, name), {*project});
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

TEST(Tables, sectionsStandInEitherRegister)
{
    const auto project = makeReference<DBProject>();
    project->addSectionLine(L"Разрез 10-10'", {{L"С-1", 1}, {L"С-2", 2}});
    project->addSectionLine(L"Разрез 2-2'", {});
    project->addSectionPoint(L"Разрез 10-10'", {L"С-1", L"С-2", 0, 0, 99.5F, 0});
    project->addSectionPoint(L"Разрез 3-3'", {L"С-4", L"С-5", 0, 0, 0, 7});
    EXPECT_EQ(textOf(tableNamed(sectionTables, "section/lines"), {*project}),
        "Разрез 2-2'||||||\n"
        "Разрез 10-10'|2|С-1 – С-2|С-1|99.5|С-2|\n"
        "Разрез 3-3'|||С-4||С-5|7\n");
}

// A project in which everything is filled fills every table to the last column; an empty one opens in all.
TEST(Tables, showAllThatAProjectHolds)
{
    const auto full = sample(L"ALLTEXT.TLX");
    const auto empty = makeReference<DBProject>();
    for (const TableList tables : allTables)
        for (const Table& table : tables()) {
            SCOPED_TRACE(std::string(table.name));
            const TextRows rows = rowsOf(table, {*full});
            EXPECT_GT(rows.size(), 0U);
            for (std::size_t column = 0; column < rows.columns(); ++column)
                EXPECT_TRUE(table.columns[column].onlyWhenFilled || !rows.isColumnEmpty(column))
                    << narrow(table.columns[column].title);
            EXPECT_FALSE(table.whenEmpty.empty());
            rowsOf(table, {*empty});
            if (table.detail) {
                EXPECT_GT(rowsOf(*table.detail, {*full, languageRussian, rows.cell(0, 0)}).size(), 0U);
                EXPECT_EQ(rowsOf(*table.detail, {*full, languageRussian, L"нет такой"}).size(), 0U);
            }
        }
}
