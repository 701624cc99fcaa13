#pragma once

#include <array>
#include <cstddef>
#include <string_view>

// The properties of each kind of soil, with and without those of frozen ground, in the order of the columns.

// A property as a blank row that a sample or an element starts from.
struct PropertyRow {
    int number = 0;
    bool enabled = true;
    std::wstring_view value;
    int lower = 0;
    int upper = 999;
};

template <std::size_t Size>
constexpr std::array<PropertyRow, Size> propertySet(const int (&numbers)[Size])
{
    std::array<PropertyRow, Size> rows{};
    for (std::size_t i = 0; i < Size; ++i)
        rows[i].number = numbers[i];
    return rows;
}

inline constexpr auto propertySetAll = propertySet({
    0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27,
    28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52,
    53, 54, 55, 56, 57, 58, 59, 60, 61, 62, 63, 64, 65, 66, 67});

inline constexpr auto propertySetCohesive = propertySet({
    0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 29, 30, 31, 32, 33, 34, 35, 42});

inline constexpr auto propertySetCohesiveFrozen = propertySet({
    0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 29, 30, 31, 32, 33, 34, 35, 42, 19,
    20, 21, 22, 23, 24, 25, 26, 27, 28, 41, 43, 44});

inline constexpr auto propertySetCoarseFrozen = propertySet({
    0, 1, 2, 5, 6, 7, 8, 9, 10, 11, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 41, 43, 44});

inline constexpr auto propertySetFull = propertySet({
    0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 36, 37, 38, 39, 40, 16, 17, 18, 29, 30, 31, 32,
    33, 34, 35, 42, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 41, 43, 44});

inline constexpr auto propertySetRockFrozen = propertySet({
    0, 1, 2, 5, 15, 36, 37, 38, 39, 40, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 41, 43, 44});

inline constexpr auto propertySetCoarse = propertySet({0, 1, 2, 5, 6, 7, 8, 9, 10, 11, 14, 15, 16, 17, 18});

inline constexpr auto propertySetRock = propertySet({0, 1, 2, 5, 15, 36, 37, 38, 39, 40});
