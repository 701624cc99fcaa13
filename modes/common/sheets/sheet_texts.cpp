#include "common/sheets/sheet_texts.h"

#include "common/sheet.h"
#include "dictionaries/captions.h"

#include <algorithm>
#include <charconv>
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

constexpr int longestPart = 9; // digits on either side of the comma: scaled, a number still fits 64 bits

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

    std::int64_t scaled(std::size_t wanted) const { return digits * powersOfTen[wanted - decimals]; }
};

std::optional<Decimal> readDecimal(std::wstring_view text)
{
    text = withoutBlanks(text);
    const bool negative = text.starts_with(L'-');
    if (negative || text.starts_with(L'+'))
        text.remove_prefix(1);
    const std::size_t comma = std::min(text.find_first_of(L".,"), text.size());
    const std::size_t decimals = comma == text.size() ? 0 : text.size() - comma - 1;
    if (comma + decimals == 0 || comma > longestPart || decimals > longestPart)
        return std::nullopt;
    Decimal number{0, decimals};
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == comma)
            continue;
        if (text[i] < L'0' || text[i] > L'9')
            return std::nullopt;
        number.digits = number.digits * 10 + (text[i] - L'0');
    }
    if (negative)
        number.digits = -number.digits;
    return number;
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
    const std::int64_t difference = numberA->scaled(decimals) - numberB->scaled(decimals);
    std::wstring text = std::to_wstring(std::abs(difference));
    if (text.size() <= decimals)
        text.insert(0, decimals + 1 - text.size(), L'0');
    const bool comma = a.find(L',') != a.npos || b.find(L',') != b.npos;
    if (decimals > 0)
        text.insert(text.size() - decimals, 1, comma ? L',' : L'.');
    return difference < 0 ? L"-" + text : text;
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
        return (number >= 0 && number < 10 ? L"0" : L"") + std::to_wstring(number);
    };
    return twoDigits(date.day) + L"." + twoDigits(date.month) + L"." + std::to_wstring(date.year);
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
