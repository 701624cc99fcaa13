#pragma once

#include "ground/ladder.h"

// Frozen ground after GOST 25100: which properties grade a group of soils, and how. Grades are numbers of
// frozenGradeNames.

// The values that decide the state, in the order in which they are read.
struct FrozenValues {
    float thawTemperature = 0;
    float soilTemperature = 0;
    float compressibility = 0;
    float freezeTemperature = 0;
    float iceFilling = 0;
};

// How the temperature of thawing qualifies a soil as hard frozen.
enum class HardFrozenAt {
    BelowZero,
    // Exactly the single of the soil's row, on purpose without a tolerance: -0.1 and -0.10 do, -0.099 does
    // not.
    Exactly,
};

// What makes a soil plastic frozen besides its temperature.
enum class PlasticFrozen { Never, PoorInIceAndCompressible, PoorInIce, Always };

struct FrozenGroup {
    int group; // number of soilGroupNames
    Ladder ice; // by the visible ice content
    Ladder salinity; // by the soluble salts, percent
    HardFrozenAt hardFrozen;
    float thawTemperature; // degrees; meant only where it must be met exactly
    PlasticFrozen plasticFrozen;
    bool looseFrozen; // can be loose frozen
};

// The row of a group; null for those that have a name alone (8 and 9, peat) and for unknown ones.
const FrozenGroup* findFrozenGroup(int group);

// Whether the state of the group depends on the freezing temperature and the filling of the pores by ice.
constexpr bool usesIceFilling(const FrozenGroup& group)
{
    return group.plasticFrozen != PlasticFrozen::Never || group.looseFrozen;
}

// Hard, plastic or loose frozen, the first that applies; noGrade where none does.
int frozenStateOf(const FrozenGroup& group, const FrozenValues& values);
