#include "plots/column_group.h"

#include "plots/column_sheet.h"

#include <algorithm>

namespace
{

// Lanes may shrink to this share of their usual widths: below it texts are cut.
constexpr double smallestShare = 0.6;

double leastWidth(const ColumnLook& look)
{
    // On a sheet of this width every lane has its own.
    constexpr double plenty = 2000;
    constexpr double description = 40;
    double width = 0;
    double before = 0;
    for (const PlacedLane& lane : placedLanes(look, 0, plenty)) {
        const bool takesTheRest = lane.lane.column == column_lane::Description && lane.lane.width <= 0;
        width += lane.left - before + (takesTheRest ? description : lane.right - lane.left);
        before = lane.right;
    }
    return width * smallestShare;
}

struct Mover {
    double x;
    double y;

    void operator()(Spot& spot) const { spot = {spot.x + x, spot.y + y}; }
    void operator()(std::vector<Spot>& spots) const
    {
        for (Spot& spot : spots)
            (*this)(spot);
    }
    void operator()(Line& line) const { (*this)(line.points); }
    void operator()(Area& area) const
    {
        for (std::vector<Spot>& ring : area.rings)
            (*this)(ring);
        (*this)(area.origin);
    }
    void operator()(Circle& circle) const { (*this)(circle.centre); }
    void operator()(Text& text) const { (*this)(text.at); }
    void operator()(Item& item) const
    {
        std::visit(*this, item.shape);
        (*this)(item.signAt);
        item.id = 0;
    }
};

class GroupMaker
{
public:
    GroupMaker(const ColumnLook& look, int perSheet)
        : look_(look)
        , field_(look.sheet.field())
        , count_(columnsOnSheet(look, perSheet))
        , width_((field_.right - field_.left) / count_)
    {
    }

    void add(std::vector<ColumnData>::const_iterator begin, std::vector<ColumnData>::const_iterator end)
    {
        const std::vector<std::vector<Drawing>> columns = drawn(begin, end);
        std::size_t sheets = 0;
        std::wstring names;
        for (auto column = begin; column != end; ++column)
            names += (names.empty() ? L"" : L", ") + column->point;
        for (const std::vector<Drawing>& pages : columns)
            sheets = std::max(sheets, pages.size());
        const std::wstring title =
            (look_.language == languageUkrainian ? std::wstring(L"Інженерно-геологічні колонки. ")
                                                 : std::wstring(L"Инженерно-геологические колонки. "))
            + names;
        for (std::size_t sheet = 0; sheet < sheets; ++sheet) {
            Drawing drawing = emptySheet(look_.sheet);
            drawing.title = title;
            drawing.shows = names;
            for (std::size_t column = 0; column < columns.size(); ++column)
                if (sheet < columns[column].size())
                    place(drawing, columns[column][sheet], column);
            sheets_.push_back(std::move(drawing));
        }
    }

    // The blocks, when it is known how many sheets there are.
    std::vector<Drawing> finished()
    {
        for (std::size_t number = 0; number < sheets_.size(); ++number) {
            Sketch sketch(sheets_[number]);
            addColumnBlocks(sketch, look_, sheets_[number].title, number, sheets_.size());
        }
        return std::move(sheets_);
    }

private:
    // A sheet of the column's own, whose field is its share of the real one.
    ColumnLook ownLook() const
    {
        ColumnLook own = look_;
        const Extent inside = Sheet{0, 0, false}.field();
        const double block = std::max(titleBlockHeight(look_.firstBlock), titleBlockHeight(look_.nextBlock));
        own.sheet = {width_ + inside.left - inside.right,
            field_.bottom - field_.top - block + inside.top - inside.bottom,
            false};
        own.firstBlock = TitleBlock::None;
        own.nextBlock = TitleBlock::None;
        own.hasSideStrip = false;
        return own;
    }

    std::vector<std::vector<Drawing>> drawn(
        std::vector<ColumnData>::const_iterator begin, std::vector<ColumnData>::const_iterator end) const
    {
        ColumnLook own = ownLook();
        const auto drawnAt = [&](int scale) {
            own.scale = scale;
            std::vector<std::vector<Drawing>> columns;
            for (auto column = begin; column != end; ++column)
                columns.push_back(columnOf(*column, own));
            return columns;
        };
        if (look_.scale > 0)
            return drawnAt(look_.scale);
        for (const int scale : columnScales())
            if (std::vector<std::vector<Drawing>> columns = drawnAt(scale);
                std::ranges::all_of(columns, [](const auto& pages) { return pages.size() == 1; }))
                return columns;
        // Texts need several sheets at any scale.
        constexpr int usual = 100;
        return drawnAt(usual);
    }

    void place(Drawing& sheet, const Drawing& column, std::size_t number) const
    {
        const Extent inside = Sheet{0, 0, false}.field();
        const double left = field_.left + static_cast<double>(number) * width_;
        const Mover move{left - inside.left, field_.top - inside.top};
        for (Item item : column.items) {
            move(item);
            sheet.items.push_back(std::move(item));
        }
        if (number == 0)
            return;
        Sketch sketch(sheet);
        sketch.setLayer(Layer::Frame);
        const double block = std::max(titleBlockHeight(look_.firstBlock), titleBlockHeight(look_.nextBlock));
        sketch.line({left, field_.top}, {left, field_.bottom - block}, middleLine);
    }

    const ColumnLook& look_;
    Extent field_;
    int count_;
    double width_;
    std::vector<Drawing> sheets_;
};

} // namespace

int columnsOnSheet(const ColumnLook& look, int perSheet)
{
    const Extent field = look.sheet.field();
    return std::clamp(
        static_cast<int>((field.right - field.left) / leastWidth(look)), 1, std::max(1, perSheet));
}

std::vector<Drawing> columnsSideBySide(
    const std::vector<ColumnData>& columns, const ColumnLook& look, int perSheet)
{
    GroupMaker maker(look, perSheet);
    const int count = columnsOnSheet(look, perSheet);
    for (auto begin = columns.begin(); begin != columns.end();) {
        const auto end = begin + std::min<std::ptrdiff_t>(count, columns.end() - begin);
        maker.add(begin, end);
        begin = end;
    }
    return maker.finished();
}
