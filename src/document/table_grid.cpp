#include "document/table_grid.h"

#include <algorithm>

TableGrid::TableGrid(const TableRows& rows, std::size_t columns)
    : rows_(rows.size())
    , columns_(columns)
    , places_(rows.size() * columns)
{
    for (std::size_t row = 0; row < rows_; ++row) {
        std::size_t column = 0;
        for (const TableCell& cell : rows[row]) {
            while (column < columns_ && at(row, column).cell)
                ++column;
            if (column == columns_)
                break;
            put(cell, row, column);
        }
    }
}

void TableGrid::put(const TableCell& cell, std::size_t row, std::size_t column)
{
    const std::size_t right =
        std::min(columns_, column + static_cast<std::size_t>(std::max(1, cell.columns)));
    const std::size_t bottom = std::min(rows_, row + static_cast<std::size_t>(std::max(1, cell.rows)));
    std::size_t end = column;
    while (end < right && !at(row, end).cell)
        ++end;
    for (std::size_t r = row; r < bottom; ++r)
        for (std::size_t c = column; c < end; ++c) {
            place(r, c).cell = &cell;
            place(r, c).isLeftEdge = c == column;
        }
    GridPlace& start = place(row, column);
    start.isStart = true;
    start.columns = static_cast<int>(end - column);
    start.rows = static_cast<int>(bottom - row);
}

int TableGrid::columnsFrom(std::size_t row, std::size_t column) const
{
    std::size_t end = column + 1;
    while (end < columns_ && at(row, end).cell && at(row, end).cell == at(row, column).cell)
        ++end;
    return static_cast<int>(end - column);
}

std::size_t columnCount(const TableBlock& table)
{
    std::size_t columns = 1;
    // Cells that hang down from above are counted with the row that they start in.
    const TableRows sample = table.madeRows > 0 ? TableRows{table.makeRow(0)} : TableRows();
    for (const TableRows* rows : {&table.head, &table.rows, &sample}) {
        std::vector<int> hanging;
        for (const auto& row : *rows) {
            int taken = 0;
            for (int& left : hanging)
                if (left > 0) {
                    ++taken;
                    --left;
                }
            for (const TableCell& cell : row) {
                const int wide = std::clamp(cell.columns, 1, 1000);
                taken += wide;
                if (cell.rows > 1)
                    hanging.insert(hanging.end(), static_cast<std::size_t>(wide), cell.rows - 1);
            }
            std::erase(hanging, 0);
            columns = std::max(columns, static_cast<std::size_t>(taken));
        }
    }
    return columns;
}
