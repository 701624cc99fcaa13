#pragma once

#include "ground/ladder.h"

// Cohesive soils after GOST 25100. Grades are numbers of plasticSoilNames and consistencyNames.

inline constexpr int sandyLoam = 0;
inline constexpr int loam = 1;
inline constexpr int clay = 2;

// By the plasticity index, percent.
inline constexpr Rung plasticityLadder[] = {
    {Side::Below, 1.0F, noGrade},
    {Side::AtMost, 7.0F, sandyLoam},
    {Side::AtMost, 17.0F, loam},
    {Side::Above, 17.0F, clay},
};

// By the liquidity index.
inline constexpr Rung sandyLoamConsistency[] = {
    {Side::Below, 0.0F, 0},
    {Side::AtMost, 1.0F, 1},
    {Side::Above, 1.0F, 2},
};
inline constexpr Rung loamConsistency[] = {
    {Side::Below, 0.0F, 7},
    {Side::AtMost, 0.25F, 8},
    {Side::AtMost, 0.5F, 9},
    {Side::AtMost, 0.75F, 10},
    {Side::AtMost, 1.0F, 11},
    {Side::Above, 1.0F, 12},
};
inline constexpr Rung clayConsistency[] = {
    {Side::Below, 0.0F, 0},
    {Side::AtMost, 0.25F, 3},
    {Side::AtMost, 0.5F, 4},
    {Side::AtMost, 0.75F, 5},
    {Side::AtMost, 1.0F, 6},
    {Side::Above, 1.0F, 2},
};
// In the order of the soils' numbers.
inline constexpr Ladder consistencyLadders[] = {sandyLoamConsistency, loamConsistency, clayConsistency};
