#include "platform/ascii.h"
#include "platform/code_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

// Every length and place, with characters whose lower or upper bits alone look like ASCII.
TEST(Ascii, OneForeignCharacterIsSeenWhereverItStands)
{
    std::wstring characters(L"\0\x01\x7F\x80\xFF\u0100\u0141\u8031\uFF31", 9);
    if constexpr (sizeof(wchar_t) == 4)
        characters += {static_cast<wchar_t>(0x10041), static_cast<wchar_t>(0x80000041)};
    for (std::size_t length = 1; length < 20; ++length)
        for (std::size_t place = 0; place < length; ++place)
            for (const wchar_t character : characters) {
                std::wstring text = std::wstring(L"0123456789abcdefghij").substr(0, length);
                text[place] = character;
                const bool isAscii = character >= 0 && character < 0x80;
                std::string bytes(length, '?');
                EXPECT_EQ(writeAscii(text, reinterpret_cast<std::uint8_t*>(bytes.data())), isAscii);
                EXPECT_TRUE(!isAscii || std::equal(text.begin(), text.end(), bytes.begin()));
                EXPECT_EQ(isPlainAscii(text), isAscii && character != 0) << length << ' ' << place;
            }
    EXPECT_TRUE(writeAscii({}, nullptr));
    EXPECT_TRUE(isPlainAscii({}));
}
