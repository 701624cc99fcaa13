#pragma once

#include <string_view>

// Numbers that the user typed, read where they are needed. The conversions behave as std::stof and std::stoi
// do on wide text in the C locale, whatever locale the process runs in: leading blanks are skipped, a sign
// may stand in front, reading stops at the first character that does not fit ("12abc" is 12, "0,5" is 0).
// They run inside the comparisons of every text-keyed map and never touch the heap.

// Decimal or hexadecimal number, inf or nan; rounded to the nearest single.
// Throws std::invalid_argument("invalid stof argument") where no number stands, and
// std::out_of_range("stof argument out of range") where the rounded value is infinite, or is below the
// smallest normal single without being zero.
float textToFloat(std::wstring_view text);

// Decimal integer. Throws std::invalid_argument("invalid stoi argument") where none stands,
// std::out_of_range("stoi argument out of range") beyond 32 bits.
int textToInt(std::wstring_view text);

// The same without exceptions: false, and the value untouched, where the throwing form would fail.
bool tryTextToFloat(std::wstring_view text, float& value);
bool tryTextToInt(std::wstring_view text, int& value);
