#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// What stands on disk and therefore never changes: signatures, versions, type codes; and the limits of
// reading.
namespace format
{

// Head of a file: the signature from byte 0, the version behind it, then the content. The bytes between the
// compared part of the signature and the version are not looked at.
struct Head {
    std::string_view signature;
    std::size_t versionOffset;
    std::size_t contentOffset;
    std::uint32_t version;
};

// The project's signature is ten letters and a zero byte, all eleven compared.
inline constexpr Head projectHead{std::string_view("TellurixDB\0", 11), 12, 16, 104};
inline constexpr Head hatchHead{"HatchDB", 8, 12, 100};
inline constexpr Head igkPresetHead{"IgkPresetDB", 12, 16, 100};

// Type codes of drawing objects. The gaps are codes that no program has written.
enum class DrawingCode : std::uint8_t {
    line = 0,
    block = 1,
    text = 2,
    polyline = 4,
    circle = 6,
    spline = 7,
    ellipse = 9,
    arc = 11,
    polygon = 12,
};

// Blocks, inform records and property items inside one another. No drawing comes near it; a damaged file may.
inline constexpr int nestingLimit = 512;

// The texts of geological elements are stored byte by byte, and only these bytes can be read back.
inline constexpr bool isElementTextByte(std::uint32_t value)
{
    return (value >= 0x21 && value <= 0x7A) || (value >= 0x84 && value <= 0x9F);
}

} // namespace format
