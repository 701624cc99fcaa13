#include "calc/sounding.h"

#include <gtest/gtest.h>

TEST(Sounding, ForcesBecomeResistances)
{
    // A cone of 10 cm2 and of 35.7 mm are two things: 12.00 and 11.99 MPa.
    EXPECT_NEAR(coneResistanceMPa(12.0, ProbeAreas{}.cone), 12.0, 1e-12);
    EXPECT_NEAR(coneResistanceMPa(12.0, circleAreaCm2(0.0357)), 11.988, 5e-4);
    EXPECT_NEAR(sleeveResistanceKPa(1.40, ProbeAreas{}.sleeve), 40.0, 1e-12);
    EXPECT_NEAR(cylinderAreaCm2(0.0357, 0.09), 100.94, 5e-3);
    EXPECT_NEAR(*frictionRatio(12.0, 40.0), 0.3333, 1e-4);
    EXPECT_FALSE(frictionRatio(0.0, 40.0));
    EXPECT_FALSE(frictionRatio(12.0, std::nullopt));
}

TEST(Sounding, StatisticsLeaveOutWhatIsMissing)
{
    const Number values[] = {2.0, std::nullopt, 4.0, 9.0};
    const Spread statistics = spreadOf(values);
    EXPECT_EQ(statistics.n, 3U);
    EXPECT_NEAR(*statistics.mean, 5.0, 1e-12);
    EXPECT_NEAR(*statistics.deviation, 3.605551, 1e-6);
    EXPECT_NEAR(*statistics.variation, 0.7211103, 1e-6);
    EXPECT_EQ(statistics.least, 2.0);
    EXPECT_EQ(statistics.greatest, 9.0);

    const double one[] = {3.0};
    EXPECT_FALSE(spreadOf(one).deviation);
    EXPECT_EQ(spreadOf(std::span<const double>()).n, 0U);
    EXPECT_FALSE(spreadOf(std::span<const double>()).mean);
}

TEST(Sounding, AlluvialFineSandBetweenTwoAndFiveMetres)
{
    SoundedSoil soil{SoundedSoil::Sand, SoundedSoil::Fine, {}, {}, true};
    const SoundedProperties alluvial = soundedProperties(soil, 9.0, 3.5);
    EXPECT_EQ(alluvial.density, SandDensity::Medium);
    EXPECT_NEAR(*alluvial.modulusMPa, 26.5, 1e-9);
    EXPECT_NEAR(*alluvial.phiDegrees, 33.5, 1e-9);
    EXPECT_FALSE(alluvial.cohesionKPa);
    EXPECT_TRUE(alluvial.remarks.empty());

    soil.isAlluvial = false;
    EXPECT_NEAR(*soundedProperties(soil, 9.0, 3.5).modulusMPa, 27.0, 1e-9);
    EXPECT_NEAR(*soundedProperties(soil, 9.0, 1.0).phiDegrees, 34.5, 1e-9);
    EXPECT_NEAR(*soundedProperties(soil, 9.0, 12.0).phiDegrees, 32.5, 1e-9);
}

TEST(Sounding, DensityOfSandsAtTheirLimits)
{
    struct Row {
        SoundedSoil::Grain grain;
        SoundedSoil::Wetness wetness;
        double medium;
        double dense;
    };
    const Row rows[] = {
        {SoundedSoil::Coarse, SoundedSoil::UnknownWetness, 5.0, 15.0},
        {SoundedSoil::Medium, SoundedSoil::Saturated, 5.0, 15.0},
        {SoundedSoil::Fine, SoundedSoil::UnknownWetness, 4.0, 12.0},
        {SoundedSoil::Silty, SoundedSoil::NotSaturated, 3.0, 10.0},
        {SoundedSoil::Silty, SoundedSoil::Saturated, 2.0, 7.0},
    };
    for (const Row& row : rows) {
        const SoundedSoil soil{SoundedSoil::Sand, row.grain, row.wetness, {}, false};
        EXPECT_EQ(soundedProperties(soil, row.medium - 0.01, 1).density, SandDensity::Loose);
        EXPECT_EQ(soundedProperties(soil, row.medium, 1).density, SandDensity::Medium);
        EXPECT_EQ(soundedProperties(soil, row.dense - 0.01, 1).density, SandDensity::Medium);
        EXPECT_EQ(soundedProperties(soil, row.dense, 1).density, SandDensity::Dense);
    }
    // Of silty sand the wetness must be known; gravelly sand has no row.
    for (const auto grain : {SoundedSoil::Silty, SoundedSoil::Gravelly, SoundedSoil::UnknownGrain})
        EXPECT_FALSE(soundedProperties({SoundedSoil::Sand, grain, {}, {}, false}, 5.0, 1).density);
}

