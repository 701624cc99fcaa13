#include "plots/sounding_graph.h"

#include "dictionaries/dictionary.h"
#include "drawing/text_layout.h"
#include "plots/graph.h"
#include "site/points.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double pageWidth = 210.0;
constexpr double pageHeight = 297.0;
constexpr double left = 20.0;
constexpr double top = 15.0;
constexpr double headHeight = 24.0; // title, note, names and scales of the axes
constexpr double bottom = 12.0;
constexpr double depthWidth = 12.0;
constexpr double columnWidth = 14.0;
constexpr double textHeight = 2.5;
constexpr double thin = 0.18;
constexpr Color gridColor = {200, 205, 210};
constexpr Color ratioColor = {0, 120, 60};

// One of the axes beside the column.
struct Axis {
    double x = 0.0;
    double width = 0.0;
    double perMillimetre = 1.0;
    double step = 1.0; // of its marks
    std::wstring title;
    Color color;
    Number (*value)(const SoundingReading&);
};

class Sheet
{
public:
    void line(std::vector<Spot> points, double width, Color color, Layer layer, Dash dash = Dash::Solid)
    {
        drawing.items.push_back({layer, id, Line{std::move(points), Pen{width, color, dash}, false}});
    }
    void text(std::wstring text,
        Spot at,
        Align align,
        double height = textHeight,
        Font font = Font::Plain,
        Color color = {})
    {
        drawing.items.push_back(
            {Layer::Text, id, Text{std::move(text), at, height, align, 0.0, font, color}});
    }
    void frame(double x, double y, double width, double height)
    {
        drawing.items.push_back({Layer::Table,
            0,
            Line{{{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}},
                Pen{0.25, {}, Dash::Solid},
                true}});
    }

    Drawing drawing{pageWidth, pageHeight, {}, {}, {}};
    std::int64_t id = 0;
};

// A step of 1, 2 or 5 by powers of ten, of at least so many millimetres.
double stepOf(double perMillimetre, double least)
{
    constexpr double slack = 0.999;
    return roundStep(perMillimetre * least * slack);
}

// Without zeros behind the last digit that counts: "5", "0.5".
std::wstring shortNumber(double value)
{
    std::wstring text = numberText(value, 2);
    while (text.find(L'.') != std::wstring::npos && (text.back() == L'0' || text.back() == L'.'))
        text.pop_back();
    return text;
}

Number tipOf(const SoundingReading& reading)
{
    return reading.tip;
}

Number sleeveOf(const SoundingReading& reading)
{
    return reading.sleeve;
}

Number sideOf(const SoundingReading& reading)
{
    return reading.side;
}

Number ratioOf(const SoundingReading& reading)
{
    return frictionRatio(reading.tip, reading.sleeve);
}

const wchar_t* in(int language, const wchar_t* russian, const wchar_t* ukrainian)
{
    return language == languageUkrainian ? ukrainian : russian;
}

std::vector<Axis> axesOf(const SoundingGraphLook& look)
{
    const double perTip = look.tipPerTenCentimetres / 100.0;
    const double perSide = look.sleevePerCentimetre / 10.0;
    const Color tip = look.isColoured ? look.tipColor : Color{};
    const Color side = look.isColoured ? look.sideColor : Color{};
    double x = left + depthWidth + columnWidth;
    std::vector<Axis> axes;
    axes.push_back({x, 78.0, perTip, stepOf(perTip, 8.0), L"qc, МПа", tip, tipOf});
    x += 78.0;
    axes.push_back({x,
        52.0,
        perSide,
        stepOf(perSide, 9.0),
        look.isSideForce ? L"Qs, кН" : L"fs, кПа",
        side,
        look.isSideForce ? sideOf : sleeveOf});
    x += 52.0;
    if (!look.isSideForce)
        axes.push_back({x, 24.0, 0.5, 4.0, L"Rf, %", look.isColoured ? ratioColor : Color{}, ratioOf});
    return axes;
}

// The piece of depth that a sheet shows.
struct Stretch {
    double from = 0.0;
    double to = 0.0;
    double perMetre = 10.0; // mm
    double y0 = top + headHeight;

    double y(double depth) const { return y0 + (depth - from) * perMetre; }
    double height() const { return (to - from) * perMetre; }
};

