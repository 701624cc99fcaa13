#include "dictionaries/captions.h"
#include "dictionaries/sounding_captions.h"
#include "site/by_point.h"
#include "site/points.h"
#include "tables/cell_texts.h"
#include "tables/tables.h"

namespace
{

std::wstring_view greatestDepth(const std::vector<SoundingRow>& journal)
{
    std::wstring_view deepest;
    double greatest = 0;
    for (const SoundingRow& row : journal)
        if (const Number depth = readNumber(row.depth); depth && (deepest.empty() || *depth > greatest)) {
            greatest = *depth;
            deepest = row.depth;
        }
    return deepest;
}

void fillSoundings(TextRows& rows, const TableSource& source)
{
    for (const auto* of : inReadingOrder(source.project.getSoundings())) {
        const auto& [key, journal] = *of;
        rows.add({key.pointName,
            pointKindShortName(static_cast<int>(key.pointKind)),
            key.device,
            key.date,
            wholeText(journal.size()),
            greatestDepth(journal)});
    }
}

void fillJournal(TextRows& rows, const TableSource& source)
{
    for (const auto& [key, journal] : source.project.getSoundings()) {
        if (key.pointName != source.chosen)
            continue;
        for (const SoundingRow& row : journal)
            rows.add({row.depth, row.cells[0], row.cells[1], row.cells[2], row.cells[3]});
    }
}

void fillFlags(TextRows& rows, const TableSource& source)
{
    for (const auto& [name, code] : source.project.getSoundingFlags())
        rows.add({name, wholeText(code)});
}

void fillCalcRows(TextRows& rows, const TableSource& source)
{
    for (const SoundingCalcRow& row : source.project.getSoundingCalcRows())
        rows.add(std::vector<std::wstring>(row.cells.begin(), row.cells.end()));
}

std::vector<TableColumn> calcColumns()
{
    static const auto titles = numberedTitles<8>(L"Графа");
    std::vector<TableColumn> columns;
    columns.reserve(titles.size());
    for (const std::wstring& title : titles)
        columns.push_back({title, 12, TableColumn::Number});
    return columns;
}

void fillTriples(TextRows& rows, const TableSource& source)
{
    for (const auto& [number, values] : source.project.getSoundingTriples())
        rows.add({wholeText(number), wholeText(values[0]), wholeText(values[1]), wholeText(values[2])});
}

void fillParameters(TextRows& rows, const TableSource& source)
{
    IDBProject& project = source.project;
    rows.add({L"Признак A", project.getSoundingOptionA() ? L"да" : L"нет"});
    rows.add({L"Признак B", project.getSoundingOptionB() ? L"да" : L"нет"});
    rows.add({L"Число A", wholeText(project.getSoundingValueA())});
    rows.add({L"Число B", wholeText(project.getSoundingValueB())});
    rows.add({L"Число C", wholeText(project.getSoundingValueC())});
    rows.add({L"Число D", wholeText(project.getSoundingValueD())});
    rows.add({L"Коэффициент A", singleText(project.getSoundingRatioA())});
    rows.add({L"Коэффициент B", singleText(project.getSoundingRatioB())});
    rows.add({L"Коэффициент C", singleText(project.getSoundingRatioC())});
    rows.add({L"Коэффициент D", singleText(project.getSoundingRatioD())});
    rows.add({L"Коэффициент E", singleText(project.getSoundingRatioE())});
}

} // namespace

const std::vector<Table>& soundingTables()
{
    static const Table journal{.name = "static/journal",
        .title = soundingJournalTexts.at(languageRussian, 0),
        .columns = {{L"Глубина, м", 11, TableColumn::Number},
            {L"Отсчет 1", 12, TableColumn::Number},
            {L"Отсчет 2", 12, TableColumn::Number},
            {L"Отсчет 3", 12, TableColumn::Number},
            {L"Отсчет 4", 12, TableColumn::Number}},
        .fill = fillJournal,
        .whenEmpty = L"В журнале этой точки нет строк."};
    static const std::vector<Table> tables{
        {.name = "static/soundings",
            .title = L"Журналы",
            .columns = {{L"Точка", 13},
                {captions::type, 10},
                {captions::probeType, 17},
                {captions::date, 11},
                {L"Строк", 9, TableColumn::Number},
                {L"Макс. глубина\nзонд., м", 13, TableColumn::Number}},
            .fill = fillSoundings,
            .whenEmpty = L"В проекте нет журналов статического зондирования.",
            .detail = &journal},
        {.name = "static/piles",
            .title = captions::pileCalculation,
            .columns = calcColumns(),
            .fill = fillCalcRows,
            .whenEmpty = L"Расчет свай не выполнялся."},
        {.name = "static/flags",
            .title = L"Признаки точек",
            .columns = {{L"Точка", 18}, {captions::code, 9, TableColumn::Number}},
            .fill = fillFlags,
            .whenEmpty = L"Признаки точек не заданы."},
        {.name = "static/triples",
            .title = L"Наборы чисел",
            .columns = {{L"Номер", 9, TableColumn::Number},
                {L"Число 1", 13, TableColumn::Number},
                {L"Число 2", 13, TableColumn::Number},
                {L"Число 3", 13, TableColumn::Number}},
            .fill = fillTriples,
            .whenEmpty = L"Наборы чисел не заданы."},
        {.name = "static/parameters",
            .title = L"Параметры",
            .columns = {{L"Параметр", 18}, {captions::value, 13, TableColumn::Number}},
            .fill = fillParameters,
            .whenEmpty = L"Параметры не заданы."},
    };
    return tables;
}
