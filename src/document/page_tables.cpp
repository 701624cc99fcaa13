#include "document/page_tables.h"

#include "document/column_widths.h"
#include "document/office_text.h"
#include "document/table_grid.h"
#include "drawing/text_layout.h"

#include <algorithm>

namespace
{

constexpr Pen rule{0.18, {}, Dash::Solid};

class TableMaker
{
public:
    TableMaker(PageStack& pages, const TableBlock& block)
        : pages_(pages)
        , block_(block)
        , widths_(columnWidths(block, pages.room()))
    {
    }

    void make()
    {
        const SetTable head = setTable(block_.head, true);
        double headHigh = 0;
        for (const double height : head.heights)
            headHigh += height;
        pages_.demand(headHigh + 8);
        putRows(head, 0, head.grid.rows(), true);
        forRows(block_, [&](const TableRows& rows) {
            const SetTable body = setTable(rows, false);
            for (std::size_t row = 0; row < body.grid.rows();) {
                const std::size_t end = groupEnd(body.grid, row);
                putGroup(body, row, end, head, headHigh);
                row = end;
            }
        });
        pages_.moveDown(2.5);
    }

private:
    // Rows of a table with the lines of their cells and the heights that these take.
    struct SetTable {
        TableGrid grid;
        std::vector<std::vector<SetLine>> lines; // of each place, empty where no cell begins
        std::vector<double> heights;
    };

    static constexpr double cellPadding = 0.6; // above and below
    static double cellHeight() { return capitalHeight(tablePoints); }
    static double lineHigh() { return lineDistance(Font::Plain, cellHeight()); }

    SetTable setTable(const TableRows& rows, bool isHead) const
    {
        SetTable table{TableGrid(rows, widths_.size()), {}, {}};
        const TableGrid& grid = table.grid;
        const double step = lineHigh();
        table.lines.resize(grid.rows() * grid.columns());
        table.heights.assign(grid.rows(), step + 2 * cellPadding);
        for (std::size_t row = 0; row < grid.rows(); ++row)
            for (std::size_t column = 0; column < grid.columns(); ++column) {
                const GridPlace& place = grid.at(row, column);
                if (!place.isStart)
                    continue;
                auto& lines = table.lines[row * grid.columns() + column];
                lines = setLines(
                    place.cell->runs, cellHeight(), widthOf(column, place.columns) - 2 * cellMargin, isHead);
                const double need = static_cast<double>(lines.size()) * step + 2 * cellPadding;
                if (place.rows == 1)
                    table.heights[row] = std::max(table.heights[row], need);
            }
        // A cell that hangs down widens the last row that it reaches.
        for (std::size_t row = 0; row < grid.rows(); ++row)
            for (std::size_t column = 0; column < grid.columns(); ++column) {
                const GridPlace& place = grid.at(row, column);
                if (!place.isStart || place.rows == 1)
                    continue;
                const double need =
                    static_cast<double>(table.lines[row * grid.columns() + column].size()) * step
                    + 2 * cellPadding;
                const std::size_t last = row + static_cast<std::size_t>(place.rows) - 1;
                double have = 0;
                for (std::size_t r = row; r <= last; ++r)
                    have += table.heights[r];
                table.heights[last] += std::max(0.0, need - have);
            }
        return table;
    }

    double widthOf(std::size_t column, int columns) const
    {
        double width = 0;
        for (std::size_t i = column; i < column + static_cast<std::size_t>(columns); ++i)
            width += widths_[i];
        return width;
    }

    // Rows that cells hang down over stay together.
    static std::size_t groupEnd(const TableGrid& grid, std::size_t row)
    {
        std::size_t end = row + 1;
        for (std::size_t r = row; r < end; ++r)
            for (std::size_t column = 0; column < grid.columns(); ++column)
                if (const GridPlace& place = grid.at(r, column); place.isStart)
                    end = std::max(end, r + static_cast<std::size_t>(place.rows));
        return end;
    }

