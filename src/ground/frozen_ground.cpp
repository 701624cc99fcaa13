#include "ground/frozen_ground.h"

#include <algorithm>
#include <iterator>

namespace
{

constexpr Rung rockIce[] = {
    {Side::AtMost, 0.01F, 0},
    {Side::AtMost, 0.05F, 1},
    {Side::Above, 0.05F, 2},
};
constexpr Rung soilIce[] = {
    {Side::Below, 0.2F, 0},
    {Side::AtMost, 0.4F, 1},
    {Side::AtMost, 0.6F, 2},
    {Side::AtMost, 0.9F, 3},
};

// The bands of sand have gaps: between them a salinity has no grade.
constexpr Rung sandSalinity[] = {
    {Side::Below, 0.05F, noGrade},
    {Side::AtMost, 0.1F, 4},
    {Side::Below, 1.0F, noGrade},
    {Side::AtMost, 2.0F, 5},
    {Side::Above, 2.0F, 6},
};
constexpr Rung cohesiveSalinity[] = {
    {Side::Below, 0.2F, noGrade},
    {Side::AtMost, 0.5F, 4},
    {Side::AtMost, 1.0F, 5},
    {Side::Above, 1.0F, 6},
};

constexpr int hardFrozenGrade = 7;
constexpr int plasticFrozenGrade = 8;
constexpr int looseFrozenGrade = 9;

constexpr float zeroTemperature = 0.00001F;
constexpr float hardCompressibility = 0.1F;
constexpr float plasticIceFilling = 0.8F;
constexpr float looseIceFilling = 0.15F;

using enum HardFrozenAt;

constexpr FrozenGroup frozenGroups[] = {
    {1, rockIce, {}, BelowZero, 0.0F, PlasticFrozen::Never, false},
    {2, {}, {}, BelowZero, 0.0F, PlasticFrozen::PoorInIceAndCompressible, true},
    {3, soilIce, sandSalinity, Exactly, -0.1F, PlasticFrozen::PoorInIce, true},
    {4, soilIce, sandSalinity, Exactly, -0.3F, PlasticFrozen::PoorInIce, true},
    {5, soilIce, cohesiveSalinity, Exactly, -0.6F, PlasticFrozen::Always, true},
    {6, soilIce, cohesiveSalinity, Exactly, -1.0F, PlasticFrozen::Always, true},
    {7, soilIce, cohesiveSalinity, Exactly, -1.5F, PlasticFrozen::Always, true},
};

bool isHardFrozen(const FrozenGroup& group, const FrozenValues& values)
{
    const bool thaws = group.hardFrozen == BelowZero ? values.thawTemperature < zeroTemperature
                                                     : values.thawTemperature == group.thawTemperature;
    return thaws && values.soilTemperature < values.thawTemperature
        && values.compressibility <= hardCompressibility;
}

bool isPlasticFrozen(const FrozenGroup& group, const FrozenValues& values)
{
    const bool betweenTemperatures =
        values.thawTemperature < values.soilTemperature && values.soilTemperature < values.freezeTemperature;
    const bool poorInIce = values.iceFilling < plasticIceFilling;
    switch (group.plasticFrozen) {
    case PlasticFrozen::Never:
        return false;
    case PlasticFrozen::PoorInIceAndCompressible:
        return betweenTemperatures && poorInIce && values.compressibility > hardCompressibility;
    case PlasticFrozen::PoorInIce:
        return betweenTemperatures && poorInIce;
    case PlasticFrozen::Always:
        return betweenTemperatures;
    }
    return false;
}

bool isLooseFrozen(const FrozenGroup& group, const FrozenValues& values)
{
    return group.looseFrozen && values.soilTemperature < 0.0F && values.iceFilling <= looseIceFilling;
}

} // namespace

const FrozenGroup* findFrozenGroup(int group)
{
    const auto* const row = std::find_if(std::begin(frozenGroups),
        std::end(frozenGroups),
        [group](const FrozenGroup& each) { return each.group == group; });
    return row == std::end(frozenGroups) ? nullptr : row;
}

int frozenStateOf(const FrozenGroup& group, const FrozenValues& values)
{
    if (isHardFrozen(group, values))
        return hardFrozenGrade;
    if (isPlasticFrozen(group, values))
        return plasticFrozenGrade;
    return isLooseFrozen(group, values) ? looseFrozenGrade : noGrade;
}
