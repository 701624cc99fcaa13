#include "plots/chart.h"

#include "core/base/typed_number.h"
#include "drawing/text_layout.h"
#include "plots/graph.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double textHeight = 2.2;
constexpr double smallHeight = 1.9;
constexpr double markRadius = 0.9;
constexpr Color black = {0, 0, 0};
constexpr Color gridColor = {208, 212, 218};

class Plotter
{
public:
    explicit Plotter(const Chart& chart)
        : chart_(chart)
    {
        drawing_.width = chart.width;
        drawing_.height = chart.height;
        drawing_.title = chart.title;
        const double notes = static_cast<double>(chart.notes.size()) * lineDistance(Font::Plain, textHeight);
        left_ = 17;
        right_ = chart.width - 4;
        top_ = chart.title.empty() ? 5 : 9;
        if (hasLegend())
            top_ += 4;
        bottom_ = chart.height - 12 - notes;
    }

    Drawing take()
    {
        if (!chart_.title.empty())
            addText(chart_.title, {(left_ + right_) / 2, 4.5}, 2.6, Align::Centre, Font::Bold);
        drawLegend();
        drawGrid();
        drawAxes();
        for (const ChartSeries& series : chart_.series)
            drawSeries(series);
        drawNotes();
        return std::move(drawing_);
    }

    Spot valueAt(Spot spot) const
    {
        return {value(chart_.x, (spot.x - left_) / (right_ - left_)),
            value(chart_.y, (bottom_ - spot.y) / (bottom_ - top_))};
    }

private:
    static double value(const ChartAxis& axis, double part)
    {
        const double share = std::clamp(axis.isTurned ? 1 - part : part, 0.0, 1.0);
        return axis.isLogarithmic ? axis.from * std::pow(axis.to / axis.from, share)
                                  : axis.from + share * (axis.to - axis.from);
    }

    static double part(const ChartAxis& axis, double value)
    {
        const double share = axis.isLogarithmic ? std::log(value / axis.from) / std::log(axis.to / axis.from)
                                                : (value - axis.from) / (axis.to - axis.from);
        return axis.isTurned ? 1 - share : share;
    }

    double acrossOf(double value) const { return left_ + part(chart_.x, value) * (right_ - left_); }
    double downOf(double value) const { return bottom_ - part(chart_.y, value) * (bottom_ - top_); }

    static bool canShow(const ChartAxis& axis, double value)
    {
        return std::isfinite(value) && (!axis.isLogarithmic || value > 0);
    }

    void add(Layer layer, std::int64_t id, std::variant<Line, Area, Circle, Text> shape)
    {
        drawing_.items.push_back({layer, id, std::move(shape)});
    }

    void addText(const std::wstring& text,
        Spot at,
        double height,
        Align align,
        Font font = Font::Plain,
        double angle = 0,
        Color color = black)
    {
        add(Layer::Text, 0, Text{text, at, height, align, angle, font, color});
    }

    bool hasLegend() const
    {
        return std::any_of(chart_.series.begin(), chart_.series.end(), [](const ChartSeries& series) {
            return !series.name.empty();
        });
    }

    void drawLegend()
    {
        double x = left_;
        for (const ChartSeries& series : chart_.series) {
            if (series.name.empty())
                continue;
            const double y = top_ - 3.4;
            if (series.isJoined)
                add(Layer::Graph, 0, Line{{{x, y}, {x + 7, y}}, {0.4, series.color, series.dash}});
            if (series.hasMarks)
                add(Layer::Graph, 0, Circle{{x + 3.5, y}, markRadius, {0.3, series.color}, true});
            addText(series.name, {x + 8.5, y + 0.8}, smallHeight, Align::Left);
            x += 13 + textWidth(series.name, Font::Plain, smallHeight);
        }
    }

    static std::vector<double> marksOf(const ChartAxis& axis, int about)
    {
        if (!axis.isLogarithmic)
            return roundMarks(axis.from, axis.to, about);
        std::vector<double> marks;
        for (const double decade : decadesBetween(axis.from, axis.to * 1.0001))
            if (decade >= axis.from * 0.9999)
                marks.push_back(decade);
        return marks;
    }

