#pragma once

#include "dictionaries/dictionary.h"

#include <string_view>

// Coefficients of the calculation of piles.

// Working conditions: nine lists of four texts, numbered 0 to 35 straight through.
inline constexpr std::wstring_view pileConditionCoefficients[9][4] = {
    {L"0.8", L"0.8", L"0.8", L"0.7"},
    {L"0.9", L"0.9", L"0.9", L"0.9"},
    {L"0.7", L"0.7", L"0.7", L"0.6"},
    {L"0.6", L"0.6", L"0.6", L"0.6"},
    {L"0.8", L"0.8", L"0.8", L"0.7"},
    {L"0.8", L"0.8", L"0.8", L"0.7"},
    {L"1.0", L"0.9", L"0.7", L"0.6"},
    {L"0.7", L"0.7", L"0.7", L"0.6"},
    {L"0.9", L"0.8", L"0.8", L"0.8"},
};

constexpr std::wstring_view pileConditionCoefficient(int number)
{
    if (number < 0 || number >= 36)
        failMissingKey();
    return pileConditionCoefficients[number / 4][number % 4];
}

inline constexpr auto pileConditionValues = textsByNumber({
    {0, L"0.8"},
    {1, L"1.0"},
});
inline constexpr auto pileConditionValuesSoil = textsByNumber({
    {0, L"0.9"},
    {1, L"1.0"},
    {2, L"1.3"},
});

// A coefficient by table, variant (0 or 1) and depth step.
struct PileDepthRow {
    int step;
    double first[2];
    double second[2];
};

inline constexpr PileDepthRow pileDepthCoefficients[] = {
    {20,  {1.0, 1.0},   {0.75, 0.75}},
    {40,  {0.75, 0.75}, {0.6, 0.6}},
    {60,  {0.6, 0.6},   {0.55, 0.55}},
    {80,  {0.45, 0.45}, {0.5, 0.5}},
    {100, {0.4, 0.4},   {0.5, 0.45}},
    {120, {0.4, 0.3},   {0.5, 0.4}},
};

// Table 0 or 1, variant 0 or 1, a step of the table.
constexpr double pileDepthCoefficient(int table, int variant, int step)
{
    for (const PileDepthRow& row : pileDepthCoefficients)
        if (row.step == step && (table == 0 || table == 1) && (variant == 0 || variant == 1))
            return table == 0 ? row.first[variant] : row.second[variant];
    failMissingKey();
}
