#include "plots/element_plots.h"

#include "plots/graph.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>

namespace
{

constexpr Pen takenPen{0.3, {31, 90, 150}, Dash::Solid};
constexpr Pen excludedPen{0.35, {190, 40, 40}, Dash::Solid};
constexpr Pen meanPen{0.5, {200, 90, 20}, Dash::Solid};
constexpr Pen thinPen{0.15, {90, 120, 150}, Dash::Solid};
constexpr Pen bandPen{0.3, {120, 120, 120}, Dash::Dashed};
constexpr Color barGround{176, 203, 228};
constexpr double paperWidth = 130; // mm
constexpr double planeLeft = 18;
constexpr double planeWidth = 105;
constexpr double titleAt = 6;

Drawing sheetOf(double height, const std::wstring& title)
{
    Drawing drawing{paperWidth, height, title};
    drawing.items.push_back(
        {Layer::Text, 0, Text{title, {paperWidth / 2, titleAt}, 2.8, Align::Centre, 0, Font::Bold}});
    return drawing;
}

void addNothing(Drawing& drawing)
{
    drawing.items.push_back(
        {Layer::Text, 0, Text{L"Нет данных", {paperWidth / 2, drawing.height / 2}, 3, Align::Centre}});
}

std::int64_t idOf(std::size_t sample)
{
    return static_cast<std::int64_t>(sample) + 1;
}

void addHistogram(
    Drawing& drawing, const std::vector<double>& taken, const std::wstring& property, double top)
{
    const auto [least, greatest] = std::minmax_element(taken.begin(), taken.end());
    // As many bars as Sturges has it.
    const int bars = *least == *greatest
        ? 1
        : std::clamp(1 + static_cast<int>(std::log2(static_cast<double>(taken.size()))), 2, 15);
    GraphAxis along = axisFor(property, taken);
    const double width = bars == 1 ? (along.to - along.from) / 6 : (*greatest - *least) / bars;
    std::vector<double> counts(static_cast<std::size_t>(bars), 0);
    for (const double value : taken) {
        const int bar = bars == 1 ? 0 : static_cast<int>((value - *least) / width);
        ++counts[static_cast<std::size_t>(std::clamp(bar, 0, bars - 1))];
    }
    const double from = bars == 1 ? *least - 0.5 * width : *least;
    // Samples are counted by whole numbers, so few of them get a scale of five.
    GraphAxis upwards = axisFor(L"Число проб", counts, true);
    upwards.to = std::max(upwards.to, 5.0);
    const Graph graph(drawing, planeLeft, top, planeWidth, 42, std::move(along), std::move(upwards));
    for (int bar = 0; bar < bars; ++bar)
        if (const double count = counts[static_cast<std::size_t>(bar)]; count > 0)
            graph.bar(from + bar * width, from + (bar + 1) * width, count, barGround);
}

// The share finer than a diameter, between the points of a curve on the logarithmic scale.
Number finerAt(const Grading& grading, double diameter)
{
    const auto& curve = grading.curve; // from the coarsest down
    for (std::size_t i = 1; i < curve.size(); ++i) {
        const GrainPoint& coarse = curve[i - 1];
        const GrainPoint& fine = curve[i];
        if (diameter > coarse.diameter || diameter < fine.diameter || fine.diameter <= 0)
            continue;
        const double along = std::log(diameter / fine.diameter) / std::log(coarse.diameter / fine.diameter);
        return fine.finer + along * (coarse.finer - fine.finer);
    }
    if (!curve.empty() && diameter > curve.front().diameter)
        return 100;
    return std::nullopt;
}

std::vector<Spot> pointsOf(const Grading& grading)
{
    std::vector<Spot> points;
    for (const GrainPoint& point : grading.curve)
        if (point.diameter > 0)
            points.push_back({point.diameter, point.finer});
    return points;
}

// Monotone between its points, which it keeps (Fritsch and Carlson), on the logarithmic scale.
std::vector<Spot> smoothed(const std::vector<Spot>& points)
{
    constexpr int pieces = 8;
    const std::size_t n = points.size();
    if (n < 3)
        return points;
    std::vector<double> x(n);
    std::vector<double> slope(n - 1);
    std::transform(
        points.begin(), points.end(), x.begin(), [](const Spot& spot) { return std::log(spot.x); });
    for (std::size_t i = 0; i + 1 < n; ++i)
        slope[i] = (points[i + 1].y - points[i].y) / (x[i + 1] - x[i]);
    std::vector<double> tangent(n);
    tangent.front() = slope.front();
    tangent.back() = slope.back();
    for (std::size_t i = 1; i + 1 < n; ++i)
        tangent[i] = slope[i - 1] * slope[i] <= 0 ? 0 : 2 / (1 / slope[i - 1] + 1 / slope[i]);
    std::vector<Spot> curve{points.front()};
    for (std::size_t i = 0; i + 1 < n; ++i)
        for (int piece = 1; piece <= pieces; ++piece) {
            const double t = static_cast<double>(piece) / pieces;
            const double h = x[i + 1] - x[i];
            const double y = points[i].y * (1 + 2 * t) * (1 - t) * (1 - t)
                + tangent[i] * h * t * (1 - t) * (1 - t) + points[i + 1].y * t * t * (3 - 2 * t)
                + tangent[i + 1] * h * t * t * (t - 1);
            curve.push_back({std::exp(x[i] + t * h), y});
        }
    return curve;
}

} // namespace

