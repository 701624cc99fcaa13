#include "dictionaries/captions.h"
#include "dictionaries/fractions.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/modes.h"
#include "dictionaries/properties.h"
#include "dictionaries/test_loads.h"
#include "site/by_point.h"
#include "tables/cell_texts.h"
#include "tables/tables.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace
{

using Sample = LabSampleRegister::value_type;

constexpr TableColumn pointColumn{captions::excavation, 11};
constexpr TableColumn depthColumn{L"Глубина\nотбора, м", 8, TableColumn::Number};
constexpr TableColumn codeColumn{captions::sampleCode, 10};

std::size_t cellCount(const LabSample& sample)
{
    std::size_t count = 0;
    for (const auto& [test, group] : sample.compression)
        count += group.cells.size();
    return count;
}

void fillSamples(TextRows& rows, const TableSource& source)
{
    // The kind of a sample stands in the field register.
    RowsByPlace field(source.project.getSamples());
    for (const auto& [key, sample] : source.project.getLabSamples()) {
        const SampleValue* taken = field.find(key.pointName, key.depth);
        rows.add({key.pointName,
            key.depth,
            sample.code,
            wholeText(sample.number),
            taken ? nameText(sampleKinds, taken->sampleKind) : std::wstring(),
            sample.soilKind.text,
            countText(sample.physical.size()),
            countText(sample.grading.size()),
            countText(cellCount(sample)),
            countText(sample.shear.size()),
            countText(sample.swelling.size()),
            countText(sample.shrinkage.size())});
    }
}

void fillPhysical(TextRows& rows, const TableSource& source)
{
    for (const auto& [key, sample] : source.project.getLabSamples())
        for (const PropertyCell& cell : sample.physical)
            rows.add({key.pointName,
                key.depth,
                sample.code,
                nameText(propertyNames, source.language, cell.id),
                cell.value,
                yesText(cell.enabled)});
}

void fillGrading(TextRows& rows, const TableSource& source)
{
    for (const auto& [key, sample] : source.project.getLabSamples()) {
        if (sample.grading.empty())
            continue;
        std::vector<std::wstring> cells{key.pointName, key.depth, sample.code};
        for (const FractionRow& fraction : fractionRows) {
            const auto found = sample.grading.find(static_cast<std::uint8_t>(fraction.number));
            cells.push_back(found == sample.grading.end() ? std::wstring() : found->second);
        }
        std::vector<std::wstring> others;
        for (const auto& [number, percentage] : sample.grading)
            if (!fractionCaptions.contains(number))
                others.push_back(wholeText(number) + L": " + percentage);
        cells.push_back(joined(others));
        rows.add(cells);
    }
}

std::vector<TableColumn> gradingColumns()
{
    static const auto titles = [] {
        std::array<std::wstring, std::size(fractionRows)> made;
        std::transform(std::begin(fractionRows), std::end(fractionRows), made.begin(), [](const auto& row) {
            return std::wstring(row.caption) + L"\nмм, %";
        });
        return made;
    }();
    std::vector<TableColumn> columns{pointColumn, depthColumn, codeColumn};
    for (const std::wstring& title : titles)
        columns.push_back({title, 10, TableColumn::Number, true});
    columns.push_back({L"Прочие\nфракции", 13, TableColumn::Text, true});
    return columns;
}

void fillCompression(TextRows& rows, const TableSource& source)
{
    for (const auto& [key, sample] : source.project.getLabSamples())
        for (const auto& [test, group] : sample.compression)
            for (const CompressionCell& cell : group.cells)
                rows.add({key.pointName,
                    key.depth,
                    sample.code,
                    nameText(subsidenceMethodNames, source.language, test),
                    nameText(compressionLoads, cell.id),
                    cell.textA,
                    cell.textB,
                    cell.textC});
}

void fillShear(TextRows& rows, const TableSource& source)
{
    for (const auto& [key, sample] : source.project.getLabSamples())
        for (const auto& [method, cells] : sample.shear)
            for (const ShearCell& cell : cells)
                rows.add({key.pointName,
                    key.depth,
                    sample.code,
                    nameText(shearMethodNames, source.language, method),
                    nameText(shearLoads, cell.id),
                    cell.value});
}

void fillSwelling(TextRows& rows, const TableSource& source)
{
    for (const auto& [key, sample] : source.project.getLabSamples())
        for (const SwellingCell& cell : sample.swelling)
            rows.add({key.pointName,
                key.depth,
                sample.code,
                nameText(swellLoads, cell.id),
                cell.textA,
                cell.textB,
                cell.textC});
}

void fillShrinkage(TextRows& rows, const TableSource& source)
{
    for (const auto& [key, sample] : source.project.getLabSamples())
        for (const ShrinkageRow& row : sample.shrinkage)
            rows.add({key.pointName,
                key.depth,
                sample.code,
                wholeText(row.stage),
                row.cells[0],
                row.cells[1],
                row.cells[2],
                row.cells[3],
                row.cells[4],
                row.cells[5]});
}

void fillTemplates(TextRows& rows, const TableSource& source)
{
    IDBProject& project = source.project;
    for (const PropertyCell& cell : project.getPhysicalTemplate())
        rows.add({labModeTitles.at(LabPhysical),
            nameText(propertyNames, source.language, cell.id),
            cell.value,
            {},
            {},
            yesText(cell.enabled)});
    for (const CompressionCell& cell : project.getCompressionTemplate())
        rows.add({labModeTitles.at(LabCompression),
            nameText(compressionLoads, cell.id),
            cell.textA,
            cell.textB,
            cell.textC});
    for (const ShearCell& cell : project.getShearTemplate())
        rows.add({labModeTitles.at(LabShear), nameText(shearLoads, cell.id), cell.value});
    for (const SwellingCell& cell : project.getSwellingTemplate())
        rows.add(
            {labModeTitles.at(LabSwell), nameText(swellLoads, cell.id), cell.textA, cell.textB, cell.textC});
}

} // namespace

