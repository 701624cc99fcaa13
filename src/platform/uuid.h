#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// A 128-bit identifier as four 32-bit words in the order in which they lie in memory; all zero is "none".
struct Uuid {
    std::array<std::uint32_t, 4> words{};

    bool operator==(const Uuid&) const = default;
};

// The 36 characters 8-4-4-4-12 in lower case, without braces. The words hold the groups as the system's own
// structure has them: one number of 32 bits, two of 16, eight bytes.
std::string uuidToText(const Uuid& uuid);

// Takes exactly the 36-character form, digits of either case; any other text gives the zero identifier.
Uuid uuidFromText(std::string_view text);
