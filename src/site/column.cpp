#include "site/column.h"

#include "core/base/calendar_date.h"
#include "core/base/typed_number.h"
#include "modules/idbproject.h"
#include "site/by_point.h"
#include "site/cells.h"
#include "site/element_links.h"
#include "site/layers.h"
#include "site/points.h"
#include "site/soil_hatches.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>
#include <utility>

namespace
{

// Of what kind the element's soil is, and the hatch of its group.
constexpr std::uint32_t hatchOfKind[] = {0, 3, 5, 6, 7, 2, 1, 9, 10};

const StrataElement* findElement(IDBProject& project, std::wstring_view name)
{
    for (const auto& [key, element] : project.getStrataElements())
        if (key == name)
            return &element;
    return nullptr;
}

std::uint32_t hatchOfDigits(const std::vector<std::uint8_t>& digits)
{
    constexpr std::size_t mostDigits = 6;
    std::uint32_t number = 0;
    for (const std::uint8_t digit : digits) {
        if (digit < '0' || digit > '9' || digits.size() > mostDigits)
            return 0;
        number = number * 10 + (digit - '0');
    }
    return number;
}

std::vector<ColumnLayer> columnLayers(
    IDBProject& project, std::wstring_view point, std::wstring_view mouthMark)
{
    std::vector<ColumnLayer> layers;
    for (const SiteLayer& layer : layersOfPoint(project, point)) {
        ColumnLayer made;
        made.id = static_cast<std::int64_t>(layer.number);
        made.top = layer.top;
        made.bottom = layer.bottom;
        made.bottomText = layer.bottomText;
        made.thickness = layer.thicknessText();
        made.mark = layer.markText(mouthMark);
        made.element = layer.element;
        made.description = layer.description;
        const StrataElement* element = findElement(project, layer.element);
        made.index = layer.index.empty() && element ? element->texts[element_text::GeologicalIndex]
                                                    : std::wstring(layer.index);
        if (made.description.empty())
            made.description = elementName(project.getNumberedLinks(), layer.element);
        made.hatch = hatchOfElement(project, layer.element);
        // What was seen in this hole says more than the element's kind; a hatch chosen by hand says most.
        const bool isChosen = element && hatchOfDigits(element->patternA) != 0;
        if (const std::uint32_t seen = hatchOfDescription(made.description); seen != 0 && !isChosen)
            made.hatch = seen;
        made.color = colorOfElement(project, layer.element);
        layers.push_back(std::move(made));
    }
    return layers;
}

std::vector<std::wstring> layersLeftOut(
    IDBProject& project, std::wstring_view point, const std::vector<ColumnLayer>& shown)
{
    std::vector<std::wstring> leftOut;
    std::int64_t number = 0;
    for (const auto* row : rowsOfPoint(project.getLithology(), point)) {
        ++number;
        if (std::ranges::none_of(shown, [number](const ColumnLayer& layer) { return layer.id == number; }))
            leftOut.push_back(
                std::to_wstring(number) + L" (" + row->first.depth + L" м) " + row->second.description);
    }
    return leftOut;
}

std::vector<ColumnWater> columnWaters(
    IDBProject& project, std::wstring_view point, std::wstring_view mouthMark)
{
    std::vector<ColumnWater> waters;
    for (const auto* row : rowsOfPoint(project.getWaterLevels(), point))
        if (const Number depth = readNumber(row->first.depth))
            waters.push_back({*depth,
                row->first.depth,
                differenceText(mouthMark, row->first.depth),
                dateText(row->second.date),
                row->second.flagA != 0,
                row->second.flagB != 0});
    return waters;
}

std::vector<ColumnSample> columnSamples(IDBProject& project, std::wstring_view point)
{
    std::vector<ColumnSample> samples;
    const auto laboratory = rowsOfPoint(project.getLabSamples(), point);
    for (const auto* row : rowsOfPoint(project.getSamples(), point)) {
        const Number depth = readNumber(row->first.depth);
        if (!depth)
            continue;
        ColumnSample sample{*depth, row->first.depth, ColumnSample::Disturbed, {}};
        if (row->second.sampleKind >= ColumnSample::Disturbed && row->second.sampleKind <= ColumnSample::Bulk)
            sample.kind = static_cast<ColumnSample::Kind>(row->second.sampleKind);
        for (const auto* tested : laboratory)
            if (readNumber(tested->first.depth) == depth)
                sample.number =
                    tested->second.number != 0 ? std::to_wstring(tested->second.number) : tested->second.code;
        samples.push_back(std::move(sample));
    }
    return samples;
}

std::vector<ColumnConsistency> columnConsistency(IDBProject& project, std::wstring_view point)
{
    std::vector<ColumnConsistency> rows;
    double top = 0;
    for (const auto* row : rowsOfPoint(project.getConsistency(), point))
        if (const Number bottom = readNumber(row->first.depth); bottom && *bottom > top) {
            rows.push_back({top, *bottom, row->second.consistencyKind});
            top = *bottom;
        }
    return rows;
}

// The sounding of that name, or its own, or the nearest that has coordinates.
std::wstring_view chosenSounding(
    IDBProject& project, const SitePoint& point, std::wstring_view named, double& distance)
{
    const SoundingRegister& soundings = project.getSoundings();
    for (const std::wstring_view wanted : {named, point.name})
        for (const auto& [key, rows] : soundings)
            if (key.pointName == wanted && !wanted.empty())
                return key.pointName;
    std::wstring_view nearest;
    distance = std::numeric_limits<double>::max();
    for (const SitePoint& other : sitePoints(project)) {
        if (!point.x || !point.y || !other.x || !other.y)
            continue;
        const double away = std::hypot(*point.x - *other.x, *point.y - *other.y);
        if (away >= distance)
            continue;
        for (const auto& [key, rows] : soundings)
            if (key.pointName == other.name) {
                nearest = key.pointName;
                distance = away;
            }
    }
    return nearest;
}

ColumnSounding columnSounding(IDBProject& project, const SitePoint& point, std::wstring_view named)
{
    ColumnSounding sounding;
    double distance = 0;
    sounding.point = chosenSounding(project, point, named, distance);
    if (sounding.point.empty())
        return sounding;
    sounding.distance = distance;
    for (const auto& [key, rows] : project.getSoundings()) {
        if (key.pointName != sounding.point)
            continue;
        for (const SoundingRow& row : rows)
            if (const Number depth = readNumber(row.depth))
                sounding.rows.push_back({*depth,
                    readCellNumber(row.cells[sounding_cell::Tip]).value,
                    readCellNumber(row.cells[sounding_cell::Sleeve]).value});
    }
    std::stable_sort(sounding.rows.begin(), sounding.rows.end(), [](const auto& a, const auto& b) {
        return a.depth < b.depth;
    });
    return sounding;
}

} // namespace