// A table, as long as it must be. NOLINTNEXTLINE(readability-function-size)
const std::vector<Table>& laboratoryTables()
{
    static const std::vector<Table> tables{
        {.name = "laboratory/samples",
            .title = captions::sampleRegister,
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {L"Номер\nпробы", 8, TableColumn::Number},
                {captions::sampleType, 18, TableColumn::Text, true},
                {captions::soilName, 19, TableColumn::Text, true},
                {L"Физические\nсвойства", 11, TableColumn::Number},
                {L"Фракции", 9, TableColumn::Number, true},
                {labModeTitles.at(LabCompression), 11, TableColumn::Number, true},
                {labModeTitles.at(LabShear), 8, TableColumn::Number, true},
                {L"Набухание", 10, TableColumn::Number, true},
                {L"Усадка", 8, TableColumn::Number, true}},
            .fill = fillSamples,
            .whenEmpty = L"В проекте нет лабораторных проб."},
        {.name = "laboratory/physical",
            .title = labModeTitles.at(LabPhysical),
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {captions::propertyName, 43},
                {captions::value, 11, TableColumn::Number},
                {L"В наборе", 9}},
            .fill = fillPhysical,
            .whenEmpty = L"Физические свойства проб не определялись."},
        {.name = "laboratory/grading",
            .title = labModeTitles.at(LabGranulometry),
            .columns = gradingColumns(),
            .fill = fillGrading,
            .whenEmpty = L"Гранулометрический состав проб не определялся."},
        {.name = "laboratory/compression",
            .title = labModeTitles.at(LabCompression),
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {L"Испытание", 41},
                {L"Нагрузка,\nМПа", 9, TableColumn::Number},
                {L"Отсчет 1", 10, TableColumn::Number},
                {L"Отсчет 2", 10, TableColumn::Number, true},
                {L"Отсчет 3", 10, TableColumn::Number, true}},
            .fill = fillCompression,
            .whenEmpty = L"Компрессионных испытаний нет."},
        {.name = "laboratory/shear",
            .title = labModeTitles.at(LabShear),
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {L"Метод", 48},
                {L"Нагрузка,\nМПа", 9, TableColumn::Number},
                {L"Сопротивление\nсдвигу, МПа", 13, TableColumn::Number}},
            .fill = fillShear,
            .whenEmpty = L"Испытаний на сдвиг нет."},
        {.name = "laboratory/swelling",
            .title = L"Набухание",
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {L"Нагрузка,\nМПа", 9, TableColumn::Number},
                {L"Высота\nобразца, см", 12, TableColumn::Number},
                {L"Набухание\nабсолютное, см", 14, TableColumn::Number},
                {L"Относительная\nнабухаемость", 14, TableColumn::Number}},
            .fill = fillSwelling,
            .whenEmpty = L"Испытаний на набухание нет."},
        {.name = "laboratory/shrinkage",
            .title = L"Усадка",
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {L"№", 6, TableColumn::Number},
                {captions::dryingStage, 11},
                {L"Диаметр\nобразца, см", 12, TableColumn::Number},
                {L"Высота\nобразца, см", 12, TableColumn::Number},
                {L"Вес\nобразца, г", 12, TableColumn::Number},
                {L"Объем\nобразца, см3", 12, TableColumn::Number},
                {L"Влажность\nобразца, д.е.", 12, TableColumn::Number}},
            .fill = fillShrinkage,
            .whenEmpty = L"Испытаний на усадку нет."},
        {.name = "laboratory/templates",
            .title = L"Шаблоны",
            .columns = {{L"Шаблон", 18},
                {L"Свойство или нагрузка, МПа", 43},
                {captions::value, 11, TableColumn::Number},
                {L"Значение 2", 11, TableColumn::Number, true},
                {L"Значение 3", 11, TableColumn::Number, true},
                {L"В наборе", 9}},
            .fill = fillTemplates,
            .whenEmpty = L"Шаблоны новых проб в проекте не заданы."},
    };
    return tables;
}
