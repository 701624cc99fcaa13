#include "plots/column_sheet.h"

#include "core/base/typed_number.h"
#include "dictionaries/section_captions.h"
#include "drawing/text_layout.h"
#include "site/soil_hatches.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr double leadsWidth = 5; // between the strip and rows, mm
constexpr double consistencyWidth = 4;

// The usual width of a lane, mm, and the least that it bears. The description takes what is left.
struct LaneWidth {
    std::int32_t column;
    double usual;
};
constexpr LaneWidth laneWidths[] = {
    {column_lane::Index, 11},
    {column_lane::Thickness, 10},
    {column_lane::Bottom, 10},
    {column_lane::Mark, 12},
    {column_lane::Section, 24},
    {column_lane::Strip, 20},
    {column_lane::Water, 20},
    {column_lane::Samples, 17},
    {column_lane::Element, 9},
    {column_lane::Description, 70},
    {column_lane::Sounding, 34},
};
constexpr double smallestDescription = 34;
constexpr double widestLane = 100; // beyond it the other lanes of a small sheet have no room for their titles

// Hundredths of a millimetre for a unit of a hatch: finer ones run together to black, of coarser ones a strip
// shows no stroke.
constexpr int finestHatch = 2;
constexpr int coarsestHatch = 1000;

double usualWidth(std::int32_t column)
{
    const auto* const found = std::find_if(std::begin(laneWidths),
        std::end(laneWidths),
        [column](const LaneWidth& width) { return width.column == column; });
    return found == std::end(laneWidths) ? 10 : found->usual;
}

double leadsBetween(const ColumnLane& left, const ColumnLane& right)
{
    const bool isBeside = (isStrip(left.column) && isLaneOfRows(right.column))
        || (isLaneOfRows(left.column) && isStrip(right.column));
    return isBeside ? leadsWidth : 0;
}

// How a consistency is shown in the narrow strip, from black for hard to white for fluid. The signs of the
// standard were not at hand.
struct ConsistencySign {
    bool isFilled;
    double spacing; // of the strokes, mm; 0: none
    Dash dash;
};
ConsistencySign signOfConsistency(std::int32_t kind)
{
    constexpr ConsistencySign hard = {true, 0, Dash::Solid};
    constexpr ConsistencySign semiHard = {false, 0.7, Dash::Solid};
    constexpr ConsistencySign stiff = {false, 1.4, Dash::Solid};
    constexpr ConsistencySign soft = {false, 2.8, Dash::Solid};
    constexpr ConsistencySign fluidPlastic = {false, 2.8, Dash::Dotted};
    constexpr ConsistencySign fluid = {false, 0, Dash::Solid};
    // In the order of consistencyNames.
    constexpr ConsistencySign signs[] = {hard,
        stiff,
        fluid,
        semiHard,
        stiff,
        soft,
        fluidPlastic,
        hard,
        semiHard,
        stiff,
        soft,
        fluidPlastic,
        fluid};
    const bool isKnown = kind >= 0 && static_cast<std::size_t>(kind) < std::size(signs);
    return isKnown ? signs[kind] : fluid;
}

} // namespace

std::vector<PlacedLane> placedLanes(const ColumnLook& look, double left, double right)
{
    const std::vector<ColumnLane> lanes = look.lanes.empty() ? usualLanes() : look.lanes;
    std::vector<double> widths;
    double sum = 0;
    double leads = 0;
    std::size_t description = lanes.size();
    for (std::size_t lane = 0; lane < lanes.size(); ++lane) {
        if (lanes[lane].column == column_lane::Description && lanes[lane].width <= 0)
            description = lane;
        widths.push_back(
            lanes[lane].width > 0 ? std::min(lanes[lane].width, widestLane) : usualWidth(lanes[lane].column));
        sum += lane == description ? 0 : widths.back();
        leads += lane > 0 ? leadsBetween(lanes[lane - 1], lanes[lane]) : 0;
    }
    const double room = right - left - leads;
    const bool hasDescription = description < lanes.size();
    const double others = room - (hasDescription ? smallestDescription : 0);
    const double share = sum > others && sum > 0 ? others / sum : 1;
    if (hasDescription)
        widths[description] = room - sum * share;
    std::vector<PlacedLane> placed;
    double x = left;
    for (std::size_t lane = 0; lane < lanes.size(); ++lane) {
        x += lane > 0 ? leadsBetween(lanes[lane - 1], lanes[lane]) : 0;
        const double width = lane == description ? widths[lane] : widths[lane] * share;
        placed.push_back({lanes[lane], x, x + width});
        x += width;
    }
    return placed;
}

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
        // 1, 2 or 5 tenfold, so that the scale has whole numbers.
        for (double power = 0.1; power < 1e7; power *= 10)
            for (const double step : {1.0, 2.0, 5.0})
                if (step * power >= most)
                    return step * power;
        return most;
    };
    greatestTip_ = greatest(&ColumnSounding::Row::tip);
    greatestSleeve_ = greatest(&ColumnSounding::Row::sleeve);
}

