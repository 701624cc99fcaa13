#pragma once

#include "document/document.h"

// What letters a paper is set in: sizes in points, as text processors count.
inline constexpr double bodyPoints = 11;
inline constexpr double tablePoints = 9;
inline constexpr double notePoints = 9;
inline constexpr double captionPoints = 10;
inline constexpr double cellMargin = 1.0; // mm, left and right of a cell's text

// Millimetres of a capital letter of the shipped sans at that size.
double capitalHeight(double points);

// Widths of the columns of a table on paper, mm, by what stands in them: as narrow as their longest words
// allow where the table is wider than the room, and no wider than the room altogether. The given ones stay
// unless that would be too wide.
std::vector<double> columnWidths(const TableBlock& table, double room, double points = tablePoints);
