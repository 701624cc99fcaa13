#include "core/base/calendar_date.h"

#include <array>
#include <utility>

bool isCalendarDay(const Date3& date)
{
    constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (date.year < 1 || date.year > 9999 || date.month < 1 || date.month > 12)
        return false;
    const bool isLeapYear = (date.year % 4 == 0 && date.year % 100 != 0) || date.year % 400 == 0;
    const int last = date.month == 2 && isLeapYear ? 29 : days[static_cast<std::size_t>(date.month - 1)];
    return date.day >= 1 && date.day <= last;
}

namespace
{

// Digits between the marks; -1 where there are none or other characters, or too many.
struct Part {
    int number = -1;
    std::size_t digits = 0;
};

Part readPart(std::wstring_view text)
{
    Part part{0, text.size()};
    if (text.empty() || text.size() > 4)
        return {};
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9')
            return {};
        part.number = part.number * 10 + (c - L'0');
    }
    return part;
}

std::wstring_view withoutBlanks(std::wstring_view text)
{
    constexpr std::wstring_view blanks = L" \t\r\n\u00A0";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::wstring_view::npos ? std::wstring_view()
                                            : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::wstring padded(int number, std::size_t digits)
{
    std::wstring text = std::to_wstring(number);
    return text.size() < digits ? std::wstring(digits - text.size(), L'0') + text : text;
}

} // namespace

std::optional<Date3> readDate(std::wstring_view text)
{
    text = withoutBlanks(text);
    const std::size_t first = text.find_first_of(L"./-");
    const std::size_t second =
        first == std::wstring_view::npos ? first : text.find_first_of(L"./-", first + 1);
    if (second == std::wstring_view::npos)
        return std::nullopt;
    std::array<Part, 3> parts{readPart(text.substr(0, first)),
        readPart(text.substr(first + 1, second - first - 1)),
        readPart(text.substr(second + 1))};
    if (parts[0].digits == 4)
        std::swap(parts[0], parts[2]); // the year first
    if (parts[0].digits > 2 || parts[1].digits > 2 || (parts[2].digits != 2 && parts[2].digits != 4))
        return std::nullopt;
    int year = parts[2].number;
    if (parts[2].digits == 2)
        year += year < 70 ? 2000 : 1900;
    const Date3 date{year, parts[1].number, parts[0].number};
    return isCalendarDay(date) ? std::optional(date) : std::nullopt;
}

std::wstring dateText(const Date3& date)
{
    if (date == Date3{})
        return {};
    return padded(date.day, 2) + L"." + padded(date.month, 2) + L"." + padded(date.year, 4);
}