std::uint32_t hatchOfElement(IDBProject& project, std::wstring_view element)
{
    const StrataElement* found = findElement(project, element);
    if (!found)
        return 0;
    if (const std::uint32_t chosen = hatchOfDigits(found->patternA))
        return chosen;
    if (const std::uint32_t named = hatchOfDescription(elementName(project.getNumberedLinks(), element)))
        return named;
    const bool isKnown = found->code >= 0 && static_cast<std::size_t>(found->code) < std::size(hatchOfKind);
    return isKnown ? hatchOfKind[static_cast<std::size_t>(found->code)] : 0;
}

std::optional<Color> colorOfElement(IDBProject& project, std::wstring_view element)
{
    // 0x01RRGGBB; anything else is no colour that somebody chose.
    const StrataElement* found = findElement(project, element);
    const auto value = found ? static_cast<std::uint32_t>(found->valueB) : 0U;
    if (value >> 24U != 1)
        return std::nullopt;
    return Color{static_cast<std::uint8_t>(value >> 16U),
        static_cast<std::uint8_t>(value >> 8U),
        static_cast<std::uint8_t>(value)};
}

ColumnData columnData(IDBProject& project, std::wstring_view name, std::wstring_view sounding)
{
    const SitePoint point = sitePoint(project, name).value_or(SitePoint{.name = name});
    ColumnData data;
    data.point = name;
    data.kind =
        point.kind == PointKind::Unknown ? std::wstring() : pointKindFullName(static_cast<int>(point.kind));
    data.mouthMark = point.markText;
    data.date = point.date;
    for (const auto& [key, rows] : project.getPointRegister())
        if (key.pointName == name && !rows.empty()) {
            data.x = rows.front().text0;
            data.y = rows.front().text1;
        }
    data.layers = columnLayers(project, name, data.mouthMark);
    data.leftOut = layersLeftOut(project, name, data.layers);
    data.waters = columnWaters(project, name, data.mouthMark);
    data.samples = columnSamples(project, name);
    data.consistency = columnConsistency(project, name);
    data.sounding = columnSounding(project, point, sounding);
    if (!data.layers.empty()) {
        data.depth = data.layers.back().bottom;
        data.depthText = data.layers.back().bottomText;
    }
    return data;
}

std::vector<std::wstring> columnPoints(IDBProject& project)
{
    std::vector<std::wstring> names;
    std::unordered_set<std::wstring_view> seen;
    const auto counts = rowCounts(project.getLithology());
    for (const auto& [key, rows] : project.getPointRegister())
        if ((key.pointKind != static_cast<std::uint8_t>(PointKind::Sounding)
                || counts.count(key.pointName) > 0)
            && seen.insert(key.pointName).second)
            names.push_back(key.pointName);
    std::wstring_view last;
    for (const auto& [key, layer] : project.getLithology())
        if (key.pointName != std::exchange(last, key.pointName) && seen.insert(key.pointName).second)
            names.push_back(key.pointName);
    sortInReadingOrder(names, [](const std::wstring& name) { return std::wstring_view(name); });
    return names;
}