void drawHead(Sheet& sheet, const std::vector<SoundingGraph>& graphs, int page, const SoundingGraphLook& look)
{
    std::wstring title;
    for (const SoundingGraph& graph : graphs)
        title += (title.empty() ? L"" : L", ") + graph.title;
    const double width = pageWidth - left - 10.0;
    const int language = graphs.front().language;
    title = in(language, L"Статическое зондирование: ", L"Статичне зондування: ") + title
        + (page > 0 ? in(language, L" (продолжение)", L" (продовження)") : L"");
    sheet.text(shortenedText(title, Font::Bold, 3.5, width), {left, top + 3.5}, Align::Left, 3.5, Font::Bold);
    std::wstring note = graphs.size() == 1 ? graphs.front().note : std::wstring();
    note += (note.empty() ? L"" : L"; ")
        + std::wstring(in(language, L"масштаб по глубине 1:", L"масштаб за глибиною 1:"))
        + numberText(look.verticalScale, 0);
    sheet.text(shortenedText(note, Font::Plain, textHeight, width), {left, top + 9.0}, Align::Left);
}

void drawDepths(Sheet& sheet, const Stretch& stretch, const SoundingGraph& graph)
{
    const double right = left + depthWidth;
    sheet.frame(left, stretch.y0, depthWidth, stretch.height());
    sheet.text(L"м", {left + 1.0, stretch.y0 - 2.0}, Align::Left, 2.0);
    const double step = stepOf(1.0 / stretch.perMetre, 5.0) < 1.0 ? 1.0 : stepOf(1.0 / stretch.perMetre, 5.0);
    for (const double depth : stepsBetween(stretch.from, stretch.to, step)) {
        const double y = stretch.y(depth);
        sheet.line({{right - 2.0, y}, {right, y}}, thin, {}, Layer::Table);
        if (depth > stretch.from && depth < stretch.to)
            sheet.text(numberText(depth, 0), {right - 3.0, y + 0.9}, Align::Right, 2.0);
    }
    if (graph.mark && stretch.from == 0.0)
        sheet.text(numberText(graph.mark, 2), {right + 1.0, stretch.y0 - 2.0}, Align::Left, 2.0);
}

void drawColumn(Sheet& sheet, const Stretch& stretch, const SoundingGraph& graph)
{
    const double x = left + depthWidth;
    sheet.frame(x, stretch.y0, columnWidth, stretch.height());
    for (std::size_t i = 0; i < graph.layers.size(); ++i) {
        const SoundingGraph::Layer& layer = graph.layers[i];
        const double from = std::max(layer.from, stretch.from);
        const double to = std::min(layer.to, stretch.to);
        if (to <= from)
            continue;
        sheet.id = static_cast<std::int64_t>(i) + 1;
        const double y = stretch.y(to);
        if (to < stretch.to) {
            sheet.line({{x, y}, {x + columnWidth, y}}, 0.25, {}, Layer::Boundary);
            sheet.text(
                numberText(layer.to, 2), {x + columnWidth - 0.7, y - 0.6}, Align::Right, 1.8, Font::Narrow);
        }
        const double middle = (stretch.y(from) + y) / 2.0;
        if (!layer.name.empty() && y - stretch.y(from) > 3.0) {
            constexpr double radius = 2.6;
            // A thin layer has room for the number alone.
            if (y - stretch.y(from) > 2 * radius)
                sheet.drawing.items.push_back({Layer::Element,
                    sheet.id,
                    Circle{{x + 4.5, middle}, radius, Pen{thin, {}, Dash::Solid}, false}});
            sheet.text(shortenedText(layer.name, Font::Narrow, 2.0, 5.0),
                {x + 4.5, middle + 1.0},
                Align::Centre,
                2.0,
                Font::Narrow);
        }
        sheet.id = 0;
    }
}

void drawAxis(Sheet& sheet, const Stretch& stretch, const Axis& axis, const SoundingGraphLook& look)
{
    const double end = stretch.y0 + stretch.height();
    for (double value = 0.0; value / axis.perMillimetre <= axis.width + 1e-9; value += axis.step) {
        const double x = axis.x + value / axis.perMillimetre;
        if (look.hasGrid && value > 0.0)
            sheet.line({{x, stretch.y0}, {x, end}}, 0.13, gridColor, Layer::Grid);
        sheet.line({{x, stretch.y0 - 1.5}, {x, stretch.y0}}, thin, {}, Layer::Table);
        const bool isLast = x + 4.0 > axis.x + axis.width;
        if (value > 0.0 && !isLast)
            sheet.text(shortNumber(value), {x, stretch.y0 - 2.2}, Align::Centre, 2.0);
    }
    if (look.hasGrid)
        for (const double depth : stepsBetween(stretch.from, stretch.to, 1.0))
            if (depth < stretch.to)
                sheet.line({{axis.x, stretch.y(depth)}, {axis.x + axis.width, stretch.y(depth)}},
                    0.13,
                    gridColor,
                    Layer::Grid);
    sheet.text(axis.title,
        {axis.x + axis.width / 2.0, stretch.y0 - 6.5},
        Align::Centre,
        textHeight,
        Font::Bold,
        axis.color);
    sheet.frame(axis.x, stretch.y0, axis.width, stretch.height());
}

