#include "plots/column_pages.h"

#include "core/base/mexception.h"
#include "drawing/text_layout.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double hair = 1e-9;
constexpr std::size_t mostPages = 300;

// What a page is filled from: where it begins, and what of a description did not fit on the one before.
struct Rest {
    double depth = 0;
    const ColumnLayer* layer = nullptr;
    std::vector<std::wstring> lines = {};
};

double neededHeight(std::size_t lines)
{
    const double text = lines == 0 ? 0
                                   : static_cast<double>(lines - 1) * textLineDistance(descriptionHeight)
            + descriptionHeight + 2 * rowPadding + descentOf(Font::Narrow, descriptionHeight) / 2;
    return std::max(smallestRow, text);
}

std::size_t linesThatFit(double height)
{
    std::size_t lines = 1;
    while (neededHeight(lines + 1) <= height)
        ++lines;
    return lines;
}

class Planner
{
public:
    Planner(const ColumnData& data, const ColumnMeasures& measures)
        : data_(data)
        , measures_(measures)
        , depth_(drawnDepth(data))
        , ownLines_(measures.lines ? DescriptionLines() : descriptionLines(data, measures.descriptionWidth))
        , lines_(measures.lines ? *measures.lines : ownLines_)
    {
        needed_.reserve(lines_.size());
        for (const std::vector<std::wstring>& lines : lines_)
            needed_.push_back(neededHeight(lines.size()));
    }

    std::vector<ColumnPage> plan() const
    {
        std::vector<ColumnPage> pages;
        Rest rest;
        do {
            const double height = pages.empty() ? measures_.firstHeight : measures_.nextHeight;
            pages.push_back(nextPage(rest, height));
            if (pages.size() > mostPages)
                throw MException(L"Колонка «" + data_.point
                    + L"» не поместится и на сотнях листов: выберите более мелкий масштаб.");
        } while (rest.depth < depth_ - hair || rest.layer);
        return pages;
    }

private:
    ColumnPage nextPage(Rest& rest, double height) const
    {
        ColumnPage page{rest.depth, std::min(depth_, rest.depth + height / measures_.perMetre), height, {}};
        for (;;) {
            const bool rowsFit = neededOn(page, rest) <= height + hair;
            if (rowsFit && labelsFit(page))
                break;
            const double earlier = boundaryAbove(page);
            if (earlier > page.top + hair)
                page.bottom = earlier;
            else if (!labelsFit(page) && page.bottom - page.top > smallestStretch)
                page.bottom = page.top + (page.bottom - page.top) / 2;
            else
                break;
        }
        page.rows = rowsOf(page, rest);
        // What is left of a description may take the sheet alone.
        if (page.rows.size() > 1 && page.rows.front().bottom <= page.top + hair
            && page.rows.front().needed + neededHeight(1) > height) {
            page.bottom = page.top;
            page.rows.resize(1);
        }
        rest = cutRest(page);
        placeRows(page);
        return page;
    }

    std::vector<ColumnRow> rowsOf(const ColumnPage& page, const Rest& rest) const
    {
        std::vector<ColumnRow> rows;
        const bool isOver = rest.layer && rest.layer->bottom <= page.top + hair;
        if (isOver)
            rows.push_back({rest.layer, page.top, page.top, false, false, rest.lines});
        for (std::size_t number = 0; number < data_.layers.size(); ++number) {
            const ColumnLayer& layer = data_.layers[number];
            if (!isOn(page, layer))
                continue;
            ColumnRow row{&layer, std::max(layer.top, page.top), std::min(layer.bottom, page.bottom)};
            row.beginsHere = beginsOn(page, layer);
            row.endsHere = layer.bottom <= page.bottom + hair;
            if (row.beginsHere)
                row.lines = lines_[number];
            else if (rest.layer == &layer)
                row.lines = rest.lines;
            rows.push_back(std::move(row));
        }
        for (ColumnRow& row : rows)
            row.needed = neededHeight(row.lines.size());
        return rows;
    }

    static bool isOn(const ColumnPage& page, const ColumnLayer& layer)
    {
        return layer.bottom > page.top + hair && layer.top < page.bottom - hair;
    }

    static bool beginsOn(const ColumnPage& page, const ColumnLayer& layer)
    {
        return layer.top >= page.top - hair;
    }

