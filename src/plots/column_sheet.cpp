#include "plots/column_sheet.h"

#include "core/base/typed_number.h"
#include "dictionaries/section_captions.h"
#include "drawing/text_layout.h"
#include "plots/graph.h"

#include <algorithm>
#include <optional>

ColumnSheet::ColumnSheet(Drawing& drawing,
    const ColumnData& data,
    const ColumnLook& look,
    const ColumnPage& page,
    double perMetre,
    const std::vector<PlacedLane>& lanes)
    : sketch_(drawing)
    , data_(data)
    , look_(look)
    , page_(page)
    , perMetre_(perMetre)
    , lanes_(lanes)
{
    const auto greatest = [&data](std::optional<double> ColumnSounding::Row::*value) {
        double most = 0;
        for (const ColumnSounding::Row& row : data.sounding.rows)
            most = std::max(most, (row.*value).value_or(0));
        return roundStep(std::max(0.1, most)); // so that the scale has whole numbers
    };
    greatestTip_ = greatest(&ColumnSounding::Row::tip);
    greatestSleeve_ = greatest(&ColumnSounding::Row::sleeve);
}

double ColumnSheet::bodyBottom(bool isLast) const
{
    if (!isLast)
        return bodyTop_ + page_.height;
    // As far as anything reaches: the depth, the rows, the labels.
    double bottom = (page_.bottom - page_.top) * perMetre_;
    if (!page_.rows.empty())
        bottom = std::max(bottom, page_.rows.back().place);
    bottom = std::max(bottom, static_cast<double>(onPage(data_.samples).size()) * sampleLabelHeight);
    bottom = std::max(bottom, static_cast<double>(onPage(data_.waters).size()) * waterLabelHeight);
    constexpr double air = 6;
    return bodyTop_ + std::min(page_.height, bottom + air);
}

void ColumnSheet::draw(double top, bool isLast)
{
    bodyTop_ = top + captionHeight;
    bottom_ = bodyBottom(isLast);
    drawCaptions(top);
    for (std::size_t lane = 0; lane < lanes_.size(); ++lane) {
        const PlacedLane& placed = lanes_[lane];
        const std::int32_t column = placed.lane.column;
        if (isLaneOfRows(column))
            drawRows(placed);
        else if (isStrip(column))
            drawStrip(placed);
        else if (column == column_lane::Water)
            drawWaters(placed);
        else if (column == column_lane::Samples)
            drawSamples(placed);
        else if (column == column_lane::Sounding)
            drawGraph(placed);
        if (isStrip(column) && lane > 0 && isLaneOfRows(lanes_[lane - 1].lane.column))
            drawLeaders(placed, true);
        if (isStrip(column) && lane + 1 < lanes_.size() && isLaneOfRows(lanes_[lane + 1].lane.column))
            drawLeaders(placed, false);
    }
    sketch_.setLayer(Layer::Table);
    // Lanes that touch share a line.
    std::optional<double> drawn;
    for (const PlacedLane& placed : lanes_) {
        if (drawn != placed.left)
            sketch_.line({placed.left, bodyTop_}, {placed.left, bottom_}, middleLine);
        sketch_.line({placed.right, bodyTop_}, {placed.right, bottom_}, middleLine);
        drawn = placed.right;
    }
    if (!lanes_.empty())
        sketch_.line({lanes_.front().left, bottom_}, {lanes_.back().right, bottom_}, middleLine);
}

void ColumnSheet::drawCaptions(double top)
{
    constexpr double graphScale = 11; // mm for the axes of the graph
    sketch_.setLayer(Layer::Table);
    for (std::size_t number = 0; number < lanes_.size(); ++number) {
        const PlacedLane& placed = lanes_[number];
        // The room for leaders belongs to the caption of the strip.
        double left = placed.left;
        double right = placed.right;
        if (isStrip(placed.lane.column)) {
            left = number > 0 ? lanes_[number - 1].right : left;
            right = number + 1 < lanes_.size() ? lanes_[number + 1].left : right;
        }
        Extent box{left, top, right, bodyTop_};
        sketch_.box(box, middleLine);
        if (placed.lane.column == column_lane::Sounding) {
            box.bottom -= graphScale;
            drawGraphScale(placed, box.bottom);
        }
        const bool isWrapped = placed.lane.column != column_lane::Strip;
        const std::wstring_view caption = isWrapped
            ? sectionColumnCaptionsWrapped.at(look_.language, placed.lane.column)
            : sectionColumnCaptions.at(look_.language, placed.lane.column);
        sketch_.textInBox(caption, box, {.height = 2.5, .smallest = 1.2, .isTurned = placed.lane.isTurned});
    }
}

