#pragma once

#include "dictionaries/dictionary.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <string_view>

// Grain sizes: the scale from "> 200" to "< 0.005" (standard 1) and the one from "> 800" to "< 0.002"
// (standard 0).

// One fraction in the common numbering, with its rank and lower bound (mm) in either scale; rank 0 where the
// scale lacks it. The finest fraction has no bound of its own: 0.001 stands for it.
struct FractionRow {
    int number;
    std::wstring_view caption;
    int rank200;
    float bound200;
    int rank800;
    float bound800;
};

inline constexpr FractionRow fractionRows[] = {
    {1,  L"> 800",        0,  0.0F,   1,  800.0F},
    {2,  L"800 - 400",    0,  0.0F,   2,  400.0F},
    {3,  L"400 - 200",    0,  0.0F,   3,  200.0F},
    {4,  L"> 200",        1,  200.0F, 0,  0.0F},
    {5,  L"200 - 100",    2,  100.0F, 4,  100.0F},
    {6,  L"100 - 60",     3,  60.0F,  5,  60.0F},
    {7,  L"60 - 40",      4,  40.0F,  0,  0.0F},
    {8,  L"60 - 10",      0,  0.0F,   6,  10.0F},
    {9,  L"40 - 20",      5,  20.0F,  0,  0.0F},
    {10, L"20 - 10",      6,  10.0F,  0,  0.0F},
    {11, L"10 - 5",       7,  5.0F,   0,  0.0F},
    {12, L"10 - 4",       0,  0.0F,   7,  4.0F},
    {13, L"5 - 2",        8,  2.0F,   0,  0.0F},
    {14, L"4 - 2",        0,  0.0F,   8,  2.0F},
    {15, L"2 - 1",        9,  1.0F,   9,  1.0F},
    {16, L"1.0 - 0.5",    10, 0.5F,   10, 0.5F},
    {17, L"0.5 - 0.25",   11, 0.25F,  11, 0.25F},
    {18, L"0.25 - 0.1",   12, 0.1F,   12, 0.1F},
    {19, L"0.1 - 0.05",   13, 0.05F,  13, 0.05F},
    {20, L"0.05 - 0.01",  14, 0.01F,  14, 0.01F},
    {21, L"0.01 - 0.005", 15, 0.005F, 0,  0.0F},
    {22, L"0.01 - 0.002", 0,  0.0F,   15, 0.002F},
    {23, L"< 0.005",      16, 0.001F, 0,  0.0F},
    {24, L"< 0.002",      0,  0.0F,   16, 0.001F},
};

// Both scales have sixteen ranks, from the coarsest fraction down.
inline constexpr std::size_t fractionRanks = 16;

// A dictionary of the rows that one scale has, made of two columns.
template <class Key, class Value>
constexpr auto fractionsOfScale(int FractionRow::* rank, Key FractionRow::* key, Value FractionRow::* value)
{
    std::array<DictionaryEntry<Key, Value>, fractionRanks> entries{};
    std::size_t next = 0;
    for (const FractionRow& row : fractionRows)
        if (row.*rank != 0)
            entries[next++] = {row.*key, row.*value};
    if (next != fractionRanks)
        throw std::logic_error("a scale has sixteen fractions");
    return Dictionary<Key, Value, fractionRanks>(entries);
}

// Common number to rank, and back.
inline constexpr auto fractionRank200 =
    fractionsOfScale(&FractionRow::rank200, &FractionRow::number, &FractionRow::rank200);
inline constexpr auto fractionRank800 =
    fractionsOfScale(&FractionRow::rank800, &FractionRow::number, &FractionRow::rank800);
inline constexpr auto fractionNumber200 = reversed(fractionRank200);
inline constexpr auto fractionNumber800 = reversed(fractionRank800);

// Rank to the lower bound of the fraction, mm.
inline constexpr auto fractionBound200 =
    fractionsOfScale(&FractionRow::rank200, &FractionRow::rank200, &FractionRow::bound200);
inline constexpr auto fractionBound800 =
    fractionsOfScale(&FractionRow::rank800, &FractionRow::rank800, &FractionRow::bound800);

// Rank to caption, and back.
inline constexpr auto fractionCaptions200 =
    fractionsOfScale(&FractionRow::rank200, &FractionRow::rank200, &FractionRow::caption);
inline constexpr auto fractionCaptions800 =
    fractionsOfScale(&FractionRow::rank800, &FractionRow::rank800, &FractionRow::caption);
inline constexpr auto fractionRankByCaption200 = reversed(fractionCaptions200);
inline constexpr auto fractionRankByCaption800 = reversed(fractionCaptions800);

// Common number to caption.
inline constexpr auto fractionCaptions = [] {
    std::array<DictionaryEntry<int, std::wstring_view>, std::size(fractionRows)> entries{};
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i] = {fractionRows[i].number, fractionRows[i].caption};
    return Dictionary<int, std::wstring_view, std::size(fractionRows)>(entries);
}();
