#include "drawing/dxf_texts.h"

#include "platform/wide_character.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace
{

// Windows-1251 from 0x80 to 0xBF; from 0xC0 on stand the letters from U+0410. On every system the same table,
// since the file says which code page it is in.
constexpr std::array<char16_t, 64> upperHalf = {0x0402,
    0x0403,
    0x201A,
    0x0453,
    0x201E,
    0x2026,
    0x2020,
    0x2021,
    0x20AC,
    0x2030,
    0x0409,
    0x2039,
    0x040A,
    0x040C,
    0x040B,
    0x040F,
    0x0452,
    0x2018,
    0x2019,
    0x201C,
    0x201D,
    0x2022,
    0x2013,
    0x2014,
    0x0000,
    0x2122,
    0x0459,
    0x203A,
    0x045A,
    0x045C,
    0x045B,
    0x045F,
    0x00A0,
    0x040E,
    0x045E,
    0x0408,
    0x00A4,
    0x0490,
    0x00A6,
    0x00A7,
    0x0401,
    0x00A9,
    0x0404,
    0x00AB,
    0x00AC,
    0x00AD,
    0x00AE,
    0x0407,
    0x00B0,
    0x00B1,
    0x0406,
    0x0456,
    0x0491,
    0x00B5,
    0x00B6,
    0x00B7,
    0x0451,
    0x2116,
    0x0454,
    0x00BB,
    0x0458,
    0x0405,
    0x0455,
    0x0457};

// 0: the code page has no such character.
char byteOf(std::uint32_t character)
{
    constexpr std::uint32_t firstLetter = 0x410;
    constexpr std::uint32_t lastLetter = 0x44F;
    if (character < 0x80)
        return static_cast<char>(character);
    if (character >= firstLetter && character <= lastLetter)
        return static_cast<char>(character - firstLetter + 0xC0);
    const auto* const found = std::find(upperHalf.begin(), upperHalf.end(), static_cast<char16_t>(character));
    if (character > 0xFFFF || found == upperHalf.end())
        return 0;
    return static_cast<char>(0x80 + (found - upperHalf.begin()));
}

void appendHex(std::string& out, std::uint32_t unit)
{
    constexpr char digits[] = "0123456789ABCDEF";
    out += "\\U+";
    for (const std::uint32_t shift : {12U, 8U, 4U, 0U})
        out += digits[unit >> shift & 15U];
}

// What the file writes for characters that mean something else there.
const char* replacementOf(wchar_t character, wchar_t next)
{
    if (character == L'^')
        return "^ ";
    if (character == L'%' && next == L'%')
        return "%%%";
    return character < 0x20 ? " " : nullptr;
}

struct Palette {
    std::array<Color, 256> colors{};

    Palette()
    {
        constexpr Color first[] = {{255, 0, 0},
            {255, 255, 0},
            {0, 255, 0},
            {0, 255, 255},
            {0, 0, 255},
            {255, 0, 255},
            {0, 0, 0},
            {128, 128, 128},
            {192, 192, 192}};
        std::copy(std::begin(first), std::end(first), colors.begin() + 1);
        // 24 hues; of each, five shades, full and half.
        for (int number = 10; number < 250; ++number)
            colors[static_cast<std::size_t>(number)] = shadeOf(number);
        constexpr std::uint8_t greys[] = {51, 91, 132, 173, 214, 255};
        for (std::size_t grey = 0; grey < std::size(greys); ++grey)
            colors[250 + grey] = {greys[grey], greys[grey], greys[grey]};
    }

    static Color shadeOf(int number)
    {
        constexpr double values[] = {1, 0.65, 0.5, 0.3, 0.15};
        const int degrees = (number / 10 - 1) * 15;
        const double hue = degrees / 60.0;
        const double value = values[number % 10 / 2];
        const double least = number % 2 ? 0.5 : 0;
        const auto part = [&](double centre) {
            const double away = std::abs(std::remainder(hue - centre, 6.0));
            const double share = std::clamp(2 - away, 0.0, 1.0);
            return static_cast<std::uint8_t>(std::lround(255 * value * (least + (1 - least) * share)));
        };
        return {part(0), part(2), part(4)};
    }
};

} // namespace

std::string dxfText(std::wstring_view text)
{
    std::string out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const wchar_t character = text[at];
        const auto unit = codeOf(character);
        if (const char* other = replacementOf(character, at + 1 < text.size() ? text[at + 1] : L'\0')) {
            out += other;
            at += character == L'%' ? 1 : 0;
        } else if (const char byte = byteOf(unit)) {
            out += byte;
        } else if (unit <= 0xFFFF) {
            appendHex(out, unit);
        } else {
            appendHex(out, 0xD7C0 + (unit >> 10U));
            appendHex(out, 0xDC00 + (unit & 0x3FFU));
        }
    }
    return out;
}

std::string dxfName(std::wstring_view name)
{
    constexpr std::size_t longest = 31;
    std::string out;
    for (const wchar_t character : name.substr(0, longest)) {
        const bool isLatin =
            (character >= L'A' && character <= L'Z') || (character >= L'a' && character <= L'z');
        const bool isOther =
            (character >= L'0' && character <= L'9') || character == L'$' || character == L'-';
        const bool isCyrillic = character >= 0x401 && character <= 0x491;
        const char byte = byteOf(codeOf(character));
        out += byte && (isLatin || isOther || isCyrillic) ? byte : '_';
    }
    return out.empty() ? "0" : out;
}

int dxfColor(const Color& color)
{
    static const Palette palette;
    int nearest = 7;
    int smallest = std::numeric_limits<int>::max();
    for (int number = 1; number < 256; ++number) {
        const Color& other = palette.colors[static_cast<std::size_t>(number)];
        const int red = other.red - color.red;
        const int green = other.green - color.green;
        const int blue = other.blue - color.blue;
        const int distance = red * red + green * green + blue * blue;
        if (distance < smallest) {
            smallest = distance;
            nearest = number;
        }
    }
    return nearest;
}
