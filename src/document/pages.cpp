#include "document/pages.h"

#include "document/column_widths.h"
#include "document/office_text.h"
#include "document/page_frame.h"
#include "document/set_lines.h"
#include "document/table_grid.h"
#include "drawing/text_layout.h"

#include <algorithm>
#include <cmath>

namespace
{

struct TextStyle {
    double points = bodyPoints;
    bool isBold = false;
    double before = 0; // mm
    double after = 0;
    bool staysWithNext = false;
    double indent = 0;
};

constexpr TextStyle bodyStyle{bodyPoints, false, 0, 1.4, false, 0};
constexpr TextStyle captionStyle{captionPoints, true, 2.1, 1.1, true, 0};
constexpr TextStyle figureCaptionStyle{captionPoints, false, 1, 2.8, false, 0};
constexpr TextStyle noteStyle{notePoints, false, 0.7, 1.4, false, 0};
constexpr TextStyle listStyle{bodyPoints, false, 0, 0.7, false, 10};
constexpr TextStyle headingStyles[] = {
    {14, true, 4.2, 2.1, true, 0}, {12, true, 3.5, 1.8, true, 0}, {11, true, 2.8, 1.4, true, 0}};
constexpr Pen rule{0.18, {}, Dash::Solid};

double lineHigh(double height)
{
    return lineDistance(Font::Plain, height);
}

// Thrown to leave the work when the user has called it off.
struct CalledOff {
};

class PageMaker
{
public:
    PageMaker(const Document& document, const std::function<bool(std::size_t)>& goesOn)
        : document_(document)
        , goesOn_(goesOn)
        , format_(document.page)
        , firstStamp_(stampHeight(document.frame, document.page, 1))
    {
    }

    std::vector<Drawing> make()
    {
        for (std::size_t i = 0; i < document_.blocks.size(); ++i) {
            const Block& block = document_.blocks[i];
            const auto* paragraph = std::get_if<Paragraph>(&block);
            number_ = paragraph && paragraph->style == Paragraph::Numbered ? number_ + 1 : 0;
            next_ = i + 1 < document_.blocks.size() ? &document_.blocks[i + 1] : nullptr;
            std::visit([this](const auto& found) { add(found); }, block);
        }
        if (pages_.empty())
            turn();
        finish();
        return std::move(pages_);
    }

private:
    double left() const { return format_.left; }
    double room() const { return std::max(20.0, format_.width - format_.left - format_.right); }
    double bottom() const
    {
        const bool hasStamp = pages_.size() <= 1 && firstStamp_ > 0;
        return format_.height
            - (hasStamp ? std::max(format_.bottom, firstStamp_ + airAbove) : format_.bottom);
    }
    double high() const { return std::max(20.0, bottom() - format_.top); }

    void turn()
    {
        if (goesOn_ && !goesOn_(pages_.size()))
            throw CalledOff();
        Drawing page;
        page.width = format_.width;
        page.height = format_.height;
        page.title = document_.title;
        pages_.push_back(std::move(page));
        formats_.push_back(format_);
        y_ = format_.top;
    }

    // Room for so much from here on, on this page or on the next one.
    void demand(double height)
    {
        const bool isTop = !pages_.empty() && y_ <= format_.top + 0.01;
        if (pages_.empty() || (y_ + height > bottom() + 0.01 && !isTop))
            turn();
    }

    void put(Layer layer, std::variant<Line, Area, Circle, Text> shape)
    {
        pages_.back().items.push_back({layer, 0, std::move(shape)});
    }

    void putLine(const SetLine& line, double x, double width, double baseLine, Align align)
    {
        const double free = width - line.width;
        const double shift = align == Align::Right ? free : align == Align::Centre ? free / 2 : 0;
        for (const SetPiece& piece : line.pieces) {
            const double at = x + shift + piece.left;
            put(Layer::Text,
                Text{piece.text, {at, baseLine - piece.rise}, piece.height, Align::Left, 0, piece.font});
            if (piece.isStruck) {
                const double y = baseLine - piece.rise - piece.height * 0.4;
                put(Layer::Text, Line{{{at, y}, {at + piece.width, y}}, {0.2}, false});
            }
        }
    }

    // ---- texts ----

