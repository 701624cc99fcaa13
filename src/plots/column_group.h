#pragma once

#include "plots/column.h"

// Columns beside each other on sheets with one title block: as many on a sheet as wanted, fewer where its
// width is too small to read them. The scale of a group that is fitted to the sheet is one for all its
// columns. Nothing in it has an id.
std::vector<Drawing> columnsSideBySide(
    const std::vector<ColumnData>& columns, const ColumnLook& look, int perSheet);

// How many go beside each other there.
int columnsOnSheet(const ColumnLook& look, int perSheet);
