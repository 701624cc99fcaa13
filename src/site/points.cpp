#include "site/points.h"

#include "dictionaries/captions.h"
#include "modules/idbproject.h"

#include <algorithm>
#include <iterator>

namespace
{

struct KindNames {
    int kind;
    std::wstring_view name;
    std::wstring_view shortName;
};
constexpr KindNames kinds[] = {
    {1, L"Скважина", captions::boreholeShortRussian},
    {2, L"Шурф", captions::pit},
    {3, L"Зондирование", captions::soundingPointShort},
};

std::wstring nameOf(int kind, std::wstring_view KindNames::*name)
{
    const auto found = std::find_if(
        std::begin(kinds), std::end(kinds), [kind](const KindNames& names) { return names.kind == kind; });
    return found == std::end(kinds) ? std::to_wstring(kind) : std::wstring(found->*name);
}

} // namespace

std::wstring pointKindFullName(int kind)
{
    return nameOf(kind, &KindNames::name);
}

std::wstring pointKindShortName(int kind)
{
    return nameOf(kind, &KindNames::shortName);
}

static SitePoint pointOf(const PointRegister::value_type& entry)
{
    const auto& [key, rows] = entry;
    SitePoint point{.name = key.pointName};
    if (key.pointKind <= static_cast<std::uint8_t>(PointKind::Sounding))
        point.kind = static_cast<PointKind>(key.pointKind);
    if (!rows.empty()) {
        const PointRow& row = rows.front();
        point.x = readNumber(row.text0);
        point.y = readNumber(row.text1);
        point.mark = readNumber(row.absoluteMark);
        point.markText = row.absoluteMark;
        point.date = row.text6;
    }
    return point;
}

std::vector<SitePoint> sitePoints(IDBProject& project)
{
    std::vector<SitePoint> points;
    points.reserve(project.getPointRegister().size());
    for (const auto& entry : project.getPointRegister())
        points.push_back(pointOf(entry));
    return points;
}

std::optional<SitePoint> sitePoint(IDBProject& project, std::wstring_view name)
{
    for (const auto& entry : project.getPointRegister())
        if (entry.first.pointName == name)
            return pointOf(entry);
    return std::nullopt;
}
