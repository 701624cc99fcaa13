#pragma once

#include <string>

// Appends the number with a point and three decimals at most, whatever the locale; without an exponent, "-0"
// or zeros at its end. What is not finite becomes 0, which no reader refuses.
void appendNumber(std::string& out, double value);
