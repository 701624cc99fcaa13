#include "plots/laboratory_curves.h"

#include "site/elements.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr Color natural = {20, 60, 140};
constexpr Color soaked = {190, 60, 30};
constexpr Color grey = {110, 110, 110};

Chart chartOf(const CurveLook& look)
{
    Chart chart;
    chart.width = look.width;
    chart.height = look.height;
    return chart;
}

std::wstring withUnit(const Number& value, int decimals, const wchar_t* unit)
{
    return value ? numberText(value, decimals) + unit : std::wstring(L"–");
}

// Slopes of Fritsch and Carlson.
std::vector<double> slopesOf(const std::vector<Spot>& points)
{
    const std::size_t n = points.size();
    std::vector<double> secants(n - 1);
    for (std::size_t i = 0; i + 1 < n; ++i)
        secants[i] = (points[i + 1].y - points[i].y) / (points[i + 1].x - points[i].x);
    std::vector<double> slopes(n);
    slopes.front() = secants.front();
    slopes.back() = secants.back();
    for (std::size_t i = 1; i + 1 < n; ++i)
        slopes[i] = secants[i - 1] * secants[i] <= 0 ? 0 : (secants[i - 1] + secants[i]) / 2;
    for (std::size_t i = 0; i + 1 < n; ++i) {
        if (secants[i] == 0) {
            slopes[i] = slopes[i + 1] = 0;
            continue;
        }
        const double a = slopes[i] / secants[i];
        const double b = slopes[i + 1] / secants[i];
        const double size = a * a + b * b;
        if (size > 9) {
            const double factor = 3 / std::sqrt(size);
            slopes[i] = factor * a * secants[i];
            slopes[i + 1] = factor * b * secants[i];
        }
    }
    return slopes;
}

void addSmooth(ChartSeries& line, std::vector<Spot> points, bool isSmooth, bool isLogarithmic)
{
    if (isLogarithmic)
        for (Spot& point : points)
            point.x = std::log10(point.x);
    std::sort(points.begin(), points.end(), [](const Spot& a, const Spot& b) { return a.x < b.x; });
    const bool areApart = std::adjacent_find(points.begin(), points.end(), [](const Spot& a, const Spot& b) {
        return b.x - a.x < 1e-12;
    }) == points.end();
    for (const Spot& point : isSmooth&& areApart&& points.size() > 2 ? monotoneCurve(points, 12) : points)
        line.points.push_back({isLogarithmic ? std::pow(10, point.x) : point.x, point.y, false, 0});
}

// The points of a branch, and hollow those that are left out.
ChartSeries branchOf(const CompressionInput& input, const Oedometer& test, Branch branch, int idFrom)
{
    const bool isSoaked = branch == Branch::Soaked;
    const auto strain = isSoaked ? &OedometerRow::soakedStrain : &OedometerRow::strain;
    ChartSeries series;
    series.color = isSoaked ? soaked : natural;
    for (const OedometerRow& row : test.rows)
        if (row.*strain)
            series.points.push_back({row.load, *(row.*strain), row.isRepeated, idFrom + row.row + 1});
    const bool isFirst = !isSoaked || test.test == 22;
    const Number height = isSoaked && test.test == 23 && input.oedometer.secondHeight
        ? input.oedometer.secondHeight
        : input.oedometer.height;
    for (const OedometerStage& stage : input.leftOut) {
        const Number deformation = isFirst ? stage.deformation : stage.soakedDeformation;
        if (deformation && height && *height > 0 && test.test != (isSoaked ? 21 : 22))
            series.points.push_back({stage.load,
                (*deformation - stage.correction.value_or(0)) / *height,
                true,
                idFrom + stage.row + 1});
    }
    if (!series.points.empty())
        series.name = isSoaked ? L"при водонасыщении" : L"при природной влажности";
    return series;
}

double greatest(const std::vector<ChartSeries>& all, double ChartPoint::*value)
{
    double most = 0;
    for (const ChartSeries& series : all)
        for (const ChartPoint& point : series.points)
            most = std::max(most, point.*value);
    return most;
}

double least(const std::vector<ChartSeries>& all, double ChartPoint::*value)
{
    double found = 0;
    for (const ChartSeries& series : all)
        for (const ChartPoint& point : series.points)
            found = std::min(found, point.*value);
    return found;
}

} // namespace

