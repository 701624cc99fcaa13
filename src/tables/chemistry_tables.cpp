#include "dictionaries/captions.h"
#include "modules/idbproject.h"
#include "site/by_point.h"
#include "tables/cell_texts.h"
#include "tables/tables.h"

namespace
{

void fillSubsidence(TextRows& rows, const TableSource& source)
{
    for (const auto& [point, cells] : source.project.getSubsidence())
        for (const SubsidenceCell& cell : cells)
            rows.add({point, cell.title, wholeText(cell.code), cell.text});
}

void fillNames(TextRows& rows, const TableSource& source)
{
    for (const auto& [point, names] : source.project.getSubsidenceNames())
        rows.add({point, joined(names)});
}

void fillGroups(TextRows& rows, const TableSource& source)
{
    for (const auto& [point, groups] : source.project.getSubsidenceGroups()) {
        std::size_t number = 0;
        for (const std::vector<std::wstring>& group : groups)
            rows.add({point, wholeText(++number), joined(group)});
    }
}

void fillChemistry(TextRows& rows, const TableSource& source)
{
    RowsByPlace samples(source.project.getLabSamples());
    for (const auto& [key, record] : source.project.getChemistry()) {
        const LabSample* sample = samples.find(key.pointName, key.depth);
        std::vector<std::wstring> cells{key.pointName, key.depth, sample ? sample->code : std::wstring()};
        cells.insert(cells.end(), record.cells.begin(), record.cells.end());
        rows.add(cells);
    }
}

// No dictionary names the components, so they go by number; an analysis fills a few of the thirty.
std::vector<TableColumn> chemistryColumns()
{
    static const auto titles =
        numberedTitles<std::tuple_size_v<decltype(ChemistryRecord::cells)>>(L"Показатель");
    std::vector<TableColumn> columns{{captions::excavation, 11},
        {L"Глубина\nотбора, м", 9, TableColumn::Number},
        {captions::sampleCode, 10, TableColumn::Text, true}};
    for (const std::wstring& title : titles)
        columns.push_back({title, 13, TableColumn::Number, true});
    return columns;
}

} // namespace

const std::vector<Table>& subsidenceTables()
{
    static const std::vector<Table> tables{
        {.name = "subsidence/cells",
            .title = L"Просадочность",
            .columns = {{L"Точка", 13},
                {L"Название", 24},
                {captions::code, 9, TableColumn::Number},
                {captions::value, 13, TableColumn::Number}},
            .fill = fillSubsidence,
            .whenEmpty = L"Просадочность точек не определялась."},
        {.name = "subsidence/names",
            .title = L"Наименования",
            .columns = {{L"Точка", 13}, {L"Наименования", 56}},
            .fill = fillNames,
            .whenEmpty = L"Наименований нет."},
        {.name = "subsidence/groups",
            .title = L"Группы",
            .columns = {{L"Точка", 13}, {L"Группа", 9, TableColumn::Number}, {L"Состав", 56}},
            .fill = fillGroups,
            .whenEmpty = L"Групп нет."},
    };
    return tables;
}

const std::vector<Table>& chemistryTables()
{
    static const std::vector<Table> tables{
        {.name = "chemistry/analyses",
            .title = L"Анализы",
            .columns = chemistryColumns(),
            .fill = fillChemistry,
            .whenEmpty = L"В проекте нет химических анализов."},
    };
    return tables;
}
