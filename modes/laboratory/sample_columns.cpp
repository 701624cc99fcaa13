#include "laboratory/sample_columns.h"

#include "calc/grading.h"
#include "calc/physical.h"
#include "core/base/typed_number.h"
#include "dictionaries/fractions.h"
#include "dictionaries/properties.h"
#include "dictionaries/test_loads.h"
#include "site/elements.h"
#include "site/laboratory.h"

#include <algorithm>
#include <set>

namespace
{

QString qText(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

// The dictionary spells some letters in Latin ones; a person sees no difference, a search does.
QString propertyTitle(int property, int language)
{
    const std::wstring_view* name = propertyNames.find(language, property);
    return name ? qText(*name) : QStringLiteral("Свойство %1").arg(property);
}

// A head that is broken into short lines.
QString headOf(const QString& text)
{
    QString head;
    int length = 0;
    for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (length > 0 && length + word.size() > 13) {
            head += QLatin1Char('\n');
            length = 0;
        } else if (length > 0) {
            head += QLatin1Char(' ');
        }
        head += word;
        length += word.size() + 1;
    }
    return head;
}

template <class Cells, class Make>
auto& cellOf(Cells& cells, int id, Make make)
{
    auto place = std::find_if(cells.begin(), cells.end(), [&](const auto& cell) { return cell.id >= id; });
    if (place == cells.end() || place->id != id)
        place = cells.insert(place, make());
    return *place;
}

template <class Cells>
const typename Cells::value_type* existing(const Cells& cells, int id)
{
    const auto place =
        std::find_if(cells.begin(), cells.end(), [&](const auto& cell) { return cell.id == id; });
    return place == cells.end() ? nullptr : &*place;
}

PropertyCell& property(LabSample& sample, int id)
{
    return cellOf(sample.physical, id, [id] {
        PropertyCell cell;
        cell.id = id;
        cell.enabled = true;
        return cell;
    });
}

CompressionCell& stage(LabSample& sample, int test, int id)
{
    return cellOf(sample.compression[static_cast<std::uint8_t>(test)].cells, id, [id] {
        CompressionCell cell;
        cell.id = id;
        return cell;
    });
}

ShearCell& shearCell(LabSample& sample, int method, int id)
{
    return cellOf(sample.shear[static_cast<std::uint8_t>(method)], id, [id] { return ShearCell{id, {}}; });
}

SwellingCell& swellCell(LabSample& sample, int id)
{
    return cellOf(sample.swelling, id, [id] { return SwellingCell{id, {}, {}, {}}; });
}

GridColumn numberColumn(const QString& title, int width, bool isComputed = false)
{
    GridColumn column;
    column.title = title;
    column.kind = GridColumn::Number;
    column.width = width;
    column.readOnly = isComputed;
    return column;
}

GridColumn readOnlyText(const QString& title, int width)
{
    GridColumn column;
    column.title = title;
    column.width = width;
    column.readOnly = true;
    return column;
}

std::set<int> propertiesInUse(IDBProject& project)
{
    std::set<int> numbers;
    for (int number = 0; number <= lastDerivedProperty; ++number)
        numbers.insert(number);
    for (const PropertyCell& cell : project.getPhysicalTemplate())
        numbers.insert(cell.id);
    for (const auto& [key, sample] : project.getLabSamples())
        for (const PropertyCell& cell : sample.physical)
            if (!cell.value.empty())
                numbers.insert(cell.id);
    return numbers;
}

std::set<int> loadsInUse(IDBProject& project, const TestChoice& choice)
{
    std::set<int> loads;
    if (choice.test == LabTest::Compression) {
        for (const CompressionCell& cell : project.getCompressionTemplate())
            loads.insert(cell.id);
        for (const auto& [key, sample] : project.getLabSamples())
            if (const auto group = sample.compression.find(static_cast<std::uint8_t>(choice.method));
                group != sample.compression.end())
                for (const CompressionCell& cell : group->second.cells)
                    loads.insert(cell.id);
    } else if (choice.test == LabTest::Shear) {
        for (const ShearCell& cell : project.getShearTemplate())
            loads.insert(cell.id);
        for (const auto& [key, sample] : project.getLabSamples())
            if (const auto cells = sample.shear.find(static_cast<std::uint8_t>(choice.method));
                cells != sample.shear.end())
                for (const ShearCell& cell : cells->second)
                    loads.insert(cell.id);
        loads.erase(255); // no load: whether the test counts
    } else {
        for (const SwellingCell& cell : project.getSwellingTemplate())
            loads.insert(cell.id);
        for (const auto& [key, sample] : project.getLabSamples())
            for (const SwellingCell& cell : sample.swelling)
                loads.insert(cell.id);
    }
    return loads;
}

std::vector<SampleColumn> physicalColumns(IDBProject& project, int language)
{
    std::vector<SampleColumn> columns;
    for (const int number : propertiesInUse(project))
        columns.push_back({numberColumn(headOf(propertyTitle(number, language)), 88),
            [number](const LabSample& sample) {
                const PropertyCell* cell = propertyCell(sample, number);
                return cell ? cell->value : std::wstring();
            },
            [number](LabSample& sample, const std::wstring& text) { property(sample, number).value = text; },
            "physical/" + std::to_string(number)});
    return columns;
}

std::vector<SampleColumn> gradingColumns(IDBProject& project)
{
    std::vector<SampleColumn> columns;
    const GrainScale scale = grainScaleOf(project).value_or(GrainScale::Above200);
    for (const FractionRow& row : fractionRows) {
        const int number = row.number;
        if (fractionRank(number, scale) == 0)
            continue;
        columns.push_back({numberColumn(qText(row.caption), 62),
            [number](const LabSample& sample) {
                const auto place = sample.grading.find(static_cast<std::uint8_t>(number));
                return place == sample.grading.end() ? std::wstring() : place->second;
            },
            [number](LabSample& sample, const std::wstring& text) {
                if (text.empty())
                    sample.grading.erase(static_cast<std::uint8_t>(number));
                else
                    sample.grading[static_cast<std::uint8_t>(number)] = text;
            },
            "grading/" + std::to_string(number)});
    }
    columns.push_back({numberColumn(QStringLiteral("Сумма,\n%"), 62, true),
        [](const LabSample& sample) {
            Number sum;
            for (const auto& [number, text] : sample.grading)
                if (const CellNumber share = readCellNumber(text); share.value && !share.isLeftOut)
                    sum = sum.value_or(0) + *share.value;
            return numberText(sum, 1);
        },
        {},
        "grading"});
    return columns;
}

std::vector<SampleColumn> loadColumns(IDBProject& project, const TestChoice& choice)
{
    std::vector<SampleColumn> columns;
    for (const int load : loadsInUse(project, choice)) {
        SampleColumn column{
            numberColumn(loadText(choice.test, load) + QStringLiteral("\nМПа"), 68), {}, {}, {}};
        const int method = choice.method;
        if (choice.test == LabTest::Compression) {
            const auto text = choice.branch == 0 ? &CompressionCell::textA : &CompressionCell::textB;
            column.get = [=](const LabSample& sample) {
                const auto group = sample.compression.find(static_cast<std::uint8_t>(method));
                const CompressionCell* cell =
                    group == sample.compression.end() ? nullptr : existing(group->second.cells, load);
                return cell ? cell->*text : std::wstring();
            };
            column.put = [=](LabSample& sample, const std::wstring& value) {
                stage(sample, method, load).*text = value;
            };
            column.mark = "compression/" + std::to_string(method) + "/" + std::to_string(load);
        } else if (choice.test == LabTest::Shear) {
            column.get = [=](const LabSample& sample) {
                const auto cells = sample.shear.find(static_cast<std::uint8_t>(method));
                const ShearCell* cell = cells == sample.shear.end() ? nullptr : existing(cells->second, load);
                return cell ? cell->value : std::wstring();
            };
            column.put = [=](LabSample& sample, const std::wstring& value) {
                shearCell(sample, method, load).value = value;
            };
            column.mark = "shear/" + std::to_string(method) + "/" + std::to_string(load);
        } else {
            column.get = [=](const LabSample& sample) {
                const SwellingCell* cell = existing(sample.swelling, load);
                return cell ? cell->textB : std::wstring();
            };
            column.put = [=](LabSample& sample, const std::wstring& value) {
                swellCell(sample, load).textB = value;
            };
            column.mark = "swelling/" + std::to_string(load);
        }
        columns.push_back(std::move(column));
    }
    return columns;
}

// The stages of drying do not fit into one row: the table tells how many there are, the sample's form has
// them.
std::vector<SampleColumn> shrinkageColumns()
{
    return {{numberColumn(QStringLiteral("Этапов\nсушки"), 80, true),
        [](const LabSample& sample) {
            return sample.shrinkage.empty() ? std::wstring() : std::to_wstring(sample.shrinkage.size());
        },
        {},
        "shrinkage"}};
}

std::wstring wide(const QString& text)
{
    return text.toStdWString();
}

GridRow rowOf(int id, const QStringList& cells)
{
    GridRow row;
    row.id = id + 1;
    for (const QString& cell : cells)
        row.cells.push_back(cell);
    return row;
}

int numberOf(const GridRow& row)
{
    return static_cast<int>(row.id) - 1;
}

SampleForm physicalForm(IDBProject& project, int language, bool hasAllRows)
{
    std::set<int> numbers;
    if (hasAllRows)
        for (const auto& row : propertyNames)
            numbers.insert(row.number);
    else
        numbers = propertiesInUse(project);
    SampleForm form;
    form.columns = {readOnlyText(QStringLiteral("Свойство"), 330),
        numberColumn(QStringLiteral("Значение"), 110),
        {QStringLiteral("В статистике ИГЭ"), GridColumn::Flag, 120}};
    form.read = [=](const LabSample& sample) {
        GridRows rows;
        for (const int number : numbers) {
            const PropertyCell* cell = propertyCell(sample, number);
            rows.push_back(rowOf(number,
                {propertyTitle(number, language),
                    cell ? qText(cell->value) : QString(),
                    !cell || cell->enabled ? QStringLiteral("1") : QString()}));
        }
        return rows;
    };
    form.write = [](LabSample& sample, const GridRows& rows) {
        for (const GridRow& row : rows) {
            const PropertyCell* before = propertyCell(sample, numberOf(row));
            const bool isEnabled = row.cells[2] == QStringLiteral("1");
            if (!before && row.cells[1].isEmpty() && isEnabled)
                continue;
            PropertyCell& cell = property(sample, numberOf(row));
            cell.value = wide(row.cells[1]);
            cell.enabled = isEnabled;
        }
    };
    form.mark = [](const GridRow& row) { return "physical/" + std::to_string(numberOf(row)); };
    return form;
}

SampleForm gradingForm(IDBProject& project)
{
    const GrainScale scale = grainScaleOf(project).value_or(GrainScale::Above200);
    SampleForm form;
    form.columns = {
        readOnlyText(QStringLiteral("Фракция, мм"), 130), numberColumn(QStringLiteral("Содержание, %"), 120)};
    form.read = [scale](const LabSample& sample) {
        GridRows rows;
        for (const FractionRow& fraction : fractionRows) {
            if (fractionRank(fraction.number, scale) == 0)
                continue;
            const auto place = sample.grading.find(static_cast<std::uint8_t>(fraction.number));
            rows.push_back(rowOf(fraction.number,
                {qText(fraction.caption), place == sample.grading.end() ? QString() : qText(place->second)}));
        }
        return rows;
    };
    form.write = [](LabSample& sample, const GridRows& rows) {
        for (const GridRow& row : rows) {
            const auto number = static_cast<std::uint8_t>(numberOf(row));
            if (row.cells[1].isEmpty())
                sample.grading.erase(number);
            else
                sample.grading[number] = wide(row.cells[1]);
        }
    };
    form.mark = [](const GridRow& row) { return "grading/" + std::to_string(numberOf(row)); };
    return form;
}

std::set<int> formLoads(IDBProject& project, const TestChoice& choice, bool hasAllRows)
{
    std::set<int> loads = loadsInUse(project, choice);
    if (hasAllRows)
        for (int load = 0; !loadText(choice.test, load).isEmpty(); ++load)
            loads.insert(load);
    return loads;
}

SampleForm compressionForm(IDBProject& project, const TestChoice& choice, bool hasAllRows)
{
    const std::set<int> loads = formLoads(project, choice, hasAllRows);
    const int method = choice.method;
    const bool isPair = method == 23;
    const bool hasSoaking = method >= 24;
    SampleForm form;
    form.columns = {readOnlyText(QStringLiteral("Давление, МПа"), 110),
        numberColumn(hasSoaking ? QStringLiteral("Деформация\nдо замачивания, мм")
                : method == 22  ? QStringLiteral("Деформация\nзамоченного, мм")
                                : QStringLiteral("Деформация\nприродного, мм"),
            130),
        numberColumn(hasSoaking ? QStringLiteral("Деформация после\nзамачивания, мм")
                : isPair        ? QStringLiteral("Деформация\nзамоченного, мм")
                                : QStringLiteral("Второй образец,\nмм"),
            130),
        numberColumn(QStringLiteral("Поправка\nна прибор, мм"), 120)};
    form.read = [=](const LabSample& sample) {
        GridRows rows;
        const auto group = sample.compression.find(static_cast<std::uint8_t>(method));
        for (const int load : loads) {
            const CompressionCell* cell =
                group == sample.compression.end() ? nullptr : existing(group->second.cells, load);
            rows.push_back(rowOf(load,
                {loadText(LabTest::Compression, load),
                    cell ? qText(cell->textA) : QString(),
                    cell ? qText(cell->textB) : QString(),
                    cell ? qText(cell->textC) : QString()}));
        }
        return rows;
    };
    form.write = [=](LabSample& sample, const GridRows& rows) {
        for (const GridRow& row : rows) {
            const auto group = sample.compression.find(static_cast<std::uint8_t>(method));
            const bool isThere =
                group != sample.compression.end() && existing(group->second.cells, numberOf(row));
            if (!isThere && row.cells[1].isEmpty() && row.cells[2].isEmpty() && row.cells[3].isEmpty())
                continue;
            CompressionCell& cell = stage(sample, method, numberOf(row));
            cell.textA = wide(row.cells[1]);
            cell.textB = wide(row.cells[2]);
            cell.textC = wide(row.cells[3]);
        }
    };
    form.mark = [method](const GridRow& row) {
        return "compression/" + std::to_string(method) + "/" + std::to_string(numberOf(row));
    };
    return form;
}

SampleForm shearForm(IDBProject& project, const TestChoice& choice, bool hasAllRows)
{
    const std::set<int> loads = formLoads(project, choice, hasAllRows);
    const int method = choice.method;
    SampleForm form;
    form.columns = {readOnlyText(QStringLiteral("Нормальное давление, МПа"), 190),
        numberColumn(QStringLiteral("Сопротивление сдвигу, МПа"), 200)};
    // Repeats of a load are rows of their own, so a row is a place among the cells; rows to come stand
    // behind.
    form.read = [=](const LabSample& sample) {
        GridRows rows;
        const auto cells = sample.shear.find(static_cast<std::uint8_t>(method));
        for (const int load : loads) {
            int repeats = 0;
            if (cells != sample.shear.end())
                for (const ShearCell& cell : cells->second)
                    if (cell.id == load)
                        rows.push_back(rowOf(
                            load + 1000 * repeats++, {loadText(LabTest::Shear, load), qText(cell.value)}));
            if (repeats == 0 || hasAllRows)
                rows.push_back(rowOf(load + 1000 * repeats, {loadText(LabTest::Shear, load), QString()}));
        }
        return rows;
    };
    form.write = [=](LabSample& sample, const GridRows& rows) {
        const auto old = sample.shear.find(static_cast<std::uint8_t>(method));
        std::vector<ShearCell> made;
        for (const GridRow& row : rows) {
            const int load = numberOf(row) % 1000;
            const bool isThere = old != sample.shear.end()
                && std::count_if(old->second.begin(),
                       old->second.end(),
                       [&](const ShearCell& cell) { return cell.id == load; })
                    > numberOf(row) / 1000;
            if (isThere || !row.cells[1].isEmpty())
                made.push_back({load, wide(row.cells[1])});
        }
        // What the form does not show stays: loads beside the ladder, whether the test counts.
        if (old != sample.shear.end())
            for (const ShearCell& cell : old->second)
                if (!loads.contains(cell.id))
                    made.push_back(cell);
        std::stable_sort(
            made.begin(), made.end(), [](const ShearCell& a, const ShearCell& b) { return a.id < b.id; });
        if (!made.empty() || old != sample.shear.end())
            sample.shear[static_cast<std::uint8_t>(method)] = std::move(made);
    };
    form.mark = [method](const GridRow& row) {
        return "shear/" + std::to_string(method) + "/" + std::to_string(numberOf(row) % 1000);
    };
    return form;
}

SampleForm swellingForm(IDBProject& project, const TestChoice& choice, bool hasAllRows)
{
    const std::set<int> loads = formLoads(project, choice, hasAllRows);
    SampleForm form;
    form.columns = {readOnlyText(QStringLiteral("Нагрузка ( МПа )"), 120),
        numberColumn(QStringLiteral("Высота образца ( см )"), 150),
        numberColumn(QStringLiteral("Набухание образца\nабсолютное ( см )"), 150),
        numberColumn(QStringLiteral("Относительная\nнабухаемость образца ( см )"), 190)};
    form.read = [=](const LabSample& sample) {
        GridRows rows;
        for (const int load : loads) {
            const SwellingCell* cell = existing(sample.swelling, load);
            rows.push_back(rowOf(load,
                {loadText(LabTest::Swelling, load),
                    cell ? qText(cell->textA) : QString(),
                    cell ? qText(cell->textB) : QString(),
                    cell ? qText(cell->textC) : QString()}));
        }
        return rows;
    };
    form.write = [](LabSample& sample, const GridRows& rows) {
        for (const GridRow& row : rows) {
            const bool isEmpty = row.cells[1].isEmpty() && row.cells[2].isEmpty() && row.cells[3].isEmpty();
            if (isEmpty && !existing(sample.swelling, numberOf(row)))
                continue;
            SwellingCell& cell = swellCell(sample, numberOf(row));
            cell.textA = wide(row.cells[1]);
            cell.textB = wide(row.cells[2]);
            cell.textC = wide(row.cells[3]);
        }
    };
    form.mark = [](const GridRow& row) { return "swelling/" + std::to_string(numberOf(row)); };
    return form;
}

SampleForm shrinkageForm()
{
    SampleForm form;
    form.rowsGrow = true;
    form.columns = {{QStringLiteral("Этап\nсушки"), GridColumn::Text, 70},
        numberColumn(QStringLiteral("Диаметр\nобразца (см)"), 100),
        numberColumn(QStringLiteral("Высота\nобразца (см)"), 100),
        numberColumn(QStringLiteral("Вес\nобразца (г)"), 100),
        numberColumn(QStringLiteral("Объем\nобразца (см3)"), 100),
        numberColumn(QStringLiteral("Влажность\nобразца (д.е.)"), 110)};
    form.read = [](const LabSample& sample) {
        GridRows rows;
        for (const ShrinkageRow& stage : sample.shrinkage) {
            GridRow row;
            row.id = stage.stage + 1;
            for (const std::wstring& cell : stage.cells)
                row.cells.push_back(qText(cell));
            rows.push_back(row);
        }
        return rows;
    };
    form.write = [](LabSample& sample, const GridRows& rows) {
        int next = -1;
        for (const GridRow& row : rows)
            next = std::max(next, static_cast<int>(row.id) - 1);
        sample.shrinkage.clear();
        for (const GridRow& row : rows) {
            ShrinkageRow stage;
            stage.stage = row.id > 0 ? static_cast<int>(row.id) - 1 : ++next;
            for (int i = 0; i < 6 && i < row.cells.size(); ++i)
                stage.cells[static_cast<std::size_t>(i)] = wide(row.cells[i]);
            if (stage.cells[0].empty())
                stage.cells[0] = std::to_wstring(stage.stage);
            sample.shrinkage.push_back(stage);
        }
    };
    form.mark = [](const GridRow& row) { return "shrinkage/" + std::to_string(row.id - 1); };
    return form;
}

} // namespace

