#include "calc/piles.h"

#include "calc/confidence_tables.h"
#include "calc/linear_table.h"
#include "calc/sounding.h"
#include "dictionaries/pile_coefficients.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace
{

// Depths are decimals; this is how far two of them may differ and still be the same.
constexpr double sameDepth = 1e-9;

// SP 24.13330, table of the coefficients by probing (SNiP 2.02.03-85, table 15).
constexpr double tipCone[] = {1000, 2500, 5000, 7500, 10000, 15000, 20000, 30000};
constexpr double drivenTip[] = {0.90, 0.80, 0.65, 0.55, 0.45, 0.35, 0.30, 0.20};
constexpr double screwTip[] = {0.50, 0.45, 0.32, 0.26, 0.23, 0.23, 0.23, 0.23};
constexpr double shaftFriction[] = {20, 40, 60, 80, 100, 120};
constexpr double rodSand[] = {2.40, 1.65, 1.20, 1.00, 0.85, 0.75};
constexpr double rodClay[] = {1.50, 1.00, 0.75, 0.60, 0.50, 0.40};

bool isSand(PileSoil soil)
{
    return soil == PileSoil::Sand;
}

void remark(PileResistance& result, const char* cell, const wchar_t* text)
{
    result.remarks.push_back({Remark::Missing, cell, text});
}

// Mean of qc over the window, kPa.
Number meanCone(std::span<const PileReading> readings, double from, double to)
{
    double sum = 0.0;
    int n = 0;
    for (const PileReading& reading : readings)
        if (reading.qcMPa && reading.depthM >= from - sameDepth && reading.depthM <= to + sameDepth) {
            sum += *reading.qcMPa;
            ++n;
        }
    if (n == 0)
        return std::nullopt;
    return 1000.0 * sum / n;
}

double lastCone(std::span<const PileReading> readings)
{
    double last = -1.0;
    for (const PileReading& reading : readings)
        if (reading.qcMPa)
            last = std::max(last, reading.depthM);
    return last;
}

void addTip(PileResistance& result,
    const PileByProbe& pile,
    std::span<const PileReading> readings,
    double areaM2,
    double tipDepthM)
{
    const double width = pile.section.widthM();
    if (lastCone(readings) < tipDepthM + 4.0 * width - sameDepth)
        return remark(result, "tip", L"Зондирование не доходит до 4d ниже острия сваи");
    result.tipConeKPa = meanCone(readings, tipDepthM - width, tipDepthM + 4.0 * width);
    if (!result.tipConeKPa)
        return remark(result, "tip", L"У острия сваи нет отсчетов qc");
    double coefficient = tipCoefficient(*result.tipConeKPa, pile.isScrew);
    if (pile.isScrew && pile.isInSaturatedSand)
        coefficient /= 2.0;
    result.tipCoefficient = coefficient;
    result.tipKN = coefficient * *result.tipConeKPa * areaM2;
}

// Mean friction of the readings from..to; where the piece has none, of the reading nearest to its middle.
Number sleeveFriction(std::span<const PileReading> readings, double from, double to)
{
    double sum = 0.0;
    int n = 0;
    const PileReading* nearest = nullptr;
    const double middle = (from + to) / 2.0;
    for (const PileReading& reading : readings) {
        if (!reading.fsKPa)
            continue;
        if (!nearest || std::abs(reading.depthM - middle) < std::abs(nearest->depthM - middle))
            nearest = &reading;
        if (reading.depthM > from + sameDepth && reading.depthM <= to + sameDepth) {
            sum += *reading.fsKPa;
            ++n;
        }
    }
    if (n > 0)
        return sum / n;
    return nearest ? nearest->fsKPa : std::nullopt;
}

// Force on the rods at a depth, between two readings linear.
Number rodForce(std::span<const PileReading> readings, double depthM)
{
    const PileReading* above = nullptr;
    for (const PileReading& reading : readings) {
        if (!reading.sideForceKN)
            continue;
        if (std::abs(reading.depthM - depthM) <= sameDepth)
            return reading.sideForceKN;
        if (reading.depthM > depthM) {
            if (!above)
                return std::nullopt;
            const double part = (depthM - above->depthM) / (reading.depthM - above->depthM);
            return *above->sideForceKN + part * (*reading.sideForceKN - *above->sideForceKN);
        }
        above = &reading;
    }
    return std::nullopt;
}

// Whether the layers reach without a gap from the ground to the tip, each with its kind of soil.
bool isShaftKnown(PileResistance& result, std::span<const ShaftLayer> layers, double tipDepthM)
{
    double reached = 0.0;
    for (const ShaftLayer& layer : layers) {
        if (reached >= tipDepthM - sameDepth)
            break;
        if (layer.fromM > reached + sameDepth)
            break;
        if (layer.toM <= reached)
            continue;
        if (layer.soil == PileSoil::Unknown) {
            remark(result, "side", L"Вид грунта одного из слоев вдоль ствола не задан");
            return false;
        }
        reached = layer.toM;
    }
    if (reached >= tipDepthM - sameDepth)
        return true;
    remark(result, "side", L"Слои вдоль ствола известны не до острия сваи");
    return false;
}

// The sum of f by thickness over the layers that the shaft stands in; f of one piece from its kind of soil.
template <class Friction>
Number alongShaft(std::span<const ShaftLayer> layers, double tipDepthM, Friction friction)
{
    double sum = 0.0;
    for (const ShaftLayer& layer : layers) {
        const double from = std::max(layer.fromM, 0.0);
        const double to = std::min(layer.toM, tipDepthM);
        if (to - from <= sameDepth)
            continue;
        const Number f = friction(layer.soil, from, to);
        if (!f)
            return std::nullopt;
        sum += *f * (to - from);
    }
    return sum;
}

void addSide(PileResistance& result,
    const PileByProbe& pile,
    std::span<const PileReading> readings,
    std::span<const ShaftLayer> layers,
    double perimeterM,
    double tipDepthM)
{
    if (!isShaftKnown(result, layers, tipDepthM))
        return;
    Number sum;
    if (pile.probeType == 1) {
        const Number force = rodForce(readings, tipDepthM);
        if (!force)
            return remark(result, "side", L"На глубине острия нет отсчета Qs");
        const double fs = *force / (std::numbers::pi * pile.rodDiameterM * tipDepthM);
        sum = alongShaft(layers, tipDepthM, [&](PileSoil soil, double, double) -> Number {
            return rodCoefficient(fs, isSand(soil)) * fs;
        });
    } else {
        sum = alongShaft(layers, tipDepthM, [&](PileSoil soil, double from, double to) -> Number {
            const Number fs = sleeveFriction(readings, from, to);
            if (!fs)
                return std::nullopt;
            return sleeveCoefficient(*fs, isSand(soil), pile.variant) * *fs;
        });
    }
    if (!sum)
        return remark(result, "side", L"Вдоль ствола нет отсчетов fs");
    result.shaftKPa = *sum / tipDepthM;
    result.sideKN = *sum * perimeterM;
}

} // namespace

