#include "core/base/text_number.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <initializer_list>
#include <limits>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>

namespace
{

// The process's locale for one test.
class ScopedLocale
{
public:
    // By any of its names: each system has its own.
    explicit ScopedLocale(std::initializer_list<const char*> names)
        : before_(std::setlocale(LC_ALL, nullptr))
        , taken_(std::any_of(names.begin(), names.end(), [](const char* name) {
            return std::setlocale(LC_ALL, name) != nullptr;
        }))
    {
    }
    ScopedLocale(const ScopedLocale&) = delete;
    ScopedLocale& operator=(const ScopedLocale&) = delete;
    ~ScopedLocale() { std::setlocale(LC_ALL, before_.c_str()); }

    bool taken() const { return taken_; }

private:
    std::string before_;
    bool taken_;
};

std::uint32_t bits(float value)
{
    return std::bit_cast<std::uint32_t>(value);
}

// What std::stof answers in the C locale; nothing where it throws.
std::optional<float> referenceFloat(const std::wstring& text)
{
    wchar_t* end = nullptr;
    errno = 0;
    const float value = std::wcstof(text.c_str(), &end);
    if (end == text.c_str() || errno == ERANGE
        || (value != 0 && std::fabs(value) < std::numeric_limits<float>::min()))
        return std::nullopt;
    return value;
}

void expectAsReference(const std::wstring& text)
{
    const std::optional<float> expected = referenceFloat(text);
    float value = 0;
    ASSERT_EQ(tryTextToFloat(text, value), expected.has_value()) << testing::PrintToString(text);
    if (expected) {
        ASSERT_EQ(bits(value), bits(*expected)) << testing::PrintToString(text);
    }
}

template <class Number>
std::string failureOf(Number (*convert)(std::wstring_view), const std::wstring& text)
{
    try {
        convert(text);
    } catch (const std::invalid_argument& failure) {
        return std::string("invalid_argument: ") + failure.what();
    } catch (const std::out_of_range& failure) {
        return std::string("out_of_range: ") + failure.what();
    }
    return "none";
}

const std::wstring manyNines(3000, L'9');
const std::wstring manyZeros(3000, L'0');

const std::wstring zeroInside(L"5\0006", 3);
const std::wstring zeroInFront(L"\0005", 2);

// clang-format off
const std::wstring oddFloats[] = {
    L"0", L"-0", L"+7", L"12.5", L"12.", L".5", L"-.5", L"0,5", L"12abc", L" \t\n\v\f\r-3.25 m", L"1e", L"1e+", L"1e-x",
    L"1e2", L"1E-2", L"1e+2e3", L"1.5.5", L"--1", L"+-1", L"- 1", L".", L"-", L"+", L"", L"   ", L"e5", L".e5", L"-.e5",
    L"inf", L"-INF", L"+Infinity", L"infinit", L"in", L"nan", L"-NaN", L"naN(", L"na", L"0x", L"0x.", L"0xg", L"-0x",
    L"0x1", L"0X1P4", L"0x1p", L"0x1p+", L"0x.8", L"0x1.8p1", L"0x1.000001p0", L"0x1.0000010000000000000000001p0",
    L"0x1.000003p0", L"0x1.ffffffp127", L"0x1.fffffep127", L"0x1p-126", L"0x1p-127", L"0x0p99999999999999999999",
    L"0x1p99999999999999999999", L"00x1", L"\x10x8", L"1x5", L"0e999999999999999999999", L"1e999999999999999999999",
    L"1e-999999999999999999999", L"3.4028234e38", L"3.4028235e38", L"3.4028236e38", L"3.40282357e38", L"1.17549435e-38",
    L"1.1754942e-38", L"1e-40", L"-1e-40", L"1e-46", L"1e39", L"16777217", L"16777219",
    L"16777217.0000000000000000000000000000000000000001", L"8388608.5", L"8388609.5", L"999999999999999", L"9999999999999999",
    L"0.000000000000001", L"0.1", L".500000923871994", L"123456789012345678901234567890", L"\u0660", L"\u00A01", L"\u20031", L"１２",
    L"1\u0661", zeroInside, zeroInFront,
    // Halfway between two singles, where only the last of the digits decides.
    L"1.000000059604644775390625", L"1.0000000596046447753906250", L"1.000000178813934326171875",
    L"1.000000059604644775390625" + manyZeros, L"1.000000059604644775390625" + manyZeros + L"1",
    manyNines, L"0." + manyNines, L"0." + manyZeros + L"1", L"0." + manyZeros + L"1e3001", manyZeros + L"7.5",
    L"1" + manyZeros + L"e-3000", L"1" + manyZeros + L"." + manyZeros + L"9e-2990", L"0x" + manyZeros + L"1p3",
    L"0x1" + manyZeros + L"p-12000", L"0x." + manyZeros + L"1p12004",
};
// clang-format on

} // namespace

TEST(TextNumber, OddFloatsReadAsTheLibraryReadsThemInTheCLocale)
{
    const ScopedLocale locale{"C"};
    for (const std::wstring& text : oddFloats)
        expectAsReference(text);
}

