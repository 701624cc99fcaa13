#pragma once

#include "calc/remark.h"
#include "common/edit_grid_model.h"

#include <string>
#include <vector>

// Puts what a calculation has against its inputs to the cells of a row. The marks name the cells, from the
// given column on ("physical/8", "shear/3/7"). A remark that means no single cell of the row ("shear/3",
// "compression/21/0" without that load) stands at all filled cells of its test.
void markCells(GridRow& row, int firstColumn, const std::vector<std::string>& marks, const Remarks& remarks);
// The same for a form: rows with a mark each, the reasons at the column.
void markRows(GridRows& rows, int column, const std::vector<std::string>& marks, const Remarks& remarks);