    void putGroup(
        const SetTable& body, std::size_t from, std::size_t to, const SetTable& head, double headHigh)
    {
        double height = 0;
        for (std::size_t row = from; row < to; ++row)
            height += body.heights[row];
        const auto turnTable = [&] {
            pages_.turn();
            if (headHigh < pages_.high() / 2)
                putRows(head, 0, head.grid.rows(), true);
        };
        if (!pages_.hasRoom(height) && pages_.y() > pages_.top() + headHigh + 0.01)
            turnTable();
        if (pages_.hasRoom(height)) {
            putRows(body, from, to, false);
            return;
        }
        // Higher than a page: line by line, or row by row.
        for (std::size_t row = from; row < to; ++row)
            putLongRow(body, row, turnTable);
    }

    void putRows(const SetTable& table, std::size_t from, std::size_t to, bool isHead)
    {
        for (std::size_t row = from; row < to; ++row) {
            double x = pages_.left();
            for (std::size_t column = 0; column < table.grid.columns(); ++column) {
                const GridPlace& place = table.grid.at(row, column);
                if (place.isStart || !place.cell) {
                    const int columns = place.cell ? place.columns : 1;
                    double height = 0;
                    for (std::size_t r = row; r < row + static_cast<std::size_t>(place.cell ? place.rows : 1);
                         ++r)
                        height += table.heights[r];
                    putCell(place,
                        table.lines[row * table.grid.columns() + column],
                        x,
                        widthOf(column, columns),
                        height,
                        isHead);
                }
                x += widths_[column];
            }
            pages_.moveDown(table.heights[row]);
        }
    }

    void putCell(const GridPlace& place,
        const std::vector<SetLine>& lines,
        double x,
        double width,
        double height,
        bool isHead)
    {
        const std::vector<Spot> box = {{x, pages_.y()},
            {x + width, pages_.y()},
            {x + width, pages_.y() + height},
            {x, pages_.y() + height}};
        if (place.cell && place.cell->isMarked) {
            Area ground;
            ground.rings = {box};
            ground.ground = {217, 217, 217};
            ground.hasGround = true;
            pages_.put(Layer::Ground, std::move(ground));
        }
        pages_.put(Layer::Table, Line{box, rule, true});
        if (!place.cell)
            return;
        const double step = lineHigh();
        const double free = height - static_cast<double>(lines.size()) * step;
        double top = pages_.y() + (isHead ? free / 2 : cellPadding);
        for (const SetLine& line : lines) {
            pages_.putLine(line,
                x + cellMargin,
                width - 2 * cellMargin,
                top + (step + cellHeight()) / 2,
                isHead ? Align::Centre : place.cell->align);
            top += step;
        }
    }

    // A row that no page can hold: as many lines of its cells as go in, then the next page.
    template <class TurnTable>
    void putLongRow(const SetTable& table, std::size_t row, const TurnTable& turnTable)
    {
        const double step = lineHigh();
        std::size_t all = 0;
        for (std::size_t column = 0; column < table.grid.columns(); ++column)
            all = std::max(all, table.lines[row * table.grid.columns() + column].size());
        for (std::size_t done = 0; done < std::max<std::size_t>(1, all);) {
            const double free = pages_.bottom() - pages_.y() - 2 * cellPadding;
            const std::size_t count = std::max<std::size_t>(
                1, std::min(all - done, static_cast<std::size_t>(std::max(0.0, free) / step)));
            double x = pages_.left();
            const double height = static_cast<double>(count) * step + 2 * cellPadding;
            for (std::size_t column = 0; column < table.grid.columns(); ++column) {
                GridPlace place = table.grid.at(row, column);
                const auto& lines = table.lines[row * table.grid.columns() + column];
                const std::size_t begin = std::min(done, lines.size());
                const std::vector<SetLine> part(lines.begin() + static_cast<std::ptrdiff_t>(begin),
                    lines.begin() + static_cast<std::ptrdiff_t>(std::min(done + count, lines.size())));
                if (place.isStart || !place.cell)
                    putCell(place, part, x, widthOf(column, place.cell ? place.columns : 1), height, false);
                x += widths_[column];
            }
            pages_.moveDown(height);
            done += count;
            if (done < all)
                turnTable();
        }
    }

    PageStack& pages_;
    const TableBlock& block_;
    std::vector<double> widths_;
};

} // namespace

void putTable(PageStack& pages, const TableBlock& block)
{
    TableMaker(pages, block).make();
}
