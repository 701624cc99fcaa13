#include "calc/standard_tables.h"

#include <algorithm>
#include <array>

namespace
{

// Void ratios compare as they are typed, not as binary fractions.
double typed(double number)
{
    return roundedTo(number, 6);
}

Number valueAt(const StandardRow& row, double voidRatio)
{
    if (row.isSingle)
        return row.values.front().second;
    const double place = typed(voidRatio);
    if (place < row.values.front().first || place > row.values.back().first)
        return {};
    for (std::size_t next = 0; next < row.values.size(); ++next) {
        const auto& [to, value] = row.values[next];
        if (place == to)
            return value;
        if (place < to) {
            const auto& [from, before] = row.values[next - 1];
            return before + (place - from) / (to - from) * (value - before);
        }
    }
    return {};
}

// Ranges include their upper bound.
bool covers(const StandardRow& row, const Number& liquidity)
{
    if (!row.liquidityFrom || !row.liquidityTo)
        return true;
    if (!liquidity)
        return false;
    const double index = typed(*liquidity);
    return index <= *row.liquidityTo && (index > *row.liquidityFrom || *row.liquidityFrom == 0);
}

// Of GOST 25100 (second-hand), the upper bounds included: dense, of medium density.
struct DensityRow {
    TableSoil soil;
    double dense;
    double medium;
};
constexpr DensityRow densityRows[] = {
    {TableSoil::CoarseSand, 0.55, 0.70},
    {TableSoil::MediumSand, 0.55, 0.70},
    {TableSoil::FineSand, 0.60, 0.75},
    {TableSoil::SiltySand, 0.60, 0.80},
};

std::wstring_view moistureOf(double saturation)
{
    if (saturation <= 0.5)
        return L"маловлажный";
    return saturation <= 0.8 ? L"влажный" : L"насыщенный";
}

} // namespace

bool isSand(TableSoil soil)
{
    return soil <= TableSoil::SiltySand;
}

std::optional<int> sandDensity(TableSoil soil, const Number& voidRatio)
{
    const auto* row = std::ranges::find(densityRows, soil, &DensityRow::soil);
    if (row == std::end(densityRows) || !voidRatio)
        return std::nullopt;
    const double e = typed(*voidRatio);
    if (e <= row->dense)
        return 2;
    return e <= row->medium ? 1 : 0;
}

const StandardRow* StandardTables::rowOf(
    TableQuantity quantity, TableSoil soil, const Number& liquidity) const
{
    const auto row = std::ranges::find_if(rows_, [&](const StandardRow& each) {
        return each.quantity == quantity && each.condition.empty()
            && (each.soil == soil || (each.soil == TableSoil::AnySand && isSand(soil)))
            && covers(each, liquidity);
    });
    return row == rows_.end() ? nullptr : &*row;
}

const StandardRow* StandardTables::rowOf(
    TableQuantity quantity, TableSoil soil, std::wstring_view condition) const
{
    const auto row = std::ranges::find_if(rows_, [&](const StandardRow& each) {
        return each.quantity == quantity && each.soil == soil && each.condition == condition;
    });
    return row == rows_.end() ? nullptr : &*row;
}

Number StandardTables::value(TableQuantity quantity, const TableState& state) const
{
    const StandardRow* row = rowOf(quantity, state.soil, state.liquidity);
    return row && state.voidRatio ? valueAt(*row, *state.voidRatio) : Number();
}

double StandardTables::reliability(TableQuantity quantity, TableSoil soil) const
{
    const TableQuantity factor = quantity == TableQuantity::Cohesion ? TableQuantity::CohesionFactor
        : quantity == TableQuantity::Friction                        ? TableQuantity::FrictionFactor
                                                                     : TableQuantity::ModulusFactor;
    const StandardRow* row = rowOf(factor, soil, Number());
    return row ? row->values.front().second : 1;
}

Number StandardTables::lateralExpansion(int kind) const
{
    constexpr std::array kinds = {TableSoil::AnySand, TableSoil::SandyLoam, TableSoil::Loam, TableSoil::Clay};
    if (kind < 1 || kind > static_cast<int>(kinds.size()))
        return {};
    const StandardRow* row =
        rowOf(TableQuantity::LateralExpansion, kinds[static_cast<std::size_t>(kind - 1)], Number());
    return row ? Number(row->values.front().second) : Number();
}

StandardTables::Factor StandardTables::oedometerFactor(TableQuantity quantity, const TableState& state) const
{
    const StandardRow* row = rowOf(quantity, state.soil, state.liquidity);
    if (!row || !state.voidRatio)
        return {};
    const double inside =
        std::clamp(typed(*state.voidRatio), row->values.front().first, row->values.back().first);
    return {valueAt(*row, inside), !row->isSingle && inside != typed(*state.voidRatio)};
}

Number StandardTables::clayResistance(const TableState& state) const
{
    if (!state.voidRatio || !state.liquidity)
        return {};
    // Between the rows of the two states that stand next to the liquidity.
    const double index = std::max(typed(*state.liquidity), 0.0);
    const StandardRow* below = nullptr;
    const StandardRow* above = nullptr;
    for (const StandardRow& row : rows_) {
        if (row.quantity != TableQuantity::Resistance || row.soil != state.soil || !row.liquidityFrom)
            continue;
        const double at = *row.liquidityFrom;
        if (at <= index && (!below || at > *below->liquidityFrom))
            below = &row;
        if (at >= index && (!above || at < *above->liquidityFrom))
            above = &row;
    }
    if (!below || !above)
        return {};
    const Number harder = valueAt(*below, *state.voidRatio);
    const Number softer = valueAt(*above, *state.voidRatio);
    if (!harder || !softer)
        return {};
    const double span = *above->liquidityFrom - *below->liquidityFrom;
    return span == 0 ? harder
                     : Number(*harder + (index - *below->liquidityFrom) / span * (*softer - *harder));
}

Number StandardTables::resistance(const TableState& state) const
{
    using enum TableSoil;
    const StandardRow* row = nullptr;
    switch (state.soil) {
    case SandyLoam:
    case Loam:
    case Clay:
        return clayResistance(state);
    case Pebbles:
    case Gravel:
        if (state.isFilledWithSand)
            row = rowOf(TableQuantity::Resistance, state.soil, L"песок");
        else if (state.liquidity)
            row = rowOf(TableQuantity::Resistance, state.soil, state.liquidity);
        break;
    default: {
        const std::optional<int> density = sandDensity(state.soil, state.voidRatio);
        const bool byMoisture = state.soil == FineSand || state.soil == SiltySand;
        if (!density || *density == 0 || (byMoisture && !state.saturation))
            return {};
        std::wstring condition = byMoisture ? std::wstring(moistureOf(*state.saturation)) + L", " : L"";
        condition += *density == 2 ? L"плотный" : L"средней плотности";
        row = rowOf(TableQuantity::Resistance, state.soil, condition);
    }
    }
    return row ? Number(row->values.front().second) : Number();
}
