#include "common/sheets/sheet_texts.h"

#include "common/sheet.h"
#include "dictionaries/captions.h"

#include <algorithm>
#include <charconv>
#include <cmath>

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

bool readTyped(std::wstring_view text, double& number)
{
    text = withoutBlanks(text);
    if (text.starts_with(L'+'))
        text.remove_prefix(1);
    // Longer numbers than any that a person types are no numbers for us.
    std::array<char, 64> digits{};
    if (text.empty() || text.size() > digits.size())
        return false;
    std::transform(text.begin(), text.end(), digits.begin(), [](wchar_t letter) {
        if (letter == L',')
            return '.';
        return letter > 0 && letter < 0x80 ? static_cast<char>(letter) : '?';
    });
    const char* const end = digits.data() + text.size();
    double value = 0;
    const auto [stop, error] = std::from_chars(digits.data(), end, value, std::chars_format::fixed);
    if (error != std::errc() || stop != end || !std::isfinite(value))
        return false;
    number = value;
    return true;
}

static std::wstring widened(const char* begin, const char* end)
{
    return {begin, end};
}

static int decimalsOf(std::wstring_view text)
{
    text = withoutBlanks(text);
    const std::size_t comma = text.find_first_of(L".,");
    return comma == std::wstring_view::npos ? 0 : static_cast<int>(text.size() - comma - 1);
}

std::wstring differenceText(std::wstring_view a, std::wstring_view b)
{
    double numberA = 0;
    double numberB = 0;
    if (!readTyped(a, numberA) || !readTyped(b, numberB))
        return {};
    const int decimals = std::max(decimalsOf(a), decimalsOf(b));
    double difference = numberA - numberB;
    // What rounds to nought must not show as "-0.00".
    if (std::abs(difference) < 0.5 * std::pow(10.0, -decimals))
        difference = 0;
    std::array<char, 512> digits{};
    const auto [end, error] = std::to_chars(
        digits.data(), digits.data() + digits.size(), difference, std::chars_format::fixed, decimals);
    if (error != std::errc())
        return {};
    std::wstring text = widened(digits.data(), end);
    if (a.find(L',') != std::wstring_view::npos || b.find(L',') != std::wstring_view::npos)
        std::replace(text.begin(), text.end(), L'.', L',');
    return text;
}

std::wstring singleText(float number)
{
    std::array<char, 64> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() ? widened(digits.data(), end) : std::wstring();
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
