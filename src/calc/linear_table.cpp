#include "calc/linear_table.h"

#include <algorithm>

TableValue tableValue(std::span<const double> arguments, std::span<const double> values, double argument)
{
    if (argument < arguments.front())
        return {values.front(), true};
    if (argument > arguments.back())
        return {values.back(), true};
    const auto right = std::ranges::lower_bound(arguments, argument);
    const auto i = static_cast<std::size_t>(right - arguments.begin());
    if (*right == argument)
        return {values[i], false};
    const double part = (argument - arguments[i - 1]) / (arguments[i] - arguments[i - 1]);
    return {values[i - 1] + part * (values[i] - values[i - 1]), false};
}
