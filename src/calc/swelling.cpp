#include "calc/swelling.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{

constexpr double pistonLoad = 0.0025; // MPa

std::string cellOf(int row)
{
    return "swelling/" + std::to_string(row);
}

Number relativeOf(const SwellingStage& stage, const Number& height, Number& absolute)
{
    absolute = stage.absolute;
    if (!absolute && stage.height && height)
        absolute = *stage.height - *height;
    Number before = height;
    if (!before && stage.height && stage.absolute)
        before = *stage.height - *stage.absolute;
    if (absolute && before && *before > 0)
        return *absolute / *before;
    return stage.relative;
}

bool isPossible(const SwellingStage& stage, Swelling& result)
{
    if (stage.height && *stage.height <= 0) {
        result.remarks.push_back({Remark::Impossible, cellOf(stage.row), L"Высота образца не положительна"});
        return false;
    }
    if (stage.load < 0) {
        result.remarks.push_back({Remark::Impossible, cellOf(stage.row), L"Отрицательная нагрузка"});
        return false;
    }
    return true;
}

void markRepeated(Swelling& result)
{
    auto& rows = result.rows;
    for (std::size_t i = 1; i < rows.size(); ++i)
        if (rows[i].load - rows[i - 1].load < 1e-9) {
            rows[i].isRepeated = rows[i - 1].isRepeated = true;
            result.remarks.push_back({Remark::Impossible,
                cellOf(rows[i].row),
                L"Одна и та же нагрузка стоит дважды: свободное набухание и давление набухания не "
                L"вычислены"});
        }
}

void findPressure(Swelling& result)
{
    const auto& rows = result.rows;
    int crossings = 0;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (rows[i - 1].relative <= 0 || rows[i].relative > 0)
            continue;
        if (crossings++ == 0)
            result.pressure = rows[i - 1].load
                + (rows[i].load - rows[i - 1].load) * rows[i - 1].relative
                    / (rows[i - 1].relative - rows[i].relative);
    }
    if (crossings > 1)
        result.remarks.push_back({Remark::Doubtful,
            cellOf(rows.front().row),
            L"Кривая набухания пересекает ноль несколько раз; взято первое пересечение"});
}

} // namespace

Swelling swellingOf(const std::vector<SwellingStage>& stages, const Number& height)
{
    Swelling result;
    std::vector<SwellingStage> sorted = stages;
    std::stable_sort(sorted.begin(), sorted.end(), [](const SwellingStage& a, const SwellingStage& b) {
        return a.load < b.load;
    });
    for (const SwellingStage& stage : sorted) {
        Number absolute;
        const Number relative = relativeOf(stage, height, absolute);
        if (relative && isPossible(stage, result))
            result.rows.push_back({stage.load, absolute, *relative, false, stage.row});
    }
    markRepeated(result);
    if (result.rows.empty()
        || std::any_of(
            result.rows.begin(), result.rows.end(), [](const SwellingRow& row) { return row.isRepeated; }))
        return result;
    if (result.rows.front().load <= pistonLoad + 1e-9)
        result.free = result.rows.front().relative;
    findPressure(result);
    return result;
}

int swellingClass(double free)
{
    constexpr double bounds[] = {0.04, 0.08, 0.12};
    return static_cast<int>(
        std::count_if(std::begin(bounds), std::end(bounds), [&](double bound) { return free >= bound; }));
}
