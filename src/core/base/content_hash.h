#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

// Tells two states of a file apart without keeping the other one: quick, of this run only, no protection
// against anybody who means it. Each step is a bijection of the word, so that one changed word always shows.
inline std::uint64_t contentHash(std::span<const std::uint8_t> bytes)
{
    constexpr std::uint64_t a = 0x9E3779B97F4A7C15;
    constexpr std::uint64_t b = 0xC2B2AE3D27D4EB4F;
    std::uint64_t hash = bytes.size() * a;
    while (!bytes.empty()) {
        std::uint64_t word = 0;
        const std::size_t count = bytes.size() < sizeof word ? bytes.size() : sizeof word;
        std::memcpy(&word, bytes.data(), count);
        hash = std::rotl((hash ^ word) * b, 29) + a;
        bytes = bytes.subspan(count);
    }
    return hash ^ hash >> 32U;
}