Number PileSection::areaM2() const
{
    if (sideM <= 0.0)
        return std::nullopt;
    if (form == Round)
        return std::numbers::pi * sideM * sideM / 4.0;
    if (form == Square)
        return sideM * sideM;
    if (form == Rectangular && secondSideM > 0.0)
        return sideM * secondSideM;
    return std::nullopt;
}

Number PileSection::perimeterM() const
{
    if (sideM <= 0.0)
        return std::nullopt;
    if (form == Round)
        return std::numbers::pi * sideM;
    if (form == Square)
        return 4.0 * sideM;
    if (form == Rectangular && secondSideM > 0.0)
        return 2.0 * (sideM + secondSideM);
    return std::nullopt;
}

double PileSection::widthM() const
{
    return form == Rectangular ? std::max(sideM, secondSideM) : sideM;
}

Number PileResistance::totalKN() const
{
    if (!tipKN || !sideKN)
        return std::nullopt;
    return *tipKN + *sideKN;
}

double tipCoefficient(double qsKPa, bool isScrew)
{
    return tableValue(tipCone, isScrew ? screwTip : drivenTip, qsKPa).value;
}

double sleeveCoefficient(double fsKPa, bool isSand, int variant)
{
    std::array<double, std::size(pileDepthCoefficients)> steps{};
    std::array<double, std::size(pileDepthCoefficients)> values{};
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const PileDepthRow& row = pileDepthCoefficients[i];
        steps[i] = row.step;
        values[i] = (isSand ? row.second : row.first)[variant == 0 ? 0 : 1];
    }
    return tableValue(steps, values, fsKPa).value;
}

