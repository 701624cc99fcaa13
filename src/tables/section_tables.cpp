#include "dialogs/records/inform_record.h"
#include "dictionaries/captions.h"
#include "dictionaries/modes.h"
#include "modules/idbproject.h"
#include "tables/cell_texts.h"
#include "tables/tables.h"

#include <map>

namespace
{

// A mark that small stands for one that was not given.
std::wstring markText(float mark)
{
    return mark < 1e-5F ? std::wstring() : singleText(mark);
}

struct LineAndEnds {
    const std::vector<SectionRef>* line = nullptr;
    const SectionPointValue* ends = nullptr;
};

std::wstring pointNames(const std::vector<SectionRef>& line)
{
    std::vector<std::wstring> names;
    names.reserve(line.size());
    for (const SectionRef& point : line)
        names.push_back(point.name);
    return joined(names, L" – ");
}

// A section has its points in one register and its ends in another, and may stand in only one of them.
void fillLines(TextRows& rows, const SectionLineMap& lines, const SectionPointMap& ends)
{
    std::vector<std::wstring_view> order;
    std::map<std::wstring_view, LineAndEnds> sections;
    for (const auto& [name, line] : lines) {
        order.push_back(name);
        sections[name].line = &line;
    }
    for (const auto& [name, value] : ends) {
        LineAndEnds& section = sections[name];
        if (!section.line)
            order.push_back(name);
        section.ends = &value;
    }
    for (const std::wstring_view name : order) {
        const auto& [line, value] = sections[name];
        rows.add({name,
            line ? countText(line->size()) : std::wstring(),
            line ? pointNames(*line) : std::wstring(),
            value ? value->textA : std::wstring(),
            value ? markText(value->markA) : std::wstring(),
            value ? value->textB : std::wstring(),
            value ? markText(value->markB) : std::wstring()});
    }
}

void fillPlain(TextRows& rows, const TableSource& source)
{
    fillLines(rows, source.project.getSectionLines(), source.project.getSectionPoints());
}

void fillTerrain(TextRows& rows, const TableSource& source)
{
    fillLines(rows, source.project.getTerrainLines(), source.project.getTerrainPoints());
}

Table lineTable(std::string_view name, std::wstring_view title, void (*fill)(TextRows&, const TableSource&))
{
    return {.name = name,
        .title = title,
        .columns = {{L"Разрез", 14},
            {L"Точек", 7, TableColumn::Number},
            {L"Точки по линии", 36},
            {L"Начало", 12},
            {L"Отметка\nначала, м", 11, TableColumn::Number},
            {L"Конец", 12},
            {L"Отметка\nконца, м", 11, TableColumn::Number}},
        .fill = fill,
        .whenEmpty = L"Линии разрезов не проведены.",
        .whatToDo = L"Всю площадку в разрезе показывает вкладка «Обзор площадки»."};
}

// Every point of the site seen from a side: a section can be looked at before its line is drawn.
void fillViews(TextRows& rows, const TableSource& source)
{
    std::size_t points = 0;
    for (const auto& [key, row] : source.project.getPointRegister())
        points += row.empty() ? 0U : 1U;
    if (points < 2)
        return;
    rows.add({siteViewAlongY, countText(points)});
    rows.add({siteViewAlongX, countText(points)});
}

void fillTerrainCells(TextRows& rows, const TableSource& source)
{
    for (const auto& [number, cells] : source.project.getTerrainCells())
        rows.add({wholeText(number), joined(cells)});
}

void fillCurves(TextRows& rows, const TableSource& source)
{
    for (const auto& [key, cells] : source.project.getSectionCurves()) {
        std::size_t number = 0;
        for (const CurveCell& cell : cells)
            rows.add({key.first, key.second, wholeText(++number), cell.textA, cell.textB});
        if (cells.empty())
            rows.add({key.first, key.second});
    }
}

std::size_t informCount(const InformList& informs)
{
    std::size_t count = 0;
    std::vector<const InformRecord*> open(informs.begin(), informs.end());
    while (!open.empty()) {
        const InformRecord* record = open.back();
        open.pop_back();
        if (!record)
            continue;
        ++count;
        open.insert(open.end(), record->children().begin(), record->children().end());
    }
    return count;
}

void fillDrawings(TextRows& rows, const TableSource& source)
{
    IDBProject& project = source.project;
    rows.add({modeNames.at(ModeSection),
        project.getSectionText(),
        {},
        {},
        {},
        project.getSectionLinesLayer(),
        project.getSectionHatchLayer(),
        project.getSectionTextLayer(),
        project.getSectionGraphLayer()});
    rows.add({modeNames.at(ModeSectionTerrain),
        {},
        {},
        countText(project.getTerrainGlObjectsA().size() + project.getTerrainGlObjectsB().size()),
        {},
        project.getTerrainLinesLayer(),
        project.getTerrainHatchLayer(),
        project.getTerrainTextLayer(),
        project.getTerrainGraphLayer()});
    rows.add({modeNames.at(ModeSectionLongitudinal),
        project.getLongTextA(),
        project.getLongTextB(),
        countText(project.getLongGlObjects().size()),
        countText(informCount(project.getLongInforms())),
        project.getLongLinesLayer(),
        project.getLongHatchLayer(),
        project.getLongTextLayer(),
        project.getLongGraphLayer()});
    rows.add({modeNames.at(ModeSectionCross),
        project.getCrossTextA(),
        project.getCrossTextB(),
        countText(project.getCrossGlObjects().size()),
        countText(informCount(project.getCrossInforms())),
        project.getCrossLinesLayer(),
        project.getCrossHatchLayer(),
        project.getCrossTextLayer()});
}

} // namespace

const std::vector<Table>& sectionTables()
{
    static const std::vector<Table> tables{
        lineTable("section/lines", L"Линии разрезов", fillPlain),
        lineTable("section/terrain", L"Линии по модели местности", fillTerrain),
        {.name = "section/views",
            .title = L"Обзор площадки",
            .columns = {{L"Вид", 24}, {L"Точек", 8, TableColumn::Number}},
            .fill = fillViews,
            .whenEmpty = L"В проекте меньше двух точек.",
            .whatToDo = L"Добавьте точки в режиме «Ведомость координат»."},
        {.name = "section/drawings",
            .title = L"Чертежи",
            .columns = {{L"Чертеж", 28},
                {L"Название", 20},
                {L"Второе\nназвание", 20, TableColumn::Text, true},
                {L"Объектов", 9, TableColumn::Number},
                {L"Подписей", 9, TableColumn::Number},
                {L"Слой линий", 21},
                {L"Слой штриховки", 24},
                {L"Слой текста", 21},
                {L"Слой графика", 21}},
            .fill = fillDrawings,
            .whenEmpty = L"Чертежей нет."},
        {.name = "section/curves",
            .title = L"Кривые",
            .columns = {{L"Разрез", 16},
                {L"Кривая", 16},
                {L"№", 7, TableColumn::Number},
                {L"Значение 1", 18},
                {L"Значение 2", 18}},
            .fill = fillCurves,
            .whenEmpty = L"Кривых на разрезах нет."},
        {.name = "section/terrainCells",
            .title = L"Таблица местности",
            .columns = {{L"Номер", 9, TableColumn::Number}, {L"Значения", 56}},
            .fill = fillTerrainCells,
            .whenEmpty = L"Таблица модели местности пуста."},
    };
    return tables;
}
