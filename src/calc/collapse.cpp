#include "calc/collapse.h"

#include <algorithm>
#include <iterator>

namespace
{

constexpr double threshold = 0.01; // of a collapsible soil

std::string cellOf(const Oedometer& test, int row)
{
    return "compression/" + std::to_string(test.test) + "/" + std::to_string(row);
}

void findRows(const Oedometer& test, Collapse& result)
{
    for (const OedometerRow& row : test.rows) {
        if (!row.strain || !row.soakedStrain || row.isRepeated)
            continue;
        const double relative = (*row.soakedStrain - *row.strain) * *test.height / *result.naturalHeight;
        result.rows.push_back({row.load, relative});
        if (relative < -1e-9)
            result.remarks.push_back({Remark::Doubtful,
                cellOf(test, row.row),
                L"Относительная просадочность отрицательна: образец набухал при замачивании"});
    }
}

// Linear between the stages, the first piece from the origin.
void findInitialPressure(const Oedometer& test, Collapse& result)
{
    CollapseRow before;
    int crossings = 0;
    for (const CollapseRow& row : result.rows) {
        const double relative = roundedTo(row.relative, 9);
        if (before.relative < threshold && relative >= threshold) {
            if (crossings++ == 0)
                result.initialPressure = before.load
                    + (row.load - before.load) * (threshold - before.relative) / (relative - before.relative);
        }
        before = {row.load, relative};
    }
    if (crossings > 1)
        result.remarks.push_back({Remark::Doubtful,
            cellOf(test, 0),
            L"Относительная просадочность переходит через 0.01 несколько раз; взят первый переход"});
}

} // namespace

Collapse collapseOf(const Oedometer& test, const Number& naturalStress)
{
    Collapse result;
    if (std::ranges::find(collapseTests, test.test) == std::end(collapseTests))
        return result;
    result.naturalStress = naturalStress;
    if (!naturalStress || !test.height)
        return result;
    const Number strain = strainAt(test, *naturalStress, Branch::Natural);
    if (!strain) {
        if (!test.rows.empty())
            result.remarks.push_back({Remark::Missing,
                cellOf(test, test.rows.back().row),
                L"Природное давление больше последней ступени: относительная просадочность не вычислена"});
        return result;
    }
    result.naturalHeight = *test.height * (1 - *strain);
    findRows(test, result);
    findInitialPressure(test, result);
    return result;
}

int collapseClass(double relative)
{
    constexpr double bounds[] = {0.01, 0.03, 0.07, 0.12};
    return static_cast<int>(
        std::count_if(std::begin(bounds), std::end(bounds), [&](double bound) { return relative >= bound; }));
}