    void drawGrid()
    {
        const Pen pen{0.13, gridColor};
        for (const double mark : marksOf(chart_.x, 8)) {
            const double x = acrossOf(mark);
            add(Layer::Grid, 0, Line{{{x, top_}, {x, bottom_}}, pen});
            addText(markText(mark), {x, bottom_ + 3.4}, smallHeight, Align::Centre);
        }
        if (chart_.x.isLogarithmic)
            drawDecades(pen);
        for (const double mark : marksOf(chart_.y, 6)) {
            const double y = downOf(mark);
            add(Layer::Grid, 0, Line{{{left_, y}, {right_, y}}, pen});
            addText(markText(mark), {left_ - 1.2, y + smallHeight / 2}, smallHeight, Align::Right);
        }
    }

    void drawDecades(const Pen& pen)
    {
        for (const double decade : decadesBetween(chart_.x.from, chart_.x.to))
            for (int step = 2; step < 10; ++step) {
                const double value = decade * step;
                if (value > chart_.x.from && value < chart_.x.to)
                    add(Layer::Grid, 0, Line{{{acrossOf(value), top_}, {acrossOf(value), bottom_}}, pen});
            }
    }

    static std::wstring markText(double mark)
    {
        return std::abs(mark) < 1e-12 ? std::wstring(L"0") : shortText(mark);
    }

    // Without noughts behind the last digit.
    static std::wstring shortText(double value)
    {
        std::wstring text = numberText(value, 6);
        while (!text.empty() && text.find(L'.') != std::wstring::npos
            && (text.back() == L'0' || text.back() == L'.')) {
            const bool isPoint = text.back() == L'.';
            text.pop_back();
            if (isPoint)
                break;
        }
        return text;
    }

    void drawAxes()
    {
        add(Layer::Frame,
            0,
            Line{{{left_, top_}, {left_, bottom_}, {right_, bottom_}, {right_, top_}}, {0.25, black}, true});
        addText(chart_.x.title, {(left_ + right_) / 2, bottom_ + 8}, textHeight, Align::Centre);
        addText(chart_.y.title, {4.5, (top_ + bottom_) / 2}, textHeight, Align::Centre, Font::Plain, 90);
    }

    void drawSeries(const ChartSeries& series)
    {
        Line line;
        line.pen = {0.4, series.color, series.dash};
        for (const ChartPoint& point : series.points)
            if (!point.isHollow && canShow(chart_.x, point.x) && canShow(chart_.y, point.y))
                line.points.push_back(inside(point));
        if (series.isJoined && line.points.size() > 1)
            add(Layer::Graph, 0, std::move(line));
        if (!series.hasMarks)
            return;
        for (const ChartPoint& point : series.points)
            if (canShow(chart_.x, point.x) && canShow(chart_.y, point.y))
                add(Layer::Graph,
                    point.id,
                    Circle{inside(point), markRadius, {0.3, series.color}, !point.isHollow});
    }

    // A point beyond an axis lies on its end.
    Spot inside(const ChartPoint& point) const
    {
        return {std::clamp(acrossOf(point.x), left_, right_), std::clamp(downOf(point.y), top_, bottom_)};
    }

    void drawNotes()
    {
        double y = bottom_ + 12.5;
        for (const std::wstring& note : chart_.notes) {
            addText(shortenedText(note, Font::Plain, textHeight, right_ - left_ + 12),
                {left_ - 12, y},
                textHeight,
                Align::Left);
            y += lineDistance(Font::Plain, textHeight);
        }
    }

    const Chart& chart_;
    Drawing drawing_;
    double left_ = 0;
    double right_ = 0;
    double top_ = 0;
    double bottom_ = 0;
};

double markStep(double raw)
{
    const double decade = std::pow(10, std::floor(std::log10(raw)));
    for (const double step : {1.0, 2.0, 2.5, 5.0})
        if (raw <= step * decade * 1.0001)
            return step * decade;
    return 10 * decade;
}

} // namespace

std::vector<double> roundMarks(double from, double to, int about)
{
    if (!(to > from) || about < 1)
        return {};
    return stepsBetween(from, to, markStep((to - from) / about));
}

double roundedUp(double value)
{
    return value > 0 && std::isfinite(value)
        ? std::ceil(value / markStep(value / 5) - 1e-9) * markStep(value / 5)
        : 1;
}

static Chart withAxes(Chart chart)
{
    for (ChartAxis* axis : {&chart.x, &chart.y})
        if (!(axis->to > axis->from))
            axis->to = axis->isLogarithmic ? axis->from * 10 : axis->from + 1;
    return chart;
}

Drawing drawChart(const Chart& chart)
{
    const Chart safe = withAxes(chart);
    return Plotter(safe).take();
}

Spot chartValueAt(const Chart& chart, Spot spot)
{
    const Chart safe = withAxes(chart);
    return Plotter(safe).valueAt(spot);
}
