#include "common/sheets/sheet_texts.h"

#include "common/sheet.h"
#include "dictionaries/captions.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>

bool SheetRows::isColumnEmpty(std::size_t column) const
{
    for (std::size_t row = 0; row < size(); ++row)
        if (!cell(row, column).empty())
            return false;
    return true;
}

static std::wstring_view withoutBlanks(std::wstring_view text)
{
    const std::size_t first = text.find_first_not_of(L" \t");
    if (first == std::wstring_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(L" \t") - first + 1);
}

namespace
{

// Digits on either side of the comma: scaled, a number still fits 64 bits.
constexpr std::size_t longestPart = 9;

constexpr std::array<std::int64_t, longestPart + 1> powersOfTen = [] {
    std::array<std::int64_t, longestPart + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();

// A typed number without the rounding of binary fractions: 1.40 is 140 with two decimals.
struct Decimal {
    std::int64_t digits = 0;
    std::size_t decimals = 0;
    bool hasComma = false; // and not a point

    std::int64_t scaled(std::size_t wanted) const { return digits * powersOfTen[wanted - decimals]; }
};

std::optional<Decimal> readDecimal(std::wstring_view text)
{
    text = withoutBlanks(text);
    const bool negative = text.starts_with(L'-');
    if (negative || text.starts_with(L'+'))
        text.remove_prefix(1);
    Decimal number;
    std::size_t whole = 0;
    std::size_t* part = &whole;
    for (const wchar_t c : text) {
        if (c >= L'0' && c <= L'9') {
            if (++*part > longestPart)
                return std::nullopt;
            number.digits = number.digits * 10 + (c - L'0');
        } else if ((c == L'.' || c == L',') && part == &whole) {
            part = &number.decimals;
            number.hasComma = c == L',';
        } else {
            return std::nullopt;
        }
    }
    if (whole + number.decimals == 0)
        return std::nullopt;
    if (negative)
        number.digits = -number.digits;
    return number;
}

// The number with its sign, and as many decimals as it has.
std::wstring decimalText(const Decimal& number)
{
    std::array<wchar_t, 2 * longestPart + 4> text{};
    auto first = text.end();
    std::int64_t left = std::abs(number.digits);
    for (std::size_t written = 0; left > 0 || written <= number.decimals; ++written) {
        if (written == number.decimals && written > 0)
            *--first = number.hasComma ? L',' : L'.';
        *--first = static_cast<wchar_t>(L'0' + left % 10);
        left /= 10;
    }
    if (number.digits < 0)
        *--first = L'-';
    return {first, text.end()};
}

} // namespace

bool readTyped(std::wstring_view text, double& number)
{
    const std::optional<Decimal> decimal = readDecimal(text);
    if (decimal)
        number = static_cast<double>(decimal->digits) / static_cast<double>(powersOfTen[decimal->decimals]);
    return decimal.has_value();
}

std::wstring differenceText(std::wstring_view a, std::wstring_view b)
{
    const std::optional<Decimal> numberA = readDecimal(a);
    const std::optional<Decimal> numberB = readDecimal(b);
    if (!numberA || !numberB)
        return {};
    const std::size_t decimals = std::max(numberA->decimals, numberB->decimals);
    return decimalText({numberA->scaled(decimals) - numberB->scaled(decimals),
        decimals,
        numberA->hasComma || numberB->hasComma});
}

std::wstring singleText(float number)
{
    std::array<char, 64> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() ? std::wstring(digits.data(), end) : std::wstring();
}

std::wstring dateText(const Date3& date)
{
    if (date == Date3{0, 0, 0})
        return {};
    const auto twoDigits = [](int number) {
        return (number >= 0 && number < 10 ? L"0" : L"") + wholeText(number);
    };
    return twoDigits(date.day) + L"." + twoDigits(date.month) + L"." + wholeText(date.year);
}

std::wstring joined(const std::vector<std::wstring>& texts, std::wstring_view separator)
{
    std::wstring all;
    for (const std::wstring& text : texts) {
        all += text;
        all += separator;
    }
    all.resize(all.size() - (texts.empty() ? 0 : separator.size()));
    return all;
}

std::wstring pointKindText(int kind)
{
    static constexpr auto kinds = textsByNumber({
        {1, captions::boreholeShortRussian},
        {2, captions::pit},
        {3, captions::soundingPointShort},
    });
    return nameText(kinds, kind);
}
