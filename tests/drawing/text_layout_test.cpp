#include "drawing/text_layout.h"

#include <gtest/gtest.h>

#include <random>

// Widths of Arial are known to every typesetter: a digit is 556 thousandths of the em, a capital 716 high.
TEST(TextLayout, WidthsAreThoseOfTheFont)
{
    const double em = emOfHeight(Font::Plain, 2.5);
    EXPECT_NEAR(em, 2.5 / 0.688, 0.01);
    EXPECT_NEAR(textWidth(L"0123456789", Font::Plain, 2.5), 10 * 0.556 * em, 1e-6);
    EXPECT_NEAR(textWidth(L"Ж", Font::Plain, 2.5), 0.923 * em, 0.001 * em);
    EXPECT_DOUBLE_EQ(textWidth(L"", Font::Bold, 2.5), 0);
    EXPECT_GT(textWidth(L"Суглинок", Font::Bold, 2.5), textWidth(L"Суглинок", Font::Plain, 2.5));
    EXPECT_LT(textWidth(L"Суглинок", Font::Narrow, 2.5), textWidth(L"Суглинок", Font::Plain, 2.5));
    for (const Font font : {Font::Plain, Font::Bold, Font::Italic, Font::Narrow})
        for (const wchar_t* text : {L"№", L"²", L"α", L"ъ", L"Ґ", L"–", L"≤"})
            EXPECT_GT(textWidth(text, font, 1), 0.1);
}

TEST(TextLayout, BreaksAtBlanksHyphensAndLineFeeds)
{
    const double ten = textWidth(L"оооооооооо", Font::Plain, 2);
    using Lines = std::vector<std::wstring>;
    const struct {
        const wchar_t* text;
        Lines lines;
    } rows[] = {
        {L"", {L""}},
        {L"ооо", {L"ооо"}},
        {L"ооооо ооооо", {L"ооооо", L"ооооо"}},
        {L"  ооо   ооо  ", {L"ооо   ооо"}},
        {L"ооооооо-ооооооо", {L"ооооооо-", L"ооооооо"}},
        {L"ооооооооооооо", {L"оооооооооо", L"ооо"}},
        {L"оо\nоо\n", {L"оо", L"оо", L""}},
        {L"оо оооооооооооо", {L"оо", L"оооооооооо", L"оо"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(brokenLines(row.text, Font::Plain, 2, ten), row.lines);
    EXPECT_EQ(brokenLines(L"оо", Font::Plain, 2, 0), (Lines{L"о", L"о"}));
}

TEST(TextLayout, NothingIsLostAndNothingIsTooWide)
{
    std::mt19937 random(7);
    const std::wstring letters = L"аБвЩж 1,-/ WиIl №² ";
    for (int round = 0; round < 300; ++round) {
        std::wstring text;
        for (auto count = random() % 200; count > 0; --count)
            text += letters[random() % letters.size()];
        const double width = 5.0 + static_cast<double>(random() % 60);
        std::wstring joined;
        for (const std::wstring& line : brokenLines(text, Font::Narrow, 2.5, width)) {
            EXPECT_LE(textWidth(line, Font::Narrow, 2.5), width + 1e-6);
            joined += line;
        }
        std::erase(joined, L' ');
        std::erase(text, L' ');
        EXPECT_EQ(joined, text);
    }
}

TEST(TextLayout, ShortensToTheWidth)
{
    const std::wstring shortened = shortenedText(L"Скважина с очень длинным именем", Font::Plain, 2.5, 20);
    EXPECT_LE(textWidth(shortened, Font::Plain, 2.5), 20);
    EXPECT_GT(textWidth(shortened, Font::Plain, 2.5), 15);
    EXPECT_EQ(shortened.back(), L'\u2026');
    EXPECT_EQ(shortenedText(L"12", Font::Plain, 2.5, 20), L"12");
}

TEST(TextLayout, MarksLowerAndRaise)
{
    using Piece = MarkedPiece;
    EXPECT_EQ(markedPieces(L"aQ_III^2"),
        (std::vector<Piece>{{L"aQ", Piece::Normal}, {L"III", Piece::Lowered}, {L"2", Piece::Raised}}));
    EXPECT_EQ(markedPieces(L"tIV"), (std::vector<Piece>{{L"tIV", Piece::Normal}}));
    EXPECT_TRUE(markedPieces(L"_^").empty());
    Text marked;
    marked.text = L"aQ_III^2";
    marked.at = {50, 20};
    marked.height = 3;
    marked.align = Align::Centre;
    const std::vector<Text> texts = markedText(marked);
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_DOUBLE_EQ(texts[0].at.y, 20);
    EXPECT_GT(texts[1].at.y, 20);
    EXPECT_LT(texts[2].at.y, 20);
    EXPECT_LT(texts[1].height, 3);
    const double right = texts[2].at.x + textWidth(texts[2].text, Font::Plain, texts[2].height);
    EXPECT_NEAR((texts[0].at.x + right) / 2, 50, 1e-9);
    EXPECT_NEAR(right - texts[0].at.x, markedTextWidth(L"aQ_III^2", Font::Plain, 3), 1e-9);
    marked.angle = 90;
    for (const Text& text : markedText(marked))
        EXPECT_NEAR(text.at.x, 50, 1.1) << "a turned index runs upwards";
}
