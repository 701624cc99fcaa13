#include "common/sheets/by_point.h"
#include "common/sheets/sheets.h"
#include "dictionaries/captions.h"
#include "modules/idbproject.h"

namespace
{

void fillSubsidence(SheetRows& rows, const SheetSource& source)
{
    for (const auto& [point, cells] : source.project.getSubsidence())
        for (const SubsidenceCell& cell : cells)
            rows.add({point, cell.title, std::to_wstring(cell.code), cell.text});
}

void fillNames(SheetRows& rows, const SheetSource& source)
{
    for (const auto& [point, names] : source.project.getSubsidenceNames())
        rows.add({point, joined(names)});
}

void fillGroups(SheetRows& rows, const SheetSource& source)
{
    for (const auto& [point, groups] : source.project.getSubsidenceGroups()) {
        std::size_t number = 0;
        for (const std::vector<std::wstring>& group : groups)
            rows.add({point, std::to_wstring(++number), joined(group)});
    }
}

void fillChemistry(SheetRows& rows, const SheetSource& source)
{
    std::unordered_map<std::wstring, std::wstring_view> codes;
    for (const auto& [key, sample] : source.project.getLabSamples())
        codes.try_emplace(key.pointName + L'\n' + key.depth, sample.code);
    for (const auto& [key, record] : source.project.getChemistry()) {
        const auto code = codes.find(key.pointName + L'\n' + key.depth);
        std::vector<std::wstring> cells{
            key.pointName, key.depth, std::wstring(code == codes.end() ? L"" : code->second)};
        cells.insert(cells.end(), record.cells.begin(), record.cells.end());
        rows.add(cells);
    }
}

// No dictionary names the components, so they go by number; an analysis fills a few of the thirty.
std::vector<SheetColumn> chemistryColumns()
{
    static const auto titles =
        numberedTitles<std::tuple_size_v<decltype(ChemistryRecord::cells)>>(L"Показатель");
    std::vector<SheetColumn> columns{{captions::excavation, 100},
        {L"Глубина\nотбора, м", 80, SheetColumn::Number},
        {captions::sampleCode, 90, SheetColumn::Text, true}};
    for (const std::wstring& title : titles)
        columns.push_back({title, 115, SheetColumn::Number, true});
    return columns;
}

} // namespace

const std::vector<Sheet>& subsidenceSheets()
{
    static const std::vector<Sheet> sheets{
        {.name = "subsidence/cells",
            .title = L"Просадочность",
            .columns = {{L"Точка", 120},
                {L"Название", 220},
                {captions::code, 80, SheetColumn::Number},
                {captions::value, 120, SheetColumn::Number}},
            .fill = fillSubsidence,
            .whenEmpty = L"Просадочность точек не определялась."},
        {.name = "subsidence/names",
            .title = L"Наименования",
            .columns = {{L"Точка", 120}, {L"Наименования", 500}},
            .fill = fillNames,
            .whenEmpty = L"Наименований нет."},
        {.name = "subsidence/groups",
            .title = L"Группы",
            .columns = {{L"Точка", 120}, {L"Группа", 80, SheetColumn::Number}, {L"Состав", 500}},
            .fill = fillGroups,
            .whenEmpty = L"Групп нет."},
    };
    return sheets;
}

const std::vector<Sheet>& chemistrySheets()
{
    static const std::vector<Sheet> sheets{
        {.name = "chemistry/analyses",
            .title = L"Анализы",
            .columns = chemistryColumns(),
            .fill = fillChemistry,
            .whenEmpty = L"В проекте нет химических анализов."},
    };
    return sheets;
}
