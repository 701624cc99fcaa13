#include "calc/subsidence.h"

#include "calc/linear_table.h"
#include "dictionaries/report_language.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{

constexpr double gravity = 9.81; // g/cm3 to kN/m3
constexpr double sameValue = 1e-9; // sums of decimals that should be equal

constexpr double greatestTypeOneCm = 5.0;

// SP 22.13330.2016, 6.1 [second-hand]: thickness of what subsides, and the coefficient.
constexpr double coefficientThickness[] = {15.0, 20.0};
constexpr double coefficientValues[] = {1.0, 1.25};
constexpr double coefficientWidths[] = {3.0, 12.0};
constexpr double coefficientPressure = 100.0;

bool isSubsiding(const Number& relative)
{
    return relative && *relative >= leastRelativeSubsidence - sameValue;
}

std::string layerCell(std::size_t layer)
{
    return "layer/" + std::to_string(layer);
}

Number pressureOf(const CollapsibleLayer& layer)
{
    return layer.initialPressureKPa ? layer.initialPressureKPa : initialPressureKPa(layer.curve);
}

// Equal parts of a piece, none thicker than allowed.
template <class Visit>
void forParts(double fromM, double toM, double greatestM, Visit visit)
{
    const double thickness = toM - fromM;
    if (!(thickness > sameValue) || !(greatestM > 0.0))
        return;
    const int count = std::max(1, static_cast<int>(std::ceil(thickness / greatestM - sameValue)));
    for (int i = 0; i < count; ++i)
        visit(fromM + thickness * i / count, i + 1 == count ? toM : fromM + thickness * (i + 1) / count);
}

// Stress by own weight at a depth; nothing where a density above is missing.
Number ownStress(std::span<const CollapsibleLayer> layers, double depthM)
{
    double stress = 0.0;
    for (const CollapsibleLayer& layer : layers) {
        if (layer.fromM >= depthM)
            break;
        if (!layer.saturatedDensity)
            return std::nullopt;
        stress += *layer.saturatedDensity * gravity * (std::min(layer.toM, depthM) - layer.fromM);
    }
    return stress;
}

void remarkBeyond(Remarks& remarks, std::size_t layer)
{
    for (const Remark& remark : remarks)
        if (remark.cell == layerCell(layer) && remark.kind == Remark::Doubtful)
            return;
    remarks.push_back({Remark::Doubtful,
        layerCell(layer),
        L"Напряжение больше последней ступени испытания: взято ее значение"});
}

void remarkLayers(std::span<const CollapsibleLayer> layers, Remarks& remarks)
{
    for (std::size_t i = 0; i < layers.size(); ++i) {
        if (!layers[i].saturatedDensity)
            remarks.push_back({Remark::Missing, layerCell(i), L"Нет плотности при полном водонасыщении"});
        if (layers[i].curve.empty())
            remarks.push_back({Remark::Missing, layerCell(i), L"В слое нет испытания на просадочность"});
    }
}

} // namespace

std::optional<CollapseValue> relativeSubsidence(std::span<const CollapsePoint> curve, double stressKPa)
{
    if (curve.empty() || stressKPa < 0.0)
        return std::nullopt;
    CollapsePoint before;
    for (const CollapsePoint& point : curve) {
        if (stressKPa <= point.loadKPa) {
            const double width = point.loadKPa - before.loadKPa;
            if (width <= 0.0)
                return CollapseValue{point.relative, false};
            const double part = (stressKPa - before.loadKPa) / width;
            return CollapseValue{before.relative + part * (point.relative - before.relative), false};
        }
        before = point;
    }
    return CollapseValue{before.relative, true};
}

Number initialPressureKPa(std::span<const CollapsePoint> curve)
{
    CollapsePoint before;
    for (const CollapsePoint& point : curve) {
        if (point.relative >= leastRelativeSubsidence) {
            const double rise = point.relative - before.relative;
            if (rise <= 0.0)
                return point.loadKPa;
            const double part = (leastRelativeSubsidence - before.relative) / rise;
            return before.loadKPa + std::max(0.0, part) * (point.loadKPa - before.loadKPa);
        }
        before = point;
    }
    return std::nullopt;
}

double ownWeightCoefficient(double thicknessM)
{
    return tableValue(coefficientThickness, coefficientValues, thicknessM).value;
}

double foundationCoefficient(double widthM, double pressureKPa, double initialPressureKPa)
{
    const double narrow = 0.5 + 1.5 * (pressureKPa - initialPressureKPa) / coefficientPressure;
    const double values[] = {narrow, 1.0};
    return tableValue(coefficientWidths, values, widthM).value;
}

SubsidenceType subsidenceType(double totalCm)
{
    return totalCm > greatestTypeOneCm + sameValue ? SubsidenceType::II : SubsidenceType::I;
}

