#include "core/base/letters.h"

#include "core/base/letter_ranges.h"
#include "platform/wide_character.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace
{

constexpr bool isAscendingWithGaps()
{
    for (std::size_t i = 1; i < std::size(letterRanges); ++i) {
        if (letterRanges[i - 1].last + 1 >= letterRanges[i].first
            || letterRanges[i].first > letterRanges[i].last)
            return false;
    }
    return true;
}
static_assert(isAscendingWithGaps());

bool standsInTable(std::uint32_t code)
{
    const auto* const range = std::lower_bound(
        std::begin(letterRanges), std::end(letterRanges), code, [](const LetterRange& r, std::uint32_t c) {
            return r.last < c;
        });
    return range != std::end(letterRanges) && range->first <= code;
}

// Digits, Latin and Cyrillic are answered without the table: they are what names consist of.
inline bool isLetterCode(std::uint32_t code)
{
    if (code < 0x100U)
        return (code | 0x20U) - U'a' < 26U;
    if (code - 0x400U < 0x82U)
        return true;
    return standsInTable(code);
}

} // namespace

bool isLetter(wchar_t character)
{
    return isLetterCode(codeOf(character));
}

bool containsLetter(std::wstring_view text)
{
    return std::any_of(
        text.begin(), text.end(), [](wchar_t character) { return isLetterCode(codeOf(character)); });
}

wchar_t withoutCase(wchar_t character)
{
    if (character >= L'A' && character <= L'Z')
        return static_cast<wchar_t>(character + 32);
    if (character == L'Ё' || character == L'ё')
        return L'е';
    if (character >= L'А' && character <= L'Я')
        return static_cast<wchar_t>(character + 32);
    if (character >= L'\u0400' && character <= L'\u040F')
        return static_cast<wchar_t>(character + 80);
    return character;
}
