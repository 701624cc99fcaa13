#include "calc/number_support.h"
#include "calc/parallel_determinations.h"
#include "calc/physical.h"

#include <random>

namespace
{

PhysicalInput soil(Number moisture, Number density, Number particles, Number liquid = {}, Number plastic = {})
{
    PhysicalInput input;
    input.moisture = moisture;
    input.density = density;
    input.particleDensity = particles;
    input.liquidLimit = liquid;
    input.plasticLimit = plastic;
    return input;
}

// "impossible physical/8" of every remark, in order.
std::vector<std::string> remarksOf(const Physical& physical)
{
    std::vector<std::string> texts;
    for (const Remark& remark : physical.remarks)
        texts.push_back(std::string(remarkKindName(remark.kind)) + " " + remark.cell);
    return texts;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(PhysicalProperties, LoamOfTheWorkedExample)
{
    const Physical loam = physicalOf(soil(.212, 1.94, 2.71, .312, .188));
    const double expected[] = {
        1.600660, .693052, 40.9351, .828972, .255739, 2.010011, 1.010011, 12.4, .193548, .090055};
    const auto derived = derivedProperties(loam);
    for (std::size_t i = 0; i < derived.size(); ++i)
        expectNumber(derived[i], expected[i], i == 2 ? 1e-4 : 1e-6);
    const wchar_t* texts[] = {
        L"1.60", L"0.693", L"40.9", L"0.83", L"0.256", L"2.01", L"1.01", L"12.4", L"0.19", L"0.09"};
    for (std::size_t i = 0; i < derived.size(); ++i)
        EXPECT_EQ(numberText(derived[i], derivedDecimals(5 + static_cast<int>(i))), texts[i]);
    EXPECT_EQ(remarksOf(loam), Texts());
}

TEST(PhysicalProperties, SandHasNoPlasticityAndNoRemarkOfIt)
{
    const Physical sand = physicalOf(soil(.08, 1.65, 2.66));
    expectNumber(sand.dryDensity, 1.527778);
    expectNumber(sand.voidRatio, .741091);
    expectNumber(sand.porosity, 42.5647, 1e-4);
    expectNumber(sand.saturation, .287144);
    expectNumber(sand.fullMoisture, .278606);
    expectNumber(sand.saturatedDensity, 1.953425);
    expectNumber(sand.submergedDensity, .953425);
    EXPECT_FALSE(sand.plasticity || sand.liquidity || sand.collapseIndicator);
    EXPECT_EQ(remarksOf(sand), Texts());
}

TEST(PhysicalProperties, DryLoessHasANegativeConsistencyAndMayCollapse)
{
    const Physical loess = physicalOf(soil(.12, 1.60, 2.69, .27, .18));
    expectNumber(loess.voidRatio, .883000);
    expectNumber(loess.saturation, .365572);
    expectNumber(loess.plasticity, 9.0);
    expectNumber(loess.liquidity, -.666667);
    expectNumber(loess.collapseIndicator, -.083218);
    EXPECT_EQ(suspicionOf(loess), Suspicion::Collapse);
    EXPECT_EQ(remarksOf(loess), Texts());
}

TEST(PhysicalProperties, ContradictoryMeasurementsAreToldOnceAndShownUncut)
{
    const Physical wet = physicalOf(soil(.30, 2.05, 2.70, .38, .20));
    expectNumber(wet.saturation, 1.137329);
    expectNumber(wet.saturatedDensity, 1.992877);
    EXPECT_EQ(remarksOf(wet), Texts{"impossible physical/8"});
}

TEST(PhysicalProperties, WhatCannotBeIsMarkedAndNotCalculatedFrom)
{
    struct Row {
        const char* name;
        PhysicalInput input;
        Texts remarks;
        Number Physical::*missing;
    };
    PhysicalInput onlyDry = soil({}, {}, 1.5);
    onlyDry.dryDensity = 1.6;
    const Row rows[] = {
        {"negative moisture", soil(-.1, 1.9, 2.7), {"impossible physical/0"}, &Physical::dryDensity},
        {"moisture in per cent",
            soil(21.2, 1.9, 2.7, .312, .188),
            {"impossible physical/0"},
            &Physical::liquidity},
        {"three limits of moisture",
            soil(1.2, 1.5, 2.7, .3, .2),
            {"doubtful physical/0", "impossible physical/0"},
            &Physical::dryDensity},
        {"limits exchanged", soil(.2, 1.9, 2.7, .18, .31), {"impossible physical/4"}, &Physical::plasticity},
        {"light particles",
            soil(.2, 2.4, 2.3),
            {"doubtful physical/2", "impossible physical/2"},
            &Physical::voidRatio},
        {"dry density above particles",
            onlyDry,
            {"doubtful physical/2", "impossible physical/5"},
            &Physical::voidRatio},
        {"heavy as steel", soil(.2, 7.8, 2.7), {"impossible physical/1"}, &Physical::dryDensity},
    };
    for (const Row& row : rows) {
        const Physical physical = physicalOf(row.input);
        EXPECT_EQ(remarksOf(physical), row.remarks) << row.name;
        EXPECT_FALSE((physical.*row.missing).has_value()) << row.name;
    }
}

TEST(PhysicalProperties, NonPlasticSoilHasAnIndexButNoConsistency)
{
    for (const double plastic : {.2, .195}) {
        const Physical physical = physicalOf(soil(.18, 1.9, 2.67, .2, plastic));
        EXPECT_TRUE(physical.plasticity.has_value());
        EXPECT_FALSE(physical.liquidity.has_value());
    }
    // 0.18 - 0.17 is less than 0.01 in binary fractions.
    EXPECT_TRUE(physicalOf(soil(.18, 1.9, 2.67, .18, .17)).liquidity.has_value());
}

TEST(PhysicalProperties, TypedDryDensityStandsInForMoistureAndDensity)
{
    PhysicalInput input = soil({}, {}, 2.71);
    input.dryDensity = 1.60;
    const Physical physical = physicalOf(input);
    EXPECT_FALSE(physical.dryDensity.has_value());
    expectNumber(physical.voidRatio, 0.69375);
    EXPECT_FALSE(physical.saturation.has_value());
    input.moisture = .212;
    expectNumber(physicalOf(input).saturation, .212 * 2.71 / .69375);
    input.density = 1.94;
    expectNumber(physicalOf(input).voidRatio, .693052);
}

TEST(PhysicalProperties, PhaseRelationsInvertEachOther)
{
    // Against the table of the line without air: its density of dry soil at a moisture is full of water.
    expectNumber(physicalOf(soil(.20, 1.7532 * 1.2, 2.70)).saturation, 1, 1e-3);
    std::mt19937 random(16);
    std::uniform_real_distribution<double> share(0, 1);
    for (int i = 0; i < 1000; ++i) {
        const double voids = .3 + 1.5 * share(random);
        const double particles = 2.6 + .2 * share(random);
        const double moisture = voids / particles * (.2 + .75 * share(random));
        const Physical physical =
            physicalOf(soil(moisture, particles / (1 + voids) * (1 + moisture), particles));
        if (!physical.voidRatio)
            continue; // beyond what a density can be
        expectNumber(physical.voidRatio, voids, 1e-9);
        expectNumber(physical.porosity, 100 * voids / (1 + voids), 1e-9);
        EXPECT_NEAR(*physical.saturatedDensity - *physical.submergedDensity, 1, 1e-9);
        EXPECT_NEAR(*physical.saturation, moisture / *physical.fullMoisture, 1e-9);
        EXPECT_NEAR(*physical.dryDensity * (1 + *physical.fullMoisture), *physical.saturatedDensity, 1e-9);
    }
}

TEST(ParallelDeterminations, MeanAndPermittedDifference)
{
    const Number first = moistureOf({20.0, 52.4, 46.7});
    expectNumber(first, 5.7 / 26.7, 1e-9);
    EXPECT_FALSE(moistureOf({20.0, 52.4, 19.0}).has_value());
    EXPECT_FALSE(moistureOf({20.0, {}, 46.7}).has_value());
    const ParallelMean close = parallelMean({.210, .230}, 0, false);
    expectNumber(close.mean, .22, 1e-12);
    EXPECT_TRUE(close.agrees); // two points of a moisture above 10 %
    EXPECT_FALSE(parallelMean({.210, .2305}, 0, false).agrees);
    EXPECT_FALSE(parallelMean({.02, .0221}, 0, false).agrees);
    EXPECT_TRUE(parallelMean({1.90, 1.94}, 1, true).agrees);
    EXPECT_FALSE(parallelMean({1.90, 1.94}, 1, false).agrees);
    EXPECT_TRUE(parallelMean({2.76, 2.79}, 2, false).agrees);
    EXPECT_FALSE(parallelMean({.3}, 3, false).agrees);
    EXPECT_FALSE(parallelMean({{}, {}}, 3, false).mean.has_value());
}
