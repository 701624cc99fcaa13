#include "site/by_point.h"

std::unordered_map<std::wstring_view, std::wstring_view> absoluteMarks(IDBProject& project)
{
    std::unordered_map<std::wstring_view, std::wstring_view> marks;
    for (const auto& [key, rows] : project.getPointRegister())
        if (!rows.empty())
            marks.try_emplace(key.pointName, rows.front().absoluteMark);
    return marks;
}

std::wstring_view absoluteMark(IDBProject& project, std::wstring_view point)
{
    for (const auto& [key, rows] : project.getPointRegister())
        if (key.pointName == point && !rows.empty())
            return rows.front().absoluteMark;
    return {};
}

std::vector<LayerView> layersOf(
    const std::vector<const LithologyRegister::value_type*>& rows, std::wstring_view mouthMark)
{
    std::vector<LayerView> layers;
    layers.reserve(rows.size());
    std::wstring_view top = L"0";
    for (const auto* row : rows) {
        const std::wstring_view bottom = row->first.depth;
        layers.push_back({top, differenceText(bottom, top), differenceText(mouthMark, bottom), row});
        top = bottom;
    }
    return layers;
}
