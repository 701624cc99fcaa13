#include "core/base/letters.h"

#include <gtest/gtest.h>

#include <string>

TEST(Letters, NamesOfPointsAndSections)
{
    const struct {
        std::wstring name;
        bool letter;
    } names[] = {
        {L"", false},
        {L"12", false},
        {L"-1.5e", true},
        {L"1'-1'", false},
        {L"№5", false},
        {L"7/2 (3)", false},
        {L"Скв-1", true},
        {L"А-А'", true},
        {L"Ё", true},
        {L"Ґ-3", true},
        {L"2є", true},
        {L"ї", true},
        {L"9 \u4E95", true}, // a well, in Chinese
        {L"5\u00AA", false}, // feminine ordinal sign, below U+0100
        {L"M\u00DCLLER", true},
        {L"\u00DC\u00DF", false},
        {L"\u2160", false}, // Roman numeral one is a number
        {L"\U0001D400", false}, // above U+FFFF
    };
    for (const auto& [name, letter] : names)
        EXPECT_EQ(containsLetter(name), letter) << testing::PrintToString(name);
}

TEST(Letters, BordersOfTheRuns)
{
    const struct {
        unsigned last;
        bool letterAtLast;
        bool letterBehind;
    } borders[] = {
        {0x0040, false, true}, // @ A
        {0x005A, true, false},
        {0x0060, false, true},
        {0x007A, true, false},
        {0x00FF, false, true},
        {0x02C1, true, false},
        {0x0481, true, false}, // behind the Cyrillic letters the thousands sign and combining marks
        {0x0489, false, true},
        {0x052F, true, false},
        {0x0530, false, true},
        {0xD7A3, true, false},
        {0xD7FF, false, false}, // surrogates
        {0xFFDC, true, false},
    };
    for (const auto& [last, letterAtLast, letterBehind] : borders) {
        EXPECT_EQ(isLetter(static_cast<wchar_t>(last)), letterAtLast) << std::hex << last;
        EXPECT_EQ(isLetter(static_cast<wchar_t>(last + 1)), letterBehind) << std::hex << last + 1;
    }
}
