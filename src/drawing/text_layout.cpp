#include "drawing/text_layout.h"

#include "platform/wide_character.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace
{

struct CharacterRange {
    std::uint32_t first;
    std::uint32_t last;
};

#define FONT_RANGE(first, last) CharacterRange{first, last},
constexpr std::array ranges = {
#include "drawing/font_widths.inc"
};
#undef FONT_RANGE

constexpr std::size_t characterCount()
{
    std::size_t count = 0;
    for (const CharacterRange& range : ranges)
        count += range.last - range.first + 1;
    return count;
}

constexpr std::size_t knownCharacters = characterCount();

struct FontTable {
    int capital;
    int ascent;
    int descent;
    std::array<std::uint16_t, knownCharacters> widths;
};

// In the order of Font.
constexpr FontTable fontTables[] = {
#include "drawing/font_widths.inc"
};

constexpr double lowered = 0.2; // of the height, below the base line
constexpr double raised = 0.35;
constexpr double smallHeight = 0.7;

const FontTable& tableOf(Font font)
{
    return fontTables[static_cast<std::size_t>(font)];
}

constexpr std::size_t placeIn(std::uint32_t character)
{
    std::size_t at = 0;
    for (const CharacterRange& range : ranges) {
        if (character >= range.first && character <= range.last)
            return at + (character - range.first);
        at += range.last - range.first + 1;
    }
    return knownCharacters;
}

// Nearly all texts are Latin and Cyrillic letters: their places in the tables are known beforehand.
constexpr std::size_t commonCharacters = 0x500;
constexpr std::array<std::uint16_t, commonCharacters> commonPlaces = [] {
    std::array<std::uint16_t, commonCharacters> places{};
    for (std::uint32_t character = 0; character < commonCharacters; ++character)
        places[character] = static_cast<std::uint16_t>(placeIn(character));
    return places;
}();

// A character that the fonts do not have comes from another one; it is taken as wide as a capital O.
int widthOfCharacter(const FontTable& table, std::uint32_t character)
{
    constexpr std::size_t capitalO = 'O' - ' ';
    const std::size_t at = character < commonCharacters ? commonPlaces[character] : placeIn(character);
    const int width = at < knownCharacters ? table.widths[at] : 0;
    return width ? width : table.widths[capitalO];
}

int thousandths(const FontTable& table, std::wstring_view text)
{
    int sum = 0;
    for (const wchar_t character : text) {
        const auto unit = codeOf(character);
        const bool isSecondHalf = unit >= 0xDC00 && unit <= 0xDFFF;
        if (!isSecondHalf)
            sum += widthOfCharacter(table, unit);
    }
    return sum;
}

bool isBlank(wchar_t character)
{
    return character == L' ' || character == L'\t';
}

std::wstring_view withoutBlanks(std::wstring_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// How many characters of the text, one at least, stand in a line of that width.
std::size_t charactersOfLine(const FontTable& table, std::wstring_view text, double width)
{
    double sum = 0;
    std::size_t breakAt = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (isBlank(text[at]))
            breakAt = at;
        sum += thousandths(table, text.substr(at, 1));
        if (sum > width && !isBlank(text[at]))
            return breakAt ? breakAt : std::max<std::size_t>(at, 1);
        if ((text[at] == L'-' || text[at] == L'\u2013' || text[at] == L'/') && at > 0)
            breakAt = at + 1;
    }
    return text.size();
}

void breakParagraph(
    std::wstring_view paragraph, const FontTable& table, double width, std::vector<std::wstring>& lines)
{
    std::wstring_view rest = withoutBlanks(paragraph);
    do {
        const std::size_t count = charactersOfLine(table, rest, width);
        lines.emplace_back(withoutBlanks(rest.substr(0, count)));
        rest = withoutBlanks(rest.substr(count));
    } while (!rest.empty());
}

} // namespace

double emOfHeight(Font font, double height)
{
    return height * 1000.0 / tableOf(font).capital;
}

double textWidth(std::wstring_view text, Font font, double height)
{
    return thousandths(tableOf(font), text) * emOfHeight(font, height) / 1000.0;
}

double lineDistance(Font font, double height)
{
    const FontTable& table = tableOf(font);
    return (table.ascent + table.descent) * height / table.capital;
}

double descentOf(Font font, double height)
{
    const FontTable& table = tableOf(font);
    return table.descent * height / table.capital;
}

std::vector<std::wstring> brokenLines(std::wstring_view text, Font font, double height, double width)
{
    const FontTable& table = tableOf(font);
    // A hair is added, so that a text fits into its own width.
    const double units = width / emOfHeight(font, height) * 1000.0 + 1e-6;
    std::vector<std::wstring> lines;
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t end = std::min(text.find(L'\n', begin), text.size());
        breakParagraph(text.substr(begin, end - begin), table, units, lines);
        begin = end + 1;
    }
    return lines;
}

std::wstring shortenedText(std::wstring_view text, Font font, double height, double width)
{
    if (textWidth(text, font, height) <= width + 1e-9)
        return std::wstring(text);
    while (!text.empty() && textWidth(std::wstring(text) + L'\u2026', font, height) > width)
        text.remove_suffix(1);
    return std::wstring(withoutBlanks(text)) + L'\u2026';
}

std::vector<MarkedPiece> markedPieces(std::wstring_view marked)
{
    std::vector<MarkedPiece> pieces;
    MarkedPiece piece;
    const auto finish = [&pieces, &piece](MarkedPiece::Position next) {
        if (!piece.text.empty())
            pieces.push_back(piece);
        piece = {{}, next};
    };
    for (const wchar_t character : marked) {
        if (character == L'_')
            finish(MarkedPiece::Lowered);
        else if (character == L'^')
            finish(MarkedPiece::Raised);
        else
            piece.text += character;
    }
    finish(MarkedPiece::Normal);
    return pieces;
}

static double heightOfPiece(const MarkedPiece& piece, double height)
{
    return piece.position == MarkedPiece::Normal ? height : height * smallHeight;
}

double markedTextWidth(std::wstring_view marked, Font font, double height)
{
    double width = 0;
    for (const MarkedPiece& piece : markedPieces(marked))
        width += textWidth(piece.text, font, heightOfPiece(piece, height));
    return width;
}

std::vector<Text> markedText(const Text& marked)
{
    const double width = markedTextWidth(marked.text, marked.font, marked.height);
    const double turn = marked.angle * std::numbers::pi / 180;
    double along = marked.align == Align::Left ? 0 : marked.align == Align::Centre ? -width / 2 : -width;
    std::vector<Text> texts;
    for (const MarkedPiece& piece : markedPieces(marked.text)) {
        Text text = marked;
        text.text = piece.text;
        text.height = heightOfPiece(piece, marked.height);
        text.align = Align::Left;
        const double down = piece.position == MarkedPiece::Lowered ? lowered * marked.height
            : piece.position == MarkedPiece::Raised                ? -raised * marked.height
                                                                   : 0;
        text.at.x += along * std::cos(turn) + down * std::sin(turn);
        text.at.y += -along * std::sin(turn) + down * std::cos(turn);
        along += textWidth(text.text, text.font, text.height);
        texts.push_back(std::move(text));
    }
    return texts;
}
