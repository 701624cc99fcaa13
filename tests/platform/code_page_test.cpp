#include "platform/code_page.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

std::string allBytes()
{
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes.push_back(static_cast<char>(static_cast<unsigned char>(i)));
    return bytes;
}

} // namespace

TEST(CodePage, EveryByteComesBack)
{
    const std::wstring text = fromCodePage(allBytes());
    ASSERT_EQ(text.size(), 256U);
    EXPECT_EQ(toCodePage(text), allBytes());
    for (const wchar_t character : text)
        EXPECT_TRUE(codePageHolds(character)) << static_cast<unsigned>(character);
}

TEST(CodePage, IsWindows1251)
{
    const struct {
        std::string bytes;
        std::wstring text;
    } pairs[] = {
        {"", L""},
        {"Tellurix 19", L"Tellurix 19"},
        {"\xCF\xE5\xF1\xEE\xEA", L"Песок"},
        {"\xC0\xDF\xE0\xFF\xA8\xB8", L"АЯаяЁё"},
        {"\xA5\xB4\xAA\xBA\xAF\xBF\xB2\xB3", L"ҐґЄєЇїІі"},
        {"\xB9 12 \x96 \x97 \x93\xEB\x94\x85", L"№ 12 \u2013 \u2014 \u201C\u043B\u201D\u2026"},
        {"\x88\x98\x99\xA0\xAB\xBB\xB0", L"\u20AC\u0098\u2122\u00A0«»°"},
    };
    for (const auto& [bytes, text] : pairs) {
        EXPECT_EQ(fromCodePage(bytes), text);
        EXPECT_EQ(toCodePage(text), bytes);
    }
}

TEST(CodePage, WhatItDoesNotHoldBecomesOneQuestionMarkAUnit)
{
    const std::wstring leading(1, static_cast<wchar_t>(0xD83D));
    const std::wstring trailing(1, static_cast<wchar_t>(0xDCA7));
    const struct {
        std::wstring text;
        std::string bytes;
    } cases[] = {
        {L"1\u4E952", "1?2"},
        {L"a\U0001F4A7b", "a??b"}, // two units
        {leading + L"x", "?x"},
        {trailing, "?"},
    };
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(codePageLength(text), bytes.size()) << testing::PrintToString(text);
        EXPECT_EQ(toCodePage(text), bytes) << testing::PrintToString(text);
    }
    for (const unsigned code : {0xE9U, 0x400U, 0x4E95U, 0xD83DU, 0xFFFFU})
        EXPECT_FALSE(codePageHolds(static_cast<wchar_t>(code))) << code;
    EXPECT_TRUE(codePageHolds(L'?'));
}

TEST(CodePage, AWideValueBeyondUnicodeIsOneUnit)
{
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "a wide character of 16 bits has no such value";
    for (const unsigned code : {0x110000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        const std::wstring text(1, static_cast<wchar_t>(code));
        EXPECT_EQ(toCodePage(text), "?") << code;
        EXPECT_FALSE(codePageHolds(text[0])) << code;
    }
    EXPECT_EQ(codePageLength(std::wstring(1, static_cast<wchar_t>(0x10FFFF))), 2U);
}

TEST(CodePage, AppendingKeepsWhatStandsThere)
{
    std::vector<std::uint8_t> bytes = {1, 2};
    appendCodePage(L"", bytes);
    appendCodePage(L"Яx", bytes);
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{1, 2, 0xDF, 'x'}));
}
