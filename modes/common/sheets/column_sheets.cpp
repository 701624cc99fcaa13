#include "common/sheets/by_point.h"
#include "common/sheets/sheets.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/section_captions.h"
#include "dictionaries/soil_names.h"

#include <map>
#include <tuple>

namespace
{

struct PointSummary {
    int kind = 0; // 0 where the point stands in no register of points
    std::wstring_view mark = {};
};

// Every point that has a row somewhere, those of the point register first.
std::vector<std::pair<std::wstring_view, PointSummary>> allPoints(IDBProject& project)
{
    std::vector<std::pair<std::wstring_view, PointSummary>> points;
    std::unordered_map<std::wstring_view, bool> seen;
    for (const auto& [key, rows] : project.getPointRegister())
        if (seen.try_emplace(key.pointName, true).second)
            points.emplace_back(key.pointName,
                PointSummary{key.pointKind,
                    rows.empty() ? std::wstring_view() : std::wstring_view(rows.front().absoluteMark)});
    const auto addStrays = [&](const auto& all) {
        for (const auto& row : all)
            if (seen.try_emplace(row.first.pointName, true).second)
                points.emplace_back(row.first.pointName, PointSummary{});
    };
    addStrays(project.getLithology());
    addStrays(project.getSamples());
    addStrays(project.getWaterLevels());
    addStrays(project.getConsistency());
    return points;
}

std::unordered_map<std::wstring_view, std::wstring_view> greatestDepths(IDBProject& project)
{
    std::unordered_map<std::wstring_view, std::wstring_view> depths;
    for (const auto& [point, rows] : rowsByPoint(project.getLithology()))
        depths.try_emplace(point, rows.back()->first.depth);
    return depths;
}

void fillPoints(SheetRows& rows, const SheetSource& source)
{
    IDBProject& project = source.project;
    const auto layers = rowCounts(project.getLithology());
    const auto samples = rowCounts(project.getSamples());
    const auto waters = rowCounts(project.getWaterLevels());
    const auto consistencies = rowCounts(project.getConsistency());
    const auto depths = greatestDepths(project);
    for (const auto& [name, summary] : allPoints(project))
        rows.add({name,
            summary.kind == 0 ? std::wstring() : pointKindText(summary.kind),
            summary.mark,
            foundOr(depths, name),
            countText(foundOr(layers, name)),
            countText(foundOr(samples, name)),
            countText(foundOr(waters, name)),
            countText(foundOr(consistencies, name))});
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
        double number = 0;
        const bool isNumber = readTyped(depth, number);
        const Place place{!isNumber, number, isNumber ? std::wstring_view() : depth};
        DepthRow& row = rows_[place];
        row.depth = row.depth.empty() ? depth : row.depth;
        return row;
    }
    auto begin() const { return rows_.begin(); }
    auto end() const { return rows_.end(); }

private:
    using Place = std::tuple<bool, double, std::wstring_view>;
    std::map<Place, DepthRow> rows_;
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

MergedColumn mergedColumn(const SheetSource& source)
{
    IDBProject& project = source.project;
    const std::wstring_view mark = foundOr(absoluteMarks(project), source.chosen);
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

void fillColumn(SheetRows& rows, const SheetSource& source)
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

void fillLinks(SheetRows& rows, const SheetSource& source)
{
    for (const auto& [key, value] : source.project.getNumberedLinks())
        rows.add({key, value});
}

constexpr std::wstring_view caption(int number)
{
    return sectionColumnCaptionsWrapped.at(languageRussian, number);
}

std::vector<Sheet> makeColumnSheets(const Sheet& column)
{
    return {
        {.name = "igk/points",
            .title = L"Колонки",
            .columns = {{L"Точка", 120},
                {L"Тип", 70},
                {L"Отметка\nустья, м", 90, SheetColumn::Number},
                {L"Глубина, м", 90, SheetColumn::Number},
                {L"Слоев", 75, SheetColumn::Number},
                {L"Проб", 75, SheetColumn::Number},
                {L"Уровней\nводы", 80, SheetColumn::Number},
                {L"Консистенция", 110, SheetColumn::Number}},
            .fill = fillPoints,
            .whenEmpty = L"Нет точек. Добавьте точку в режиме «Ведомость координат».",
            .detail = &column},
        {.name = "igk/links",
            .title = L"Нумерованные связи",
            .columns = {{L"Ключ", 200}, {L"Значение", 300}},
            .fill = fillLinks,
            .whenEmpty = L"Нумерованных связей в проекте нет."},
    };
}

} // namespace

const std::vector<Sheet>& columnSheets()
{
    static const Sheet column{.name = "igk/column",
        .title = L"Колонка",
        .columns = {{L"Глубина, м", 90, SheetColumn::Number},
            {caption(1), 90},
            {caption(2), 140, SheetColumn::Number},
            {caption(4), 150, SheetColumn::Number},
            {caption(9), 360},
            {caption(7), 150},
            {caption(6), 190},
            {L"Консистенция", 140}},
        .fill = fillColumn,
        .whenEmpty = L"У точки нет слоев, проб и уровней воды."};
    static const std::vector<Sheet> sheets = makeColumnSheets(column);
    return sheets;
}
