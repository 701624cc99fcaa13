#include "calc/shear.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{

constexpr std::size_t leastPoints = 3;
constexpr double largestResidual = 0.15; // of the point's resistance; a proposal
constexpr double leastDetermination = 0.95;

void remark(ShearFit& fit, Remark::Kind kind, const wchar_t* text)
{
    fit.remarks.push_back({kind, "shear", text});
}

void judgeLine(const std::vector<ShearPoint>& points, ShearFit& fit)
{
    if (*fit.tanPhi > 1)
        remark(fit, Remark::Doubtful, L"Угол внутреннего трения больше 45 градусов");
    if (*fit.cohesion > 0.3)
        remark(fit, Remark::Doubtful, L"Удельное сцепление больше 0.3 МПа");
    if (fit.determination && *fit.determination < leastDetermination)
        remark(fit, Remark::Doubtful, L"Точки плохо ложатся на прямую: R2 меньше 0.95");
    for (std::size_t i = 0; i < points.size(); ++i)
        if (std::abs(fit.residuals[i]) > largestResidual * std::abs(points[i].resistance)) {
            remark(fit, Remark::Doubtful, L"Точка отстоит от прямой более чем на 15 % своего сопротивления");
            return;
        }
}

void measureResiduals(const std::vector<ShearPoint>& points, ShearFit& fit)
{
    double mean = 0;
    for (const ShearPoint& point : points)
        mean += point.resistance / static_cast<double>(points.size());
    double residual = 0;
    double total = 0;
    for (const ShearPoint& point : points) {
        const double rest = point.resistance - (*fit.tanPhi * point.normalStress + *fit.cohesion);
        fit.residuals.push_back(rest);
        residual += rest * rest;
        total += (point.resistance - mean) * (point.resistance - mean);
    }
    if (total > 0)
        fit.determination = 1 - residual / total;
}

bool isRising(std::vector<ShearPoint> points)
{
    std::sort(points.begin(), points.end(), [](const ShearPoint& a, const ShearPoint& b) {
        return a.normalStress < b.normalStress;
    });
    for (std::size_t i = 1; i < points.size(); ++i)
        if (points[i].normalStress > points[i - 1].normalStress
            && points[i].resistance < points[i - 1].resistance)
            return false;
    return true;
}

} // namespace

double angleOf(double tangent)
{
    return std::atan(tangent) * 180 / std::numbers::pi;
}

LineFit lineThrough(const std::vector<ShearPoint>& points)
{
    const double n = static_cast<double>(points.size());
    double x = 0;
    double y = 0;
    double xx = 0;
    double xy = 0;
    for (const ShearPoint& point : points) {
        x += point.normalStress;
        y += point.resistance;
        xx += point.normalStress * point.normalStress;
        xy += point.normalStress * point.resistance;
    }
    LineFit fit;
    fit.sumOfSquares = xx;
    fit.determinant = n * xx - x * x;
    // Equal stresses leave a rest of rounding in the determinant.
    fit.isDetermined = points.size() >= 2 && fit.determinant > 1e-10 * n * xx;
    if (!fit.isDetermined)
        return fit;
    fit.slope = (n * xy - x * y) / fit.determinant;
    fit.offset = (y * xx - x * xy) / fit.determinant;
    // A line through the origin may come out a hair below it.
    if (std::abs(fit.offset) < 1e-12 * std::abs(y / n))
        fit.offset = 0;
    if (fit.offset < 0) {
        fit.slope = xy / xx;
        fit.offset = 0;
        fit.isThroughOrigin = true;
    }
    return fit;
}

ShearFit shearOf(const std::vector<ShearPoint>& points)
{
    ShearFit fit;
    fit.points = points.size();
    if (points.size() < leastPoints) {
        remark(fit, Remark::Missing, L"Для φ и c нужно не меньше трёх точек");
        return fit;
    }
    const LineFit line = lineThrough(points);
    if (!line.isDetermined) {
        remark(fit, Remark::Impossible, L"Все точки при одном нормальном давлении: прямую провести нельзя");
        return fit;
    }
    if (line.slope <= 0) {
        remark(fit, Remark::Impossible, L"Сопротивление сдвигу не растёт с нормальным давлением");
        return fit;
    }
    if (!isRising(points))
        remark(fit, Remark::Doubtful, L"Сопротивление сдвигу падает при росте нормального давления");
    fit.tanPhi = line.slope;
    fit.isThroughOrigin = line.isThroughOrigin;
    fit.cohesion = line.offset;
    measureResiduals(points, fit);
    judgeLine(points, fit);
    return fit;
}
