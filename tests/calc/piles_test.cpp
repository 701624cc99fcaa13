#include "calc/piles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

const PileSection square30{PileSection::Square, 0.3, 0.0};

// 36 readings down to 7.2 m: three layers along the shaft of a pile 6 m long.
std::vector<PileReading> readings()
{
    const double window[] = {5.0, 5.4, 5.8, 6.0, 6.2, 6.4, 6.6, 6.6};
    std::vector<PileReading> rows;
    for (int i = 1; i <= 36; ++i) {
        const double depth = i * 0.2;
        const double fs = i <= 10 ? 30.0 : i <= 17 ? 50.0 : 70.0;
        rows.push_back({depth, i >= 29 ? window[i - 29] : 2.0, fs, 4.5 * depth});
    }
    return rows;
}

const ShaftLayer layers[] = {
    {0.0, 2.0, PileSoil::Clay},
    {2.0, 3.5, PileSoil::Loam},
    {3.5, 9.0, PileSoil::Sand},
};

} // namespace

TEST(Piles, DrivenPileByConeAndSleeve)
{
    const PileResistance pile = pileResistance({.section = square30}, readings(), layers, 6.0);
    EXPECT_NEAR(*pile.tipConeKPa, 6000.0, 1e-9);
    EXPECT_NEAR(*pile.tipCoefficient, 0.61, 1e-9);
    EXPECT_NEAR(*pile.tipKN, 329.4, 1e-9);
    EXPECT_NEAR(*pile.shaftKPa, 32.5, 1e-9);
    EXPECT_NEAR(*pile.sideKN, 234.0, 1e-9);
    EXPECT_NEAR(*pile.totalKN(), 563.4, 1e-9);
    EXPECT_TRUE(pile.remarks.empty());
}

TEST(Piles, DrivenPileByConeAndRods)
{
    const ShaftLayer clay[] = {{0.0, 8.0, PileSoil::Clay}};
    const PileResistance pile = pileResistance({.section = square30, .probeType = 1}, readings(), clay, 6.0);
    EXPECT_NEAR(*pile.shaftKPa, 40.00, 5e-3); // fs 39.79, b2 1.0053
    EXPECT_NEAR(*pile.sideKN, 288.0, 0.05);
    EXPECT_NEAR(*pile.totalKN(), 617.4, 0.05);
    // Between two readings the force is theirs in part.
    const PileResistance between =
        pileResistance({.section = square30, .probeType = 1}, readings(), clay, 5.9);
    EXPECT_NEAR(*between.shaftKPa, *pile.shaftKPa, 1e-6);
}

TEST(Piles, CoefficientsAtBetweenAndOutsideTheirRows)
{
    struct Row {
        double at;
        double driven;
        double screw;
    };
    const Row tips[] = {
        {200, 0.90, 0.50},
        {1000, 0.90, 0.50},
        {1750, 0.85, 0.475},
        {2500, 0.80, 0.45},
        {5000, 0.65, 0.32},
        {7500, 0.55, 0.26},
        {10000, 0.45, 0.23},
        {12500, 0.40, 0.23},
        {15000, 0.35, 0.23},
        {20000, 0.30, 0.23},
        {25000, 0.25, 0.23},
        {50000, 0.20, 0.23},
    };
    for (const Row& row : tips) {
        EXPECT_NEAR(tipCoefficient(row.at, false), row.driven, 1e-12) << row.at;
        EXPECT_NEAR(tipCoefficient(row.at, true), row.screw, 1e-12) << row.at;
    }
    struct Side {
        double at;
        double rodSand, rodClay, sleeveSand, sleeveClay;
    };
    const Side sides[] = {
        {5, 2.40, 1.50, 0.75, 1.00},
        {20, 2.40, 1.50, 0.75, 1.00},
        {30, 2.025, 1.25, 0.675, 0.875},
        {40, 1.65, 1.00, 0.60, 0.75},
        {60, 1.20, 0.75, 0.55, 0.60},
        {80, 1.00, 0.60, 0.50, 0.45},
        {100, 0.85, 0.50, 0.45, 0.40},
        {110, 0.80, 0.45, 0.425, 0.35},
        {120, 0.75, 0.40, 0.40, 0.30},
        {500, 0.75, 0.40, 0.40, 0.30},
    };
    for (const Side& row : sides) {
        EXPECT_NEAR(rodCoefficient(row.at, true), row.rodSand, 1e-12) << row.at;
        EXPECT_NEAR(rodCoefficient(row.at, false), row.rodClay, 1e-12) << row.at;
        EXPECT_NEAR(sleeveCoefficient(row.at, true, 1), row.sleeveSand, 1e-12) << row.at;
        EXPECT_NEAR(sleeveCoefficient(row.at, false, 1), row.sleeveClay, 1e-12) << row.at;
    }
    EXPECT_NEAR(sleeveCoefficient(120, false, 0), 0.40, 1e-12);
    EXPECT_NEAR(sleeveCoefficient(100, true, 0), 0.50, 1e-12);
}

