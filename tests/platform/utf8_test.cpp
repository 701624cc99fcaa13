#include "platform/utf8.h"

#include <gtest/gtest.h>

#include <string>

TEST(Utf8, BothWays)
{
    const struct {
        std::string bytes;
        std::wstring text;
    } pairs[] = {
        {"", L""},
        {"Tellurix", L"Tellurix"},
        {"\xD0\xA1\xD0\xBA\xD0\xB2", L"Скв"},
        {"\x7F\xC2\x80\xDF\xBF", L"\u007F\u0080\u07FF"},
        {"\xE0\xA0\x80\xEF\xBF\xBF", L"\u0800\uFFFF"},
        {"\xED\x9F\xBF\xEE\x80\x80", L"\uD7FF\uE000"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", L"\U00010000\U0010FFFF"},
    };
    for (const auto& [bytes, text] : pairs) {
        EXPECT_EQ(toUtf8(text), bytes);
        EXPECT_EQ(fromUtf8(bytes), text);
    }
}

TEST(Utf8, MalformedBytesAreRefused)
{
    const std::string malformed[] = {
        "\x80",
        "a\xC0",
        "\xC0\xAF",
        "\xE0\x9F\xBF",
        "\xF0\x8F\xBF\xBF",
        "\xED\xA0\x80",
        "\xF4\x90\x80\x80",
        "\xFF",
        "\xD0",
        "\xE2\x82",
        "\xE2\x82z",
        "\xCF\xF0\xEE\xE5\xEA\xF2", // Windows-1251
    };
    for (const std::string& bytes : malformed)
        EXPECT_FALSE(fromUtf8(bytes)) << testing::PrintToString(bytes);
}

TEST(Utf8, WideTextThatIsNoTextGetsReplacements)
{
    const std::wstring leading(1, static_cast<wchar_t>(0xD83D));
    const std::wstring trailing(1, static_cast<wchar_t>(0xDCA7));
    EXPECT_EQ(toUtf8(leading + L"x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(toUtf8(trailing + leading), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(leading + trailing), "\xF0\x9F\x92\xA7");
    if constexpr (sizeof(wchar_t) == 4) {
        for (const unsigned code : {0x110000U, 0xFFFFFFFFU})
            EXPECT_EQ(toUtf8(std::wstring(1, static_cast<wchar_t>(code))), "\xEF\xBF\xBD");
    }
}