std::vector<Spot> monotoneCurve(const std::vector<Spot>& points, int stepsBetween)
{
    if (points.size() < 2)
        return points;
    const std::vector<double> slopes = slopesOf(points);
    std::vector<Spot> curve;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const double width = points[i + 1].x - points[i].x;
        for (int step = 0; step < stepsBetween; ++step) {
            const double t = static_cast<double>(step) / stepsBetween;
            const double u = 1 - t;
            const double y = points[i].y * (1 + 2 * t) * u * u + slopes[i] * width * t * u * u
                + points[i + 1].y * t * t * (3 - 2 * t) - slopes[i + 1] * width * t * t * u;
            curve.push_back({points[i].x + t * width,
                std::clamp(
                    y, std::min(points[i].y, points[i + 1].y), std::max(points[i].y, points[i + 1].y))});
        }
    }
    curve.push_back(points.back());
    return curve;
}

Chart gradingChart(const SampleResult& sample, const CurveLook& look)
{
    Chart chart = chartOf(look);
    chart.x = {L"Диаметр частиц, мм", 0.001, look.coarsest.value_or(10), true, false};
    chart.y = {L"Содержание частиц мельче, %", 0, 100, false, false};
    ChartSeries line;
    line.color = natural;
    line.hasMarks = false;
    ChartSeries marks = line;
    marks.isJoined = false;
    marks.hasMarks = true;
    std::vector<Spot> points;
    std::int64_t place = 0;
    for (const GrainPoint& point : sample.grading.curve) {
        points.push_back({point.diameter, point.finer});
        if (!look.coarsest)
            chart.x.to = std::max(chart.x.to, point.diameter);
        if (point.isReal)
            marks.points.push_back({point.diameter, point.finer, false, ++place});
    }
    chart.x.to = std::pow(10, std::ceil(std::log10(chart.x.to) - 1e-9));
    addSmooth(line, std::move(points), look.isSmooth, true);
    const Grading& grading = sample.grading;
    if (grading.isComplete)
        chart.notes.push_back(L"d10 = " + (grading.d10 ? significantText(grading.d10, 3) : L"–")
            + L"   d30 = " + (grading.d30 ? significantText(grading.d30, 3) : L"–") + L"   d50 = "
            + (grading.d50 ? significantText(grading.d50, 3) : L"–") + L"   d60 = "
            + (grading.d60 ? significantText(grading.d60, 3) : L"–") + L" мм   Cu = "
            + withUnit(grading.uniformity, 1, L"") + L"   Cc = " + withUnit(grading.curvature, 1, L""));
    else if (grading.sum)
        chart.notes.push_back(L"Сумма фракций " + numberText(grading.sum, 1) + L" %: диаметры не определены");
    chart.series = {std::move(line), std::move(marks)};
    return chart;
}

Chart compressionChart(const CompressionInput& input, const CompressionResult& result, const CurveLook& look)
{
    const Oedometer& test = result.oedometer;
    Chart chart = chartOf(look);
    // What test 22 measures on the first specimen is the soaked branch.
    chart.series = {branchOf(input, test, Branch::Natural, 0),
        branchOf(input, test, Branch::Soaked, test.test == 22 ? 0 : soakedPoint)};
    chart.x = {L"Давление p, МПа", 0, roundedUp(greatest(chart.series, &ChartPoint::x)), false, false};
    // Settlement goes down.
    chart.y = {L"Относительная деформация",
        least(chart.series, &ChartPoint::y),
        look.strainTo.value_or(roundedUp(greatest(chart.series, &ChartPoint::y))),
        false,
        true};
    const OedometerInterval usual = intervalOf(test, 0.1, 0.2);
    if (test.test != 25) {
        chart.notes.push_back(L"В интервале 0.1 – 0.2 МПа: m0 = "
            + withUnit(usual.compressibility, 3, L" 1/МПа") + L"   Eoed = "
            + withUnit(usual.oedometricModulus, 1, L" МПа") + L"   β = " + withUnit(test.beta, 1, L"")
            + L"   E = " + withUnit(usual.modulus, 1, L" МПа"));
        if (test.test == 23 || test.test == 24)
            chart.notes.push_back(L"Природное давление " + withUnit(result.collapse.naturalStress, 3, L" МПа")
                + L"   начальное просадочное давление "
                + withUnit(result.collapse.initialPressure, 3, L" МПа"));
    }
    return chart;
}

