#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// A day; all zero: not given.
struct Date3 {
    std::int32_t year = 0;
    std::int32_t month = 0;
    std::int32_t day = 0;

    bool operator==(const Date3&) const = default;
};

// Whether the calendar has the day, in years 1 to 9999.
bool isCalendarDay(const Date3& date);

// A day as people type it: "31.12.2019", also parted by '/' or '-', with one digit, with a year of two digits
// (from 70 on of the last century, else of this), or as "2019-12-31". Nothing where it is no day of the
// calendar.
std::optional<Date3> readDate(std::wstring_view text);

// "07.08.2019"; empty for a day that was never given.
std::wstring dateText(const Date3& date);
