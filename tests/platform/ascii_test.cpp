#include "platform/ascii.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>

// Every length and place, with characters whose lower or upper bits alone look like ASCII.
TEST(Ascii, OneForeignCharacterIsSeenWhereverItStands)
{
    std::wstring characters;
    for (const std::uint32_t code :
        {0x0U, 0x1U, 0x7FU, 0x80U, 0xFFU, 0x100U, 0x141U, 0x8031U, 0xFF31U, 0x10041U, 0x80000041U})
        if (sizeof(wchar_t) == 4 || code <= 0xFFFFU)
            characters += static_cast<wchar_t>(code);
    for (std::size_t length = 1; length < 20; ++length)
        for (std::size_t place = 0; place < length; ++place)
            for (const wchar_t character : characters) {
                std::wstring text = std::wstring(L"0123456789abcdefghij").substr(0, length);
                text[place] = character;
                const bool isAscii = static_cast<std::uint32_t>(character) < 0x80U;
                std::string bytes(length, '?');
                EXPECT_EQ(writeAscii(text, reinterpret_cast<std::uint8_t*>(bytes.data())), isAscii);
                EXPECT_TRUE(!isAscii || std::equal(text.begin(), text.end(), bytes.begin()));
                EXPECT_EQ(isPlainAscii(text), isAscii && character != 0) << length << ' ' << place;
            }
    EXPECT_TRUE(writeAscii({}, nullptr));
    EXPECT_TRUE(isPlainAscii({}));
}
