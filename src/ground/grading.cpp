#include "ground/grading.h"

#include "core/base/text_number.h"
#include "dictionaries/fractions.h"
#include "ground/ladder.h"

#include <array>
#include <cmath>
#include <optional>

namespace
{

// Scale 200: what a fraction says depends on how much of the soil is coarser than its lower bound, percent.
constexpr Rung bouldersLadder[] = {
    {Side::Above, 50.0F, 1},
};
constexpr Rung pebblesLadder[] = {
    {Side::Above, 50.0F, 2},
};
constexpr Rung gravelLadder[] = {
    {Side::Above, 50.0F, 3},
    {Side::Above, 25.0F, 4},
};
constexpr Rung coarseSandLadder[] = {
    {Side::Above, 50.0F, 5},
};
constexpr Rung mediumSandLadder[] = {
    {Side::Above, 50.0F, 6},
};
constexpr Rung fineSandLadder[] = {
    {Side::AtLeast, 75.0F, 7},
    {Side::Above, 0.00001F, 8},
};

struct FractionLadder {
    float bound; // mm
    Ladder ladder;
};

constexpr FractionLadder ladders200[] = {
    {200.0F, bouldersLadder},
    {10.0F, pebblesLadder},
    {2.0F, gravelLadder},
    {0.5F, coarseSandLadder},
    {0.25F, mediumSandLadder},
    {0.1F, fineSandLadder},
};
constexpr float boundTolerance = 0.00001F;

// Scale 800: the bound of a fraction, mm, decides alone and its percentage is not looked at, so the coarsest
// fraction of the soil that has a row here names it. The bound 800 itself has none.
constexpr Rung ladder800[] = {
    {Side::Above, 800.0F, 11},
    {Side::AtLeast, 800.0F, noFractionClass},
    {Side::AtLeast, 400.0F, 12},
    {Side::AtLeast, 200.0F, 13},
    {Side::AtLeast, 100.0F, 14},
    {Side::AtLeast, 60.0F, 15},
    {Side::AtLeast, 10.0F, 16},
    {Side::AtLeast, 4.0F, 17},
    {Side::AtLeast, 2.0F, 18},
    {Side::AtLeast, 1.0F, 19},
    {Side::AtLeast, 0.5F, 20},
    {Side::AtLeast, 0.25F, 21},
    {Side::AtLeast, 0.1F, 22},
    {Side::AtLeast, 0.05F, 23},
    {Side::AtLeast, 0.01F, 24},
    {Side::AtLeast, 0.002F, 25},
    {Side::Below, 0.002F, 26},
};

int classInScale200(float bound, float coarser)
{
    for (const FractionLadder& row : ladders200)
        if (std::fabs(bound - row.bound) < boundTolerance) {
            const int found = gradeOf(row.ladder, coarser);
            return found == noGrade ? noFractionClass : found;
        }
    return noFractionClass;
}

int classInScale800(float bound)
{
    return gradeOf(ladder800, bound);
}

// What of the soil is as coarse as the fraction or coarser, percent; nothing where the soil lacks it.
using Coarser = std::array<std::optional<float>, fractionRanks + 1>; // by rank, from 1

Coarser accumulate(int scale, const std::map<std::uint8_t, std::wstring>& fractions)
{
    const auto& ranks = scale == gradingScale200 ? fractionRank200 : fractionRank800;
    std::array<const std::wstring*, fractionRanks + 1> byRank{};
    for (const auto& [number, percentage] : fractions)
        byRank.at(static_cast<std::size_t>(ranks.at(number))) = &percentage;

    Coarser coarser;
    float sum = 0.0F;
    for (std::size_t rank = 1; rank <= fractionRanks; ++rank) {
        const std::wstring* percentage = byRank[rank];
        if (!percentage)
            continue;
        // A hole in the column restarts the sum on purpose: the coarser fractions are forgotten.
        sum = percentage->empty() ? 0.0F : sum + textToFloat(*percentage);
        coarser[rank] = sum;
    }
    return coarser;
}

} // namespace

int fractionClassOf(int scale, const std::map<std::uint8_t, std::wstring>& fractions)
{
    const auto& bounds = scale == gradingScale200 ? fractionBound200 : fractionBound800;
    const Coarser coarser = accumulate(scale, fractions);
    for (std::size_t rank = 1; rank <= fractionRanks; ++rank) {
        if (!coarser[rank])
            continue;
        const float bound = bounds.at(static_cast<int>(rank));
        const int found =
            scale == gradingScale200 ? classInScale200(bound, *coarser[rank]) : classInScale800(bound);
        if (found != noFractionClass)
            return found;
    }
    return noFractionClass;
}
