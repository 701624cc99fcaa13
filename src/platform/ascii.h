#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// Texts of ASCII alone, as nearly all of a project's are: numbers. All code pages have it in the same place.

namespace ascii
{

inline constexpr std::size_t together = 4;

// Characters side by side in words, the first one lowest.
using Four = std::array<std::uint64_t, sizeof(wchar_t) / 2>;
static_assert(std::endian::native == std::endian::little);

inline Four four(const wchar_t* text)
{
    Four words{};
    std::memcpy(words.data(), text, sizeof words);
    return words;
}

// The same bits of every character.
constexpr std::uint64_t inEach(std::uint64_t bits)
{
    return sizeof(wchar_t) == 4 ? bits | bits << 32U : bits | bits << 16U | bits << 32U | bits << 48U;
}

inline bool areAscii(const Four& words)
{
    constexpr std::uint64_t beyond = inEach(sizeof(wchar_t) == 4 ? 0xFFFFFF80U : 0xFF80U);
    std::uint64_t all = 0;
    for (const std::uint64_t word : words)
        all |= word;
    return (all & beyond) == 0;
}

// Of characters that are ASCII.
inline bool holdZero(const Four& words)
{
    std::uint64_t all = inEach(0x80U);
    for (const std::uint64_t word : words)
        all &= word + inEach(0x7FU);
    return all != inEach(0x80U);
}

inline void write(const Four& words, std::uint8_t* out)
{
    std::uint32_t bytes = 0;
    if constexpr (sizeof(wchar_t) == 4) {
        const auto two = [](std::uint64_t word) {
            return static_cast<std::uint32_t>(word | word >> 24U) & 0xFFFFU;
        };
        bytes = two(words[0]) | two(words[1]) << 16U;
    } else {
        const std::uint64_t pairs = (words[0] | words[0] >> 8U) & 0x0000FFFF'0000FFFFU;
        bytes = static_cast<std::uint32_t>(pairs | pairs >> 16U);
    }
    std::memcpy(out, &bytes, sizeof bytes);
}

} // namespace ascii

// The text as so many bytes. False where a character is beyond ASCII; the bytes are worth nothing then. How
// long a number is nobody foresees, the processor neither: what overlaps is written twice rather than
// counted.
inline bool writeAscii(std::wstring_view text, std::uint8_t* out)
{
    const std::size_t count = text.size();
    if (count == 0)
        return true;
    if (count < ascii::together) {
        std::uint32_t all = 0;
        for (const std::size_t i : {std::size_t{0}, count / 2, count - 1}) {
            all |= static_cast<std::uint32_t>(text[i]);
            out[i] = static_cast<std::uint8_t>(text[i]);
        }
        return all < 0x80U;
    }
    const auto writeFour = [text, out](std::size_t at) {
        const ascii::Four words = ascii::four(text.data() + at);
        ascii::write(words, out + at);
        return ascii::areAscii(words);
    };
    const std::size_t last = count - ascii::together;
    bool isAscii = writeFour(0);
    for (std::size_t i = ascii::together; i < last && isAscii; i += ascii::together)
        isAscii = writeFour(i);
    return writeFour(last) && isAscii;
}

// Whether every file keeps the text as it is: ASCII without a zero.
inline bool isPlainAscii(std::wstring_view text)
{
    const std::size_t count = text.size();
    const auto isPlain = [](wchar_t c) { return c > 0 && c < 0x80; };
    if (count < ascii::together)
        return count == 0 || (isPlain(text[0]) && isPlain(text[count / 2]) && isPlain(text[count - 1]));
    const auto arePlain = [text](std::size_t at) {
        const ascii::Four words = ascii::four(text.data() + at);
        return ascii::areAscii(words) && !ascii::holdZero(words);
    };
    const std::size_t last = count - ascii::together;
    for (std::size_t i = 0; i < last; i += ascii::together)
        if (!arePlain(i))
            return false;
    return arePlain(last);
}
