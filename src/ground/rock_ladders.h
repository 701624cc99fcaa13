#pragma once

#include "ground/ladder.h"

// Rock after GOST 25100. Grades are numbers of rockGradeNames.

// Uniaxial compressive strength, MPa.
inline constexpr Rung strengthLadder[] = {
    {Side::Above, 120.0F, 0},
    {Side::Above, 50.0F, 1},
    {Side::Above, 15.0F, 2},
    {Side::Above, 5.0F, 3},
    {Side::Above, 3.0F, 4},
    {Side::AtLeast, 1.0F, 5},
    {Side::Below, 1.0F, 6},
};

// Dry density, g/cm3.
inline constexpr Rung densityLadder[] = {
    {Side::Above, 2.5F, 7},
    {Side::Above, 2.1F, 8},
    {Side::AtLeast, 1.2F, 9},
    {Side::Below, 1.2F, 10},
};

// Weathering coefficient, the density of the rock over that of fresh rock: above 1 it is no grade's.
inline constexpr Rung weatheringLadder[] = {
    {Side::Above, 1.0F, noGrade},
    {Side::AtLeast, 1.0F, 11},
    {Side::AtLeast, 0.9F, 12},
    {Side::AtLeast, 0.8F, 13},
    {Side::Below, 0.8F, 14},
};

// Softening coefficient, a ratio.
inline constexpr Rung softeningLadder[] = {
    {Side::AtLeast, 0.75F, 15},
    {Side::Below, 0.75F, 16},
};

// Soluble salts, g/l.
inline constexpr Rung solubilityLadder[] = {
    {Side::Below, 0.01F, 17},
    {Side::Below, 1.0F, 18},
    {Side::AtMost, 10.0F, 19},
    {Side::Above, 10.0F, 20},
};

// Filtration coefficient, m/day.
inline constexpr Rung permeabilityLadder[] = {
    {Side::Below, 0.005F, 21},
    {Side::Below, 0.3F, 22},
    {Side::Below, 3.0F, 23},
    {Side::AtMost, 30.0F, 24},
    {Side::Above, 30.0F, 25},
};

// Soluble salts, percent.
inline constexpr Rung rockSalinityLadder[] = {
    {Side::AtMost, 2.0F, 26},
    {Side::Above, 2.0F, 27},
};
