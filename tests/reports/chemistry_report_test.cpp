#include "db/db_project.h"
#include "dictionaries/dictionary.h"
#include "document/xlsx.h"
#include "platform/utf8.h"
#include "plots/piper.h"
#include "plots/schoeller.h"
#include "reports/chemistry_report.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

std::wstring textOf(const TableCell& cell)
{
    std::wstring text;
    for (const Run& run : cell.runs)
        text += run.text;
    return text;
}

// Ca 120, Mg 36, Na 83, HCO3 366, SO4 192, Cl 89, NO3 6 mg/l.
ChemistryRecord worked()
{
    ChemistryRecord record;
    record.cells[CellCa] = L"120";
    record.cells[CellMg] = L"36";
    record.cells[CellNaK] = L"83";
    record.cells[CellHCO3] = L"366";
    record.cells[CellSO4] = L"192";
    record.cells[CellCl] = L"89";
    record.cells[CellNO3] = L"6";
    record.cells[CellPH] = L"7.2";
    return record;
}

std::vector<const TableBlock*> tablesOf(const Document& document)
{
    std::vector<const TableBlock*> tables;
    for (const Block& block : document.blocks)
        if (const auto* table = std::get_if<TableBlock>(&block))
            tables.push_back(table);
    return tables;
}

} // namespace

TEST(ChemistryReport, ShowsTheWorkedWaterInThreeUnitsAndAsFormula)
{
    DBProject project;
    project.addChemistry({L"Скв-1", L"3.5"}, worked());
    const Document document = chemistryReport(project, AggressivenessLimits::ofProgram(), languageRussian);
    const auto tables = tablesOf(document);
    ASSERT_EQ(tables.size(), 3U); // analyses, formulas, aggressiveness of water; no soil
    const TableRows& rows = tables[0]->rows;
    ASSERT_EQ(rows.size(), 3U);
    // Behind point, depth and unit: Na, K, Ca, Mg, NH4, HCO3, CO3, SO4, Cl, NO3.
    EXPECT_EQ(textOf(rows[0][5]), L"120.0");
    EXPECT_EQ(textOf(rows[0][4]), L"–"); // potassium was not determined, it is not zero
    EXPECT_EQ(textOf(rows[1][3]), L"5.99");
    EXPECT_EQ(textOf(rows[2][3]), L"48");
    EXPECT_EQ(textOf(rows[2][6]), L"48"); // HCO3
    EXPECT_EQ(textOf(rows[0][14]), L"8.95");
    const TableRows& formulas = tables[1]->rows;
    EXPECT_EQ(textOf(formulas[0][2]), L"M 0.9");
    EXPECT_EQ(textOf(formulas[0][3]), L"HCO3 48  SO4 32  Cl 20  ");
    EXPECT_EQ(textOf(formulas[1][0]), L"Ca 48  Na 29  Mg 24  ");
    EXPECT_EQ(textOf(formulas[0][5]), L"-0.2");
    EXPECT_FALSE(formulas[0][5].isMarked);
    EXPECT_EQ(formulas[0][3].runs[1].position, Run::Lowered);
}

TEST(ChemistryReport, SoilsStandApart)
{
    DBProject project;
    ChemistryRecord soil;
    soil.cells[CellSoilSO4] = L"620";
    soil.cells[CellSoilCl] = L"100";
    soil.cells[CellKind] = L"грунт";
    project.addChemistry({L"Скв-2", L"1.0"}, soil);
    const Document document = chemistryReport(project, AggressivenessLimits::ofProgram(), languageRussian);
    const auto tables = tablesOf(document);
    ASSERT_EQ(tables.size(), 2U);
    EXPECT_EQ(tables[1]->title, L"Агрессивность грунтов");
    EXPECT_EQ(tables[1]->rows[0].size(), 11U);
}

TEST(ChemistryReport, SoilsHaveATableOfTheirOwnAsTyped)
{
    DBProject project;
    ChemistryRecord soil;
    soil.cells[CellPH] = L"7.80";
    soil.cells[CellSoilSO4] = L"< 20";
    soil.cells[CellSO4] = L"3"; // of the same sulphates: the soil's own cell rules
    soil.cells[CellHCO3] = L"244";
    soil.cells[CellKind] = L"грунт";
    project.addChemistry({L"2", L"1.0"}, soil);
    soil = {};
    soil.cells[CellCl] = L"71,5";
    soil.cells[CellKind] = L"грунт";
    project.addChemistry({L"3", L"1.0"}, soil);
    const Document document = chemistryReport(project, AggressivenessLimits::ofProgram(), languageRussian);
    const auto tables = tablesOf(document);
    ASSERT_EQ(tables.size(), 2U);
    std::vector<std::wstring> titles;
    for (const TableCell& cell : tables[0]->head.at(0))
        titles.push_back(textOf(cell));
    EXPECT_EQ(titles,
        (std::vector<std::wstring>{L"Точка",
            L"Глубина отбора, м",
            L"pH",
            L"SO4, мг/кг",
            L"Cl, мг/кг",
            L"HCO3, мг/кг",
            L"Гумус, %",
            L"Удельное сопротивление, Ом·м"}));
    const TableRows& rows = tables[0]->rows;
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(textOf(rows[0][2]), L"7.80");
    EXPECT_EQ(rows[0][2].decimals, 2);
    EXPECT_EQ(textOf(rows[0][3]), L"< 20");
    EXPECT_FALSE(rows[0][3].number);
    EXPECT_EQ(textOf(rows[1][3]), L"–");
    EXPECT_EQ(*rows[1][4].number, 71.5);
}

