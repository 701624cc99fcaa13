#include "calc/sounding.h"

#include "calc/linear_table.h"

#include <algorithm>
#include <cmath>
#include <numbers>

double circleAreaCm2(double diameterM)
{
    const double diameterCm = diameterM * 100.0;
    return std::numbers::pi * diameterCm * diameterCm / 4.0;
}

double cylinderAreaCm2(double diameterM, double heightM)
{
    return std::numbers::pi * diameterM * heightM * 10000.0;
}

// 1 kN on 1 cm2 is 10 MPa, or 10,000 kPa.
double coneResistanceMPa(double forceKN, double areaCm2)
{
    return forceKN * 10.0 / areaCm2;
}

double sleeveResistanceKPa(double forceKN, double areaCm2)
{
    return forceKN * 10000.0 / areaCm2;
}

Number frictionRatio(const Number& qcMPa, const Number& fsKPa)
{
    if (!qcMPa || !fsKPa || *qcMPa <= 0.0)
        return std::nullopt;
    return 100.0 * *fsKPa / (1000.0 * *qcMPa);
}

Spread spreadOf(std::span<const Number> values)
{
    std::vector<double> known;
    known.reserve(values.size());
    for (const Number& value : values)
        if (value)
            known.push_back(*value);
    return spreadOf(std::span<const double>(known));
}

Spread spreadOf(std::span<const double> values)
{
    Spread statistics;
    statistics.n = static_cast<std::uint32_t>(values.size());
    if (values.empty())
        return statistics;
    double sum = 0.0;
    for (const double value : values)
        sum += value;
    const double n = static_cast<double>(values.size());
    const double mean = sum / n;
    statistics.mean = mean;
    statistics.least = *std::ranges::min_element(values);
    statistics.greatest = *std::ranges::max_element(values);
    if (values.size() < 2)
        return statistics;
    double squares = 0.0;
    for (const double value : values)
        squares += (value - mean) * (value - mean);
    statistics.deviation = std::sqrt(squares / (n - 1.0));
    if (mean != 0.0)
        statistics.variation = *statistics.deviation / std::abs(mean);
    return statistics;
}

namespace
{

// SP 446.1325800.2019, annex Ж. All figures second-hand: nobody here has held them against the printed
// tables, which is why results say that they are to be checked.

// Table Ж.1: density of sands, from which qc on, MPa.
struct DensityRow {
    bool (*takes)(const SoundedSoil&);
    double dense;
    double medium;
};
constexpr DensityRow densityRows[] = {
    {[](const SoundedSoil& s) { return s.grain == SoundedSoil::Coarse || s.grain == SoundedSoil::Medium; },
        15.0,
        5.0},
    {[](const SoundedSoil& s) { return s.grain == SoundedSoil::Fine; }, 12.0, 4.0},
    {[](const SoundedSoil& s) {
         return s.grain == SoundedSoil::Silty && s.wetness == SoundedSoil::NotSaturated;
     },
        10.0,
        3.0},
    {[](const SoundedSoil& s) {
         return s.grain == SoundedSoil::Silty && s.wetness == SoundedSoil::Saturated;
     },
        7.0,
        2.0},
};

// Table Ж.2: modulus of sands, MPa.
constexpr double sandQc[] = {2, 4, 6, 8, 10, 12, 14, 16, 18, 20};
constexpr double sandModulus[] = {6, 12, 18, 24, 30, 36, 42, 48, 54, 60};
constexpr double alluvialModulus[] = {17, 20, 22, 25, 28, 30, 33, 36, 38, 41};

// Table Ж.3: angle of friction of sands, degrees, at 2 m and from 5 m of depth on.
constexpr double phiQc[] = {1.5, 3, 5, 8, 12, 18, 26};
constexpr double phiShallow[] = {28, 30, 32, 34, 36, 38, 40};
constexpr double phiDeep[] = {26, 28, 30, 32, 34, 36, 38};
constexpr double phiDepths[] = {2.0, 5.0};

// Table Ж.4: clays. The edition with change 1 has no sandy loam any more.
constexpr double clayQc[] = {1, 2, 3, 4, 5, 6, 7};
struct ClayRow {
    SoundedSoil::Kind kind;
    SoundedSoil::State state;
    double modulus[7];
    double phi[7];
    double cohesion[7];
};
constexpr ClayRow clayRows[] = {
    {SoundedSoil::Loam,
        SoundedSoil::Hard,
        {7, 11, 15, 18, 22, 26, 30},
        {17, 21, 23, 25, 26, 27, 28},
        {15, 18, 21, 23, 25, 28, 30}},
    {SoundedSoil::Loam,
        SoundedSoil::SemiHard,
        {4, 7, 10, 13, 16, 19, 22},
        {14, 17, 19, 21, 22, 23, 24},
        {12, 15, 18, 20, 22, 24, 26}},
    {SoundedSoil::Loam,
        SoundedSoil::StiffPlastic,
        {3, 5, 8, 10, 12, 15, 18},
        {12, 14, 16, 18, 19, 20, 21},
        {10, 12, 14, 16, 18, 20, 22}},
    {SoundedSoil::Clay,
        SoundedSoil::Hard,
        {7, 12, 16, 20, 25, 29, 34},
        {19, 22, 24, 26, 27, 28, 29},
        {25, 31, 36, 41, 46, 51, 56}},
    {SoundedSoil::Clay,
        SoundedSoil::SemiHard,
        {5, 9, 13, 16, 20, 23, 27},
        {17, 19, 21, 22, 23, 24, 25},
        {18, 23, 28, 33, 38, 43, 48}},
    {SoundedSoil::Clay,
        SoundedSoil::StiffPlastic,
        {3, 5, 8, 11, 14, 17, 20},
        {14, 16, 18, 19, 20, 21, 22},
        {12, 16, 21, 25, 30, 34, 39}},
};

// Liquidity index IL = -a ln(fs, MPa) - b, fitted to the table of SP 11-105-97, annex И (text not seen).
constexpr double liquidityQc[] = {1, 2, 3, 5, 8, 10, 12, 15, 20};
constexpr double liquidityA[] = {.14702, .15039, .09630, .06703, .05142, .04756, .04132, .03643, .02254};
constexpr double liquidityB[] = {.07990, .21988, .15286, .17417, .18850, .20180, .20827, .22542, .22460};
constexpr double leastClayRatio = 0.9; // per cent

void remarkOutside(SoundedProperties& result, bool isOutside)
{
    if (isOutside)
        result.remarks.push_back({Remark::Doubtful,
            "qc",
            L"qc вне пределов таблицы СП 446.1325800, приложение Ж: взято крайнее значение"});
}

std::optional<SandDensity> sandDensity(const SoundedSoil& soil, double qcMPa)
{
    for (const DensityRow& row : densityRows)
        if (row.takes(soil))
            return qcMPa >= row.dense ? SandDensity::Dense
                : qcMPa >= row.medium ? SandDensity::Medium
                                      : SandDensity::Loose;
    return std::nullopt;
}

SoundedProperties sandProperties(const SoundedSoil& soil, double qcMPa, double depthM)
{
    SoundedProperties result;
    result.density = sandDensity(soil, qcMPa);
    if (!result.density)
        result.remarks.push_back({Remark::Missing,
            "soil",
            L"Крупность или водонасыщение песка не названы: плотность не определена"});
    const TableValue modulus = tableValue(sandQc, soil.isAlluvial ? alluvialModulus : sandModulus, qcMPa);
    const TableValue shallow = tableValue(phiQc, phiShallow, qcMPa);
    const double phi[] = {shallow.value, tableValue(phiQc, phiDeep, qcMPa).value};
    result.modulusMPa = modulus.value;
    result.phiDegrees = tableValue(phiDepths, phi, depthM).value;
    remarkOutside(result, modulus.isOutside || shallow.isOutside);
    return result;
}

} // namespace

