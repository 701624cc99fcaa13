#pragma once

#include <span>

// A value between the columns of a table, linear; outside them the value of the border column.
struct TableValue {
    double value = 0.0;
    bool isOutside = false; // the argument lies beyond the first or the last column
};

// Arguments rise; as many values as arguments, at least one.
TableValue tableValue(std::span<const double> arguments, std::span<const double> values, double argument);
