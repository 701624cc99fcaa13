#pragma once

#include "plots/column.h"

// Which part of a column stands on which sheet, and where.

// A layer on a sheet: a row of the table. Its place in the table is at least as high as its texts; in the
// strip it is to scale.
struct ColumnRow {
    const ColumnLayer* layer = nullptr;
    double top = 0; // m of depth, cut at the sheet
    double bottom = 0;
    bool beginsHere = false;
    bool endsHere = false;
    std::vector<std::wstring> lines = {}; // of the description
    double needed = 0; // mm
    double place = 0; // its lower edge in the table, mm from the top of the body
};

struct ColumnPage {
    double top = 0; // m of depth
    double bottom = 0;
    double height = 0; // mm that the body may take
    std::vector<ColumnRow> rows = {};
};

// The lines of each layer's description.
using DescriptionLines = std::vector<std::vector<std::wstring>>;
DescriptionLines descriptionLines(const ColumnData& data, double width);

// What the planning must know of the look.
struct ColumnMeasures {
    double perMetre = 10; // mm of paper
    double firstHeight = 180; // mm of the body
    double nextHeight = 230;
    double descriptionWidth = 60; // mm for the text; 0: no such lane
    double labelHeight = 0; // of a sample; 0: no such lane
    double waterHeight = 0;
    const DescriptionLines* lines = nullptr; // in that width, where they are known from an earlier plan
};

inline constexpr double descriptionHeight = 2.2; // of its capitals, mm
inline constexpr double rowPadding = 0.9; // above and below its texts, mm
inline constexpr double smallestRow = 4.6; // mm

// Sheets from above. Every layer begins on one sheet and ends on one; its description is whole over them.
std::vector<ColumnPage> planColumn(const ColumnData& data, const ColumnMeasures& measures);

// Moves things of those heights apart so that none overlaps, each with its end as near to the wanted place as
// the ones before it allow, all between 0 and the limit. The ends, in order.
std::vector<double> spreadApart(
    const std::vector<double>& wanted, const std::vector<double>& heights, double limit);

// The depth down to which the column is drawn: of layers, samples and water.
double drawnDepth(const ColumnData& data);
