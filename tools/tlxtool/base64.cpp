#include "tlxtool/base64.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace
{

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t noDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> digits = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(noDigit);
    for (std::size_t i = 0; i < alphabet.size(); ++i)
        values[static_cast<unsigned char>(alphabet[i])] = static_cast<std::uint8_t>(i);
    return values;
}();

} // namespace

std::string toBase64(std::span<const std::uint8_t> bytes)
{
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i)
            group = group << 8U | (i < count ? bytes[at + i] : 0U);
        for (std::size_t i = 0; i < 4; ++i)
            text.push_back(i <= count ? alphabet[group >> (18 - 6 * i) & 63U] : '=');
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> fromBase64(std::string_view text)
{
    if (text.size() % 4 != 0)
        return std::nullopt;
    std::size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=')
        ++padding;
    text.remove_suffix(padding);
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() / 4 * 3 + 2);
    std::uint32_t group = 0;
    unsigned bits = 0;
    for (const char character : text) {
        const std::uint8_t digit = digits[static_cast<unsigned char>(character)];
        if (digit == noDigit)
            return std::nullopt;
        group = (group << 6U | digit) & 0xFFFU;
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes.push_back(static_cast<std::uint8_t>(group >> bits));
        }
    }
    // Bits behind the last byte that are not zero belong to no byte: such a text was cut or made by hand.
    if ((group & ((1U << bits) - 1U)) != 0)
        return std::nullopt;
    return bytes;
}
