#include "calc/number_support.h"
#include "calc/standard_tables.h"

namespace
{

Number valueOf(TableQuantity quantity, TableSoil soil, double voidRatio, Number liquidity = {})
{
    return tableValue(standardTables(), quantity, soil, voidRatio, liquidity);
}

} // namespace

TEST(StandardTables, ValuesByKindVoidRatioAndLiquidity)
{
    using enum TableQuantity;
    using enum TableSoil;
    EXPECT_EQ(standardTables().size(), 35U);
    expectNumber(valueOf(Friction, FineSand, .65), 32, 1e-9);
    expectNumber(valueOf(Friction, FineSand, .60), 34, 1e-9);
    expectNumber(valueOf(Modulus, Loam, .70, .4), 16.5, 1e-9);
    expectNumber(valueOf(Cohesion, Clay, .65, .25), 68, 1e-9);
    expectNumber(valueOf(Cohesion, Clay, .65, .26), 57, 1e-9);
    expectNumber(valueOf(Cohesion, Loam, .55, -.3), 37, 1e-9);
    expectNumber(valueOf(Friction, SandyLoam, .85, .75), 18, 1e-9);
    // Outside no value: looser, denser, softer, a hole of the table, an unknown state.
    EXPECT_FALSE(valueOf(Friction, FineSand, .76).has_value());
    EXPECT_FALSE(valueOf(Cohesion, Clay, .54, .1).has_value());
    EXPECT_FALSE(valueOf(Cohesion, Loam, .75, .76).has_value());
    EXPECT_FALSE(valueOf(Modulus, MediumSand, .70).has_value());
    EXPECT_FALSE(valueOf(Modulus, Loam, .70).has_value());
    EXPECT_EQ(tableFactor(Friction, FineSand), 1.1);
    EXPECT_EQ(tableFactor(Friction, Clay), 1.15);
}

TEST(StandardTables, AFileOfTheUserTellsItsFaults)
{
    std::vector<std::string> faults;
    const auto rows = readStandardTables("# свои\r\nE супесь 0 0.75 0.45 30 20\r\n\nE гравий 0 0 0.45 9\nc "
                                         "глина 0 x 0.45 9\nc глина 0 1 0.45\n",
        faults);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].values.size(), 2U);
    ASSERT_EQ(faults.size(), 3U);
    EXPECT_NE(faults[0].find("строка 4"), std::string::npos);
}
