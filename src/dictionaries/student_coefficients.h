#pragma once

#include "dictionaries/dictionary.h"

#include <array>

// Number of determinations to Student's one-sided coefficient at a confidence of 0.95. The values are those of
// as many degrees of freedom, not of one less.

inline constexpr Dictionary<int, double, 22> studentCoefficients(std::to_array<DictionaryEntry<int, double>>({
    {3,  2.35},
    {4,  2.13},
    {5,  2.01},
    {6,  1.94},
    {7,  1.9},
    {8,  1.86},
    {9,  1.83},
    {10, 1.81},
    {11, 1.8},
    {12, 1.78},
    {13, 1.77},
    {14, 1.76},
    {15, 1.75},
    {16, 1.75},
    {17, 1.74},
    {18, 1.73},
    {19, 1.73},
    {20, 1.72},
    {25, 1.71},
    {30, 1.7},
    {40, 1.68},
    {60, 1.67},
}));