Chart shearChart(const ShearInput& input, const ShearResult& test, const CurveLook& look)
{
    Chart chart = chartOf(look);
    ChartSeries points;
    points.color = natural;
    points.isJoined = false;
    for (const ShearReading& reading : input.readings)
        points.points.push_back({reading.point.normalStress,
            reading.point.resistance,
            reading.isLeftOut,
            static_cast<std::int64_t>(reading.cell) + 1});
    chart.series = {points};
    const double loadTo = roundedUp(greatest(chart.series, &ChartPoint::x) * 1.1);
    const double resistanceTo = roundedUp(greatest(chart.series, &ChartPoint::y) * 1.1);
    chart.x = {L"Нормальное давление σ, МПа", 0, loadTo, false, false};
    chart.y = {L"Сопротивление сдвигу τ, МПа", 0, resistanceTo, false, false};
    if (test.fit.tanPhi) {
        ChartSeries line;
        line.color = soaked;
        line.hasMarks = false;
        const double slope = *test.fit.tanPhi;
        const double end = std::min(loadTo, (resistanceTo - *test.fit.cohesion) / slope);
        line.points = {{0, *test.fit.cohesion, false, 0}, {end, *test.fit.cohesion + slope * end, false, 0}};
        chart.series.push_back(std::move(line));
        chart.notes.push_back(L"tg φ = " + numberText(slope, 3) + L"   φ = " + numberText(angleOf(slope), 1)
            + L"°   c = " + numberText(test.fit.cohesion, 3) + L" МПа   R2 = "
            + withUnit(test.fit.determination, 3, L"")
            + (test.fit.isThroughOrigin ? L"   прямая проведена через начало координат" : L""));
        std::wstring residuals = L"Отклонения точек от прямой, МПа:";
        for (const double residual : test.fit.residuals)
            residuals += L"  " + numberText(residual, 4);
        chart.notes.push_back(std::move(residuals));
    } else if (!test.fit.remarks.empty()) {
        chart.notes.push_back(test.fit.remarks.front().text);
    }
    return chart;
}

Chart swellingChart(const SampleResult& sample, const CurveLook& look)
{
    const Swelling& swelling = sample.swelling;
    Chart chart = chartOf(look);
    ChartSeries line;
    line.color = natural;
    line.hasMarks = false;
    ChartSeries marks = line;
    marks.hasMarks = true;
    marks.isJoined = false;
    std::vector<Spot> points;
    for (const SwellingRow& row : swelling.rows) {
        marks.points.push_back({row.load, row.relative, row.isRepeated, row.row + 1});
        if (!row.isRepeated)
            points.push_back({row.load, row.relative});
    }
    for (const SwellingRow& row : swellingOf(sample.input.swellingLeftOut, sample.input.swellingHeight).rows)
        marks.points.push_back({row.load, row.relative, true, row.row + 1});
    chart.series = {marks};
    chart.x = {L"Давление p, МПа", 0, roundedUp(greatest(chart.series, &ChartPoint::x)), false, false};
    chart.y = {L"Относительное набухание",
        std::min(0.0,
            -roundedUp(-least(chart.series, &ChartPoint::y)) * (least(chart.series, &ChartPoint::y) < 0)),
        roundedUp(greatest(chart.series, &ChartPoint::y)),
        false,
        false};
    addSmooth(line, std::move(points), look.isSmooth, false);
    chart.series.push_back(std::move(line));
    chart.notes.push_back(L"Свободное набухание " + withUnit(swelling.free, 3, L"")
        + L"   давление набухания " + withUnit(swelling.pressure, 3, L" МПа"));
    return chart;
}

