#include "calc/chemistry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

using Texts = std::array<std::wstring, ChemistryCellCount>;

Texts freshWater()
{
    Texts texts;
    texts[CellCa] = L"120";
    texts[CellMg] = L"36";
    texts[CellNaK] = L"83";
    texts[CellHCO3] = L"366";
    texts[CellSO4] = L"192";
    texts[CellCl] = L"89";
    texts[CellNO3] = L"6";
    return texts;
}

} // namespace

TEST(Chemistry, WaterOfTheExample)
{
    const WaterChemistry water = waterChemistry(analysisOf(freshWater()));
    struct Row {
        const char* ion;
        double meq;
        double percent;
    };
    const Row rows[] = {
        {"Ca", 5.988, 47.67},
        {"Mg", 2.962, 23.58},
        {"Na", 3.610, 28.74},
        {"HCO3", 5.998, 47.60},
        {"SO4", 3.997, 31.72},
        {"Cl", 2.510, 19.92},
        {"NO3", 0.097, 0.77},
    };
    ASSERT_EQ(water.shares.size(), std::size(rows));
    for (const Row& row : rows) {
        ASSERT_TRUE(water.share(row.ion)) << row.ion;
        EXPECT_NEAR(water.share(row.ion)->meq, row.meq, 5.1e-4) << row.ion;
        EXPECT_NEAR(water.share(row.ion)->percent, row.percent, 5.1e-3) << row.ion;
    }
    EXPECT_NEAR(*water.cationsMeq, 12.561, 5e-4);
    EXPECT_NEAR(*water.anionsMeq, 12.603, 5.1e-4);
    EXPECT_NEAR(*water.balancePercent, -0.17, 5e-3);
    EXPECT_NEAR(*water.mineralisationGL, 0.892, 1e-12);
    EXPECT_NEAR(*water.dryResidueMgL, 709.0, 1e-9);
    EXPECT_NEAR(*water.hardness, 8.95, 5e-3);
    EXPECT_NEAR(*water.carbonateHardness, 5.998, 5e-4);
    EXPECT_NEAR(*water.permanentHardness, 2.952, 1e-3);
    EXPECT_EQ(hardnessClass(*water.hardness), L"жесткая");
    EXPECT_EQ(mineralisationClass(*water.mineralisationGL), L"пресная");
    // 48 + 29 + 24 is 101: rounded parts are not mended.
    EXPECT_EQ(kurlovText(*kurlov(water)), L"M0.9 HCO3 48 SO4 32 Cl 20 / Ca 48 Na 29 Mg 24");
    EXPECT_EQ(kurlovText(*kurlov(water, {2, 20.0})), L"M0.89 HCO3 48 SO4 32 / Ca 48 Na 29 Mg 24");
    EXPECT_EQ(waterName(water), L"сульфатно-гидрокарбонатная магниево-натриево-кальциевая");
    EXPECT_TRUE(water.remarks.empty());
}

TEST(Chemistry, BalanceIsToldAndNeverMended)
{
    Texts texts = freshWater();
    const wchar_t* changed[] = {L"120.24", L"36.47", L"57.5", L"366.1", L"192.1", L"88.6", L"6.2"};
    const ChemistryCell cells[] = {CellCa, CellMg, CellNaK, CellHCO3, CellSO4, CellCl, CellNO3};
    for (std::size_t i = 0; i < std::size(cells); ++i)
        texts[cells[i]] = changed[i];
    const Analysis analysis = analysisOf(texts);
    EXPECT_NEAR(*waterChemistry(analysis).balancePercent, -4.55, 5e-3);
    EXPECT_TRUE(waterChemistry(analysis, 5.0).remarks.empty());
    EXPECT_EQ(waterChemistry(analysis, 2.0).remarks.size(), 1U);
}

