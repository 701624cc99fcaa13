#include "document/column_widths.h"

#include "document/office_text.h"
#include "document/table_grid.h"
#include "drawing/text_layout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{

struct Need {
    double least = 0; // of the longest word
    double whole = 0; // of the longest line
};

// What a text takes unbroken, and what its longest word takes.
Need needOf(std::wstring_view text, Font font, double height)
{
    Need need;
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t end = std::min(text.find(L'\n', begin), text.size());
        std::wstring_view line = text.substr(begin, end - begin);
        need.whole = std::max(need.whole, textWidth(line, font, height));
        while (!line.empty()) {
            const std::size_t blank = std::min(line.find_first_of(L" -"), line.size() - 1);
            std::wstring_view word = line.substr(0, blank + 1);
            line.remove_prefix(blank + 1);
            while (!word.empty() && word.back() == L' ')
                word.remove_suffix(1);
            need.least = std::max(need.least, textWidth(word, font, height));
        }
        begin = end + 1;
    }
    return need;
}

void grow(std::vector<Need>& needs, const TableRows& rows, bool isHead, double height)
{
    const TableGrid grid(rows, needs.size());
    for (std::size_t row = 0; row < grid.rows(); ++row)
        for (std::size_t column = 0; column < needs.size(); ++column) {
            const GridPlace& place = grid.at(row, column);
            if (!place.isStart || place.columns > 1)
                continue;
            const bool isBold = isHead || (!place.cell->runs.empty() && place.cell->runs.front().isBold);
            const Need need = needOf(plainText(place.cell->runs), isBold ? Font::Bold : Font::Plain, height);
            needs[column].least = std::max(needs[column].least, need.least);
            // A head is broken at each blank rather than to widen its column.
            needs[column].whole = std::max(needs[column].whole, isHead ? need.least : need.whole);
        }
}

double sumOf(const std::vector<double>& widths)
{
    return std::accumulate(widths.begin(), widths.end(), 0.0);
}

} // namespace

double capitalHeight(double points)
{
    return points * 25.4 / 72 * 0.716;
}

std::vector<double> columnWidths(const TableBlock& table, double room, double points)
{
    const std::size_t columns = columnCount(table);
    std::vector<Need> needs(columns);
    const double height = capitalHeight(points);
    grow(needs, table.head, true, height);
    forRows(table, [&](const TableRows& rows) { grow(needs, rows, false, height); });

    // The margins, and a little for other programs' own widths of letters.
    constexpr double spare = 0.8;
    constexpr double narrowest = 6;
    std::vector<double> least(columns);
    std::vector<double> wide(columns);
    for (std::size_t i = 0; i < columns; ++i) {
        // A word without end is broken rather than to starve its neighbours.
        least[i] = std::max(narrowest, std::min(needs[i].least, room / 3) + 2 * cellMargin + spare);
        wide[i] = std::max(narrowest, needs[i].whole + 2 * cellMargin + spare);
        if (i < table.widths.size() && table.widths[i] > 0)
            least[i] = wide[i] = table.widths[i];
    }
    if (sumOf(wide) <= room)
        return wide;
    const double leastSum = sumOf(least);
    if (leastSum >= room) {
        for (double& width : least)
            width *= room / leastSum;
        return least;
    }
    // What is left goes to the columns with long texts, by the root of what they want, so that one
    // description does not starve another.
    std::vector<double> widths = least;
    double left = room - leastSum;
    for (int round = 0; round < 20 && left > 0.01; ++round) {
        std::vector<double> shares(columns);
        for (std::size_t i = 0; i < columns; ++i)
            shares[i] = std::sqrt(std::max(0.0, wide[i] - widths[i]));
        const double all = sumOf(shares);
        if (all <= 0)
            break;
        const double handOut = left;
        for (std::size_t i = 0; i < columns; ++i) {
            const double more = std::min(wide[i] - widths[i], handOut * shares[i] / all);
            widths[i] += std::max(0.0, more);
            left -= std::max(0.0, more);
        }
    }
    return widths;
}
