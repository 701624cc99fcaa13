#include "drawing/number_output.h"

#include <array>
#include <charconv>
#include <cmath>

void appendNumber(std::string& out, double value)
{
    constexpr double largest = 1e9;
    if (!(std::abs(value) < largest))
        value = 0;
    std::array<char, 32> text{};
    const auto [end, failure] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 3);
    const char* last = end;
    while (last[-1] == '0')
        --last;
    if (last[-1] == '.')
        --last;
    const std::string_view written(text.data(), static_cast<std::size_t>(last - text.data()));
    out += written == "-0" ? "0" : written;
}
