#pragma once

#include "dictionaries/dictionary.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

// Scales of drawings.

// A scale as text and as number.
struct ScaleRow {
    std::wstring_view text;
    float value;
};

template <std::size_t Size>
constexpr auto scaleList(const DictionaryEntry<int, ScaleRow> (&rows)[Size])
{
    return Dictionary<int, ScaleRow, Size>(std::to_array(rows));
}

// From the text back to the number.
template <std::size_t Size>
constexpr auto scaleIds(const Dictionary<int, ScaleRow, Size>& scales)
{
    std::array<DictionaryEntry<std::wstring_view, int>, Size> entries{};
    std::transform(scales.begin(), scales.end(), entries.begin(), [](const auto& entry) {
        return DictionaryEntry<std::wstring_view, int>{entry.value.text, entry.key};
    });
    return Dictionary<std::wstring_view, int, Size>(entries);
}

inline constexpr auto scaleList100 = scaleList({
    {0, {L"100", 100.0F}},
    {1, {L"200", 200.0F}},
    {2, {L"500", 500.0F}},
    {3, {L"1000", 1000.0F}},
    {4, {L"2000", 2000.0F}},
    {5, {L"5000", 5000.0F}},
    {6, {L"10000", 10000.0F}},
    {7, {L"20000", 20000.0F}},
});
inline constexpr auto scaleList100Ids = scaleIds(scaleList100);

inline constexpr auto scaleList10 = scaleList({
    {0, {L"10", 10.0F}},
    {1, {L"50", 50.0F}},
    {2, {L"100", 100.0F}},
    {3, {L"200", 200.0F}},
    {4, {L"500", 500.0F}},
    {5, {L"1000", 1000.0F}},
    {6, {L"2000", 2000.0F}},
});
inline constexpr auto scaleList10Ids = scaleIds(scaleList10);

inline constexpr auto scaleList2 = scaleList({
    {0, {L"100", 100.0F}},
    {1, {L"200", 200.0F}},
});
inline constexpr auto scaleList2Ids = scaleIds(scaleList2);

inline constexpr auto scaleList5 = scaleList({
    {0, {L"10", 10.0F}},
    {1, {L"50", 50.0F}},
    {2, {L"100", 100.0F}},
    {3, {L"200", 200.0F}},
    {4, {L"500", 500.0F}},
});
inline constexpr auto scaleList5Ids = scaleIds(scaleList5);
