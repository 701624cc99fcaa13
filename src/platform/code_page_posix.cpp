#include "platform/code_page.h"
#include "platform/wide_character.h"

namespace
{

// Windows-1251 from byte 0x80 on. Byte 0x98, which has no character there, stands for U+0098.
// clang-format off
constexpr std::array<std::uint16_t, 128> upperHalf = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021,
    0x20AC, 0x2030, 0x0409, 0x2039, 0x040A, 0x040C, 0x040B, 0x040F,
    0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x0098, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F,
    0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6, 0x00A7,
    0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407,
    0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6, 0x00B7,
    0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457,
    0x0410, 0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417,
    0x0418, 0x0419, 0x041A, 0x041B, 0x041C, 0x041D, 0x041E, 0x041F,
    0x0420, 0x0421, 0x0422, 0x0423, 0x0424, 0x0425, 0x0426, 0x0427,
    0x0428, 0x0429, 0x042A, 0x042B, 0x042C, 0x042D, 0x042E, 0x042F,
    0x0430, 0x0431, 0x0432, 0x0433, 0x0434, 0x0435, 0x0436, 0x0437,
    0x0438, 0x0439, 0x043A, 0x043B, 0x043C, 0x043D, 0x043E, 0x043F,
    0x0440, 0x0441, 0x0442, 0x0443, 0x0444, 0x0445, 0x0446, 0x0447,
    0x0448, 0x0449, 0x044A, 0x044B, 0x044C, 0x044D, 0x044E, 0x044F,
};
// clang-format on

constexpr std::array<wchar_t, 256> characters = [] {
    std::array<wchar_t, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte)
        table[byte] = static_cast<wchar_t>(byte < 128 ? byte : upperHalf[byte - 128]);
    return table;
}();

constexpr std::uint8_t unmappable = '?';

// The other direction in blocks of 256 characters. Block 0 is the one without any of ours, so that every
// character up to U+FFFF is found by two plain look-ups.
struct ByteTable {
    std::array<std::uint8_t, 256> blockOf{};
    std::array<std::array<std::uint8_t, 256>, 5> blocks{};
};

constexpr ByteTable bytes = [] {
    ByteTable table;
    for (auto& block : table.blocks)
        block.fill(unmappable);
    std::uint8_t lastBlock = 0;
    for (std::size_t byte = 0; byte < characters.size(); ++byte) {
        const auto code = codeOf(characters[byte]);
        std::uint8_t& block = table.blockOf[code >> 8U];
        if (block == 0)
            block = ++lastBlock;
        table.blocks[block][code & 0xFFU] = static_cast<std::uint8_t>(byte);
    }
    return table;
}();

// Of a character up to U+FFFF.
std::uint8_t byteOf(std::uint32_t code)
{
    return bytes.blocks[bytes.blockOf[code >> 8U]][code & 0xFFU];
}

} // namespace

const std::array<wchar_t, 256>& codePageCharacters()
{
    return characters;
}

std::uint8_t* writeCodePage(std::wstring_view text, std::uint8_t* out)
{
    for (const wchar_t character : text) {
        const auto code = codeOf(character);
        if (code <= 0xFFFFU) {
            *out++ = byteOf(code);
        } else {
            *out++ = unmappable;
            // The second half of the pair that the character is in UTF-16; what is beyond Unicode has none.
            if (code < 0x110000U)
                *out++ = unmappable;
        }
    }
    return out;
}

bool codePageHolds(wchar_t character)
{
    const auto code = codeOf(character);
    return code <= 0xFFFFU && characters[byteOf(code)] == character;
}