QString loadText(LabTest test, int number)
{
    const std::wstring_view* text = test == LabTest::Compression ? compressionLoads.find(number)
        : test == LabTest::Shear                                 ? shearLoads.find(number)
                                                                 : swellLoads.find(number);
    return text ? qText(*text) : QString();
}

std::vector<SampleColumn> sampleColumns(IDBProject& project, const TestChoice& choice, int language)
{
    switch (choice.test) {
    case LabTest::Physical:
        return physicalColumns(project, language);
    case LabTest::Grading:
        return gradingColumns(project);
    case LabTest::Shrinkage:
        return shrinkageColumns();
    case LabTest::Compression:
    case LabTest::Shear:
    case LabTest::Swelling:
        break;
    }
    return loadColumns(project, choice);
}

SampleForm sampleForm(IDBProject& project, const TestChoice& choice, int language, bool hasAllRows)
{
    switch (choice.test) {
    case LabTest::Physical:
        return physicalForm(project, language, hasAllRows);
    case LabTest::Grading:
        return gradingForm(project);
    case LabTest::Compression:
        return compressionForm(project, choice, hasAllRows);
    case LabTest::Shear:
        return shearForm(project, choice, hasAllRows);
    case LabTest::Swelling:
        return swellingForm(project, choice, hasAllRows);
    case LabTest::Shrinkage:
        break;
    }
    return shrinkageForm();
}
