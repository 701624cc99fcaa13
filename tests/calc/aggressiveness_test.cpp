#include "calc/aggressiveness.h"

#include <gtest/gtest.h>

namespace
{

using Texts = std::array<std::wstring, ChemistryCellCount>;

Texts water(std::initializer_list<std::pair<ChemistryCell, const wchar_t*>> cells)
{
    Texts texts;
    texts[CellKind] = L"вода";
    for (const auto& [cell, text] : cells)
        texts[cell] = text;
    return texts;
}

Texts soil(std::initializer_list<std::pair<ChemistryCell, const wchar_t*>> cells)
{
    Texts texts = water(cells);
    texts[CellKind] = L"грунт";
    return texts;
}

AggressivenessVerdict concrete(
    const Texts& texts, const char* grade, const wchar_t* cement = L"портландцемент")
{
    const Analysis analysis = analysisOf(texts);
    ProtectionChoice choice;
    choice.cement = cement;
    return concreteVerdict(
        AggressivenessLimits::ofProgram(), analysis, waterChemistry(analysis), choice, grade);
}

// "weak by SO4", "none by ", "? by ".
std::string told(const AggressivenessVerdict& verdict)
{
    return std::string(verdict.level ? aggressivenessName(*verdict.level) : "?") + " by " + verdict.by;
}

std::string toldMetal(const AggressivenessVerdict& verdict)
{
    return std::string(verdict.level ? metalAggressivenessName(*verdict.level) : "?") + " by " + verdict.by;
}

} // namespace

TEST(Aggressiveness, WaterOfTheExampleByGrade)
{
    // HCO3 0.9 mg-eq/l.
    const Texts texts = water({{CellPH, L"5.8"},
        {CellHCO3, L"54.92"},
        {CellAggressiveCO2, L"25"},
        {CellMg, L"36"},
        {CellNH4, L"5"},
        {CellSO4, L"620"}});
    EXPECT_EQ(told(concrete(texts, "W4")), "medium by SO4");
    EXPECT_EQ(told(concrete(texts, "W6")), "weak by SO4");
    EXPECT_EQ(told(concrete(texts, "W8")), "weak by SO4");
    const AggressivenessVerdict first = concrete(texts, "W4");
    const char* const expected[] = {"weak", "weak", "weak", "none", "none", "none", "medium"};
    ASSERT_EQ(first.indexes.size(), std::size(expected)); // the sum of salts is one of them
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_STREQ(aggressivenessName(first.indexes[i].level), expected[i]) << first.indexes[i].index;
    EXPECT_EQ(first.indexes.back().row->source, L"СП 28.13330.2017, табл. В.4");
}

TEST(Aggressiveness, LimitsOfWaterAtBelowAndAbove)
{
    struct Row {
        ChemistryCell cell;
        const wchar_t* value;
        const char* grade;
        const char* expected;
    };
    const Row rows[] = {
        {CellPH, L"6.51", "W4", "none by "},
        {CellPH, L"6.5", "W4", "weak by pH"},
        {CellPH, L"5.01", "W4", "weak by pH"},
        {CellPH, L"5.00", "W4", "medium by pH"},
        {CellPH, L"5.00", "W6", "weak by pH"},
        {CellPH, L"5.01", "W6", "none by "},
        {CellPH, L"4.0", "W4", "medium by pH"},
        {CellPH, L"3.99", "W4", "strong by pH"},
        {CellPH, L"2.99", "W8", "strong by pH"},
        {CellPH, L"14.5", "W4", "? by "},
        {CellHCO3, L"64", "W4", "weak by HCO3"}, // 1.0489 mg-eq
        {CellHCO3, L"64.2", "W4", "none by "},
        {CellHCO3, L"10", "W6", "none by "},
        {CellAggressiveCO2, L"10", "W4", "none by "},
        {CellAggressiveCO2, L"10.1", "W4", "weak by CO2"},
        {CellAggressiveCO2, L"40", "W4", "weak by CO2"},
        {CellAggressiveCO2, L"40.1", "W4", "medium by CO2"},
        {CellAggressiveCO2, L"500", "W8", "weak by CO2"},
        {CellMg, L"1000", "W4", "none by "},
        {CellMg, L"3001", "W4", "strong by Mg"},
        {CellNH4, L"800", "W6", "weak by NH4"},
        {CellNaK, L"9000", "W4", "none by "},
        {CellSO4, L"250", "W4", "none by "},
        {CellSO4, L"251", "W4", "weak by SO4"},
        {CellSO4, L"500", "W4", "weak by SO4"},
        {CellSO4, L"501", "W4", "medium by SO4"},
        {CellSO4, L"1001", "W4", "strong by SO4"},
        {CellSO4, L"325", "W6", "none by "},
        {CellSO4, L"1701", "W8", "strong by SO4"},
        {CellSO4, L"< 20", "W4", "none by "},
        {CellSO4, L"<400", "W4", "? by "},
    };
    for (const Row& row : rows) {
        AggressivenessVerdict verdict = concrete(water({{row.cell, row.value}}), row.grade);
        // The sum of salts says none wherever there is an ion: look at the index alone.
        std::erase_if(verdict.indexes, [](const IndexVerdict& one) { return one.index == "salts"; });
        if (verdict.indexes.empty()) {
            EXPECT_STREQ(row.expected, row.cell == CellHCO3 ? "none by " : "? by ") << row.grade;
        } else {
            EXPECT_EQ(told(verdict), row.expected) << row.cell << ' ' << row.grade;
        }
        EXPECT_TRUE(row.value[0] != L'<' || !verdict.remarks.empty());
    }
}

