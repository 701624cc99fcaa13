#include "core/base/calendar_date.h"
#include "core/base/typed_number.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <sstream>
#include <string>

TEST(TypedNumber, ReadsWhatPeopleTypeAndNothingElse)
{
    struct Row {
        std::wstring_view text;
        Number number;
    };
    const Row rows[] = {
        {L"0,212", 0.212},
        {L" 6 180.5 ", 6180.5},
        {L"6\u00A0180\u00A0123,45", 6180123.45},
        {L"1\u202F000", 1000.0},
        {L"-.5", -0.5},
        {L"+7.", 7.0},
        {L"1  000", 1000.0},
        {L"000012", 12.0},
        {L"", std::nullopt},
        {L" ", std::nullopt},
        {L"-", std::nullopt},
        {L".", std::nullopt},
        {L"1.2.3", std::nullopt},
        {L"1,2.3", std::nullopt},
        {L"1e3", std::nullopt},
        {L"0x10", std::nullopt},
        {L"nan", std::nullopt},
        {L"inf", std::nullopt},
        {L"< 20", std::nullopt},
        {L"- 5", std::nullopt},
        {L"12 м", std::nullopt},
        {L"1. 5", std::nullopt},
    };
    for (const Row& row : rows)
        EXPECT_EQ(readNumber(row.text), row.number) << testing::PrintToString(std::wstring(row.text));
    EXPECT_EQ(readNumber(std::wstring(401, L'9')), std::nullopt) << "more than a double holds";
}

// Short numbers go another way than long ones: both are the double that the C library finds nearest.
TEST(TypedNumber, IsTheNearestDouble)
{
    std::mt19937_64 random(5);
    for (int i = 0; i < 5000; ++i) {
        std::string text = random() % 2 ? "-" : "";
        const std::size_t digits = 1 + random() % 20;
        const std::size_t mark = random() % (digits + 1);
        for (std::size_t digit = 0; digit < digits; ++digit) {
            if (digit == mark)
                text += '.';
            text += static_cast<char>('0' + random() % 10);
        }
        std::istringstream stream(text);
        stream.imbue(std::locale::classic());
        double nearest = 0;
        ASSERT_TRUE(stream >> nearest) << text;
        EXPECT_EQ(readNumber(std::wstring(text.begin(), text.end())), nearest) << text;
    }
}

TEST(TypedNumber, CellsOfTestsCarryMarks)
{
    const CellNumber leftOut = readCellNumber(L" (0,063) ");
    EXPECT_EQ(leftOut.value, 0.063);
    EXPECT_TRUE(leftOut.isLeftOut);
    const CellNumber kept = readCellNumber(L"0.212!");
    EXPECT_EQ(kept.value, 0.212);
    EXPECT_TRUE(kept.isKept);
    EXPECT_EQ(readCellNumber(L"()").value, std::nullopt);
    EXPECT_EQ(readCellNumber(L"-").value, std::nullopt);
}

TEST(TypedNumber, DifferencesAreExactInDecimals)
{
    struct Row {
        std::wstring_view a;
        std::wstring_view b;
        std::wstring_view difference;
    };
    const Row rows[] = {
        {L"1.205", L"0", L"1.205"},
        {L"152.35", L"4.6", L"147.75"},
        {L"152,35", L"4.60", L"147,75"},
        {L"0.1", L"0.3", L"-0.2"},
        {L"1.40", L"1.4", L"0.00"},
        {L"12", L"0.125", L"11.875"},
        {L"6 180 123.45", L"0.05", L"6180123.40"},
        {L"123456789012345678", L"0.1", L""},
        {L"скв", L"1", L""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(differenceText(row.a, row.b), row.difference);
}

TEST(TypedNumber, RoundsHalvesAsTheDecimalValueHasThem)
{
    struct Row {
        double value;
        int decimals;
        std::wstring_view text;
    };
    const Row rows[] = {
        {2.675, 2, L"2.68"}, // stored as 2.67499999...
        {1.005, 2, L"1.01"},
        {-2.675, 2, L"-2.68"},
        {-0.001, 2, L"0.00"},
        {1234.5, 0, L"1235"},
        {0.5, 0, L"1"},
        {0.125, 2, L"0.13"},
        {1.6006600660, 2, L"1.60"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(numberText(row.value, row.decimals), row.text);
    EXPECT_EQ(numberText(std::nullopt, 2), L"");
    EXPECT_EQ(numberText(std::numeric_limits<double>::infinity(), 2), L"");
    EXPECT_EQ(significantText(0.084090, 3), L"0.0841");
    EXPECT_EQ(significantText(384.4, 3), L"384");
    EXPECT_EQ(significantText(0.99996, 3), L"1.000");
}

TEST(CalendarDate, ReadsTheFormsThatSurveysHave)
{
    struct Row {
        std::wstring_view text;
        std::optional<Date3> date;
    };
    const Row rows[] = {
        {L"31.12.2019", Date3{2019, 12, 31}},
        {L" 1/2/99 ", Date3{1999, 2, 1}},
        {L"07-08-25", Date3{2025, 8, 7}},
        {L"2020-02-29", Date3{2020, 2, 29}},
        {L"29.02.2019", std::nullopt},
        {L"29.02.1900", std::nullopt},
        {L"31.04.2019", std::nullopt},
        {L"00.01.2019", std::nullopt},
        {L"01.13.2019", std::nullopt},
        {L"1.1.201", std::nullopt},
        {L"1.1", std::nullopt},
        {L"вчера", std::nullopt},
        {L"", std::nullopt},
    };
    for (const Row& row : rows)
        EXPECT_EQ(readDate(row.text), row.date) << testing::PrintToString(std::wstring(row.text));
    EXPECT_EQ(dateText({2019, 8, 7}), L"07.08.2019");
    EXPECT_EQ(dateText({}), L"");
}