// A value cut at the border of its axis carries a mark there.
void drawCurve(Sheet& sheet,
    const Stretch& stretch,
    const Axis& axis,
    const SoundingGraph& graph,
    double penWidth,
    Color color,
    Dash dash)
{
    std::vector<Spot> points;
    const auto end = [&] {
        if (points.size() > 1)
            sheet.line(points, penWidth, color, Layer::Graph, dash);
        else if (points.size() == 1)
            sheet.drawing.items.push_back(
                {Layer::Graph, sheet.id, Circle{points.front(), 0.3, Pen{thin, color, Dash::Solid}, true}});
        points.clear();
    };
    bool wasBeyond = false;
    for (const SoundingReading& reading : graph.readings) {
        if (reading.depth < stretch.from - 1e-9 || reading.depth > stretch.to + 1e-9)
            continue;
        const Number value = axis.value(reading);
        if (!value) {
            end();
            continue;
        }
        const double x = *value / axis.perMillimetre;
        const bool isBeyond = x > axis.width;
        const Spot spot{axis.x + std::min(x, axis.width), stretch.y(reading.depth)};
        if (isBeyond && !wasBeyond) {
            sheet.line(
                {{spot.x - 2.0, spot.y - 1.0}, spot, {spot.x - 2.0, spot.y + 1.0}}, 0.3, color, Layer::Graph);
            sheet.text(
                shortNumber(*value), {spot.x - 2.5, spot.y - 1.2}, Align::Right, 1.8, Font::Narrow, color);
        }
        wasBeyond = isBeyond;
        points.push_back(spot);
    }
    end();
}

// Further soundings over the first have lines and colours of their own.
Color colorOf(const Axis& axis, std::size_t number)
{
    constexpr Color others[] = {{0, 0, 0}, {0, 140, 70}, {200, 110, 0}, {130, 0, 160}, {0, 130, 160}};
    return number == 0 ? axis.color : others[(number - 1) % std::size(others)];
}

Dash dashOf(std::size_t number)
{
    constexpr Dash dashes[] = {Dash::Solid, Dash::Dashed, Dash::DashDotted, Dash::Dotted};
    return dashes[number % std::size(dashes)];
}

double deepest(const std::vector<SoundingGraph>& graphs)
{
    double depth = 1.0;
    for (const SoundingGraph& graph : graphs)
        if (!graph.readings.empty())
            depth = std::max(depth, graph.readings.back().depth);
    return depth;
}

} // namespace

SoundingGraph soundingGraph(const SiteSounding& sounding, int language)
{
    SoundingGraph graph;
    graph.language = language;
    graph.title = sounding.point;
    graph.readings = sounding.readings;
    for (const SoundingLayer& layer : sounding.layers)
        graph.layers.push_back({layer.from, layer.to, std::wstring(layer.element)});
    if (sounding.place)
        graph.mark = sounding.place->mark;
    const auto add = [&](std::wstring_view name, std::wstring_view value) {
        if (!value.empty())
            graph.note += (graph.note.empty() ? L"" : L"; ") + std::wstring(name) + std::wstring(value);
    };
    add(L"", sounding.date);
    add(L"", sounding.device);
    add(in(language, L"отметка устья, м: ", L"позначка гирла, м: "), numberText(graph.mark, 2));
    add(in(language, L"колонка: ", L"колонка: "), sounding.borehole);
    return graph;
}

std::vector<Drawing> soundingGraphPages(
    const std::vector<SoundingGraph>& graphs, const SoundingGraphLook& look)
{
    std::vector<Drawing> pages;
    if (graphs.empty() || !(look.verticalScale > 0.0) || !(look.tipPerTenCentimetres > 0.0)
        || !(look.sleevePerCentimetre > 0.0))
        return pages;
    const double perMetre = 1000.0 / look.verticalScale;
    const double room = std::max(1.0, std::floor((pageHeight - top - headHeight - bottom) / perMetre));
    const std::vector<Axis> axes = axesOf(look);
    const double depth = std::ceil(deepest(graphs));
    for (double from = 0.0; from < depth && pages.size() < 200; from += room) {
        const Stretch stretch{from, std::min(depth, from + room), perMetre};
        Sheet sheet;
        sheet.drawing.title = graphs.front().title;
        drawHead(sheet, graphs, static_cast<int>(pages.size()), look);
        drawDepths(sheet, stretch, graphs.front());
        drawColumn(sheet, stretch, graphs.front());
        for (const Axis& axis : axes) {
            drawAxis(sheet, stretch, axis, look);
            for (std::size_t i = 0; i < graphs.size(); ++i)
                drawCurve(sheet, stretch, axis, graphs[i], i == 0 ? 0.35 : 0.25, colorOf(axis, i), dashOf(i));
        }
        pages.push_back(std::move(sheet.drawing));
    }
    return pages;
}

