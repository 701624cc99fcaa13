#include "tlxtool/json_words.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

static constexpr std::size_t wordDigits = 8;

Json singleToJson(float value)
{
    if (std::isfinite(value))
        return value;
    char digits[wordDigits] = {};
    const auto end =
        std::to_chars(std::begin(digits), std::end(digits), std::bit_cast<std::uint32_t>(value), 16);
    return "0x" + std::string(std::begin(digits), end.ptr);
}

std::optional<float> singleFromJson(const Json& value)
{
    if (value.is_number())
        return value.get<float>();
    if (!value.is_string())
        return std::nullopt;
    std::string_view text = value.get_ref<const std::string&>();
    if (text.size() != 2 + wordDigits || text.substr(0, 2) != "0x")
        return std::nullopt;
    text.remove_prefix(2);
    std::uint32_t word = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), word, 16);
    if (end.ec != std::errc() || end.ptr != text.data() + text.size())
        return std::nullopt;
    return std::bit_cast<float>(word);
}
