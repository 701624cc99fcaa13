#include "plots/graph.h"

#include "core/base/typed_number.h"

#include <algorithm>
#include <cmath>

static constexpr Pen framePen{0.3, {60, 60, 60}, Dash::Solid};
static constexpr Pen gridPen{0.1, {190, 190, 190}, Dash::Solid};
static constexpr double numberHeight = 2;
static constexpr double titleHeight = 2.5;
static constexpr double markRadius = 0.9;

double roundStep(double least)
{
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double times : {1.0, 2.0, 5.0})
        if (power * times >= least)
            return power * times;
    return power * 10;
}

double axisStep(double range)
{
    return roundStep(range / 5);
}

int decimalsOf(double step)
{
    return std::clamp(static_cast<int>(-std::floor(std::log10(step) + 1e-9)), 0, 6);
}

std::vector<double> stepsBetween(double from, double to, double step)
{
    constexpr double slack = 1e-6; // of a step
    const double first = std::ceil(from / step - slack);
    const int count = static_cast<int>(std::floor(to / step + slack) - first) + 1;
    std::vector<double> steps;
    steps.reserve(static_cast<std::size_t>(std::max(0, count)));
    for (int i = 0; i < count; ++i)
        steps.push_back((first + i) * step);
    return steps;
}

std::vector<double> decadesBetween(double from, double to)
{
    const int first = static_cast<int>(std::floor(std::log10(from) + 1e-9));
    const int last = static_cast<int>(std::floor(std::log10(to) + 1e-9));
    std::vector<double> decades;
    for (int power = first; power <= last; ++power)
        decades.push_back(std::pow(10, power));
    return decades;
}

GraphAxis axisFor(const std::wstring& title, const std::vector<double>& values, bool fromZero)
{
    GraphAxis axis{title};
    if (values.empty())
        return axis;
    const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
    axis.from = fromZero ? std::min(0.0, *least) : *least;
    axis.to = *greatest;
    if (axis.to - axis.from <= std::fabs(axis.to) * 1e-9) {
        const double room = axis.to == 0 ? 1 : std::fabs(axis.to) * 0.1;
        axis.from = fromZero ? axis.from : axis.from - room;
        axis.to += room;
    }
    const double step = axisStep(axis.to - axis.from);
    axis.from = std::floor(axis.from / step + 1e-9) * step;
    axis.to = std::ceil(axis.to / step - 1e-9) * step;
    return axis;
}

static std::vector<double> ticksOf(const GraphAxis& axis)
{
    std::vector<double> ticks;
    if (axis.isLogarithmic) {
        for (double power = std::pow(10, std::floor(std::log10(axis.from)));
             power <= axis.to * 1.0001 && ticks.size() < 20;
             power *= 10)
            if (power >= axis.from * 0.9999)
                ticks.push_back(power);
        return ticks;
    }
    const double step = axisStep(axis.to - axis.from);
    const double count = std::round((axis.to - axis.from) / step);
    for (int i = 0; i <= static_cast<int>(count) && i < 20; ++i)
        ticks.push_back(axis.from + i * step);
    return ticks;
}

static double share(const GraphAxis& axis, double value)
{
    const double along = axis.isLogarithmic
        ? (std::log(std::max(value, axis.from * 1e-6)) - std::log(axis.from))
            / (std::log(axis.to) - std::log(axis.from))
        : (value - axis.from) / (axis.to - axis.from);
    return axis.isReversed ? 1 - along : along;
}

Graph::Graph(Drawing& drawing, double left, double top, double width, double height, GraphAxis x, GraphAxis y)
    : drawing_(drawing)
    , left_(left)
    , top_(top)
    , width_(width)
    , height_(height)
    , x_(std::move(x))
    , y_(std::move(y))
{
    drawAxis(x_, false);
    drawAxis(y_, true);
    drawing_.items.push_back({Layer::Frame,
        0,
        Line{{{left_, top_}, {right(), top_}, {right(), bottom()}, {left_, bottom()}}, framePen, true}});
}

Spot Graph::at(double x, double y) const
{
    return {left_ + width_ * share(x_, x), bottom() - height_ * share(y_, y)};
}

void Graph::drawAxis(const GraphAxis& axis, bool isVertical) const
{
    const double step = axis.isLogarithmic ? 0 : axisStep(axis.to - axis.from);
    for (const double tick : ticksOf(axis)) {
        const std::wstring number =
            axis.isLogarithmic ? significantText(tick, 1) : numberText(tick, decimalsOf(step));
        const double along = share(axis, tick);
        if (isVertical) {
            const double y = bottom() - height_ * along;
            drawing_.items.push_back({Layer::Grid, 0, Line{{{left_, y}, {right(), y}}, gridPen}});
            drawing_.items.push_back({Layer::Text,
                0,
                Text{number, {left_ - 1.5, y + numberHeight / 2}, numberHeight, Align::Right}});
        } else {
            const double x = left_ + width_ * along;
            drawing_.items.push_back({Layer::Grid, 0, Line{{{x, top_}, {x, bottom()}}, gridPen}});
            drawing_.items.push_back({Layer::Text,
                0,
                Text{number, {x, bottom() + numberHeight + 2.2}, numberHeight, Align::Centre}});
        }
    }
    const Text title = isVertical
        ? Text{axis.title, {left_ - 11, top_ + height_ / 2}, titleHeight, Align::Centre, 90}
        : Text{axis.title,
            {left_ + width_ / 2, bottom() + numberHeight + titleHeight + 4.7},
            titleHeight,
            Align::Centre};
    drawing_.items.push_back({Layer::Text, 0, title});
}

void Graph::mark(double x, double y, std::int64_t id, const Pen& pen, bool isFilled) const
{
    drawing_.items.push_back({Layer::Graph, id, Circle{at(x, y), markRadius, pen, isFilled}});
}

void Graph::cross(double x, double y, std::int64_t id, const Pen& pen) const
{
    const Spot spot = at(x, y);
    for (const double way : {1.0, -1.0})
        drawing_.items.push_back({Layer::Graph,
            id,
            Line{{{spot.x - markRadius, spot.y - way * markRadius},
                     {spot.x + markRadius, spot.y + way * markRadius}},
                pen}});
}

void Graph::curve(const std::vector<Spot>& values, const Pen& pen) const
{
    Line line{{}, pen};
    for (const Spot& value : values)
        line.points.push_back(at(value.x, value.y));
    if (line.points.size() > 1)
        drawing_.items.push_back({Layer::Graph, 0, line});
}

void Graph::bar(double from, double to, double height, const Color& ground) const
{
    const Spot low = at(from, y_.from);
    const Spot high = at(to, height);
    const std::vector<Spot> ring{low, {high.x, low.y}, high, {low.x, high.y}};
    Area area{{ring}};
    area.ground = ground;
    area.hasGround = true;
    drawing_.items.push_back({Layer::Ground, 0, area});
    drawing_.items.push_back({Layer::Graph, 0, Line{ring, framePen, true}});
}