const char* sandDensityName(SandDensity density)
{
    return density == SandDensity::Dense ? "dense" : density == SandDensity::Medium ? "medium" : "loose";
}

SoundedProperties soundedProperties(const SoundedSoil& soil, double qcMPa, double depthM)
{
    if (soil.kind == SoundedSoil::Sand)
        return sandProperties(soil, qcMPa, depthM);
    SoundedProperties result;
    for (const ClayRow& row : clayRows) {
        if (row.kind != soil.kind || row.state != soil.state)
            continue;
        const TableValue modulus = tableValue(clayQc, row.modulus, qcMPa);
        result.modulusMPa = modulus.value;
        result.phiDegrees = tableValue(clayQc, row.phi, qcMPa).value;
        result.cohesionKPa = tableValue(clayQc, row.cohesion, qcMPa).value;
        remarkOutside(result, modulus.isOutside);
        return result;
    }
    result.remarks.push_back({Remark::Missing,
        "soil",
        soil.kind == SoundedSoil::UnknownKind
            ? L"Вид грунта не задан"
            : L"Для этого грунта таблицы нет (СП 446.1325800, приложение Ж)"});
    return result;
}

Number liquidityBySounding(const Number& qcMPa, const Number& fsKPa)
{
    const Number ratio = frictionRatio(qcMPa, fsKPa);
    if (!ratio || *ratio < leastClayRatio)
        return std::nullopt;
    const double a = tableValue(liquidityQc, liquidityA, *qcMPa).value;
    const double b = tableValue(liquidityQc, liquidityB, *qcMPa).value;
    return -a * std::log(*fsKPa / 1000.0) - b;
}

namespace
{

// Robertson P.K. (1990), zones by the index of Robertson and Wride (1998): below which index a zone lies.
struct BehaviourRow {
    double below;
    int zone;
    std::wstring_view name;
};
constexpr BehaviourRow behaviourRows[] = {
    {1.31, 7, L"песок гравелистый до плотного"},
    {2.05, 6, L"песок чистый до пылеватого"},
    {2.60, 5, L"песок пылеватый до супеси"},
    {2.95, 4, L"супесь до суглинка"},
    {3.60, 3, L"суглинок до глины"},
    {1e9, 2, L"органический грунт"},
};

} // namespace

std::optional<BehaviourType> behaviourType(
    const Number& qcMPa, const Number& fsKPa, double totalStressKPa, double effectiveStressKPa)
{
    if (!qcMPa || !fsKPa || *fsKPa <= 0.0 || effectiveStressKPa <= 0.0)
        return std::nullopt;
    const double net = *qcMPa * 1000.0 - totalStressKPa;
    if (net <= 0.0)
        return std::nullopt;
    const double resistance = std::log10(net / effectiveStressKPa);
    const double friction = std::log10(100.0 * *fsKPa / net);
    BehaviourType type;
    type.index = std::hypot(3.47 - resistance, friction + 1.22);
    type.zone = std::ranges::find_if(behaviourRows, [&](const BehaviourRow& row) {
        return type.index < row.below;
    })->zone;
    return type;
}

std::wstring_view behaviourName(int zone)
{
    for (const BehaviourRow& row : behaviourRows)
        if (row.zone == zone)
            return row.name;
    return {};
}
