#include "platform/uuid.h"

#include <cstddef>

namespace
{

constexpr std::size_t textLength = 36;
constexpr std::size_t byteCount = 16;

// The byte of the structure that each pair of digits shows: the three numbers begin with their high byte.
constexpr std::array<std::uint8_t, byteCount> printOrder = {
    3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};

constexpr bool isDashPlace(std::size_t place)
{
    return place == 8 || place == 13 || place == 18 || place == 23;
}

// 16 for what is no digit.
std::uint32_t hexValue(char digit)
{
    if (digit >= '0' && digit <= '9')
        return static_cast<std::uint32_t>(digit - '0');
    if (digit >= 'a' && digit <= 'f')
        return static_cast<std::uint32_t>(digit - 'a' + 10);
    if (digit >= 'A' && digit <= 'F')
        return static_cast<std::uint32_t>(digit - 'A' + 10);
    return 16;
}

} // namespace

std::string uuidToText(const Uuid& uuid)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text(textLength, '-');
    std::size_t place = 0;
    for (const std::size_t byte : printOrder) {
        if (isDashPlace(place))
            ++place;
        const std::uint32_t value = uuid.words[byte / 4] >> (byte % 4 * 8);
        text[place++] = digits[value >> 4U & 15U];
        text[place++] = digits[value & 15U];
    }
    return text;
}

Uuid uuidFromText(std::string_view text)
{
    if (text.size() != textLength)
        return {};
    Uuid uuid;
    std::size_t place = 0;
    for (const std::size_t byte : printOrder) {
        if (isDashPlace(place) && text[place++] != '-')
            return {};
        const std::uint32_t high = hexValue(text[place++]);
        const std::uint32_t low = hexValue(text[place++]);
        if (high > 15 || low > 15)
            return {};
        uuid.words[byte / 4] |= (high << 4U | low) << (byte % 4 * 8);
    }
    return uuid;
}