std::wstring_view subsidenceGrade(double relative, int language)
{
    struct Row {
        double upTo;
        std::wstring_view names[2]; // Russian, Ukrainian
    };
    constexpr Row rows[] = {
        {0.03, {L"слабопросадочный", L"слабопросідний"}},
        {0.07, {L"среднепросадочный", L"середньопросідний"}},
        {0.12, {L"сильнопросадочный", L"сильнопросідний"}},
        {1e9, {L"чрезвычайно просадочный", L"надзвичайно просідний"}},
    };
    if (!isSubsiding(relative))
        return {};
    const Row& found = *std::ranges::find_if(rows, [&](const Row& row) { return relative <= row.upTo; });
    return found.names[languagePlace(language)];
}

Subsidence subsidenceByOwnWeight(std::span<const CollapsibleLayer> layers, double greatestPartM)
{
    Subsidence result;
    remarkLayers(layers, result.remarks);
    for (std::size_t i = 0; i < layers.size(); ++i) {
        const CollapsibleLayer& layer = layers[i];
        const Number pressure = pressureOf(layer);
        if (pressure && (!result.initialPressureKPa || *pressure < *result.initialPressureKPa))
            result.initialPressureKPa = pressure;
        forParts(layer.fromM, layer.toM, greatestPartM, [&](double from, double to) {
            SubsidencePart part{from, to, i, ownStress(layers, (from + to) / 2.0), {}, {}};
            if (part.stressKPa)
                if (const auto value = relativeSubsidence(layer.curve, *part.stressKPa)) {
                    part.relative = value->relative;
                    part.subsidenceCm =
                        isSubsiding(part.relative) ? value->relative * (to - from) * 100.0 : 0.0;
                    if (value->isBeyond)
                        remarkBeyond(result.remarks, i);
                }
            result.parts.push_back(part);
        });
    }
    sumUp(result);
    return result;
}

void sumUp(Subsidence& result)
{
    result.lowerBoundaryM.reset();
    result.type.reset();
    double sum = 0.0;
    double thickness = 0.0;
    bool isKnown = false;
    for (const SubsidencePart& part : result.parts) {
        isKnown = isKnown || part.relative.has_value();
        if (!isSubsiding(part.relative))
            continue;
        sum += part.subsidenceCm.value_or(0.0);
        thickness += part.toM - part.fromM;
        result.lowerBoundaryM = part.toM;
    }
    if (!isKnown)
        return;
    result.thicknessM = thickness;
    result.coefficient = ownWeightCoefficient(thickness);
    result.totalCm = sum * *result.coefficient;
    // Soil that does not reach 0.01 under any load is no collapsible ground of either type.
    if (result.initialPressureKPa || *result.totalCm > 0.0)
        result.type = subsidenceType(*result.totalCm);
}

double stressShare(double widthM, double lengthM, double depthBelowBaseM)
{
    if (depthBelowBaseM <= 0.0)
        return 1.0;
    const double b = widthM / 2.0;
    const double z = depthBelowBaseM;
    if (lengthM <= 0.0)
        return 2.0 / std::numbers::pi * (std::atan(b / z) + b * z / (b * b + z * z));
    const double l = lengthM / 2.0;
    const double r = std::sqrt(l * l + b * b + z * z);
    return 2.0 / std::numbers::pi
        * (std::atan(l * b / (z * r)) + l * b * z / r * (1.0 / (l * l + z * z) + 1.0 / (b * b + z * z)));
}

FoundationSubsidence subsidenceUnderFoundation(
    std::span<const CollapsibleLayer> layers, const Foundation& foundation, double greatestPartM)
{
    FoundationSubsidence result;
    remarkLayers(layers, result.remarks);
    const Number atBase = ownStress(layers, foundation.depthM);
    if (!atBase || foundation.widthM <= 0.0)
        return result;
    double sum = 0.0;
    bool isKnown = false;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        const CollapsibleLayer& layer = layers[i];
        const Number pressure = pressureOf(layer);
        const double top = std::max(layer.fromM, foundation.depthM);
        forParts(top, layer.toM, greatestPartM, [&](double from, double to) {
            const double middle = (from + to) / 2.0;
            FoundationPart part{from, to, i, ownStress(layers, middle), {}, {}, {}};
            if (part.stressKPa) {
                const double below = middle - foundation.depthM;
                *part.stressKPa += stressShare(foundation.widthM, foundation.lengthM, below)
                    * (foundation.pressureKPa - *atBase);
                if (const auto value = relativeSubsidence(layer.curve, *part.stressKPa)) {
                    isKnown = true;
                    part.relative = value->relative;
                    part.subsidenceCm = 0.0;
                    if (value->isBeyond)
                        remarkBeyond(result.remarks, i);
                }
            }
            if (isSubsiding(part.relative) && pressure) {
                part.coefficient =
                    foundationCoefficient(foundation.widthM, foundation.pressureKPa, *pressure);
                part.subsidenceCm = std::max(0.0, *part.relative * (to - from) * 100.0 * *part.coefficient);
                sum += *part.subsidenceCm;
            }
            result.parts.push_back(part);
        });
    }
    if (isKnown)
        result.totalCm = sum;
    return result;
}
