#include "drawing/text_layout.h"
#include "plots/column_sheet.h"

#include <algorithm>
#include <cmath>

// The lanes of a column that are ruled by depth: water, samples, the graph of sounding.

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
    wanted.reserve(waters.size());
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
    wanted.reserve(samples.size());
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