namespace
{

// What the drawing of a capacity spans, and where that stands on it.
struct CapacityPlane {
    static constexpr double x0 = 18.0;
    static constexpr double y0 = 18.0;
    static constexpr double width = 150.0;
    static constexpr double height = 82.0;

    double greatest = 0.0; // kN
    double first = 1e9; // m
    double last = 0.0;

    explicit CapacityPlane(const CapacityGraph& graph)
    {
        for (const CapacityGraph::Point& point : graph.points) {
            first = std::min(first, point.depth);
            last = std::max(last, point.depth);
            for (const Number& value : {point.tip, point.side, point.capacity})
                greatest = std::max(greatest, value.value_or(0.0));
        }
        if (last - first < 1.0) {
            first = std::max(0.0, first - 0.5);
            last = first + 1.0;
        }
    }

    double end() const { return greatest * 1.05; }
    double perMillimetre() const { return end() / width; }
    double perMetre() const { return height / (last - first); }
    double x(double value) const { return x0 + value / perMillimetre(); }
    double y(double depth) const { return y0 + (depth - first) * perMetre(); }
};

struct CapacityCurve {
    Number CapacityGraph::Point::*value;
    Color color;
    double pen;
    const wchar_t* title;
};

void drawGrid(Sheet& sheet, const CapacityPlane& plane)
{
    const double right = plane.x0 + plane.width;
    for (const double value : stepsBetween(0.0, plane.end(), stepOf(plane.perMillimetre(), 18.0))) {
        const double x = plane.x(value);
        sheet.line({{x, plane.y0}, {x, plane.y0 + plane.height}}, 0.13, gridColor, Layer::Grid);
        sheet.text(numberText(value, 0), {x, plane.y0 - 1.5}, Align::Centre, 2.2);
    }
    const double step = std::max(0.1, stepOf(1.0 / plane.perMetre(), 7.0));
    for (const double depth : stepsBetween(plane.first, plane.last, step)) {
        const double y = plane.y(depth);
        sheet.line({{plane.x0, y}, {right, y}}, 0.13, gridColor, Layer::Grid);
        sheet.text(shortNumber(depth), {plane.x0 - 1.5, y + 0.9}, Align::Right, 2.2);
    }
    sheet.frame(plane.x0, plane.y0, plane.width, plane.height);
}

// Broken where the value is missing.
void drawCurve(
    Sheet& sheet, const CapacityPlane& plane, const CapacityGraph& graph, const CapacityCurve& curve)
{
    std::vector<Spot> points;
    const auto end = [&] {
        if (points.size() > 1)
            sheet.line(points, curve.pen, curve.color, Layer::Graph);
        points.clear();
    };
    for (const CapacityGraph::Point& point : graph.points) {
        const Number value = point.*curve.value;
        if (!value) {
            end();
            continue;
        }
        points.push_back({plane.x(*value), plane.y(point.depth)});
        sheet.drawing.items.push_back(
            {Layer::Graph, 0, Circle{points.back(), 0.6, Pen{thin, curve.color, Dash::Solid}, true}});
    }
    end();
}

} // namespace

Drawing capacityDrawing(const CapacityGraph& graph)
{
    Sheet sheet;
    sheet.drawing.width = 180.0;
    sheet.drawing.height = 110.0;
    sheet.drawing.title = graph.title;
    const CapacityPlane plane(graph);
    if (graph.points.empty() || plane.greatest <= 0.0)
        return sheet.drawing;
    drawGrid(sheet, plane);
    const CapacityCurve curves[] = {
        {&CapacityGraph::Point::tip, {200, 40, 40}, 0.25, in(graph.language, L"острие", L"вістря")},
        {&CapacityGraph::Point::side,
            {30, 60, 200},
            0.25,
            in(graph.language, L"боковая поверхность", L"бічна поверхня")},
        {&CapacityGraph::Point::capacity,
            {},
            0.5,
            in(graph.language, L"несущая способность", L"несуча здатність")},
    };
    double legend = plane.x0;
    for (const CapacityCurve& curve : curves) {
        drawCurve(sheet, plane, graph, curve);
        sheet.line({{legend, 105.0}, {legend + 8.0, 105.0}}, curve.pen, curve.color, Layer::Graph);
        sheet.text(curve.title, {legend + 10.0, 106.0}, Align::Left, textHeight);
        legend += 16.0 + textWidth(curve.title, Font::Plain, textHeight);
    }
    sheet.text(in(graph.language, L"Сопротивление, кН", L"Опір, кН"),
        {plane.x0 + plane.width / 2.0, 9.0},
        Align::Centre,
        textHeight,
        Font::Bold);
    sheet.text(in(graph.language, L"Глубина, м", L"Глибина, м"), {2.0, 9.0}, Align::Left, textHeight);
    return sheet.drawing;
}