TEST(Aggressiveness, SulphatesByBicarbonateAndCement)
{
    const auto sulphate = [](const wchar_t* so4, const wchar_t* hco3, const wchar_t* cement, const char* w) {
        return told(concrete(water({{CellSO4, so4}, {CellHCO3, hco3}}), w, cement));
    };
    EXPECT_EQ(sulphate(L"600", L"183", L"портландцемент", "W4"), "medium by SO4"); // 2.999 mg-eq
    EXPECT_EQ(sulphate(L"600", L"184", L"портландцемент", "W4"), "weak by SO4"); // 3.016
    EXPECT_EQ(sulphate(L"600", L"367", L"портландцемент", "W4"), "none by "); // 6.015
    EXPECT_EQ(sulphate(L"1600", L"150", L"шлакопортландцемент", "W4"), "weak by SO4");
    EXPECT_EQ(sulphate(L"1600", L"150", L"сульфатостойкий", "W4"), "none by ");
    EXPECT_EQ(sulphate(L"1300", L"600", L"портландцемент", "W10-W14"), "medium by SO4");
    EXPECT_EQ(sulphate(L"5100", L"150", L"портландцемент", "W16-W20"), "strong by SO4");
}

TEST(Aggressiveness, SoilToConcreteAndReinforcement)
{
    const Texts texts = soil({{CellSoilSO4, L"1200"}, {CellSoilCl, L"600"}});
    EXPECT_EQ(told(concrete(texts, "W4")), "medium by SO4");
    EXPECT_EQ(told(concrete(texts, "W6")), "weak by SO4");
    EXPECT_EQ(told(concrete(texts, "W8")), "none by ");
    EXPECT_EQ(told(concrete(texts, "W16-W20")), "none by ");
    const AggressivenessLimits& limits = AggressivenessLimits::ofProgram();
    ProtectionChoice choice;
    EXPECT_EQ(told(reinforcementVerdict(limits, analysisOf(texts), choice)), "medium by Cl");
    choice.coverMm = 30;
    EXPECT_EQ(told(reinforcementVerdict(limits, analysisOf(texts), choice)), "weak by Cl");
    choice.coverMm = 50;
    EXPECT_EQ(told(reinforcementVerdict(limits, analysisOf(texts), choice)), "none by ");
}

TEST(Aggressiveness, ChloridesOfWaterByCoverAndGround)
{
    const AggressivenessLimits& limits = AggressivenessLimits::ofProgram();
    const auto reached = [&](const wchar_t* chloride, int cover, bool isFiltering, bool isOld = false) {
        ProtectionChoice choice;
        choice.coverMm = cover;
        choice.isFiltering = isFiltering;
        choice.isOldEdition = isOld;
        return told(reinforcementVerdict(limits, analysisOf(water({{CellCl, chloride}})), choice));
    };
    EXPECT_EQ(reached(L"800", 20, true), "weak by Cl");
    EXPECT_EQ(reached(L"800", 50, true), "none by ");
    EXPECT_EQ(reached(L"800", 20, false), "none by ");
    EXPECT_EQ(reached(L"500", 20, true), "none by ");
    EXPECT_EQ(reached(L"501", 20, true), "weak by Cl");
    EXPECT_EQ(reached(L"800", 20, true, true), "medium by Cl");
    EXPECT_EQ(reached(L"", 20, true), "? by ");
}