    void addText(
        const Runs& runs, const TextStyle& style, Align align = Align::Left, const std::wstring& sign = {})
    {
        const double height = capitalHeight(style.points);
        const double step = lineHigh(height);
        const std::vector<SetLine> lines = setLines(runs, height, room() - style.indent, style.isBold);
        const bool isTop = pages_.empty() || y_ <= format_.top + 0.01;
        double before = isTop ? 0 : style.before;
        // What stays with the next one asks for some of its room too.
        demand(before
            + static_cast<double>(style.staysWithNext ? lines.size() : std::min<std::size_t>(2, lines.size()))
                * step
            + (style.staysWithNext ? roomOfNext() : 0));
        if (y_ <= format_.top + 0.01)
            before = 0;
        y_ += before;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            demand(step);
            const double baseLine = y_ + (step + height) / 2;
            if (i == 0 && !sign.empty())
                put(Layer::Text, Text{sign, {left() + style.indent - 5, baseLine}, height});
            putLine(lines[i], left() + style.indent, room() - style.indent, baseLine, align);
            y_ += step;
        }
        y_ += style.after;
    }

    // How much of the next block a heading or caption wants to see on its page.
    double roomOfNext() const
    {
        if (!next_)
            return 0;
        if (const auto* figure = std::get_if<Figure>(next_))
            return figure->drawing.height * scaleOf(*figure) + 8;
        if (std::holds_alternative<TableBlock>(*next_))
            return 25;
        return std::holds_alternative<Paragraph>(*next_) ? 12 : 20;
    }

    void add(const Heading& heading)
    {
        addText({{heading.text}}, headingStyles[std::clamp(heading.level, 1, 3) - 1]);
    }

    void add(const Paragraph& paragraph)
    {
        switch (paragraph.style) {
        case Paragraph::Body:
            addText(paragraph.runs, bodyStyle, paragraph.align);
            break;
        case Paragraph::Caption:
            addText(paragraph.runs, captionStyle, paragraph.align);
            break;
        case Paragraph::Note:
            addText(paragraph.runs, noteStyle, paragraph.align);
            break;
        case Paragraph::Bullet:
            addText(paragraph.runs, listStyle, paragraph.align, L"–");
            break;
        case Paragraph::Numbered:
            addText(paragraph.runs, listStyle, paragraph.align, std::to_wstring(number_) + L".");
            break;
        }
    }

    void add(const PageBreak&) { turn(); }

    void add(const Section& section)
    {
        format_ = section.page;
        if (pages_.empty())
            return;
        // A page that nothing stands on yet takes the format.
        if (pages_.back().items.empty()) {
            pages_.pop_back();
            formats_.pop_back();
        }
        turn();
    }

    // ---- figures ----

    double scaleOf(const Figure& figure) const
    {
        const Drawing& drawing = figure.drawing;
        if (drawing.width <= 0 || drawing.height <= 0)
            return 1;
        return std::min({1.0, room() / drawing.width, (high() - 12) / drawing.height});
    }

    void add(const Figure& figure)
    {
        const double scale = scaleOf(figure);
        demand(figure.drawing.height * scale + (figure.caption.empty() ? 2 : 8));
        if (y_ > format_.top + 0.01)
            y_ += 2;
        const double x = left() + (room() - figure.drawing.width * scale) / 2;
        for (const Item& item : figure.drawing.items)
            pages_.back().items.push_back(placed(item, x, y_, scale));
        y_ += figure.drawing.height * scale;
        if (!figure.caption.empty())
            addText({{figure.caption}}, figureCaptionStyle, Align::Centre);
        else
            y_ += 2;
    }

    static Item placed(Item item, double x, double y, double scale)
    {
        const auto move = [&](Spot& spot) { spot = {x + spot.x * scale, y + spot.y * scale}; };
        if (auto* line = std::get_if<Line>(&item.shape)) {
            for (Spot& spot : line->points)
                move(spot);
            line->pen.width *= scale;
        } else if (auto* area = std::get_if<Area>(&item.shape)) {
            for (auto& ring : area->rings)
                for (Spot& spot : ring)
                    move(spot);
            move(area->origin);
            area->hatchUnit *= scale;
        } else if (auto* circle = std::get_if<Circle>(&item.shape)) {
            move(circle->centre);
            circle->radius *= scale;
            circle->pen.width *= scale;
        } else if (auto* text = std::get_if<Text>(&item.shape)) {
            move(text->at);
            text->height *= scale;
        }
        return item;
    }

    // ---- tables ----

    // Rows of a table with the lines of their cells and the heights that these take.
    struct SetTable {
        TableGrid grid;
        std::vector<std::vector<SetLine>> lines; // of each place, empty where no cell begins
        std::vector<double> heights;
    };

    static constexpr double cellPadding = 0.6; // above and below
    double cellHeight() const { return capitalHeight(tablePoints); }

