#pragma once

#include "document/document.h"

#include <vector>

// Texts of several styles broken into lines.

// A piece of a line in one style.
struct SetPiece {
    std::wstring text;
    Font font = Font::Plain;
    double height = 2.5; // of a capital, mm
    double left = 0; // from the beginning of the line
    double width = 0;
    double rise = 0; // above the base line, mm
    bool isStruck = false;
};

struct SetLine {
    std::vector<SetPiece> pieces;
    double width = 0;
};

// At least one line; words that are wider than a line are broken inside.
std::vector<SetLine> setLines(const Runs& runs, double height, double width, bool isBold = false);