TEST(Aggressiveness, SteelAndSheaths)
{
    const AggressivenessLimits& limits = AggressivenessLimits::ofProgram();
    const auto steel = [&](const wchar_t* resistivity, Number current) {
        return toldMetal(steelVerdict(limits, analysisOf(soil({{CellResistivity, resistivity}})), current));
    };
    EXPECT_EQ(steel(L"50.1", 0.049), "low by ");
    EXPECT_EQ(steel(L"50", {}), "medium by R");
    EXPECT_EQ(steel(L"20", {}), "medium by R");
    EXPECT_EQ(steel(L"19.9", {}), "high by R");
    EXPECT_EQ(steel(L"100", 0.05), "medium by J");
    EXPECT_EQ(steel(L"100", 0.201), "high by J");
    EXPECT_EQ(steel(L"131", 0.201), "low by "); // the test of the current is not needed
    EXPECT_EQ(steel(L"", {}), "? by ");

    const auto inWater = [&](const wchar_t* ph, const wchar_t* so4, const wchar_t* cl) {
        return toldMetal(
            steelVerdict(limits, analysisOf(water({{CellPH, ph}, {CellSO4, so4}, {CellCl, cl}})), {}));
    };
    EXPECT_EQ(inWater(L"7", L"4000", L"1000"), "medium by SO4+Cl");
    EXPECT_EQ(inWater(L"7", L"4000", L"1001"), "high by SO4+Cl");
    EXPECT_EQ(inWater(L"2.9", L"", L""), "high by pH");
    EXPECT_EQ(inWater(L"7", L"", L"10"), "? by ");

    const auto sheath = [&](Attacked metal, ChemistryCell cell, const wchar_t* value) {
        return toldMetal(sheathVerdict(limits, analysisOf(soil({{cell, value}})), metal));
    };
    EXPECT_EQ(sheath(Attacked::Lead, CellPH, L"6.5"), "low by ");
    EXPECT_EQ(sheath(Attacked::Lead, CellPH, L"6.4"), "medium by pH");
    EXPECT_EQ(sheath(Attacked::Lead, CellPH, L"9.1"), "high by pH");
    EXPECT_EQ(sheath(Attacked::Lead, CellNO3, L"1"), "low by ");
    EXPECT_EQ(sheath(Attacked::Lead, CellNO3, L"1.1"), "medium by NO3");
    EXPECT_EQ(sheath(Attacked::Aluminium, CellPH, L"4.4"), "high by pH");
    EXPECT_EQ(sheath(Attacked::Aluminium, CellSoilCl, L"51"), "high by Cl");
    EXPECT_EQ(sheath(Attacked::Aluminium, CellFe, L"100"), "medium by Fe");
}

TEST(Aggressiveness, FileOfAnOfficeIsReadAndItsMistakesAreTold)
{
    const std::string own(AggressivenessLimits::programText());
    std::vector<TableMistake> mistakes;
    const std::size_t count = AggressivenessLimits::read(own, mistakes).rows().size();
    EXPECT_TRUE(mistakes.empty());
    EXPECT_EQ(count, AggressivenessLimits::ofProgram().rows().size());
    EXPECT_GT(count, 80U);

    const auto changed = [&](const std::string& from, const std::string& to) {
        std::string text = own;
        text.replace(text.find(from), from.size(), to);
        mistakes.clear();
        return AggressivenessLimits::read(text, mistakes);
    };
    const AggressivenessLimits stricter = changed(">250; >500; >1000", ">200; >400; >900");
    EXPECT_TRUE(mistakes.empty());
    const Analysis analysis = analysisOf(water({{CellSO4, L"220"}}));
    EXPECT_EQ(told(concreteVerdict(stricter, analysis, waterChemistry(analysis), {}, "W4")), "weak by SO4");

    for (const char* wrong : {">250; >500; 1000", ">250; >500; >abc", ">500; >250; >1000", "-; -; -"}) {
        changed(">250; >500; >1000", wrong);
        ASSERT_EQ(mistakes.size(), 1U) << wrong;
        EXPECT_GT(mistakes[0].line, 10U);
    }
    changed("бетон; вода; HCO3", "# бетон; вода; HCO3"); // a row less
    EXPECT_EQ(mistakes.size(), 1U);
    AggressivenessLimits::read("\xFF\xFE", mistakes);
    EXPECT_EQ(mistakes.size(), 2U);
}