TEST(Chemistry, SodiumAndPotassiumTogetherOrTheirSum)
{
    Texts texts = freshWater();
    texts[CellNa] = L"23";
    EXPECT_NEAR(waterChemistry(analysisOf(texts)).share("Na")->mg, 83.0, 1e-12); // potassium is missing
    texts[CellK] = L"39,0983";
    texts[CellCO3] = L"30.0045";
    const WaterChemistry water = waterChemistry(analysisOf(texts));
    EXPECT_NEAR(water.share("Na")->mg, 23.0, 1e-12);
    EXPECT_NEAR(water.share("K")->meq, 1.0, 1e-12);
    EXPECT_NEAR(water.share("CO3")->meq, 1.0, 1e-12);
    const Kurlov formula = *kurlov(water);
    EXPECT_EQ(formula.anions[0].ion, L"HCO3");
    EXPECT_NEAR(formula.anions[0].percent, water.share("HCO3")->percent + water.share("CO3")->percent, 1e-9);
    EXPECT_EQ(formula.cations.back().ion, L"Na+K");
}

TEST(Chemistry, CellsThatAreNoNumbers)
{
    EXPECT_EQ(readAnalysisValue(L" < 20 ").value, 20.0);
    EXPECT_TRUE(readAnalysisValue(L"<20").isAtMost);
    EXPECT_FALSE(readAnalysisValue(L"<20").exact());
    EXPECT_FALSE(readAnalysisValue(L"нет").value);
    EXPECT_FALSE(readAnalysisValue(L"< ").value);

    Texts texts;
    texts[CellCa] = L"120";
    texts[CellCl] = L"< 20";
    texts[CellPH] = L"14.5";
    const WaterChemistry onlyCations = waterChemistry(analysisOf(texts));
    EXPECT_FALSE(onlyCations.balancePercent);
    EXPECT_FALSE(onlyCations.anionsMeq);
    EXPECT_FALSE(kurlov(onlyCations));
    EXPECT_EQ(onlyCations.remarks.size(), 2U); // no anion, impossible pH

    const WaterChemistry empty = waterChemistry(analysisOf(Texts{}));
    EXPECT_TRUE(empty.shares.empty());
    EXPECT_FALSE(empty.mineralisationGL);
    EXPECT_TRUE(waterName(empty).empty());
}

TEST(Chemistry, WaterOrSoilByWordElseByIons)
{
    Texts texts;
    EXPECT_FALSE(analysisOf(texts).isWater);
    texts[CellSoilSO4] = L"800";
    texts[CellPH] = L"7";
    EXPECT_FALSE(analysisOf(texts).isWater);
    texts[CellCl] = L"10";
    EXPECT_TRUE(analysisOf(texts).isWater);
    texts[CellKind] = L" грунт ";
    const Analysis soil = analysisOf(texts);
    EXPECT_FALSE(soil.isWater);
    EXPECT_FALSE(waterChemistry(soil).mineralisationGL); // mg/kg are no g/l
    texts[CellKind] = L"вода";
    texts[CellCl].clear();
    EXPECT_TRUE(analysisOf(texts).isWater);
}

TEST(Chemistry, CellsAreTypedInEquivalentsToo)
{
    // 120 mg of calcium are 5.988 mg-equivalents; sodium with potassium counts as sodium.
    EXPECT_EQ(textInEquivalents(CellCa, L"120"), L"5.988");
    EXPECT_EQ(textInEquivalents(CellNaK, L"83"), L"3.61");
    EXPECT_EQ(textInMilligrams(CellHCO3, L"6"), L"366.101");
    EXPECT_EQ(textInMilligrams(CellSO4, L"< 0,5"), L"<24.016");
    // No ions, no numbers.
    EXPECT_EQ(textInMilligrams(CellPH, L"7.2"), L"7.2");
    EXPECT_EQ(textInMilligrams(CellCl, L"следы"), L"следы");
    EXPECT_EQ(textInEquivalents(CellCl, L""), L"");
    // There and back every thousandth holds.
    for (const ChemistryCell cell : {CellMg, CellCa, CellHCO3, CellNO3, CellNO2, CellNH4})
        for (const wchar_t* text : {L"0.001", L"0.017", L"5.988", L"123.457"})
            EXPECT_EQ(textInEquivalents(cell, textInMilligrams(cell, text)), text);
}