Drawing scatterOfProperty(const SiteLaboratory& laboratory,
    const std::vector<ElementValue>& values,
    const Statistics& statistics,
    const std::wstring& title,
    const std::wstring& property)
{
    Drawing drawing = sheetOf(165, title);
    std::vector<double> all;
    std::vector<double> taken;
    std::vector<double> depths;
    for (const ElementValue& value : values) {
        all.push_back(value.value);
        if (value.excluded == ExcludedBy::Nobody)
            taken.push_back(value.value);
        depths.push_back(laboratory.samples()[value.sample].depth.value_or(0));
    }
    if (all.empty()) {
        addNothing(drawing);
        return drawing;
    }
    GraphAxis depthAxis = axisFor(L"Глубина, м", depths, true);
    depthAxis.isReversed = true;
    const Graph graph(drawing, planeLeft, 12, planeWidth, 78, axisFor(property, all), depthAxis);
    if (statistics.mean)
        graph.curve({{*statistics.mean, depthAxis.from}, {*statistics.mean, depthAxis.to}}, meanPen);
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i].excluded == ExcludedBy::Nobody)
            graph.mark(values[i].value, depths[i], idOf(values[i].sample), takenPen, true);
        else
            graph.cross(values[i].value, depths[i], idOf(values[i].sample), excludedPen);
    if (!taken.empty())
        addHistogram(drawing, taken, property, 108);
    return drawing;
}

