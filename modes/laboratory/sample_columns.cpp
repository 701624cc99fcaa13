#include "laboratory/sample_columns.h"

#include "calc/grading.h"
#include "core/base/typed_number.h"
#include "dictionaries/fractions.h"
#include "laboratory/sample_cells.h"
#include "site/elements.h"
#include "site/laboratory.h"

namespace
{

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

std::vector<SampleColumn> physicalColumns(IDBProject& project, int language)
{
    std::vector<SampleColumn> columns;
    for (const int number : propertiesInUse(project))
        columns.push_back({numberColumn(headOf(propertyTitle(number, language)), 88),
            [number](const LabSample& sample) {
                const PropertyCell* cell = propertyCell(sample, number);
                return cell ? cell->value : std::wstring();
            },
            [number](
                LabSample& sample, const std::wstring& text) { propertyOf(sample, number).value = text; },
            "physical/" + std::to_string(number),
            number});
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
                stageOf(sample, method, load).*text = value;
            };
            column.mark = "compression/" + std::to_string(method) + "/" + std::to_string(load);
        } else if (choice.test == LabTest::Shear) {
            column.get = [=](const LabSample& sample) {
                const auto cells = sample.shear.find(static_cast<std::uint8_t>(method));
                const ShearCell* cell = cells == sample.shear.end() ? nullptr : existing(cells->second, load);
                return cell ? cell->value : std::wstring();
            };
            column.put = [=](LabSample& sample, const std::wstring& value) {
                shearCellOf(sample, method, load).value = value;
            };
            column.mark = "shear/" + std::to_string(method) + "/" + std::to_string(load);
        } else {
            column.get = [=](const LabSample& sample) {
                const SwellingCell* cell = existing(sample.swelling, load);
                return cell ? cell->textB : std::wstring();
            };
            column.put = [=](LabSample& sample, const std::wstring& value) {
                swellCellOf(sample, load).textB = value;
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

} // namespace

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
