#pragma once

#include "core/base/typed_number.h"
#include "drawing/drawing.h"

#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

// A paper of the office, apart from any file format: the writers beside this header make DOCX, ODT, XLSX,
// HTML of it, and pages for PDF.

// A piece of text in one style. A paragraph or a cell is a row of them.
struct Run {
    enum Position : std::uint8_t {
        Normal,
        Raised,
        Lowered,
    };
    std::wstring text;
    bool isBold = false;
    bool isItalic = false;
    bool isStruck = false; // a value that was left out
    Position position = Normal;
};
using Runs = std::vector<Run>;

struct Heading {
    std::wstring text;
    int level = 1; // 1 to 3
};

struct Paragraph {
    enum Style : std::uint8_t {
        Body,
        Caption, // of a table or figure
        Note, // small, below a table
        Bullet,
        Numbered,
    };
    Runs runs;
    Style style = Body;
    Align align = Align::Left;
};

struct TableCell {
    Runs runs;
    Number number = {}; // a number for XLSX, shown with its decimals; the runs hold its text
    int decimals = 0;
    Align align = Align::Left;
    int columns = 1; // that it spans to the right; the spanned cells are left out of the row
    int rows = 1; // that it spans downwards; the spanned cells are left out of the rows below
    bool isMarked = false; // grey ground: doubtful, typed over, computed
};

using TableRows = std::vector<std::vector<TableCell>>;

struct TableBlock {
    std::wstring title = {}; // above the table; the sheet's name in XLSX
    std::vector<double> widths = {}; // mm; 0 or missing: by content
    TableRows head = {}; // repeats on each page
    TableRows rows = {};
    // Behind them, rows of large registers, made one by one when they are written, possibly several times.
    // Their cells do not span downwards.
    std::size_t madeRows = 0;
    std::function<std::vector<TableCell>(std::size_t row)> makeRow = {};
};

struct Figure {
    Drawing drawing;
    std::wstring caption = {};
};

struct PageBreak {
};

struct PageFormat {
    double width = 210; // mm
    double height = 297;
    double left = 20;
    double top = 15;
    double right = 10;
    double bottom = 15;

    bool operator==(const PageFormat&) const = default;
};

// From here on pages of another format.
struct Section {
    PageFormat page;
};

using Block = std::variant<Heading, Paragraph, TableBlock, Figure, PageBreak, Section>;

// What stands on each page around the texts, where an office wants it: a frame with its stamp. Pages count
// from 1. A text processor counts by itself: there the numbers stand in the places told here and count is 0.
struct PageFrame {
    std::function<Drawing(const PageFormat& page, int number, int count)> draw = {}; // as large as the page
    // The middles of the base lines, in millimetres from the right and the lower edge of the page; on the
    // first page both at one height, the count to the right.
    Spot number = {}; // of the page, on the pages behind the first
    Spot firstNumber = {};
    Spot firstCount = {}; // how many pages there are, on the first one
};

struct Document {
    std::wstring title = {};
    std::wstring author = {};
    PageFormat page = {};
    std::wstring header = {}; // on each page, above
    std::wstring footer = {}; // on each page, below; the page number stands on its right
    std::vector<Block> blocks = {};
    PageFrame frame = {};
};
