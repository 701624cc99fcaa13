#include "dictionaries/captions.h"
#include "site/by_point.h"
#include "tables/cell_texts.h"
#include "tables/tables.h"

#include <map>

namespace
{

void fillElements(TextRows& rows, const TableSource& source)
{
    for (const auto& [name, element] : source.project.getStrataElements()) {
        std::vector<std::wstring> cells{name,
            wholeText(element.code),
            wholeText(element.valueB),
            wholeText(element.valueC),
            wholeText(element.lowerBound),
            wholeText(element.middleValue),
            wholeText(element.upperBound)};
        cells.insert(cells.end(), element.texts.begin(), element.texts.end());
        cells.emplace_back(yesText(!element.patternA.empty()));
        cells.emplace_back(yesText(!element.patternB.empty()));
        rows.add(cells);
    }
}

// Their texts have no captions anywhere but in the screen that edits them, so they go by number here.
std::vector<TableColumn> elementColumns()
{
    static const auto titles = numberedTitles<11>(L"Текст");
    std::vector<TableColumn> columns{{L"ИГЭ", 10},
        {L"Код", 9, TableColumn::Number},
        {L"Число 2", 9, TableColumn::Number},
        {L"Число 3", 9, TableColumn::Number},
        {L"Нижняя\nграница", 9, TableColumn::Number},
        {L"Среднее", 9, TableColumn::Number},
        {L"Верхняя\nграница", 9, TableColumn::Number}};
    for (const std::wstring& title : titles)
        columns.push_back({title, 9, TableColumn::Text, true});
    columns.push_back({L"Рисунок 1", 9});
    columns.push_back({L"Рисунок 2", 9});
    return columns;
}

Table elementTable(std::string_view name)
{
    return {.name = name,
        .title = L"Элементы",
        .columns = elementColumns(),
        .fill = fillElements,
        .whenEmpty = L"Инженерно-геологические элементы в проекте не выделены."};
}

void fillLayers(TextRows& rows, const TableSource& source)
{
    const auto marks = absoluteMarks(source.project);
    rows.reserve(source.project.getLithology().size());
    for (const auto& [point, entries] : rowsByPoint(source.project.getLithology())) {
        std::size_t number = 0;
        for (const LayerView& layer : layersOf(entries, foundOr(marks, point)))
            rows.add({point,
                wholeText(++number),
                layer.top,
                layer.layer->first.depth,
                layer.thickness,
                layer.bottomMark,
                layer.layer->second.geoIndex,
                layer.layer->second.description});
    }
}

// Where an index was met, and how thick.
struct IndexSummary {
    std::size_t layers = 0;
    std::size_t points = 0;
    std::wstring_view lastPoint = {};
    std::wstring thinnest = {};
    std::wstring thickest = {};
};

void keepExtreme(std::wstring& kept, const std::wstring& thickness, bool greatest)
{
    const Number now = readNumber(thickness);
    const Number old = readNumber(kept);
    if (now && (!old || (greatest ? *now > *old : *now < *old)))
        kept = thickness;
}

void fillIndices(TextRows& rows, const TableSource& source)
{
    std::map<std::wstring_view, IndexSummary> indices;
    for (const auto& [point, entries] : rowsByPoint(source.project.getLithology()))
        for (const LayerView& layer : layersOf(entries, {})) {
            IndexSummary& summary = indices[layer.layer->second.geoIndex];
            ++summary.layers;
            if (summary.points == 0 || summary.lastPoint != point)
                ++summary.points;
            summary.lastPoint = point;
            keepExtreme(summary.thinnest, layer.thickness, false);
            keepExtreme(summary.thickest, layer.thickness, true);
        }
    for (const auto& [index, summary] : indices)
        rows.add({index.empty() ? std::wstring_view(L"(без индекса)") : index,
            wholeText(summary.points),
            wholeText(summary.layers),
            summary.thinnest,
            summary.thickest});
}

constexpr std::wstring_view noLayers = L"В проекте нет слоев.";
constexpr std::wstring_view enterLayers = L"Введите их в режиме «Литология».";

std::vector<TableColumn> layerColumns()
{
    return {{L"№", 6, TableColumn::Number},
        {L"Кровля, м", 9, TableColumn::Number},
        {L"Подошва, м", 10, TableColumn::Number},
        {L"Мощность, м", 11, TableColumn::Number},
        {L"Абс. отметка\nподошвы, м", 12, TableColumn::Number},
        {L"Геоиндекс", 10},
        {captions::soilDescription, 30}};
}

Table layerTable()
{
    std::vector<TableColumn> columns{{L"Точка", 11}};
    const std::vector<TableColumn> further = layerColumns();
    columns.insert(columns.end(), further.begin(), further.end());
    return {.name = "stratigraphicIge/layers",
        .title = L"Слои",
        .columns = columns,
        .fill = fillLayers,
        .whenEmpty = noLayers,
        .whatToDo = enterLayers};
}

void fillColumns(TextRows& rows, const TableSource& source)
{
    const auto marks = absoluteMarks(source.project);
    for (const auto& [point, entries] : rowsByPoint(source.project.getLithology()))
        rows.add({point,
            foundOr(marks, point),
            wholeText(entries.size()),
            entries.back()->first.depth,
            differenceText(foundOr(marks, point), entries.back()->first.depth)});
}

void fillLayersOfColumn(TextRows& rows, const TableSource& source)
{
    const std::wstring_view mark = absoluteMark(source.project, source.chosen);
    std::size_t number = 0;
    for (const LayerView& layer : layersOf(rowsOfPoint(source.project.getLithology(), source.chosen), mark))
        rows.add({wholeText(++number),
            layer.top,
            layer.layer->first.depth,
            layer.thickness,
            layer.bottomMark,
            layer.layer->second.geoIndex,
            layer.layer->second.description});
}

} // namespace

const std::vector<Table>& elementTables()
{
    static const std::vector<Table> tables{elementTable("ige/elements")};
    return tables;
}

const std::vector<Table>& stratigraphicOrderTables()
{
    static const std::vector<Table> tables{
        layerTable(),
        {.name = "stratigraphicIge/indices",
            .title = L"Геоиндексы",
            .columns = {{L"Геоиндекс", 16},
                {L"Точек", 9, TableColumn::Number},
                {L"Слоев", 9, TableColumn::Number},
                {L"Мощность\nнаименьшая, м", 14, TableColumn::Number},
                {L"Мощность\nнаибольшая, м", 14, TableColumn::Number}},
            .fill = fillIndices,
            .whenEmpty = noLayers,
            .whatToDo = enterLayers},
        elementTable("stratigraphicIge/elements"),
    };
    return tables;
}

const std::vector<Table>& stratigraphicColumnTables()
{
    static const Table layers{.name = "stratigraphic/layers",
        .title = L"Слои колонки",
        .columns = layerColumns(),
        .fill = fillLayersOfColumn,
        .whenEmpty = L"У точки нет слоев."};
    static const std::vector<Table> tables{
        {.name = "stratigraphic/columns",
            .title = L"Колонки",
            .columns = {{L"Точка", 13},
                {L"Отметка\nустья, м", 11, TableColumn::Number},
                {L"Слоев", 9, TableColumn::Number},
                {L"Глубина, м", 11, TableColumn::Number},
                {L"Абс. отметка\nзабоя, м", 12, TableColumn::Number}},
            .fill = fillColumns,
            .whenEmpty = noLayers,
            .whatToDo = enterLayers,
            .detail = &layers},
    };
    return tables;
}