template <class Row>
std::vector<const Row*> ColumnSheet::onPage(const std::vector<Row>& rows) const
{
    const bool isLast = page_.bottom >= drawnDepth(data_) - 1e-9;
    std::vector<const Row*> found;
    for (const Row& row : rows)
        if (row.depth >= page_.top
            && (row.depth < page_.bottom || (isLast && row.depth <= page_.bottom + 1e-9)))
            found.push_back(&row);
    return found;
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
    for (const PlacedLane& placed : lanes_) {
        sketch_.line({placed.left, bodyTop_}, {placed.left, bottom_}, middleLine);
        sketch_.line({placed.right, bodyTop_}, {placed.right, bottom_}, middleLine);
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

void ColumnSheet::drawStrip(const PlacedLane& lane)
{
    const double begin = data_.consistency.empty() ? lane.left : lane.left + consistencyWidth;
    for (const ColumnRow& row : page_.rows)
        if (row.bottom > row.top)
            drawLayer(row, begin, lane.right);
    if (!data_.consistency.empty())
        drawConsistency(lane.left, begin);
}

void ColumnSheet::drawLayer(const ColumnRow& row, double left, double right)
{
    const ColumnLayer& layer = *row.layer;
    const double top = yOf(row.top);
    const double bottom = yOf(row.bottom);
    Area area;
    area.rings = {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
    area.hatch = layer.hatch;
    area.hatchUnit = std::clamp(look_.hatchScale, finestHatch, coarsestHatch) / 100.0;
    area.origin = {left, bodyTop_};
    const SoilColor soil = soilColorOf(layer.hatch);
    if (layer.color) {
        area.ground = *layer.color;
        area.hasGround = true;
    } else if (look_.hasGrounds && soil != SoilColor::None) {
        const Color colors[] = {{}, look_.sand, look_.sandyLoam, look_.loam, look_.clay};
        // The full colour would drown the hatch.
        const auto pale = [](std::uint8_t part) { return static_cast<std::uint8_t>(255 - (255 - part) / 3); };
        const Color& full = colors[static_cast<std::size_t>(soil)];
        area.ground = {pale(full.red), pale(full.green), pale(full.blue)};
        area.hasGround = true;
    }
    sketch_.setId(layer.id);
    sketch_.setLayer(Layer::Hatch);
    sketch_.add(std::move(area));
    sketch_.setId(0);
    sketch_.setLayer(Layer::Boundary);
    sketch_.line({left, bottom}, {right, bottom}, row.endsHere ? middleLine : thinLine);
}

void ColumnSheet::drawConsistency(double left, double right)
{
    sketch_.setLayer(Layer::Boundary);
    sketch_.line({right, bodyTop_}, {right, yOf(page_.bottom)});
    for (const ColumnConsistency& row : data_.consistency) {
        const double top = yOf(std::max(row.top, page_.top));
        const double bottom = yOf(std::min(row.bottom, page_.bottom));
        if (bottom <= top)
            continue;
        const ConsistencySign sign = signOfConsistency(row.kind);
        sketch_.setLayer(Layer::Hatch);
        Area area;
        area.rings = {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
        area.ground = {};
        area.hasGround = sign.isFilled;
        sketch_.add(std::move(area));
        for (double y = top + sign.spacing; sign.spacing > 0 && y < bottom; y += sign.spacing)
            sketch_.line(std::vector<Spot>{{left, y}, {right, y}}, {thinLine, {}, sign.dash});
        sketch_.setLayer(Layer::Boundary);
        sketch_.line({left, bottom}, {right, bottom});
    }
}

// From each boundary in the strip to that of its row in the table.
void ColumnSheet::drawLeaders(const PlacedLane& strip, bool isLeft)
{
    sketch_.setLayer(Layer::Boundary);
    const double from = isLeft ? strip.left : strip.right;
    const double to = isLeft ? strip.left - leadsWidth : strip.right + leadsWidth;
    for (const ColumnRow& row : page_.rows)
        sketch_.line({from, yOf(row.bottom)}, {to, bodyTop_ + row.place});
}

void ColumnSheet::drawWaters(const PlacedLane& lane)
{
    constexpr double signWidth = 2.6;
    constexpr double height = 2.0;
    constexpr Color blue = {0, 0, 200};
    const Color color = look_.isWaterBlue ? blue : Color{};
    const std::vector<const ColumnWater*> waters = onPage(data_.waters);
    sketch_.setLayer(Layer::Water);
    if (data_.waters.empty() && !data_.layers.empty() && page_.top == 0) {
        const bool isRussian = look_.language == languageRussian;
        const Extent box{lane.left, bodyTop_, lane.right, bottom_};
        sketch_.textInBox(isRussian ? L"Вода не вскрыта" : L"Воду не розкрито",
            box,
            {.height = 2.2, .smallest = 1.0, .isTurned = true});
        return;
    }
    std::vector<double> wanted;
    for (const ColumnWater* water : waters)
        wanted.push_back(yOf(water->depth) - bodyTop_ + waterLabelHeight / 2);
    const std::vector<double> ends =
        spreadApart(wanted, std::vector<double>(wanted.size(), waterLabelHeight), bottom_ - bodyTop_);
    for (std::size_t number = 0; number < waters.size(); ++number) {
        const ColumnWater& water = *waters[number];
        const double y = yOf(water.depth);
        const double end = bodyTop_ + ends[number];
        const double left = lane.left + signWidth + 2.4;
        const double room = lane.right - left - 0.6;
        const std::wstring depth =
            water.mark.empty() ? water.depthText : water.depthText + L" / " + water.mark;
        // A triangle that stands on the level: filled where it settled, open where it appeared.
        const std::vector<Spot> triangle = {{lane.left + 0.6, y - 2.2},
            {lane.left + 0.6 + signWidth, y - 2.2},
            {lane.left + 0.6 + signWidth / 2, y}};
        sketch_.setSign(water.hasSettled ? "WATER_SETTLED" : "WATER_APPEARED", {lane.left, y});
        if (water.hasSettled)
            sketch_.add(Area{{triangle}, color, true});
        sketch_.line(triangle, {thinLine, color, Dash::Solid}, true);
        sketch_.setSign({});
        const double middle = end - waterLabelHeight / 2;
        sketch_.line(
            std::vector<Spot>{{lane.left, y}, {lane.left + signWidth + 1.2, y}, {left - 0.3, middle}},
            {thinLine, color, Dash::Solid});
        sketch_.line({left - 0.3, middle}, {lane.right - 0.3, middle}, thinLine, color);
        const auto fitted = [room](std::wstring_view text) {
            const double width = textWidth(text, Font::Narrow, height);
            return width > room ? height * room / width : height;
        };
        sketch_.text(depth, {left, middle - 0.7}, fitted(depth), Align::Left, Font::Narrow, color);
        const double low = fitted(water.date);
        sketch_.text(water.date, {left, middle + 0.7 + low}, low, Align::Left, Font::Narrow, color);
    }
}

void ColumnSheet::drawSamples(const PlacedLane& lane)
{
    constexpr double height = 1.9;
    const std::vector<const ColumnSample*> samples = onPage(data_.samples);
    std::vector<double> wanted;
    for (const ColumnSample* sample : samples)
        wanted.push_back(yOf(sample->depth) - bodyTop_ + sampleLabelHeight / 2);
    const std::vector<double> ends =
        spreadApart(wanted, std::vector<double>(wanted.size(), sampleLabelHeight), bottom_ - bodyTop_);
    sketch_.setLayer(Layer::Sample);
    for (std::size_t number = 0; number < samples.size(); ++number) {
        const ColumnSample& sample = *samples[number];
        const Spot at{lane.left + 2, yOf(sample.depth)};
        const double middle = bodyTop_ + ends[number] - sampleLabelHeight / 2;
        const Pen pen{thinLine, {}, Dash::Solid};
        const auto square = [&at](double half) {
            return std::vector<Spot>{{at.x - half, at.y - half},
                {at.x + half, at.y - half},
                {at.x + half, at.y + half},
                {at.x - half, at.y + half}};
        };
        if (sample.kind == ColumnSample::Undisturbed) {
            sketch_.setSign("SAMPLE_UNDISTURBED", at);
            sketch_.add(Area{{square(1)}, {}, true});
            sketch_.line(square(1), pen, true);
        } else if (sample.kind == ColumnSample::Disturbed) {
            sketch_.setSign("SAMPLE_DISTURBED", at);
            sketch_.add(Circle{at, 1, pen, false});
        } else {
            sketch_.setSign("SAMPLE_BULK", at);
            sketch_.line(square(1), pen, true);
        }
        sketch_.setSign({});
        const double left = lane.left + 5.2;
        sketch_.line({at.x + 1, at.y}, {left - 0.4, middle});
        std::wstring label = sample.depthText;
        if (look_.hasSampleNumbers && !sample.number.empty())
            label += L" №" + sample.number;
        const double room = lane.right - left - 0.4;
        const double width = textWidth(label, Font::Narrow, height);
        const double fitted = width > room ? std::max(1.0, height * room / width) : height;
        sketch_.text(shortenedText(label, Font::Narrow, fitted, room),
            {left, middle + fitted / 2},
            fitted,
            Align::Left,
            Font::Narrow);
    }
}

void ColumnSheet::drawGraph(const PlacedLane& lane)
{
    constexpr Color paleGrey = {200, 200, 200};
    if (look_.hasGraphGrid) {
        sketch_.setLayer(Layer::Grid);
        for (double metre = std::ceil(page_.top); metre <= page_.bottom && perMetre_ >= 1; ++metre)
            sketch_.line({lane.left, yOf(metre)}, {lane.right, yOf(metre)}, thinLine / 2, paleGrey);
        for (int part = 1; part < 5; ++part) {
            const double x = lane.left + (lane.right - lane.left) * part / 5;
            sketch_.line({x, bodyTop_}, {x, bottom_}, thinLine / 2, paleGrey);
        }
    }
    sketch_.setLayer(Layer::Graph);
    const Color black = {};
    drawCurve(lane,
        &ColumnSounding::Row::tip,
        greatestTip_,
        {middleLine, look_.isGraphColored ? look_.tip : black, Dash::Solid});
    drawCurve(lane,
        &ColumnSounding::Row::sleeve,
        greatestSleeve_,
        {middleLine, look_.isGraphColored ? look_.sleeve : black, Dash::Dashed});
}

// A value that is missing breaks the curve: not measured is not zero.
void ColumnSheet::drawCurve(const PlacedLane& lane,
    std::optional<double> ColumnSounding::Row::*value,
    double greatest,
    const Pen& pen)
{
    std::vector<Spot> points;
    const auto finish = [&] {
        if (points.size() > 1)
            sketch_.line(std::move(points), pen);
        points.clear();
    };
    for (const ColumnSounding::Row& row : data_.sounding.rows) {
        const std::optional<double>& measured = row.*value;
        if (!measured || row.depth < page_.top || row.depth > page_.bottom) {
            finish();
            continue;
        }
        const double share = greatest > 0 ? std::clamp(*measured / greatest, 0.0, 1.0) : 0;
        points.push_back({lane.left + share * (lane.right - lane.left), yOf(row.depth)});
    }
    finish();
}
