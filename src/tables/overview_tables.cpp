#include "dictionaries/section_captions.h"
#include "site/by_point.h"
#include "tables/cell_texts.h"
#include "tables/tables.h"

#include <unordered_set>

namespace
{

// The name of the point that a row belongs to.
const std::wstring& pointOf(const std::wstring& name)
{
    return name;
}
template <class Key>
const std::wstring& pointOf(const Key& key)
{
    return key.pointName;
}

std::wstring placeText(const std::wstring& name)
{
    return name;
}
std::wstring placeText(const PointKey& key)
{
    return key.pointName;
}
std::wstring placeText(const SoundingKey& key)
{
    return key.date.empty() ? key.pointName : key.pointName + L", " + key.date;
}
std::wstring placeText(const PointDepthKey& key)
{
    return key.pointName + L", " + key.depth + L" м";
}
std::wstring placeText(const CurveKey& key)
{
    return key.first + L", " + key.second;
}

template <class Register>
std::size_t pointsIn(const Register& all)
{
    std::unordered_set<std::wstring_view> names;
    for (const auto& row : all)
        names.insert(pointOf(row.first));
    return names.size();
}

template <class Register>
void addSummary(TextRows& rows, std::wstring_view title, const Register& all, std::wstring_view points)
{
    if (all.empty())
        rows.add({title, L"0"});
    else
        rows.add({title,
            wholeText(all.size()),
            points,
            placeText(all.begin()->first),
            placeText(all.rbegin()->first)});
}

template <class Register>
void addPointRegister(TextRows& rows, std::wstring_view title, const Register& all)
{
    addSummary(rows, title, all, wholeText(pointsIn(all)));
}

template <class Register>
void addPlainRegister(TextRows& rows, std::wstring_view title, const Register& all)
{
    addSummary(rows, title, all, {});
}

void fillRegisters(TextRows& rows, const TableSource& source)
{
    IDBProject& project = source.project;
    addPointRegister(rows, L"Ведомость координат", project.getPointRegister());
    addPointRegister(rows, L"Литология", project.getLithology());
    addPointRegister(rows, L"Пробы", project.getSamples());
    addPointRegister(rows, L"Уровни воды", project.getWaterLevels());
    addPointRegister(rows, L"Консистенция", project.getConsistency());
    addPointRegister(rows, L"Лабораторные пробы", project.getLabSamples());
    addPointRegister(rows, L"Химические анализы", project.getChemistry());
    addPointRegister(rows, L"Статическое зондирование", project.getSoundings());
    addPlainRegister(rows, L"Инженерно-геологические элементы", project.getStrataElements());
    addPointRegister(rows, L"Общая просадочность", project.getSubsidence());
    addPlainRegister(rows, L"Линии разрезов", project.getSectionLines());
    addPlainRegister(rows, L"Линии по модели местности", project.getTerrainLines());
    addPlainRegister(rows, L"Кривые разрезов", project.getSectionCurves());
    addPlainRegister(rows, L"Нумерованные связи", project.getNumberedLinks());
}

// Rows by point, as the counting sees them: name to number of rows.
using Counts = std::unordered_map<std::wstring_view, std::size_t>;

template <class Map>
Counts listSizes(const Map& lists)
{
    Counts counts;
    for (const auto& [key, list] : lists)
        counts[pointOf(key)] += list.size();
    return counts;
}

void fillPoints(TextRows& rows, const TableSource& source)
{
    IDBProject& project = source.project;
    const Counts columns[] = {rowCounts(project.getLithology()),
        rowCounts(project.getSamples()),
        rowCounts(project.getWaterLevels()),
        rowCounts(project.getConsistency()),
        listSizes(project.getSoundings()),
        listSizes(project.getSubsidence()),
        rowCounts(project.getChemistry())};
    for (const auto& [key, values] : project.getPointRegister()) {
        std::vector<std::wstring> cells{key.pointName};
        for (const Counts& counts : columns)
            cells.push_back(countText(foundOr(counts, key.pointName)));
        rows.add(cells);
    }
}

std::vector<TableColumn> pointColumns()
{
    std::vector<TableColumn> columns;
    for (const auto& [number, title] : registerColumns)
        columns.push_back({title, 14, number == 0 ? TableColumn::Text : TableColumn::Number});
    return columns;
}

void fillHead(TextRows& rows, const TableSource& source)
{
    IDBProject& project = source.project;
    rows.add({L"Шифр", project.getProjectCode()});
    rows.add({L"Название", project.getProjectName()});
    rows.add({L"Краткое имя", project.getFileStem()});
    rows.add({L"Файл", project.getFilePath()});
    rows.add({L"Тип объекта", wholeText(project.getTypeObject())});
    rows.add({L"Стандарт гранулометрии", wholeText(project.getGranGost())});
}

} // namespace

const std::vector<Table>& overviewTables()
{
    static const std::vector<Table> tables{
        {.name = "consolidated/registers",
            .title = L"Реестры",
            .columns = {{L"Реестр", 34},
                {L"Записей", 9, TableColumn::Number},
                {L"Точек", 8, TableColumn::Number},
                {L"Первая запись", 23},
                {L"Последняя запись", 23}},
            .fill = fillRegisters,
            .whenEmpty = L"В проекте нет записей."},
        {.name = "consolidated/points",
            .title = L"Точки",
            .columns = pointColumns(),
            .fill = fillPoints,
            .whenEmpty = L"В проекте нет точек.",
            .whatToDo = L"Добавьте точку в режиме «Ведомость координат»."},
        {.name = "consolidated/head",
            .title = L"Проект",
            .columns = {{L"Сведения", 22}, {L"Значение", 56}},
            .fill = fillHead,
            .whenEmpty = L"О проекте ничего не известно."},
    };
    return tables;
}
