#pragma once

#include <cstdint>

// The number of a character. wchar_t is signed on some systems: a value beyond Unicode must not turn negative
// and pass for a small one.
constexpr std::uint32_t codeOf(wchar_t character)
{
    return static_cast<std::uint32_t>(character);
}