    SetTable setTable(const TableRows& rows, bool isHead) const
    {
        SetTable table{TableGrid(rows, widths_.size()), {}, {}};
        const TableGrid& grid = table.grid;
        const double step = lineHigh(cellHeight());
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

    void add(const TableBlock& block)
    {
        widths_ = columnWidths(block, room());
        if (!block.title.empty()) {
            const Block* const behind = next_;
            const Block table = TableBlock();
            next_ = &table; // so that the caption stays with its table
            addText({{block.title}}, captionStyle);
            next_ = behind;
        }
        const SetTable head = setTable(block.head, true);
        double headHigh = 0;
        for (const double height : head.heights)
            headHigh += height;
        demand(headHigh + 8);
        putRows(head, 0, head.grid.rows(), true);
        forRows(block, [&](const TableRows& rows) {
            const SetTable body = setTable(rows, false);
            for (std::size_t row = 0; row < body.grid.rows();) {
                const std::size_t end = groupEnd(body.grid, row);
                putGroup(body, row, end, head, headHigh);
                row = end;
            }
        });
        y_ += 2.5;
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
            turn();
            if (headHigh < high() / 2)
                putRows(head, 0, head.grid.rows(), true);
        };
        if (y_ + height > bottom() + 0.01 && y_ > format_.top + headHigh + 0.01)
            turnTable();
        if (y_ + height <= bottom() + 0.01) {
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
            double x = left();
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
            y_ += table.heights[row];
        }
    }

    void putCell(const GridPlace& place,
        const std::vector<SetLine>& lines,
        double x,
        double width,
        double height,
        bool isHead)
    {
        const std::vector<Spot> box = {{x, y_}, {x + width, y_}, {x + width, y_ + height}, {x, y_ + height}};
        if (place.cell && place.cell->isMarked) {
            Area ground;
            ground.rings = {box};
            ground.ground = {217, 217, 217};
            ground.hasGround = true;
            put(Layer::Ground, std::move(ground));
        }
        put(Layer::Table, Line{box, rule, true});
        if (!place.cell)
            return;
        const double step = lineHigh(cellHeight());
        const double free = height - static_cast<double>(lines.size()) * step;
        double top = y_ + (isHead ? free / 2 : cellPadding);
        for (const SetLine& line : lines) {
            putLine(line,
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
        const double step = lineHigh(cellHeight());
        std::size_t all = 0;
        for (std::size_t column = 0; column < table.grid.columns(); ++column)
            all = std::max(all, table.lines[row * table.grid.columns() + column].size());
        for (std::size_t done = 0; done < std::max<std::size_t>(1, all);) {
            const double free = bottom() - y_ - 2 * cellPadding;
            const std::size_t count = std::max<std::size_t>(
                1, std::min(all - done, static_cast<std::size_t>(std::max(0.0, free) / step)));
            double x = left();
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
            y_ += height;
            done += count;
            if (done < all)
                turnTable();
        }
    }

    // ---- what stands around ----

    void finish()
    {
        const double height = capitalHeight(notePoints);
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            const PageFormat& format = formats_[i];
            std::vector<Item>& items = pages_[i].items;
            const int number = static_cast<int>(i) + 1;
            if (document_.frame.draw) {
                Drawing frame = document_.frame.draw(format, number, static_cast<int>(pages_.size()));
                items.insert(items.begin(),
                    std::make_move_iterator(frame.items.begin()),
                    std::make_move_iterator(frame.items.end()));
                continue;
            }
            const double head = format.top / 2 + height / 2;
            const double foot = format.height - format.bottom / 2 + height / 2;
            const double right = format.width - format.right;
            const double wide = right - format.left - 15;
            if (!document_.header.empty())
                items.push_back({Layer::Frame,
                    0,
                    Text{shortenedText(cleanText(document_.header), Font::Plain, height, wide),
                        {format.left, head},
                        height}});
            if (!document_.footer.empty())
                items.push_back({Layer::Frame,
                    0,
                    Text{shortenedText(cleanText(document_.footer), Font::Plain, height, wide),
                        {format.left, foot},
                        height}});
            items.push_back(
                {Layer::Frame, 0, Text{std::to_wstring(number), {right, foot}, height, Align::Right}});
        }
    }

    const Document& document_;
    const std::function<bool(std::size_t)>& goesOn_;
    static constexpr double airAbove = 4; // mm between texts and the stamp of the first page
    PageFormat format_;
    double firstStamp_; // mm from below
    std::vector<Drawing> pages_;
    std::vector<PageFormat> formats_;
    std::vector<double> widths_; // of the table in work
    const Block* next_ = nullptr;
    double y_ = 0;
    int number_ = 0;
};

} // namespace

std::vector<Drawing> pagesOf(const Document& document, const std::function<bool(std::size_t)>& goesOn)
{
    try {
        return PageMaker(document, goesOn).make();
    } catch (const CalledOff&) {
        return {};
    }
}
