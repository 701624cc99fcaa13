#include "calc/parallel_determinations.h"

#include <algorithm>
#include <iterator>

namespace
{

// GOST 5180-2015, annex A. Moistures in per cent: above the bound so many percentage points.
struct MoistureRow {
    int property;
    double above;
    double permitted;
};
constexpr MoistureRow moistureRows[] = {
    {0, 100, 5.0},
    {0, 50, 4.0},
    {0, 10, 2.0},
    {0, 5, 0.6},
    {0, -1, 0.2},
    {3, 80, 4.0},
    {3, -1, 2.0},
    {4, 40, 4.0},
    {4, -1, 2.0},
};

} // namespace

Number moistureOf(const Weighing& weighing)
{
    if (!weighing.container || !weighing.wet || !weighing.dry || *weighing.dry <= *weighing.container
        || *weighing.wet < *weighing.dry)
        return {};
    return (*weighing.wet - *weighing.dry) / (*weighing.dry - *weighing.container);
}

Number permittedDifference(int property, double mean, bool isSand)
{
    if (property == 1)
        return isSand ? 0.04 : 0.03;
    if (property == 2)
        return mean < 2.75 ? 0.02 : 0.03;
    const auto row =
        std::find_if(std::begin(moistureRows), std::end(moistureRows), [&](const MoistureRow& each) {
            // The upper border of 80 and 40 per cent belongs to the wetter soils.
            const double percent = roundedTo(100 * mean, 6);
            return each.property == property
                && (property == 0 ? percent > each.above : percent >= each.above);
        });
    return row == std::end(moistureRows) ? Number() : Number(row->permitted / 100);
}

ParallelMean parallelMean(const std::vector<Number>& values, int property, bool isSand)
{
    ParallelMean result;
    double sum = 0;
    int count = 0;
    Number least;
    Number greatest;
    for (const Number& value : values)
        if (value) {
            sum += *value;
            ++count;
            least = std::min(least.value_or(*value), *value);
            greatest = std::max(greatest.value_or(*value), *value);
        }
    if (count == 0)
        return result;
    result.mean = sum / count;
    if (count < 2)
        return result;
    result.difference = *greatest - *least;
    result.permitted = permittedDifference(property, *result.mean, isSand);
    result.agrees = result.permitted && roundedTo(*result.difference, 6) <= roundedTo(*result.permitted, 6);
    return result;
}
