#pragma once

#include "drawing/drawing.h"

#include <string>
#include <string_view>
#include <vector>

// Places of texts by the widths of the shipped fonts, so that every output breaks lines alike and no display
// is asked. Heights are those of a capital letter, in millimetres, as in Text.

// From the beginning of the first character to the end of the last, mm, without kerning.
double textWidth(std::wstring_view text, Font font, double height);
// What the font's square (its "size") is for capitals of that height, mm.
double emOfHeight(Font font, double height);
// From base line to base line of text set without additional space, mm.
double lineDistance(Font font, double height);
// What reaches below the base line, mm.
double descentOf(Font font, double height);

// The lines of a text that is width wide: broken at blanks, behind hyphens and at line feeds; a word that is
// wider than the line is broken inside. At least one line; blanks around a break are dropped.
std::vector<std::wstring> brokenLines(std::wstring_view text, Font font, double height, double width);
// Cut so that it fits, with an ellipsis at its end; as it is where it fits.
std::wstring shortenedText(std::wstring_view text, Font font, double height, double width);

// A text with marks: `aQ_III^2` is a, Q, lowered III, raised 2; a mark lowers or raises the letters and
// digits behind it up to the next mark or the end.
struct MarkedPiece {
    enum Position : std::uint8_t {
        Normal,
        Lowered,
        Raised,
    };
    std::wstring text;
    Position position = Normal;

    bool operator==(const MarkedPiece&) const = default;
};
std::vector<MarkedPiece> markedPieces(std::wstring_view marked);
double markedTextWidth(std::wstring_view marked, Font font, double height);
// The same text as drawn texts: lowered and raised ones smaller, one behind the other, aligned as a whole.
std::vector<Text> markedText(const Text& marked);