Chart shrinkageChart(const Shrinkage& shrinkage, const CurveLook& look)
{
    Chart chart = chartOf(look);
    ChartSeries points;
    points.color = natural;
    double low = 0;
    double high = 0;
    for (const ShrinkagePoint& point : shrinkage.points) {
        if (!point.moisture || !point.volume)
            continue;
        points.points.push_back({*point.moisture, *point.volume, point.isLeftOut, point.row + 1});
        low = low == 0 ? *point.volume : std::min(low, *point.volume);
        high = std::max(high, *point.volume);
    }
    chart.series = {points};
    chart.x = {L"Влажность W, д.е.", 0, roundedUp(greatest(chart.series, &ChartPoint::x)), false, false};
    const double margin = std::max(0.1 * (high - low), 0.01 * high);
    chart.y = {L"Объём образца, см3", low - margin, high + margin, false, false};
    if (shrinkage.limit && shrinkage.slope && shrinkage.offset && shrinkage.finalVolume) {
        ChartSeries line;
        line.color = grey;
        line.dash = Dash::Dashed;
        line.hasMarks = false;
        const double end = (high - *shrinkage.offset) / *shrinkage.slope;
        line.points = {{0, *shrinkage.finalVolume, false, 0},
            {*shrinkage.limit, *shrinkage.finalVolume, false, 0},
            {end, high, false, 0}};
        chart.series.push_back(std::move(line));
    }
    chart.notes.push_back(L"Влажность на пределе усадки " + withUnit(shrinkage.limit, 3, L""));
    chart.notes.push_back(L"Относительная усадка: по высоте " + withUnit(shrinkage.heightStrain, 3, L"")
        + L", по диаметру " + withUnit(shrinkage.diameterStrain, 3, L"") + L", по объёму "
        + withUnit(shrinkage.volumeStrain, 3, L""));
    return chart;
}

namespace
{

double greatestStrain(const SiteLaboratory& site)
{
    double most = 0;
    for (const SiteSample& sample : site.samples())
        for (const CompressionResult& test : sample.result.compression)
            for (const OedometerRow& row : test.oedometer.rows)
                most = std::max({most, row.strain.value_or(0), row.soakedStrain.value_or(0)});
    return most;
}

double greatestDiameter(const SiteLaboratory& site)
{
    double most = 1;
    for (const SiteSample& sample : site.samples())
        if (!sample.result.grading.curve.empty())
            most = std::max(most, sample.result.grading.curve.front().diameter);
    return most;
}

} // namespace

CurveLook lookOfTest(TX_Lab_Modes test, const LabCurveSettings& settings, const CurveSize& size)
{
    CurveLook look;
    look.width = size.width;
    look.height = size.height;
    look.isSmooth = test == LabGranulometry ? settings.smoothGrading : settings.smoothSwelling;
    return look;
}

void shareScale(CurveLook& look, TX_Lab_Modes test, const SiteLaboratory& site)
{
    if (test == LabGranulometry)
        look.coarsest = greatestDiameter(site);
    else if (test == LabCompression)
        look.strainTo = greatestStrain(site);
}

std::optional<Chart> chartOfTest(
    const SampleResult& result, TX_Lab_Modes test, int method, const CurveLook& look)
{
    if (test == LabGranulometry && !result.grading.curve.empty())
        return gradingChart(result, look);
    if (test == LabCompression)
        for (std::size_t i = 0; i < result.compression.size(); ++i)
            if (const CompressionInput& input = result.input.compression[i]; input.oedometer.test == method
                && (!result.compression[i].oedometer.rows.empty() || !input.leftOut.empty()))
                return compressionChart(input, result.compression[i], look);
    if (test == LabShear)
        for (std::size_t i = 0; i < result.shear.size(); ++i)
            if (result.shear[i].method == method && !result.input.shear[i].readings.empty())
                return shearChart(result.input.shear[i], result.shear[i], look);
    if (test == LabSwell && !(result.swelling.rows.empty() && result.input.swellingLeftOut.empty()))
        return swellingChart(result, look);
    if (test == LabShrink && !result.shrinkage.points.empty())
        return shrinkageChart(result.shrinkage, look);
    return std::nullopt;
}

std::optional<Drawing> curveOfTest(const SiteLaboratory& site,
    const SiteSample& sample,
    TX_Lab_Modes test,
    int method,
    const LabCurveSettings& settings,
    const CurveSize& size)
{
    CurveLook look = lookOfTest(test, settings, size);
    if (test == LabGranulometry ? settings.oneScaleOfGrading : settings.oneScaleOfCompression)
        shareScale(look, test, site);
    const std::optional<Chart> chart = chartOfTest(sample.result, test, method, look);
    return chart ? std::optional(drawChart(*chart)) : std::nullopt;
}
