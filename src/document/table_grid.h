#pragma once

#include "document/document.h"

#include <cstddef>
#include <vector>

// A table with its spans worked out: each place knows the cell that covers it. Spans that run over the edge
// or into another cell are cut, so that no damaged table can make a damaged file.

struct GridPlace {
    const TableCell* cell = nullptr; // null: a place that no cell covers
    // Of the cell: 1 and 1 in most. Only at its upper left place.
    int columns = 1;
    int rows = 1;
    bool isStart = false;
    bool isLeftEdge = false; // in the leftmost column of the cell; spans downwards are told row by row
};

class TableGrid
{
public:
    explicit TableGrid(const TableRows& rows, std::size_t columns);

    std::size_t rows() const { return rows_; }
    std::size_t columns() const { return columns_; }
    const GridPlace& at(std::size_t row, std::size_t column) const
    {
        return places_[row * columns_ + column];
    }
    // How many columns the cell at this place goes on to the right.
    int columnsFrom(std::size_t row, std::size_t column) const;

private:
    GridPlace& place(std::size_t row, std::size_t column) { return places_[row * columns_ + column]; }
    void put(const TableCell& cell, std::size_t row, std::size_t column);

    std::size_t rows_;
    std::size_t columns_;
    std::vector<GridPlace> places_;
};

// The rows of a table, those that are made while it is written included, in pieces that need not be large.
template <class Take>
void forRows(const TableBlock& table, Take take)
{
    if (!table.rows.empty())
        take(table.rows);
    constexpr std::size_t piece = 256;
    TableRows rows;
    for (std::size_t row = 0; row < table.madeRows; ++row) {
        rows.push_back(table.makeRow(row));
        if (rows.size() == piece || row + 1 == table.madeRows) {
            take(rows);
            rows.clear();
        }
    }
}

// Columns that the widest row of head and body takes; at least one.
std::size_t columnCount(const TableBlock& table);
