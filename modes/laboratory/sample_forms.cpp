#include "laboratory/sample_forms.h"

#include "calc/grading.h"
#include "dictionaries/fractions.h"
#include "dictionaries/properties.h"
#include "laboratory/sample_cells.h"
#include "site/derived_cells.h"
#include "site/elements.h"
#include "site/laboratory.h"

#include <algorithm>

namespace
{

// Repeats of a load in a shear test are rows of their own.
constexpr int repeatStep = 1000;

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

bool isEmptyOr(const QString& cell, const std::wstring& computed)
{
    return cell.isEmpty() || cell.toStdWString() == computed;
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
    form.columns = {readOnlyColumn(QStringLiteral("Свойство"), 430),
        numberColumn(QStringLiteral("Значение"), 110),
        {QStringLiteral("В статистике ИГЭ"), GridColumn::Flag, 120}};
    form.read = [=](const LabSample& sample) {
        GridRows rows;
        std::set<int> shown = numbers;
        for (const PropertyCell& cell : sample.physical)
            shown.insert(cell.id);
        for (const int number : shown) {
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
            PropertyCell& cell = propertyOf(sample, numberOf(row));
            cell.value = wide(row.cells[1]);
            cell.enabled = isEnabled;
        }
    };
    form.mark = [](const GridRow& row) { return "physical/" + std::to_string(numberOf(row)); };
    form.isComputed = [](const GridRow& row, int column, const SampleResult& result) {
        return column == 1 && isComputedText(result, numberOf(row), row.cells[1].toStdWString());
    };
    return form;
}

SampleForm gradingForm(IDBProject& project)
{
    const GrainScale scale = grainScaleOf(project).value_or(GrainScale::Above200);
    SampleForm form;
    form.columns = {readOnlyColumn(QStringLiteral("Фракция, мм"), 130),
        numberColumn(QStringLiteral("Содержание, %"), 120)};
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
    form.columns = {readOnlyColumn(QStringLiteral("Давление, МПа"), 110),
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
            CompressionCell& cell = stageOf(sample, method, numberOf(row));
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
    form.columns = {readOnlyColumn(QStringLiteral("Нормальное давление, МПа"), 190),
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
                        rows.push_back(rowOf(load + repeatStep * repeats++,
                            {loadText(LabTest::Shear, load), qText(cell.value)}));
            if (repeats == 0 || hasAllRows)
                rows.push_back(
                    rowOf(load + repeatStep * repeats, {loadText(LabTest::Shear, load), QString()}));
        }
        return rows;
    };
    form.write = [=](LabSample& sample, const GridRows& rows) {
        const auto old = sample.shear.find(static_cast<std::uint8_t>(method));
        std::vector<ShearCell> made;
        for (const GridRow& row : rows) {
            const int load = numberOf(row) % repeatStep;
            const bool isThere = old != sample.shear.end()
                && std::count_if(old->second.begin(),
                       old->second.end(),
                       [&](const ShearCell& cell) { return cell.id == load; })
                    > numberOf(row) / repeatStep;
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
        return "shear/" + std::to_string(method) + "/" + std::to_string(numberOf(row) % repeatStep);
    };
    return form;
}

SampleForm swellingForm(IDBProject& project, const TestChoice& choice, bool hasAllRows)
{
    const std::set<int> loads = formLoads(project, choice, hasAllRows);
    SampleForm form;
    form.columns = {readOnlyColumn(QStringLiteral("Нагрузка ( МПа )"), 120),
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
            SwellingCell& cell = swellCellOf(sample, numberOf(row));
            cell.textA = wide(row.cells[1]);
            cell.textB = wide(row.cells[2]);
            cell.textC = wide(row.cells[3]);
        }
    };
    form.mark = [](const GridRow& row) { return "swelling/" + std::to_string(numberOf(row)); };
    form.isComputed = [](const GridRow& row, int column, const SampleResult& result) {
        if (column != 3)
            return false;
        for (const SwellingRow& each : result.swelling.rows)
            if (each.row == numberOf(row) && each.absolute)
                return isEmptyOr(row.cells[3], numberText(each.relative, 4));
        return row.cells[3].isEmpty();
    };
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
    // Volume and moisture follow from the sizes and the mass; the moisture of the first stage is an input.
    form.isComputed = [](const GridRow& row, int column, const SampleResult& result) {
        const auto& points = result.shrinkage.points;
        for (const ShrinkagePoint& point : points) {
            if (point.row != row.id - 1)
                continue;
            if (column == 4 && !row.cells[1].isEmpty() && !row.cells[2].isEmpty())
                return isEmptyOr(row.cells[4], numberText(point.volume, 1));
            if (column == 5 && !row.cells[3].isEmpty() && &point != &points.front())
                return isEmptyOr(row.cells[5], numberText(point.moisture, 3));
        }
        return false;
    };
    return form;
}

// The rows of one sample's set, each an empty cell of its record.
struct SampleSet {
    std::function<bool(const LabSample&, int)> has;
    std::function<void(LabSample&, int)> add;
    std::function<void(LabSample&, int)> remove;
};

template <class Cells>
void eraseCells(Cells& cells, int id)
{
    std::erase_if(cells, [id](const auto& cell) { return cell.id == id; });
}

SampleSet sampleSet(const TestChoice& choice)
{
    const auto method = static_cast<std::uint8_t>(choice.method);
    switch (choice.test) {
    case LabTest::Physical:
        return {[](const LabSample& sample, int id) { return existing(sample.physical, id) != nullptr; },
            [](LabSample& sample, int id) { propertyOf(sample, id); },
            [](LabSample& sample, int id) { eraseCells(sample.physical, id); }};
    case LabTest::Compression:
        return {[method](const LabSample& sample, int id) {
                    const auto group = sample.compression.find(method);
                    return group != sample.compression.end() && existing(group->second.cells, id);
                },
            [method](LabSample& sample, int id) { stageOf(sample, method, id); },
            [method](LabSample& sample, int id) { eraseCells(sample.compression[method].cells, id); }};
    case LabTest::Shear:
        return {[method](const LabSample& sample, int id) {
                    const auto cells = sample.shear.find(method);
                    return cells != sample.shear.end() && existing(cells->second, id % repeatStep);
                },
            [method](LabSample& sample, int id) { shearCellOf(sample, method, id % repeatStep); },
            [method](LabSample& sample, int id) { eraseCells(sample.shear[method], id % repeatStep); }};
    case LabTest::Swelling:
        return {[](const LabSample& sample, int id) { return existing(sample.swelling, id) != nullptr; },
            [](LabSample& sample, int id) { swellCellOf(sample, id); },
            [](LabSample& sample, int id) { eraseCells(sample.swelling, id); }};
    case LabTest::Grading:
    case LabTest::Shrinkage:
        break;
    }
    return {};
}

// A column more: whether the row belongs to the sample's set. A row with a value does.
void addSetColumn(SampleForm& form, const TestChoice& choice)
{
    const SampleSet set = sampleSet(choice);
    if (!set.has)
        return;
    const int last = form.columns.size();
    form.columns.push_back({QStringLiteral("В наборе\nпробы"), GridColumn::Flag, 90});
    form.read = [set, read = form.read](const LabSample& sample) {
        GridRows rows = read(sample);
        for (GridRow& row : rows)
            row.cells.push_back(set.has(sample, numberOf(row)) ? QStringLiteral("1") : QString());
        return rows;
    };
    form.write = [set, last, write = form.write, test = choice.test](
                     LabSample& sample, const GridRows& rows) {
        write(sample, rows);
        for (const GridRow& row : rows) {
            const int values = test == LabTest::Physical ? 2 : last;
            const bool isEmpty = std::all_of(row.cells.begin() + 1,
                row.cells.begin() + values,
                [](const QString& cell) { return cell.isEmpty(); });
            const bool isChosen = row.cells.value(last) == QStringLiteral("1");
            if (isChosen && !set.has(sample, numberOf(row)))
                set.add(sample, numberOf(row));
            else if (!isChosen && isEmpty && set.has(sample, numberOf(row)))
                set.remove(sample, numberOf(row));
        }
    };
}

SampleForm formOf(IDBProject& project, const TestChoice& choice, int language, bool hasAllRows)
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

} // namespace

SampleForm sampleForm(IDBProject& project, const TestChoice& choice, int language, bool hasAllRows)
{
    SampleForm form = formOf(project, choice, language, hasAllRows);
    if (hasAllRows)
        addSetColumn(form, choice);
    return form;
}