TEST(ChemistryReport, UkrainianHasNoRussianWordLeft)
{
    DBProject project;
    project.setProjectName(L"Будинок");
    project.addChemistry({L"1", L"3.5"}, worked());
    ChemistryRecord soil;
    soil.cells[CellSoilSO4] = L"620";
    soil.cells[CellResistivity] = L"15";
    project.addChemistry({L"2", L"1.0"}, soil);
    const Document document = chemistryReport(project, AggressivenessLimits::ofProgram(), languageUkrainian);
    std::wstring all = document.title;
    for (const TableBlock* table : tablesOf(document)) {
        all += table->title;
        for (const TableRows* rows : {&table->head, &table->rows})
            for (const auto& row : *rows)
                for (const TableCell& cell : row)
                    all += textOf(cell);
    }
    for (const Block& block : document.blocks)
        if (const auto* paragraph = std::get_if<Paragraph>(&block))
            for (const auto& run : paragraph->runs)
                all += run.text;
    // Letters that Ukrainian does not have.
    const std::size_t russian = all.find_first_of(L"ыэъёЫЭЪЁ");
    EXPECT_EQ(russian, std::wstring::npos)
        << toUtf8(russian == std::wstring::npos ? std::wstring() : all.substr(russian - 10, 20));
    EXPECT_NE(all.find(L"сульфатно-гідрокарбонатна магнієво-натрієво-кальцієва, прісна, жорстка"),
        std::wstring::npos);
    EXPECT_NE(all.find(L"висока (R)"), std::wstring::npos);
}

TEST(Schoeller, StandsOnLogarithmicAxesAndBreaksWhereNothingWasDetermined)
{
    ChemistryRecord record = worked();
    record.cells[CellMg].clear();
    const auto sample = schoellerSample(waterChemistry(analysisOf(record.cells)), L"вода");
    ASSERT_TRUE(sample);
    EXPECT_FALSE(sample->meq[1]);
    EXPECT_NEAR(*sample->meq[0], 120 / 20.039, 1e-9);
    EXPECT_NEAR(*sample->meq[3], 89 / 35.453 + 6 / 62.0049, 1e-9); // chloride with nitrate
    const Decades decades = decadesOf(std::vector{*sample});
    EXPECT_EQ(decades.from, 0);
    EXPECT_EQ(decades.to, 2);
    std::vector<double> heights;
    std::size_t lines = 0;
    for (const Item& item : schoellerDiagram(std::vector{*sample}, languageRussian).items) {
        if (const auto* circle = std::get_if<Circle>(&item.shape))
            heights.push_back(circle->centre.y);
        if (const auto* line = std::get_if<Line>(&item.shape); line && item.id == 1)
            lines += line->points.size();
    }
    ASSERT_EQ(heights.size(), 5U);
    EXPECT_EQ(lines, 4U); // calcium stands alone beside the gap
    // Two decades on 96 mm.
    EXPECT_NEAR(heights[0] - heights[4], 48 * std::log10(*sample->meq[5] / *sample->meq[0]), 1e-9);
    EXPECT_FALSE(schoellerSample(waterChemistry(Analysis()), L"пусто"));
}

TEST(Piper, CornersAndMeanOfATriangle)
{
    const double high = std::sqrt(3.0) / 2;
    const auto expectAt = [](const Spot& spot, double x, double y) {
        EXPECT_NEAR(spot.x, x, 1e-12);
        EXPECT_NEAR(spot.y, y, 1e-12);
    };
    expectAt(triangleSpot(100, 0, 0), 0, 0);
    expectAt(triangleSpot(0, 100, 0), 1, 0);
    expectAt(triangleSpot(0, 0, 100), 0.5, high);
    expectAt(triangleSpot(20, 20, 20), 0.5, high / 3);
}

TEST(Piper, AllMarksStandOnTheSheet)
{
    std::vector<PiperSample> samples;
    for (const auto& [ca, mg] : {std::pair(100.0, 0.0), {0.0, 100.0}, {0.0, 0.0}})
        samples.push_back({L"вода", ca, mg, 100 - ca - mg, ca, mg, 100 - ca - mg});
    const Drawing drawing = piperDiagram(samples);
    int marks = 0;
    for (const Item& item : drawing.items)
        if (const auto* circle = std::get_if<Circle>(&item.shape)) {
            ++marks;
            EXPECT_TRUE(circle->centre.x > 0 && circle->centre.x < drawing.width && circle->centre.y > 0
                && circle->centre.y < drawing.height);
        }
    EXPECT_EQ(marks, 9);
    EXPECT_FALSE(piperSample(waterChemistry(Analysis()), L"пусто"));
}
