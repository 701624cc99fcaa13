#include "common/register_memory.h"

#include "common/shared_by.h"
#include "core/base/reading_order.h"
#include "site/by_point.h"

#include <algorithm>
#include <functional>
#include <utility>

std::shared_ptr<RegisterMemory> RegisterMemory::of(TX_Modes mode, const ITellurixController* controller)
{
    return sharedBy<RegisterMemory>(std::pair(mode, controller));
}

bool RegisterMemory::turnTo(const IDBProject* project)
{
    if (project_ == project)
        return false;
    project_ = project;
    rows_.clear();
    return true;
}

void RegisterMemory::leave(const std::wstring& point)
{
    const auto known = rows_.find(point);
    if (known == rows_.end())
        return;
    RegisterRows& rows = known->second;
    rows.erase(std::remove_if(rows.begin(), rows.end(), std::mem_fn(&RegisterRow::isBlank)), rows.end());
    if (!hasProblem(point))
        rows_.erase(known);
}

bool RegisterMemory::hasProblem(const std::wstring& point) const
{
    const auto typed = rows_.find(point);
    return typed != rows_.end()
        && std::any_of(typed->second.begin(), typed->second.end(), std::mem_fn(&RegisterRow::isOpen));
}

QVector<ListedPoint> RegisterMemory::listedPoints(
    IDBProject& project, const DepthRegister& depthRegister) const
{
    DepthRegister::Counts counts = depthRegister.counts(project);
    for (const auto& [name, rows] : rows_)
        counts.emplace(name, 0);
    QVector<ListedPoint> points;
    for (const auto* point : inReadingOrder(project.getPointRegister())) {
        const PointKey& key = point->first;
        const auto counted = counts.find(key.pointName);
        points.append({QString::fromStdWString(key.pointName),
            key.pointKind,
            counted != counts.end() ? counted->second : 0,
            hasProblem(key.pointName)});
        if (counted != counts.end())
            counts.erase(counted);
    }
    // Rows whose point is not there any more are data all the same.
    const auto isBefore = [](const std::wstring& a, const std::wstring& b) { return standsBefore(a, b); };
    const std::map<std::wstring, int, decltype(isBefore)> others(counts.begin(), counts.end(), isBefore);
    for (const auto& [name, rows] : others)
        if (rows > 0 || hasProblem(name))
            points.append({QString::fromStdWString(name), 0, rows, hasProblem(name)});
    return points;
}

static void addOpenCells(QVector<RegisterMemory::OpenCell>& cells,
    const std::wstring& point,
    const RegisterRows& rows,
    const QVector<GridColumn>& columns)
{
    for (int row = 0; row < rows.size(); ++row)
        for (int column = 0; column < rows[row].problems.size(); ++column)
            if (const QString& problem = rows[row].problems[column]; !problem.isEmpty())
                cells.append({point,
                    rows[row].id,
                    column,
                    QStringLiteral("Точка %1, строка %2, «%3»: %4")
                        .arg(QString::fromStdWString(point))
                        .arg(row + 1)
                        .arg(columns[column].title, problem)
                        .replace(QLatin1Char('\n'), QLatin1Char(' '))});
}

QVector<RegisterMemory::OpenCell> RegisterMemory::openCells(
    const std::wstring& onView, const QVector<GridColumn>& columns) const
{
    QVector<OpenCell> cells;
    if (const auto rows = rows_.find(onView); rows != rows_.end())
        addOpenCells(cells, onView, rows->second, columns);
    for (const auto& [point, rows] : rows_)
        if (point != onView)
            addOpenCells(cells, point, rows, columns);
    return cells;
}
