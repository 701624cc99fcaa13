#include "common/section_data.h"

#include "common/number_sort_proxy.h"
#include "modules/idbproject.h"
#include "site/by_point.h"

#include <algorithm>
#include <cmath>

namespace
{

struct Mouth {
    double x = 0;
    double y = 0;
    double mark = 0;
    QString markText;
};

bool readMouth(const PointRow& row, Mouth& mouth)
{
    mouth.markText = QString::fromStdWString(row.absoluteMark);
    return readNumber(QString::fromStdWString(row.text0), mouth.x)
        && readNumber(QString::fromStdWString(row.text1), mouth.y) && readNumber(mouth.markText, mouth.mark);
}

// The registers by point, gathered once for all points of a section.
class Gathered
{
public:
    explicit Gathered(IDBProject& project)
    {
        for (const auto& [key, rows] : project.getPointRegister())
            if (!rows.empty())
                points_.try_emplace(key.pointName, &rows.front());
        for (auto& of : rowsByPoint(project.getLithology()))
            layers_.emplace(of.point, std::move(of.rows));
        for (auto& of : rowsByPoint(project.getWaterLevels()))
            waters_.emplace(of.point, std::move(of.rows));
    }

    bool findMouth(const std::wstring& name, Mouth& mouth) const
    {
        const auto found = points_.find(name);
        return found != points_.end() && readMouth(*found->second, mouth);
    }

    DrawnPoint point(const std::wstring& name, double distance, const Mouth& mouth) const
    {
        return {QString::fromStdWString(name),
            distance,
            mouth.mark,
            drawnLayers(foundOr(layers_, name), mouth.markText.toStdWString()),
            drawnWaters(foundOr(waters_, name))};
    }

private:
    std::unordered_map<std::wstring_view, const PointRow*> points_;
    std::unordered_map<std::wstring_view, LayerRows> layers_;
    std::unordered_map<std::wstring_view, WaterRows> waters_;
};

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
    const Gathered gathered(project);
    DrawnSection section;
    Mouth last;
    double distance = 0;
    for (const std::wstring& name : line) {
        Mouth mouth;
        if (!gathered.findMouth(name, mouth)) {
            section.leftOut.append(QString::fromStdWString(name));
            continue;
        }
        if (!section.points.isEmpty())
            distance += std::hypot(mouth.x - last.x, mouth.y - last.y);
        last = mouth;
        section.points.append(gathered.point(name, distance, mouth));
    }
    return section;
}

DrawnSection sectionAlongAxis(IDBProject& project, bool isAlongY)
{
    const Gathered gathered(project);
    DrawnSection section;
    section.isLine = false;
    for (const auto& [key, rows] : project.getPointRegister()) {
        Mouth mouth;
        if (!gathered.findMouth(key.pointName, mouth)) {
            section.leftOut.append(QString::fromStdWString(key.pointName));
            continue;
        }
        DrawnPoint point = gathered.point(key.pointName, isAlongY ? mouth.y : mouth.x, mouth);
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