TEST(Piles, WhatCannotBeToldIsMissing)
{
    const std::vector<PileReading> rows = readings();
    // 6.1 m and four widths are deeper than the last reading; the side is still told.
    const PileResistance deep = pileResistance({.section = square30}, rows, layers, 6.1);
    EXPECT_FALSE(deep.tipKN);
    EXPECT_TRUE(deep.sideKN);
    EXPECT_FALSE(deep.totalKN());
    ASSERT_EQ(deep.remarks.size(), 1U);
    EXPECT_EQ(deep.remarks[0].cell, "tip");

    ShaftLayer unknown[] = {layers[0], layers[1], layers[2]};
    unknown[1].soil = PileSoil::Unknown;
    EXPECT_FALSE(pileResistance({.section = square30}, rows, unknown, 6.0).sideKN);
    // A layer without a kind below the tip does no harm.
    EXPECT_TRUE(pileResistance({.section = square30}, rows, unknown, 2.0).sideKN);
    // Layers that end above the tip.
    EXPECT_FALSE(pileResistance({.section = square30}, rows, std::span(layers, 2), 6.0).sideKN);
    EXPECT_FALSE(pileResistance({.section = {PileSection::OtherForm, 0.3, 0.3}}, rows, layers, 6.0).tipKN);
    EXPECT_FALSE(pileResistance({.section = square30}, {}, layers, 6.0).totalKN());
    EXPECT_FALSE(pileResistance({.section = square30}, rows, layers, 0.0).totalKN());
}

TEST(Piles, SixSoundingsGiveStatisticsFiveTheSmallest)
{
    const double six[] = {780, 820, 760, 850, 800, 790};
    const PileGroup group = pileGroup(six, {});
    EXPECT_EQ(group.n, 6U);
    EXPECT_NEAR(*group.resistanceKN, 800.0, 1e-9);
    EXPECT_NEAR(*group.deviationKN, 31.62, 5e-3); // with n: 28.87
    EXPECT_NEAR(*group.variation, 0.0395, 5e-5);
    EXPECT_NEAR(*group.coefficient, 1.0335, 5e-5);
    EXPECT_NEAR(*group.capacityKN, 774.1, 0.05);
    EXPECT_NEAR(*group.loadKN, 619.2, 0.05);
    EXPECT_NEAR(*pileGroup(six, {.reliability = 1.4}).loadKN, 552.9, 0.05);

    const PileGroup five = pileGroup(std::span(six, 5), {});
    EXPECT_EQ(five.coefficient, 1.0);
    EXPECT_EQ(five.capacityKN, 760.0);
    EXPECT_NEAR(*five.loadKN, 608.0, 1e-9);
    EXPECT_NEAR(*five.resistanceKN, 802.0, 1e-9);

    EXPECT_EQ(pileGroup({}, {}).n, 0U);
    EXPECT_FALSE(pileGroup({}, {}).capacityKN);
    const double wild[] = {1, 1, 1, 1, 1, 4000};
    EXPECT_FALSE(pileGroup(wild, {}).capacityKN);
}

TEST(Piles, BoredPileByTypedResistances)
{
    // Row 2 of the conditions has 0.7 for sand and loam.
    const BoredPile pile{{PileSection::Round, 0.5, 0.0}, 2, 1.0, 1.0};
    const BoredLayer typed[] = {
        {2.0, std::nullopt, 35.0, PileSoil::Loam},
        {8.0, 1500.0, 48.0, PileSoil::Sand},
    };
    const PileResistance result = boredPileResistance(pile, typed, 5.0);
    EXPECT_NEAR(*result.tipKN, 294.5, 0.05);
    EXPECT_NEAR(*result.sideKN, 235.3, 0.05);
    EXPECT_NEAR(*result.totalKN(), 529.8, 0.05);
    const BoredPile widened{pile.section, 2, 0.8, 1.3};
    EXPECT_NEAR(*boredPileResistance(widened, typed, 5.0).tipKN, 0.8 * 1.3 * *result.tipKN, 1e-9);
    EXPECT_FALSE(boredPileResistance(pile, typed, 8.1).totalKN());
    EXPECT_FALSE(boredPileResistance(pile, typed, 1.5).tipKN); // no R in that layer
}

TEST(Piles, DeeperTipsNeverLoseSide)
{
    double before = 0.0;
    for (int i = 1; i <= 60; ++i) {
        const PileResistance pile = pileResistance({.section = square30}, readings(), layers, i * 0.1);
        ASSERT_TRUE(pile.sideKN) << i;
        EXPECT_GT(*pile.sideKN, before) << i;
        before = *pile.sideKN;
    }
}
