#include "common/section_data.h"

#include "common/number_sort_proxy.h"
#include "modules/idbproject.h"

#include <algorithm>
#include <cmath>

namespace
{

struct Place {
    double x = 0;
    double y = 0;
    double mark = 0;
    QString markText;
};

bool readPlace(const PointRow& row, Place& place)
{
    place.markText = QString::fromStdWString(row.absoluteMark);
    return readNumber(QString::fromStdWString(row.text0), place.x)
        && readNumber(QString::fromStdWString(row.text1), place.y) && readNumber(place.markText, place.mark);
}

const PointRow* firstRow(const PointRegister& points, const std::wstring& name)
{
    for (const auto& [key, rows] : points)
        if (key.pointName == name && !rows.empty())
            return &rows.front();
    return nullptr;
}

DrawnPoint drawnPoint(IDBProject& project, const std::wstring& name, double distance, const Place& place)
{
    return {QString::fromStdWString(name),
        distance,
        place.mark,
        drawnLayers(project, name, place.markText.toStdWString()),
        drawnWaters(project, name)};
}

// The soil, where it has a pattern, with the index that tells two layers of a soil apart.
bool areAlike(const DrawnLayer& a, const DrawnLayer& b)
{
    if (a.index.trimmed() != b.index.trimmed())
        return false;
    return a.hatch != 0 || b.hatch != 0 ? a.hatch == b.hatch : a.description == b.description;
}

} // namespace

DrawnSection sectionOfLine(IDBProject& project, const std::vector<std::wstring>& line)
{
    DrawnSection section;
    Place last;
    double distance = 0;
    for (const std::wstring& name : line) {
        const PointRow* row = firstRow(project.getPointRegister(), name);
        Place place;
        if (!row || !readPlace(*row, place)) {
            section.leftOut.append(QString::fromStdWString(name));
            continue;
        }
        if (!section.points.isEmpty())
            distance += std::hypot(place.x - last.x, place.y - last.y);
        last = place;
        section.points.append(drawnPoint(project, name, distance, place));
    }
    return section;
}

DrawnSection sectionAlongAxis(IDBProject& project, bool isAlongY)
{
    DrawnSection section;
    section.isLine = false;
    for (const auto& [key, rows] : project.getPointRegister()) {
        Place place;
        if (rows.empty() || !readPlace(rows.front(), place)) {
            section.leftOut.append(QString::fromStdWString(key.pointName));
            continue;
        }
        DrawnPoint point = drawnPoint(project, key.pointName, isAlongY ? place.y : place.x, place);
        if (!point.layers.isEmpty())
            section.points.append(point);
    }
    std::stable_sort(section.points.begin(),
        section.points.end(),
        [](const DrawnPoint& a, const DrawnPoint& b) { return a.distance < b.distance; });
    const double first = section.points.isEmpty() ? 0 : section.points.first().distance;
    for (DrawnPoint& point : section.points)
        point.distance -= first;
    return section;
}

QVector<std::pair<int, int>> joinedLayers(const DrawnPoint& left, const DrawnPoint& right)
{
    const int lefts = left.layers.size();
    const int rights = right.layers.size();
    // The longest common subsequence of what is left below each pair of layers.
    QVector<int> longest((lefts + 1) * (rights + 1), 0);
    const auto at = [&](int a, int b) -> int& { return longest[a * (rights + 1) + b]; };
    for (int a = lefts - 1; a >= 0; --a)
        for (int b = rights - 1; b >= 0; --b)
            at(a, b) = areAlike(left.layers[a], right.layers[b]) ? at(a + 1, b + 1) + 1
                                                                 : std::max(at(a + 1, b), at(a, b + 1));
    QVector<std::pair<int, int>> joined;
    for (int a = 0, b = 0; a < lefts && b < rights && at(a, b) > 0;) {
        if (areAlike(left.layers[a], right.layers[b]))
            joined.append({a++, b++});
        else if (at(a + 1, b) >= at(a, b + 1))
            joined.append({a++, -1});
        else
            joined.append({-1, b++});
    }
    return joined;
}
