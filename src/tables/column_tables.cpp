#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/section_captions.h"
#include "dictionaries/soil_names.h"
#include "site/by_point.h"
#include "site/points.h"
#include "tables/cell_texts.h"
#include "tables/tables.h"

#include <map>
#include <tuple>
#include <unordered_set>

namespace
{

struct PointSummary {
    int kind = 0; // 0 where the point stands in no register of points
    std::wstring_view mark = {};
};

using Counts = std::unordered_map<std::wstring_view, std::size_t>;

// What the registers hold for the points.
struct Holdings {
    Counts layers;
    Counts samples;
    Counts waters;
    Counts consistencies;
};

// Every point that has a row somewhere, those of the point register first.
std::vector<std::pair<std::wstring_view, PointSummary>> allPoints(
    const PointRegister& points, const Holdings& holdings)
{
    std::vector<std::pair<std::wstring_view, PointSummary>> found;
    std::unordered_set<std::wstring_view> seen;
    for (const auto* point : inReadingOrder(points)) {
        const auto& [key, rows] = *point;
        if (seen.insert(key.pointName).second)
            found.emplace_back(key.pointName,
                PointSummary{key.pointKind,
                    rows.empty() ? std::wstring_view() : std::wstring_view(rows.front().absoluteMark)});
    }
    const auto known = found.size();
    for (const Counts* counts :
        {&holdings.layers, &holdings.samples, &holdings.waters, &holdings.consistencies})
        for (const auto& [name, count] : *counts)
            if (seen.insert(name).second)
                found.emplace_back(name, PointSummary{});
    std::sort(found.begin() + static_cast<std::ptrdiff_t>(known),
        found.end(),
        [](const auto& a, const auto& b) { return standsBefore(a.first, b.first); });
    return found;
}

struct Depth {
    double metres = 0;
    std::wstring_view typed = {};
};

std::unordered_map<std::wstring_view, Depth> greatestDepths(const LithologyRegister& layers)
{
    std::unordered_map<std::wstring_view, Depth> depths;
    auto deepest = depths.end();
    for (const auto& [key, layer] : layers) {
        const Number read = readNumber(key.depth);
        if (!read)
            continue;
        const double depth = *read;
        // The rows of a point stand together nearly always.
        if (deepest == depths.end() || deepest->first != key.pointName)
            deepest = depths.try_emplace(key.pointName, Depth{depth, key.depth}).first;
        if (depth > deepest->second.metres)
            deepest->second = {depth, key.depth};
    }
    return depths;
}

void fillPoints(TextRows& rows, const TableSource& source)
{
    IDBProject& project = source.project;
    const Holdings holdings{rowCounts(project.getLithology()),
        rowCounts(project.getSamples()),
        rowCounts(project.getWaterLevels()),
        rowCounts(project.getConsistency())};
    const auto depths = greatestDepths(project.getLithology());
    for (const auto& [name, summary] : allPoints(project.getPointRegister(), holdings))
        rows.add({name,
            summary.kind == 0 ? std::wstring() : pointKindShortName(summary.kind),
            summary.mark,
            foundOr(depths, name).typed,
            countText(foundOr(holdings.layers, name)),
            countText(foundOr(holdings.samples, name)),
            countText(foundOr(holdings.waters, name)),
            countText(foundOr(holdings.consistencies, name))});
}

// What stands at one depth of a column.
struct DepthRow {
    std::wstring_view depth = {};
    LayerView layer = {};
    std::vector<std::wstring> samples = {};
    std::vector<std::wstring> waters = {};
    std::vector<std::wstring> consistencies = {};
};

// The rows of several registers of one point, those of equal depth in one row ("2.5" is as deep as "2.50"),
// from the top down; depths that are no numbers last.
class MergedColumn
{
public:
    DepthRow& at(std::wstring_view depth)
    {
        const Number number = readNumber(depth);
        const DepthPlace place{!number, number.value_or(0), number ? std::wstring_view() : depth};
        DepthRow& row = rows_[place];
        row.depth = row.depth.empty() ? depth : row.depth;
        return row;
    }
    auto begin() const { return rows_.begin(); }
    auto end() const { return rows_.end(); }

private:
    using DepthPlace = std::tuple<bool, double, std::wstring_view>;
    std::map<DepthPlace, DepthRow> rows_;
};

std::wstring waterText(const WaterValue& water)
{
    std::vector<std::wstring> parts;
    if (water.flagA != 0)
        parts.emplace_back(L"появился");
    if (water.flagB != 0)
        parts.emplace_back(L"установился");
    if (const std::wstring date = dateText(water.date); !date.empty())
        parts.push_back(date);
    return parts.empty() ? L"уровень" : joined(parts, L", ");
}

MergedColumn mergedColumn(const TableSource& source)
{
    IDBProject& project = source.project;
    const std::wstring_view mark = absoluteMark(project, source.chosen);
    MergedColumn column;
    for (const LayerView& layer : layersOf(rowsOfPoint(project.getLithology(), source.chosen), mark))
        column.at(layer.layer->first.depth).layer = layer;
    for (const auto* row : rowsOfPoint(project.getSamples(), source.chosen))
        column.at(row->first.depth).samples.push_back(nameText(sampleKinds, row->second.sampleKind));
    for (const auto* row : rowsOfPoint(project.getWaterLevels(), source.chosen))
        column.at(row->first.depth).waters.push_back(waterText(row->second));
    for (const auto* row : rowsOfPoint(project.getConsistency(), source.chosen))
        column.at(row->first.depth)
            .consistencies.push_back(
                nameText(consistencyNames, source.language, row->second.consistencyKind));
    return column;
}

void fillColumn(TextRows& rows, const TableSource& source)
{
    for (const auto& [place, row] : mergedColumn(source)) {
        const auto* layer = row.layer.layer;
        rows.add({row.depth,
            layer ? layer->second.geoIndex : std::wstring(),
            row.layer.thickness,
            row.layer.bottomMark,
            layer ? layer->second.description : std::wstring(),
            joined(row.samples),
            joined(row.waters),
            joined(row.consistencies)});
    }
}

void fillLinks(TextRows& rows, const TableSource& source)
{
    for (const auto& [key, value] : source.project.getNumberedLinks())
        rows.add({key, value});
}

constexpr std::wstring_view caption(int number)
{
    return sectionColumnCaptionsWrapped.at(languageRussian, number);
}

std::vector<Table> makeColumnTables(const Table& column)
{
    return {
        {.name = "igk/points",
            .title = L"Колонки",
            .columns = {{L"Точка", 13},
                {L"Тип", 8},
                {L"Отметка\nустья, м", 10, TableColumn::Number},
                {L"Глубина, м", 10, TableColumn::Number},
                {L"Слоев", 8, TableColumn::Number},
                {L"Проб", 8, TableColumn::Number},
                {L"Уровней\nводы", 9, TableColumn::Number},
                {L"Консистенция", 12, TableColumn::Number}},
            .fill = fillPoints,
            .whenEmpty = L"В проекте нет точек.",
            .whatToDo = L"Добавьте точку в режиме «Ведомость координат».",
            .detail = &column},
        {.name = "igk/links",
            .title = L"Нумерованные связи",
            .columns = {{L"Ключ", 22}, {L"Значение", 33}},
            .fill = fillLinks,
            .whenEmpty = L"Нумерованных связей в проекте нет."},
    };
}

} // namespace

const std::vector<Table>& columnTables()
{
    static const Table column{.name = "igk/column",
        .title = L"Колонка",
        .columns = {{L"Глубина, м", 10, TableColumn::Number},
            {caption(1), 10},
            {L"Мощность\nслоя, м", 11, TableColumn::Number},
            {L"Абс. отметка\nподошвы, м", 12, TableColumn::Number},
            {caption(9), 40},
            {caption(7), 17},
            {caption(6), 21},
            {L"Консистенция", 14}},
        .fill = fillColumn,
        .whenEmpty = L"У точки нет слоев, проб и уровней воды."};
    static const std::vector<Table> tables = makeColumnTables(column);
    return tables;
}