double rodCoefficient(double fsKPa, bool isSand)
{
    return tableValue(shaftFriction, isSand ? rodSand : rodClay, fsKPa).value;
}

PileResistance pileResistance(const PileByProbe& pile,
    std::span<const PileReading> readings,
    std::span<const ShaftLayer> layers,
    double tipDepthM)
{
    PileResistance result;
    const Number area = pile.section.areaM2();
    const Number perimeter = pile.section.perimeterM();
    if (!area || !perimeter) {
        remark(result, "section", L"Размеры сечения сваи не заданы");
        return result;
    }
    if (tipDepthM <= 0.0) {
        remark(result, "tip", L"Острие сваи должно лежать ниже поверхности");
        return result;
    }
    addTip(result, pile, readings, *area, tipDepthM);
    addSide(result, pile, readings, layers, *perimeter, tipDepthM);
    return result;
}

PileResistance boredPileResistance(
    const BoredPile& pile, std::span<const BoredLayer> layers, double tipDepthM)
{
    PileResistance result;
    const Number area = pile.section.areaM2();
    const Number perimeter = pile.section.perimeterM();
    if (!area || !perimeter || pile.kind < 0 || pile.kind > 8) {
        remark(result, "section", L"Размеры сечения или вид сваи не заданы");
        return result;
    }
    double from = 0.0;
    double sum = 0.0;
    bool isSideKnown = tipDepthM > 0.0;
    for (const BoredLayer& layer : layers) {
        if (from >= tipDepthM - sameDepth || layer.toM <= from)
            continue;
        const double to = std::min(layer.toM, tipDepthM);
        if (layer.shaftKPa && layer.soil != PileSoil::Unknown) {
            const int cell = pile.kind * 4 + static_cast<int>(layer.soil) - 1;
            sum += readNumber(pileConditionCoefficient(cell)).value_or(0.0) * *layer.shaftKPa * (to - from);
        } else {
            isSideKnown = false;
        }
        if (layer.toM >= tipDepthM - sameDepth && layer.tipKPa)
            result.tipKN = pile.condition * pile.tipCondition * *layer.tipKPa * *area;
        from = to;
    }
    if (!result.tipKN)
        remark(result, "tip", L"Сопротивление R под острием не задано");
    if (!isSideKnown || from < tipDepthM - sameDepth) {
        remark(result, "side", L"Сопротивления f или виды грунта вдоль ствола заданы не до острия");
        return result;
    }
    result.shaftKPa = sum / tipDepthM;
    result.sideKN = pile.condition * *perimeter * sum;
    return result;
}

PileGroup pileGroup(std::span<const double> resistancesKN, const PileLoad& load)
{
    const Spread spread = spreadOf(resistancesKN);
    PileGroup group{spread.n, spread.mean, spread.deviation, spread.variation, {}, {}, {}};
    if (group.n == 0)
        return group;
    if (group.n < 6) {
        group.coefficient = 1.0;
        group.capacityKN = spread.least;
    } else {
        const Number t = studentCoefficient(static_cast<int>(group.n) - 1, 0.95);
        const double rho = *t * spread.variation.value_or(0.0) / std::sqrt(static_cast<double>(group.n));
        if (rho >= 1.0) // the spread is wider than the mean: no value has this confidence
            return group;
        group.coefficient = 1.0 / (1.0 - rho);
        group.capacityKN = *spread.mean / *group.coefficient;
    }
    if (load.importance > 0.0 && load.reliability > 0.0)
        group.loadKN = load.condition * *group.capacityKN / (load.importance * load.reliability);
    return group;
}
