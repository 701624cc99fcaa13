#pragma once

#include "core/base/calendar_date.h"
#include "core/base/typed_number.h"
#include "dictionaries/dictionary.h"

#include <array>
#include <charconv>
#include <concepts>
#include <string>
#include <string_view>
#include <vector>

// Cells from what the project holds.

// A whole number. The library's own words for it go through the formatting of all numbers, which in a table
// of 100,000 rows takes longer than all else.
template <std::integral Number>
std::wstring wholeText(Number number)
{
    std::array<char, 24> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), end};
}

// Shortest text that reads as this single.
std::wstring singleText(float number);

inline std::wstring_view yesText(bool value)
{
    return value ? std::wstring_view(L"да") : std::wstring_view();
}

// A count in a cell: nothing is easier to read than a nought.
inline std::wstring countText(std::size_t count)
{
    return count == 0 ? std::wstring() : wholeText(count);
}

std::wstring joined(const std::vector<std::wstring>& texts, std::wstring_view separator = L"; ");

// Name of a number in a dictionary; the number itself where the dictionary lacks it.
template <std::size_t Size>
std::wstring nameText(const NameDictionary<Size>& names, int language, int number)
{
    const BilingualRow* row = names.find(number);
    if (!row)
        return wholeText(number);
    return std::wstring(language == languageUkrainian ? row->ukrainian : row->russian);
}

template <std::size_t Size>
std::wstring nameText(const Dictionary<int, std::wstring_view, Size>& names, int number)
{
    const std::wstring_view* name = names.find(number);
    return name ? std::wstring(*name) : wholeText(number);
}

// Titles of cells that have numbers for names: "Показатель 1", "Показатель 2".
template <std::size_t Count>
std::array<std::wstring, Count> numberedTitles(std::wstring_view word)
{
    std::array<std::wstring, Count> titles;
    for (std::size_t i = 0; i < Count; ++i)
        titles[i] = std::wstring(word) + L" " + wholeText(i + 1);
    return titles;
}