void ColumnSheet::drawGraphScale(const PlacedLane& lane, double top)
{
    struct Axis {
        const wchar_t* name;
        double greatest;
        Color color;
        double y;
    };
    const Color black = {};
    const Axis axes[] = {
        {L"qc, МПа", greatestTip_, look_.isGraphColored ? look_.tip : black, top + 4.2},
        {L"fs, кПа", greatestSleeve_, look_.isGraphColored ? look_.sleeve : black, top + 9.2},
    };
    if (data_.sounding.rows.empty())
        return;
    constexpr double height = 1.8;
    for (const Axis& axis : axes) {
        const std::wstring greatest = numberText(axis.greatest, axis.greatest < 1 ? 1 : 0);
        sketch_.text(L"0", {lane.left + 0.8, axis.y}, height, Align::Left, Font::Narrow, axis.color);
        sketch_.text(greatest, {lane.right - 0.8, axis.y}, height, Align::Right, Font::Narrow, axis.color);
        sketch_.text(axis.name,
            {(lane.left + lane.right) / 2, axis.y},
            height,
            Align::Centre,
            Font::Narrow,
            axis.color);
        sketch_.line({lane.left, axis.y + 1}, {lane.right, axis.y + 1}, thinLine, axis.color);
    }
}

void ColumnSheet::drawRows(const PlacedLane& lane)
{
    double above = 0;
    for (const ColumnRow& row : page_.rows) {
        const Extent box{lane.left, bodyTop_ + above, lane.right, bodyTop_ + row.place};
        const bool isLastLayer = row.layer == &data_.layers.back();
        sketch_.setId(row.layer->id);
        drawCell(lane, row, box, isLastLayer);
        sketch_.setId(0);
        sketch_.setLayer(Layer::Table);
        sketch_.line({lane.left, box.bottom}, {lane.right, box.bottom});
        above = row.place;
    }
}

void ColumnSheet::drawCell(const PlacedLane& lane, const ColumnRow& row, const Extent& box, bool isLastLayer)
{
    const bool isLeftOver = row.bottom - row.top <= 0;
    // Numbers stand at the lower boundary that they measure.
    const Extent foot{box.left, box.bottom - smallestRow, box.right, box.bottom};
    constexpr BoxText number = {.height = 2.2, .font = Font::Narrow, .smallest = 1.0, .padding = 0.4};
    sketch_.setLayer(Layer::Text);
    switch (lane.lane.column) {
    case column_lane::Index:
        if (!isLeftOver)
            drawIndex(row, box);
        break;
    case column_lane::Thickness:
        if (row.endsHere) // of the last layer only the opened part is known
            sketch_.textInBox(
                row.layer->thickness + (isLastLayer && look_.heading.empty() ? L"*" : L""), foot, number);
        break;
    case column_lane::Bottom:
        if (row.endsHere)
            sketch_.textInBox(row.layer->bottomText, foot, number);
        break;
    case column_lane::Mark:
        if (row.endsHere)
            sketch_.textInBox(row.layer->mark, foot, number);
        break;
    case column_lane::Element:
        if (!isLeftOver)
            drawElement(row, box);
        break;
    default:
        drawDescription(row, box);
    }
}

void ColumnSheet::drawIndex(const ColumnRow& row, const Extent& box)
{
    constexpr double height = 2.5;
    constexpr double smallest = 1.2;
    const double room = box.right - box.left - 1.6;
    const double middle = (box.left + box.right) / 2;
    const double width = markedTextWidth(row.layer->index, Font::Plain, height);
    const double fitted = width > room ? height * room / width : height;
    if (look_.isIndexPlain || fitted < smallest) {
        sketch_.textInBox(row.layer->index, box, {.height = height, .smallest = smallest, .padding = 0.4});
        return;
    }
    Text text;
    text.text = row.layer->index;
    text.at = {middle, (box.top + box.bottom) / 2 + fitted / 2};
    text.height = fitted;
    text.align = Align::Centre;
    for (Text& piece : markedText(text))
        sketch_.add(std::move(piece));
}

void ColumnSheet::drawElement(const ColumnRow& row, const Extent& box)
{
    constexpr double largest = 3.2;
    if (row.layer->element.empty())
        return;
    sketch_.setLayer(Layer::Element);
    const double radius =
        std::min({largest, (box.bottom - box.top) / 2 - 0.3, (box.right - box.left) / 2 - 0.5});
    const Spot centre{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
    const double height = std::min(2.5, radius * 0.9);
    if (textWidth(row.layer->element, Font::Plain, height) > 1.5 * radius) {
        sketch_.textInBox(row.layer->element, box, {.height = 2.2, .font = Font::Narrow, .smallest = 1.0});
        return;
    }
    sketch_.add(Circle{centre, radius, {thinLine, {}, Dash::Solid}, false});
    sketch_.text(row.layer->element, {centre.x, centre.y + height / 2}, height, Align::Centre);
}

void ColumnSheet::drawDescription(const ColumnRow& row, const Extent& box)
{
    double y = box.top + rowPadding + descriptionHeight;
    for (const std::wstring& line : row.lines) {
        sketch_.text(line, {box.left + rowPadding, y}, descriptionHeight, Align::Left, Font::Narrow);
        y += textLineDistance(descriptionHeight);
    }
}

void addColumnBlocks(
    Sketch& sketch, const ColumnLook& look, const std::wstring& title, std::size_t number, std::size_t count)
{
    const bool isFirst = number == 0;
    TitleBlockTexts texts = look.texts;
    texts.language = look.language;
    texts.title = title;
    texts.sheet += static_cast<int>(number);
    texts.sheets = std::max(texts.sheets, static_cast<int>(count));
    addSheetBlocks(sketch,
        look.sheet.field(),
        isFirst ? look.firstBlock : look.nextBlock,
        texts,
        isFirst,
        look.hasSideStrip);
}