Drawing gradingsOfElement(
    const SiteLaboratory& laboratory, const SiteElement& element, const std::wstring& title, bool isSmoothed)
{
    Drawing drawing = sheetOf(105, title);
    std::vector<std::pair<std::size_t, const Grading*>> gradings;
    double finest = 1e9;
    double coarsest = 0;
    for (const std::size_t sample : element.samples) {
        const Grading& grading = laboratory.samples()[sample].result.grading;
        const std::vector<Spot> points = pointsOf(grading);
        if (points.size() < 2)
            continue;
        gradings.emplace_back(sample, &grading);
        for (const Spot& point : points) {
            finest = std::min(finest, point.x);
            coarsest = std::max(coarsest, point.x);
        }
    }
    if (gradings.empty() || coarsest <= finest) {
        addNothing(drawing);
        return drawing;
    }
    const double from = std::pow(10, std::floor(std::log10(finest)));
    const double to = std::pow(10, std::ceil(std::log10(coarsest)));
    const Graph graph(drawing,
        planeLeft,
        12,
        planeWidth,
        78,
        {L"Диаметр частиц, мм", from, to, true},
        {L"Мельче, %", 0, 100});
    const auto look = [&](const std::vector<Spot>& points) { return isSmoothed ? smoothed(points) : points; };
    std::map<double, std::vector<double>, std::greater<>> shares; // by diameter, coarsest first
    for (const auto& [sample, grading] : gradings) {
        graph.curve(look(pointsOf(*grading)), thinPen);
        for (const Spot& point : pointsOf(*grading))
            shares[point.x];
    }
    for (auto& [diameter, finer] : shares)
        for (const auto& [sample, grading] : gradings)
            if (const Number share = finerAt(*grading, diameter))
                finer.push_back(*share);
    std::vector<Spot> mean;
    std::vector<Spot> low;
    std::vector<Spot> high;
    for (const auto& [diameter, finer] : shares) {
        if (finer.size() < gradings.size())
            continue;
        double sum = 0;
        for (const double share : finer)
            sum += share;
        mean.push_back({diameter, sum / static_cast<double>(finer.size())});
        low.push_back({diameter, *std::min_element(finer.begin(), finer.end())});
        high.push_back({diameter, *std::max_element(finer.begin(), finer.end())});
    }
    graph.curve(look(low), bandPen);
    graph.curve(look(high), bandPen);
    graph.curve(look(mean), meanPen);
    return drawing;
}

Drawing shearOfElement(const SiteElement& element, const std::wstring& title)
{
    Drawing drawing = sheetOf(105, title);
    const ElementShear& shear = element.shear;
    if (shear.points.empty()) {
        addNothing(drawing);
        return drawing;
    }
    std::vector<double> stresses{0};
    std::vector<double> resistances{0};
    for (const ElementShear::Point& point : shear.points) {
        stresses.push_back(point.point.normalStress);
        resistances.push_back(point.point.resistance);
    }
    const GraphAxis x = axisFor(L"Нормальное давление, МПа", stresses, true);
    const Graph graph(
        drawing, planeLeft, 12, planeWidth, 78, x, axisFor(L"Сопротивление срезу, МПа", resistances, true));
    for (std::size_t i = 0; i < shear.points.size(); ++i) {
        const ElementShear::Point& point = shear.points[i];
        const bool isTaken =
            i >= shear.joint.excluded.size() || shear.joint.excluded[i] == ExcludedBy::Nobody;
        if (isTaken)
            graph.mark(point.point.normalStress, point.point.resistance, idOf(point.sample), takenPen, true);
        else
            graph.cross(point.point.normalStress, point.point.resistance, idOf(point.sample), excludedPen);
    }
    if (shear.joint.tanPhi && shear.joint.cohesion)
        graph.curve({{0, *shear.joint.cohesion}, {x.to, *shear.joint.cohesion + x.to * *shear.joint.tanPhi}},
            meanPen);
    return drawing;
}

Drawing compressionOfElement(
    const SiteLaboratory& laboratory, const SiteElement& element, const std::wstring& title)
{
    Drawing drawing = sheetOf(105, title);
    std::vector<std::vector<Spot>> curves;
    std::vector<double> loads{0};
    std::vector<double> ratios;
    for (const std::size_t sample : element.samples)
        for (const CompressionResult& test : laboratory.samples()[sample].result.compression) {
            std::vector<Spot> curve;
            for (const OedometerRow& row : test.oedometer.rows)
                if (row.voidRatio) {
                    curve.push_back({row.load, *row.voidRatio});
                    loads.push_back(row.load);
                    ratios.push_back(*row.voidRatio);
                }
            if (curve.size() > 1)
                curves.push_back(std::move(curve));
        }
    if (curves.empty()) {
        addNothing(drawing);
        return drawing;
    }
    const Graph graph(drawing,
        planeLeft,
        12,
        planeWidth,
        78,
        axisFor(L"Давление, МПа", loads, true),
        axisFor(L"Коэффициент пористости", ratios));
    for (const std::vector<Spot>& curve : curves)
        graph.curve(curve, takenPen);
    return drawing;
}