TEST(TextNumber, GeneratedFloatsAreRoundedCorrectly)
{
    const ScopedLocale locale{"C"};
    std::mt19937 random(19);
    const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random()) % limit; };
    for (int i = 0; i < 200'000; ++i) {
        std::wstring text;
        for (unsigned digits = below(12); digits > 0; --digits)
            text += static_cast<wchar_t>(L'0' + static_cast<int>(below(10)));
        if (below(4) != 0)
            text += L'.';
        for (unsigned digits = below(12); digits > 0; --digits)
            text += static_cast<wchar_t>(L'0' + static_cast<int>(below(10)));
        if (below(3) == 0)
            text += L'e' + std::to_wstring(static_cast<int>(below(110)) - 60);
        expectAsReference(text);
    }
}

TEST(TextNumber, EverySinglePrintedInFullComesBack)
{
    std::mt19937 random(20);
    for (int i = 0; i < 50'000; ++i) {
        const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isnormal(value))
            continue;
        // The exact number and the exact middle to its neighbour, which goes to the even one of the two.
        const ScopedLocale locale{"C"};
        wchar_t text[400];
        std::swprintf(text, std::size(text), L"%.150f", static_cast<double>(value));
        ASSERT_EQ(bits(textToFloat(text)), bits(value)) << testing::PrintToString(text);
        const float neighbour = std::nextafter(value, 0.0F);
        const double middle = (static_cast<double>(value) + static_cast<double>(neighbour)) / 2;
        std::swprintf(text, std::size(text), L"%.180f", middle);
        const float even = (bits(value) & 1U) == 0 ? value : neighbour;
        if (std::isnormal(neighbour)) {
            ASSERT_EQ(bits(textToFloat(text)), bits(even)) << testing::PrintToString(text);
        }
    }
}

TEST(TextNumber, Integers)
{
    const struct {
        std::wstring text;
        int value;
    } numbers[] = {
        {L"0", 0},
        {L"007", 7},
        {L"1.5", 1},
        {L" \t\n\v\f\r+12a", 12},
        {L"-3-4", -3},
        {L"0x1F", 0},
        {L"2147483647", 2147483647},
        {L"-2147483648", std::numeric_limits<int>::min()},
        {L"000000000000000000000000042", 42},
        {zeroInside, 5},
    };
    for (const auto& [text, value] : numbers)
        EXPECT_EQ(textToInt(text), value) << testing::PrintToString(text);
}

TEST(TextNumber, FailuresHaveTheWordsOfTheLibrary)
{
    const std::string noFloat = "invalid_argument: invalid stof argument";
    const std::string hugeFloat = "out_of_range: stof argument out of range";
    const std::string noInt = "invalid_argument: invalid stoi argument";
    const std::string hugeInt = "out_of_range: stoi argument out of range";
    for (const wchar_t* text : {L"", L" ", L"-", L"+.", L"глубина", L"№5", L"\u00A05"}) {
        EXPECT_EQ(failureOf(textToFloat, text), noFloat) << testing::PrintToString(text);
        EXPECT_EQ(failureOf(textToInt, text), noInt) << testing::PrintToString(text);
    }
    EXPECT_EQ(failureOf(textToInt, L".5"), noInt);
    for (const wchar_t* text :
        {L"1e39", L"-1e39", L"1e-40", L"-1e-40", L"1.1754943e-38", L"0x1p-127", L"0x1p128"})
        EXPECT_EQ(failureOf(textToFloat, text), hugeFloat) << testing::PrintToString(text);
    for (const wchar_t* text : {L"2147483648", L"-2147483649", L"4294967297", L"99999999999999999999999"})
        EXPECT_EQ(failureOf(textToInt, text), hugeInt) << testing::PrintToString(text);
}

TEST(TextNumber, FailingQuietlyLeavesTheValueAlone)
{
    float number = 2.5F;
    EXPECT_FALSE(tryTextToFloat(L"1e39", number));
    EXPECT_FALSE(tryTextToFloat(L"-", number));
    EXPECT_EQ(number, 2.5F);
    int integer = 7;
    EXPECT_FALSE(tryTextToInt(L"4294967297", integer));
    EXPECT_FALSE(tryTextToInt(L"", integer));
    EXPECT_EQ(integer, 7);
}

TEST(TextNumber, ALocaleWithDecimalCommaChangesNothing)
{
    const ScopedLocale locale{"ru_RU.UTF-8", "Russian_Russia.1251"};
    if (!locale.taken() || std::localeconv()->decimal_point[0] != ',')
        GTEST_SKIP() << "no Russian locale is installed";
    EXPECT_EQ(textToFloat(L"12.5"), 12.5F);
    EXPECT_EQ(textToFloat(L"12,5"), 12.0F);
    // Long enough to leave the everyday path.
    EXPECT_EQ(textToFloat(L"0.100000000000000000000"), 0.1F);
    EXPECT_EQ(textToFloat(L"0.100000000000000000000e1"), 1.0F);
    EXPECT_EQ(textToFloat(L"0x1.8"), 1.5F);
    EXPECT_EQ(textToInt(L"1\u00A0000"), 1);
}
