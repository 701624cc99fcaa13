#pragma once

#include "document/table_grid.h"

#include <string>
#include <string_view>

// How much room texts take in the cells of a workbook, in characters and lines.

// Where a column is wide enough; longer texts are wrapped.
inline constexpr std::size_t widestColumn = 50;

std::size_t longestLine(std::wstring_view text);
std::size_t longestWord(std::wstring_view text);
// Of a text that is broken at that width.
std::size_t linesOf(std::wstring_view text, std::size_t width);
// Of a row of heads: the text of a merged cell is not fitted by the program that opens the file.
std::size_t headLines(const TableGrid& grid, std::size_t row);
// So many units of UTF-16 at most, no character cut in two.
std::wstring firstCharacters(std::wstring text, std::size_t units);
