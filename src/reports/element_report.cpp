#include "reports/element_report.h"

#include "dictionaries/report_language.h"
#include "drawing/text_layout.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "plots/element_plots.h"
#include "reports/table_cells.h"
#include "site/element_texts.h"
#include "site/standard_values.h"

#include <algorithm>
#include <string_view>

namespace
{

// The document's own words; what the statistics remark stays in their language.
struct ElementWords {
    // clang-format off
    static constexpr Words title{L"Инженерно-геологические элементы. ", L"Інженерно-геологічні елементи. "};
    static constexpr Words element{L"ИГЭ ", L"ІГЕ "};
    static constexpr Words summary{L"Нормативные и расчётные значения", L"Нормативні та розрахункові значення"};
    static constexpr Words summaryHead[] = {{L"ИГЭ", L"ІГЕ"}, {L"Наименование", L"Найменування"},
        {L"Индекс", L"Індекс"}, {L"W", L"W"}, {L"e", L"e"}, {L"Sr", L"Sr"}, {L"Ip, %", L"Ip, %"}, {L"IL", L"IL"},
        {L"ρн, г/см³", L"ρн, г/см³"}, {L"ρII", L"ρII"}, {L"ρI", L"ρI"}, {L"φн, °", L"φн, °"}, {L"φII", L"φII"},
        {L"φI", L"φI"}, {L"cн, кПа", L"cн, кПа"}, {L"cII", L"cII"}, {L"cI", L"cI"}, {L"E, МПа", L"E, МПа"},
        {L"R0, кПа", L"R0, кПа"}};
    static constexpr Words legend{summaryLegend.data(),
        L"II: для розрахунків за деформаціями, довірча імовірність 0.85; I: за несучою здатністю, 0.95. * — введено "
        L"вручну; † — за таблицями норм, випробувань немає."};
    static constexpr Words standard{L" Статистика по ГОСТ 20522.", L" Статистика за ГОСТ 20522."};
    static constexpr Words statistics{L"Статистика ИГЭ ", L"Статистика ІГЕ "};
    static constexpr Words statisticsHead[] = {{L"Показатель", L"Показник"}, {L"n", L"n"},
        {L"Исключено", L"Вилучено"}, {L"Xн", L"Xн"}, {L"min", L"min"}, {L"max", L"max"}, {L"S", L"S"}, {L"V", L"V"},
        {L"γg (0.85)", L"γg (0.85)"}, {L"XII", L"XII"}, {L"γg (0.95)", L"γg (0.95)"}, {L"XI", L"XI"}};
    static constexpr Words values{L", частные значения", L", часткові значення"};
    static constexpr Words valuesHead[] = {{L"Точка", L"Точка"}, {L"Глубина, м", L"Глибина, м"}, {L"Проба", L"Проба"},
        {L"Значение", L"Значення"}, {L"Исключено", L"Вилучено"}};
    static constexpr Words byRule{L"по правилу", L"за правилом"};
    static constexpr Words byHand{L"вручную", L"вручну"};
    static constexpr Words shear{L"Угол трения и сцепление — ", L"Кут тертя і зчеплення — "};
    static constexpr Words gradings{L"Кривые гранулометрии, ", L"Криві гранулометрії, "};
    // clang-format on
};

TableCell markedCell(const Number& value, int decimals, std::wstring_view mark)
{
    TableCell cell = numberCell(value, decimals);
    if (mark.empty() || !value)
        return cell;
    cell.runs.front().text += mark;
    cell.number.reset();
    cell.isMarked = true;
    return cell;
}

void addValues(std::vector<TableCell>& row, const DesignValues& values, int decimals)
{
    row.push_back(markedCell(values.normative, decimals, valueMark(values, values.isTypedNormative)));
    row.push_back(markedCell(values.second, decimals, valueMark(values, values.isTypedSecond)));
    row.push_back(markedCell(values.first, decimals, valueMark(values, values.isTypedFirst)));
}

// "aQ_III^2" as it is printed.
TableCell indexCell(std::wstring_view marked)
{
    TableCell cell;
    for (const MarkedPiece& piece : markedPieces(marked))
        cell.runs.push_back({piece.text,
            false,
            false,
            false,
            piece.position == MarkedPiece::Lowered      ? Run::Lowered
                : piece.position == MarkedPiece::Raised ? Run::Raised
                                                        : Run::Normal});
    return cell;
}

TableBlock summaryTable(const std::vector<ElementSummary>& summaries, int language)
{
    TableBlock table;
    table.title = ElementWords::summary.in(language);
    table.head = {headRow(ElementWords::summaryHead, language, Align::Centre, true)};
    for (const ElementSummary& summary : summaries) {
        std::vector<TableCell> row{textCell(shortElementName(summary.name), Align::Left, true),
            textCell(summary.words),
            indexCell(summary.index),
            numberCell(summary.moisture, 3),
            numberCell(summary.voidRatio, 3),
            numberCell(summary.saturation, 2),
            numberCell(summary.plasticity, 1),
            numberCell(summary.liquidity, 2)};
        addValues(row, summary.density, 2);
        addValues(row, summary.friction, 0);
        addValues(row, summary.cohesion, 0);
        const DesignValues& modulus = summary.modulus;
        row.push_back(markedCell(modulus.normative, 1, valueMark(modulus, modulus.isTypedNormative)));
        row.push_back(markedCell(summary.resistance, 0, tableMark));
        table.rows.push_back(std::move(row));
    }
    return table;
}

TableBlock statisticsTable(const SiteElement& element, int language)
{
    TableBlock table;
    table.title = ElementWords::statistics.in(language) + std::wstring(shortElementName(element.name));
    table.head = {headRow(ElementWords::statisticsHead, language, Align::Centre, true)};
    for (const int property : propertiesOf(element)) {
        const Statistics& statistics = *statisticsOf(element, property);
        const int decimals = propertyDecimals(property);
        const auto out = std::count_if(statistics.excluded.begin(),
            statistics.excluded.end(),
            [](ExcludedBy by) { return by != ExcludedBy::Nobody; });
        std::vector<TableCell> row{textCell(elementPropertyName(property, language)),
            numberCell(static_cast<double>(statistics.count), 0),
            numberCell(static_cast<double>(out), 0),
            numberCell(statistics.mean, decimals),
            numberCell(statistics.least, decimals),
            numberCell(statistics.greatest, decimals),
            numberCell(statistics.deviation, decimals + 1),
            numberCell(statistics.variation, 2)};
        for (const double confidence : {0.85, 0.95}) {
            const ConfidenceLevel* level = levelOf(statistics.levels, confidence);
            row.push_back(numberCell(level ? level->coefficient : Number(), 3));
            row.push_back(numberCell(level ? Number(level->lower) : Number(), decimals));
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

TableBlock valuesTable(
    const SiteLaboratory& laboratory, const SiteElement& element, int property, int language)
{
    TableBlock table;
    table.title = elementPropertyName(property, language) + ElementWords::values.in(language);
    table.head = {headRow(ElementWords::valuesHead, language, Align::Centre, true)};
    for (const ElementValue& value : propertyValues(laboratory, element, property)) {
        const SiteSample& sample = laboratory.samples()[value.sample];
        TableCell shown = numberCell(value.value, propertyDecimals(property));
        shown.runs.front().isStruck = value.excluded != ExcludedBy::Nobody;
        table.rows.push_back({textCell(sample.key->pointName),
            textCell(sample.key->depth),
            textCell(sample.sample->code),
            shown,
            textCell(value.excluded == ExcludedBy::Rule  ? ElementWords::byRule.in(language)
                    : value.excluded == ExcludedBy::Hand ? ElementWords::byHand.in(language)
                                                         : L"")});
    }
    return table;
}

void addElement(Document& document,
    const SiteLaboratory& laboratory,
    const SiteElement& element,
    const ElementSummary& summary,
    const ElementReportLook& look)
{
    const std::wstring title =
        ElementWords::element.in(look.language) + std::wstring(shortElementName(element.name));
    document.blocks.emplace_back(Heading{title + (summary.words.empty() ? L"" : L". " + summary.words), 2});
    document.blocks.emplace_back(statisticsTable(element, look.language));
    std::wstring notes =
        summary.shearWay.empty() ? L"" : ElementWords::shear.in(look.language) + summary.shearWay + L". ";
    for (const std::wstring& note : summary.notes)
        notes += note + L" ";
    if (!notes.empty())
        document.blocks.emplace_back(Paragraph{{{notes}}, Paragraph::Note});
    const struct {
        bool isWanted;
        int property;
    } values[] = {{look.withDensities, 1},
        {look.withFriction, frictionProperty},
        {look.withFriction, cohesionProperty},
        {look.withModuli, modulusProperty},
        {look.withSwelling, 30},
        {look.withSwelling, 31}};
    const std::vector<int> there = propertiesOf(element);
    for (const auto& [isWanted, property] : values)
        if (isWanted && std::find(there.begin(), there.end(), property) != there.end())
            document.blocks.emplace_back(valuesTable(laboratory, element, property, look.language));
    if (look.withGradings)
        document.blocks.emplace_back(Figure{gradingsOfElement(laboratory, element, title, look.isSmoothed),
            ElementWords::gradings.in(look.language) + title});
}

} // namespace

ElementReportLook elementReportLook(ISettings& settings)
{
    return {knownLanguage(settings.reportLanguage()),
        settings.isGenManualValuesCheckIge() != 0,
        settings.isValuesGravityIge() != 0,
        settings.isValuesAngleFrictionIge() != 0,
        settings.isValuesModulDefIge() != 0,
        settings.isValuesSwellIge() != 0,
        settings.isGranCurveCheckIge() != 0,
        settings.isGranCurveSplainIge() != 0};
}

Document elementReport(IDBProject& project,
    const SiteLaboratory& laboratory,
    const std::vector<const SiteElement*>& elements,
    const ElementReportLook& look)
{
    Document document;
    document.title = ElementWords::title.in(look.language) + project.getProjectName();
    document.header = project.getProjectCode();
    document.page = {297, 210, 15, 15, 10, 15};
    std::vector<ElementSummary> summaries;
    summaries.reserve(elements.size());
    for (const SiteElement* element : elements)
        summaries.push_back(summaryOf(project, laboratory, *element, look.withTyped));
    document.blocks.emplace_back(Heading{ElementWords::summary.in(look.language), 1});
    document.blocks.emplace_back(summaryTable(summaries, look.language));
    document.blocks.emplace_back(Paragraph{
        {{std::wstring(ElementWords::legend.in(look.language)) + ElementWords::standard.in(look.language)}},
        Paragraph::Note});
    if (const std::wstring warning = standardTableWarning(standardTableMistakes()); !warning.empty())
        document.blocks.emplace_back(Paragraph{{{warning}}, Paragraph::Note});
    for (std::size_t i = 0; i < elements.size(); ++i)
        addElement(document, laboratory, *elements[i], summaries[i], look);
    return document;
}
