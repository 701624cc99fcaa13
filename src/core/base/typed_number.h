#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers as people type them into cells, and as results are written back. The orderings of the registers
// keep their own reading (core/base/text_number.h); everything that calculates, draws or sorts reads through
// here.

// Not determined is not zero.
using Number = std::optional<double>;

// Digits with one comma or point at most and a sign; blanks and no-break blanks around the number and between
// its digits do not count ("0,212", " 6 180.5 "). Nothing where the cell holds anything else: no exponent, no
// hexadecimal, no words. Always finite.
Number readNumber(std::wstring_view text);

// A number in a cell of a test: in brackets it is kept, but left out of every calculation; with an
// exclamation mark behind it stays in against the rule of outliers.
struct CellNumber {
    Number value;
    bool isLeftOut = false; // "(0.063)"
    bool isKept = false; // "0.212!"
};
CellNumber readCellNumber(std::wstring_view text);

// A typed number without the rounding of binary fractions: "1.40" is 140 with two decimals.
struct Decimal {
    std::int64_t digits = 0;
    int decimals = 0;
    bool hasComma = false; // and not a point

    bool operator==(const Decimal&) const = default;
};

// Nothing where readNumber reads nothing, or where there are more than eighteen digits.
std::optional<Decimal> readDecimal(std::wstring_view text);
// With its sign, and as many decimals as it has.
std::wstring decimalText(const Decimal& number);

// a - b, exact, with as many decimals as the longer one has, and its kind of comma; empty where one is no
// number.
std::wstring differenceText(std::wstring_view a, std::wstring_view b);

// The value with so many decimals, halves away from zero as the decimal value has them: 2.675 is 2.68. Not
// finite: as it is.
double roundedTo(double value, int decimals);
// The same as text with a point; empty where the value is not determined. Never "-0".
std::wstring numberText(const Number& value, int decimals);
// To so many significant digits, without an exponent: 0.0841, 12.5, 384.
std::wstring significantText(const Number& value, int digits);
