#include "common/sheets/by_point.h"
#include "common/sheets/sheets.h"
#include "dictionaries/captions.h"
#include "dictionaries/fractions.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/modes.h"
#include "dictionaries/properties.h"
#include "dictionaries/test_loads.h"

namespace
{

using Sample = LabSampleRegister::value_type;

constexpr SheetColumn pointColumn{captions::excavation, 100};
constexpr SheetColumn depthColumn{L"Глубина\nотбора, м", 75, SheetColumn::Number};
constexpr SheetColumn codeColumn{captions::sampleCode, 90};

// The kinds of the samples in the field register, which the laboratory takes them from.
std::unordered_map<std::wstring, int> sampleKindsByPlace(IDBProject& project)
{
    std::unordered_map<std::wstring, int> kinds;
    for (const auto& [key, value] : project.getSamples())
        kinds.try_emplace(key.pointName + L'\n' + key.depth, value.sampleKind);
    return kinds;
}

std::size_t cellCount(const LabSample& sample)
{
    std::size_t count = 0;
    for (const auto& [test, group] : sample.compression)
        count += group.cells.size();
    return count;
}

void fillSamples(SheetRows& rows, const SheetSource& source)
{
    const auto kinds = sampleKindsByPlace(source.project);
    for (const auto& [key, sample] : source.project.getLabSamples()) {
        const auto kind = kinds.find(key.pointName + L'\n' + key.depth);
        rows.add({key.pointName,
            key.depth,
            sample.code,
            std::to_wstring(sample.number),
            kind == kinds.end() ? std::wstring() : nameText(sampleKinds, kind->second),
            sample.soilKind.text,
            countText(sample.physical.size()),
            countText(sample.grading.size()),
            countText(cellCount(sample)),
            countText(sample.shear.size()),
            countText(sample.swelling.size()),
            countText(sample.shrinkage.size())});
    }
}

void fillPhysical(SheetRows& rows, const SheetSource& source)
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

void fillGrading(SheetRows& rows, const SheetSource& source)
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
                others.push_back(std::to_wstring(number) + L": " + percentage);
        cells.push_back(joined(others));
        rows.add(cells);
    }
}

std::vector<SheetColumn> gradingColumns()
{
    std::vector<SheetColumn> columns{pointColumn, depthColumn, codeColumn};
    for (const FractionRow& fraction : fractionRows)
        columns.push_back({fraction.caption, 88, SheetColumn::Number, true});
    columns.push_back({L"Прочие\nфракции", 120, SheetColumn::Text, true});
    return columns;
}

void fillCompression(SheetRows& rows, const SheetSource& source)
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

void fillShear(SheetRows& rows, const SheetSource& source)
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

void fillSwelling(SheetRows& rows, const SheetSource& source)
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

void fillShrinkage(SheetRows& rows, const SheetSource& source)
{
    for (const auto& [key, sample] : source.project.getLabSamples())
        for (const ShrinkageRow& row : sample.shrinkage)
            rows.add({key.pointName,
                key.depth,
                sample.code,
                std::to_wstring(row.stage),
                row.cells[0],
                row.cells[1],
                row.cells[2],
                row.cells[3],
                row.cells[4],
                row.cells[5]});
}

void fillTemplates(SheetRows& rows, const SheetSource& source)
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

const std::vector<Sheet>& laboratorySheets()
{
    static const std::vector<Sheet> sheets{
        {.name = "laboratory/samples",
            .title = captions::sampleRegister,
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {L"Номер\nпробы", 75, SheetColumn::Number},
                {captions::sampleType, 130},
                {captions::soilName, 170},
                {L"Физические\nсвойства", 95, SheetColumn::Number},
                {L"Фракции", 80, SheetColumn::Number},
                {labModeTitles.at(LabCompression), 95, SheetColumn::Number},
                {labModeTitles.at(LabShear), 70, SheetColumn::Number},
                {L"Набухание", 90, SheetColumn::Number},
                {L"Усадка", 75, SheetColumn::Number}},
            .fill = fillSamples,
            .whenEmpty = L"В проекте нет лабораторных проб."},
        {.name = "laboratory/physical",
            .title = labModeTitles.at(LabPhysical),
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {captions::propertyName, 390},
                {captions::value, 100, SheetColumn::Number},
                {L"В наборе", 80}},
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
                {L"Испытание", 370},
                {L"Нагрузка,\nМПа", 85, SheetColumn::Number},
                {L"Отсчет 1", 90, SheetColumn::Number},
                {L"Отсчет 2", 90, SheetColumn::Number, true},
                {L"Отсчет 3", 90, SheetColumn::Number, true}},
            .fill = fillCompression,
            .whenEmpty = L"Компрессионных испытаний нет."},
        {.name = "laboratory/shear",
            .title = labModeTitles.at(LabShear),
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {L"Метод", 430},
                {L"Нагрузка,\nМПа", 85, SheetColumn::Number},
                {L"Сопротивление\nсдвигу, МПа", 120, SheetColumn::Number}},
            .fill = fillShear,
            .whenEmpty = L"Испытаний на сдвиг нет."},
        {.name = "laboratory/swelling",
            .title = L"Набухание",
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {L"Нагрузка,\nМПа", 85, SheetColumn::Number},
                {L"Высота\nобразца, см", 110, SheetColumn::Number},
                {L"Набухание\nабсолютное, см", 130, SheetColumn::Number},
                {L"Относительная\nнабухаемость", 130, SheetColumn::Number}},
            .fill = fillSwelling,
            .whenEmpty = L"Испытаний на набухание нет."},
        {.name = "laboratory/shrinkage",
            .title = L"Усадка",
            .columns = {pointColumn,
                depthColumn,
                codeColumn,
                {L"№", 50, SheetColumn::Number},
                {captions::dryingStage, 100},
                {L"Диаметр\nобразца, см", 105, SheetColumn::Number},
                {L"Высота\nобразца, см", 105, SheetColumn::Number},
                {L"Вес\nобразца, г", 105, SheetColumn::Number},
                {L"Объем\nобразца, см3", 105, SheetColumn::Number},
                {L"Влажность\nобразца, д.е.", 110, SheetColumn::Number}},
            .fill = fillShrinkage,
            .whenEmpty = L"Испытаний на усадку нет."},
        {.name = "laboratory/templates",
            .title = L"Шаблоны",
            .columns = {{L"Шаблон", 160},
                {L"Свойство или нагрузка, МПа", 390},
                {captions::value, 100, SheetColumn::Number},
                {L"Значение 2", 100, SheetColumn::Number, true},
                {L"Значение 3", 100, SheetColumn::Number, true},
                {L"В наборе", 80}},
            .fill = fillTemplates,
            .whenEmpty = L"Шаблоны новых проб в проекте не заданы."},
    };
    return sheets;
}