    // The height of what rowsOf would make.
    double neededOn(const ColumnPage& page, const Rest& rest) const
    {
        const double neededByRest = neededHeight(rest.lines.size());
        double sum = rest.layer && rest.layer->bottom <= page.top + hair ? neededByRest : 0;
        for (std::size_t number = 0; number < data_.layers.size(); ++number) {
            const ColumnLayer& layer = data_.layers[number];
            if (!isOn(page, layer))
                continue;
            if (beginsOn(page, layer))
                sum += needed_[number];
            else
                sum += rest.layer == &layer ? neededByRest : neededHeight(0);
        }
        return sum;
    }

    template <class Rows>
    std::size_t countBetween(const Rows& rows, const ColumnPage& page) const
    {
        return static_cast<std::size_t>(std::count_if(rows.begin(), rows.end(), [&](const auto& row) {
            return row.depth >= page.top && (row.depth < page.bottom || page.bottom >= depth_ - hair);
        }));
    }

    bool labelsFit(const ColumnPage& page) const
    {
        return static_cast<double>(countBetween(data_.samples, page)) * measures_.labelHeight <= page.height
            && static_cast<double>(countBetween(data_.waters, page)) * measures_.waterHeight <= page.height;
    }

    // The lowest boundary between two layers of the page; its top where there is none.
    double boundaryAbove(const ColumnPage& page) const
    {
        double boundary = page.top;
        for (const ColumnLayer& layer : data_.layers)
            if (layer.top > boundary + hair && layer.top < page.bottom - hair)
                boundary = layer.top;
        return boundary;
    }

    // A page whose rows are still too high has a single description that no sheet takes whole.
    Rest cutRest(ColumnPage& page) const
    {
        Rest rest{page.bottom, nullptr, {}};
        double room = page.height;
        for (ColumnRow& row : page.rows) {
            if (row.needed > room + hair) {
                const std::size_t count = std::min(linesThatFit(room), row.lines.size());
                rest.layer = row.layer;
                rest.lines.assign(row.lines.begin() + static_cast<std::ptrdiff_t>(count), row.lines.end());
                row.lines.resize(count);
                row.needed = std::min(neededHeight(count), room);
                if (rest.lines.empty())
                    rest.layer = nullptr;
            }
            room -= row.needed;
        }
        return rest;
    }

    void placeRows(ColumnPage& page) const
    {
        std::vector<double> wanted;
        std::vector<double> heights;
        for (const ColumnRow& row : page.rows) {
            wanted.push_back((row.bottom - page.top) * measures_.perMetre);
            heights.push_back(row.needed);
        }
        const std::vector<double> places = spreadApart(wanted, heights, page.height);
        for (std::size_t row = 0; row < places.size(); ++row)
            page.rows[row].place = places[row];
    }

    static constexpr double smallestStretch = 0.001; // m

    const ColumnData& data_;
    const ColumnMeasures& measures_;
    double depth_;
    DescriptionLines ownLines_;
    const DescriptionLines& lines_;
    std::vector<double> needed_; // mm, one a layer that begins on the sheet
};

} // namespace

DescriptionLines descriptionLines(const ColumnData& data, double width)
{
    DescriptionLines lines;
    for (const ColumnLayer& layer : data.layers)
        lines.push_back(width <= 0 || layer.description.empty()
                ? std::vector<std::wstring>()
                : brokenLines(layer.description, Font::Narrow, descriptionHeight, width));
    return lines;
}

std::vector<double> spreadApart(
    const std::vector<double>& wanted, const std::vector<double>& heights, double limit)
{
    std::vector<double> ends(wanted.size());
    double above = 0;
    for (std::size_t thing = 0; thing < wanted.size(); ++thing) {
        ends[thing] = std::max(wanted[thing], above + heights[thing]);
        above = ends[thing];
    }
    double below = limit;
    for (std::size_t thing = wanted.size(); thing-- > 0;) {
        ends[thing] = std::min(ends[thing], below);
        below = ends[thing] - heights[thing];
    }
    return ends;
}

double drawnDepth(const ColumnData& data)
{
    double depth = data.depth;
    for (const ColumnWater& water : data.waters)
        depth = std::max(depth, water.depth);
    for (const ColumnSample& sample : data.samples)
        depth = std::max(depth, sample.depth);
    return depth;
}

std::vector<ColumnPage> planColumn(const ColumnData& data, const ColumnMeasures& measures)
{
    return Planner(data, measures).plan();
}
