#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// RFC 4648, section 4: the plain alphabet, padded, without line breaks.
std::string toBase64(std::span<const std::uint8_t> bytes);

// Nothing where the text is not exactly what toBase64 writes for some bytes.
std::optional<std::vector<std::uint8_t>> fromBase64(std::string_view text);
