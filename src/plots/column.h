#pragma once

#include "plots/sheet.h"
#include "plots/title_block.h"
#include "site/column.h"

#include <cstdint>
#include <vector>

// The engineering-geological column of a point, to depth scale, on sheets of the office.

// Numbers as in sectionColumnCaptions.
namespace column_lane
{
enum Number : std::int32_t {
    Index = 1,
    Thickness,
    Bottom,
    Mark,
    Section,
    Water,
    Samples,
    Element,
    Description,
    Sounding,
    Strip, // the column proper; drawn like Section
};
}

struct ColumnLane {
    std::int32_t column = 0;
    bool isTurned = false; // its caption reads upwards
    double width = 0; // mm, up to 100; 0: the usual one. The description takes what is left of the sheet
};

// The smallest denominator first; the greatest is the last resort of "fit to the sheet".
std::vector<int> columnScales();

struct ColumnLook {
    Sheet sheet = {};
    TitleBlock firstBlock = TitleBlock::Drawing;
    TitleBlock nextBlock = TitleBlock::Following;
    bool hasSideStrip = false;
    TitleBlockTexts texts = {}; // sheet and sheets are counted here
    std::vector<ColumnLane> lanes = {}; // empty: all of the full preset
    int scale = 0; // 1:n, n from 10 to 500; 0: the largest at which it stands on one sheet
    int language = languageRussian;
    int hatchScale = 15; // hundredths of a millimetre for a unit of the tiles; drawn between 2 and 1000
    bool isWaterBlue = false;
    bool hasGrounds = false; // soils in the colours below
    Color sand = {255, 255, 0};
    Color loam = {128, 0, 0};
    Color sandyLoam = {255, 0, 255};
    Color clay = {200, 100, 0};
    bool isGraphColored = false;
    Color tip = {255, 0, 0};
    Color sleeve = {0, 0, 255};
    bool hasGraphGrid = false;
    bool isIndexPlain = false; // marks as they were typed instead of lowered and raised letters
    bool hasSampleNumbers = false;
    // Of a column that belongs to no point, in the place of name, depth and mark; its last layer is a whole
    // one.
    std::wstring heading = {};
};

// The lanes of the full preset, in its order.
std::vector<ColumnLane> usualLanes();

// The sheets of a column. Whatever the data are, no text stands on another one and none outside its cell. The
// id of an item is that of its layer. Throws MException where the scale would need hundreds of sheets.
std::vector<Drawing> columnOf(const ColumnData& data, const ColumnLook& look);