TEST(Sounding, ClaysByKindAndState)
{
    const SoundedSoil loam{SoundedSoil::Loam, {}, {}, SoundedSoil::SemiHard, false};
    const SoundedProperties between = soundedProperties(loam, 2.5, 4.0);
    EXPECT_NEAR(*between.modulusMPa, 8.5, 1e-9);
    EXPECT_NEAR(*between.phiDegrees, 18.0, 1e-9);
    EXPECT_NEAR(*between.cohesionKPa, 16.5, 1e-9);
    EXPECT_FALSE(between.density);

    const SoundedProperties beyond = soundedProperties(loam, 12.0, 4.0);
    EXPECT_EQ(*beyond.modulusMPa, 22.0);
    ASSERT_EQ(beyond.remarks.size(), 1U);
    EXPECT_EQ(beyond.remarks[0].kind, Remark::Doubtful);
    EXPECT_EQ(*soundedProperties(loam, 0.4, 4.0).cohesionKPa, 12.0);

    // No table: said so, nothing computed.
    for (const SoundedSoil& soil : {SoundedSoil{SoundedSoil::SandyLoam, {}, {}, SoundedSoil::Hard, false},
             SoundedSoil{SoundedSoil::Clay, {}, {}, SoundedSoil::SofterState, false},
             SoundedSoil{}}) {
        const SoundedProperties none = soundedProperties(soil, 2.5, 4.0);
        EXPECT_FALSE(none.modulusMPa || none.phiDegrees || none.cohesionKPa);
        EXPECT_EQ(none.remarks.size(), 1U);
    }
}

TEST(Sounding, LiquidityByBothResistances)
{
    const double fs[] = {20, 40, 60, 80, 100, 120, 150, 200};
    const double expected[] = {.50, .39, .33, .29, .26, .23, .20, .16};
    for (std::size_t i = 0; i < std::size(fs); ++i)
        EXPECT_NEAR(*liquidityBySounding(1.0, fs[i]), expected[i], 0.0051) << fs[i];
    EXPECT_NEAR(*liquidityBySounding(2.0, 50.0), 0.23, 0.005);
    EXPECT_NEAR(*liquidityBySounding(1.5, 50.0),
        (*liquidityBySounding(1.0, 50.0) + *liquidityBySounding(2.0, 50.0)) / 2.0,
        1e-9);
    EXPECT_FALSE(liquidityBySounding(10.0, 89.0)); // 0.89 %: no clay
    EXPECT_TRUE(liquidityBySounding(10.0, 90.0));
}

TEST(Sounding, BehaviourFromGravelToOrganic)
{
    EXPECT_EQ(behaviourType(30.0, 60.0, 20.0, 20.0)->zone, 7);
    EXPECT_EQ(behaviourType(10.0, 50.0, 100.0, 60.0)->zone, 6);
    EXPECT_EQ(behaviourType(1.0, 40.0, 100.0, 60.0)->zone, 3);
    EXPECT_EQ(behaviourType(0.3, 20.0, 100.0, 60.0)->zone, 2);
    // Qt = 100, Fr = 1 %: Ic by hand.
    EXPECT_NEAR(behaviourType(5.05, 50.0, 50.0, 50.0)->index, 1.910, 1e-3);
    EXPECT_FALSE(behaviourType(0.05, 10.0, 100.0, 60.0));
    EXPECT_FALSE(behaviourType(5.0, std::nullopt, 100.0, 60.0));
}
