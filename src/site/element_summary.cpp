#include "site/element_summary.h"

#include "dictionaries/properties.h"
#include "modules/idbproject.h"
#include "site/cells.h"
#include "site/element_links.h"
#include "site/element_table_values.h"
#include "site/element_texts.h"
#include "site/standard_values.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double degrees = 180 / 3.14159265358979323846;
constexpr double kiloPascals = 1000; // of a megapascal
constexpr double forDeformations = 0.85;
constexpr double forCapacity = 0.95;
constexpr double largestPhysicalVariation = 0.15;
constexpr double largestMechanicalVariation = 0.30;

Number lowerOf(const std::vector<ConfidenceLevel>& levels, double confidence)
{
    const ConfidenceLevel* level = levelOf(levels, confidence);
    return level ? Number(level->lower) : Number();
}

DesignValues computed(const Statistics& statistics)
{
    return {.normative = statistics.mean,
        .second = lowerOf(statistics.levels, forDeformations),
        .first = lowerOf(statistics.levels, forCapacity),
        .count = statistics.count};
}

Number scaled(const Number& value, double by)
{
    return value ? Number(*value * by) : Number();
}

Number angleOf(const Number& tangent)
{
    return tangent ? Number(std::atan(*tangent) * degrees) : Number();
}

void typeOver(Number& value, bool& isTyped, const std::wstring& text)
{
    if (const Number typed = readNumber(text)) {
        value = typed;
        isTyped = true;
    }
}

void typeOver(DesignValues& values, const StrataElement& record, element_text::Cell first)
{
    typeOver(values.normative, values.isTypedNormative, record.texts[first]);
    typeOver(values.second, values.isTypedSecond, record.texts[first + 1]);
    typeOver(values.first, values.isTypedFirst, record.texts[first + 2]);
}

Number meanOf(const SiteElement& element, int property)
{
    const auto found = element.properties.find(property);
    return found == element.properties.end() ? Number() : found->second.statistics.mean;
}

void noteSpread(ElementSummary& summary, const std::wstring& what, const Statistics& statistics, double limit)
{
    if (statistics.variation && *statistics.variation > limit)
        summary.notes.push_back(what + L": коэффициент вариации " + numberText(statistics.variation, 2)
            + L" больше " + numberText(limit, 2) + L"; элемент следует разделить или объяснить разброс.");
}

void noteCount(ElementSummary& summary, const std::wstring& what, std::size_t count, std::size_t wanted)
{
    if (count > 0 && count < wanted)
        summary.notes.push_back(what + L": определений " + std::to_wstring(count) + L", нужно не меньше "
            + std::to_wstring(wanted)
            + (count < leastForDesign ? L"; есть только нормативное значение." : L"."));
}

void computeShear(ElementSummary& summary, const ElementShear& shear)
{
    if (shear.partial.tanPhi.count >= leastForDesign
        || (shear.partial.tanPhi.count > 0 && !shear.joint.tanPhi)) {
        summary.friction = computed(shear.partial.tanPhi);
        summary.cohesion = computed(shear.partial.cohesion);
        summary.shearWay = L"по частным значениям";
        noteSpread(summary, L"Сцепление", shear.partial.cohesion, largestMechanicalVariation);
    } else if (shear.joint.tanPhi) {
        summary.friction = {.normative = shear.joint.tanPhi,
            .second = lowerOf(shear.joint.tanPhiLevels, forDeformations),
            .first = lowerOf(shear.joint.tanPhiLevels, forCapacity),
            .count = shear.joint.count};
        summary.cohesion = {.normative = shear.joint.cohesion,
            .second = lowerOf(shear.joint.cohesionLevels, forDeformations),
            .first = lowerOf(shear.joint.cohesionLevels, forCapacity),
            .count = shear.joint.count};
        summary.shearWay = L"по всем парам сразу";
    }
    for (Number DesignValues::*value :
        {&DesignValues::normative, &DesignValues::second, &DesignValues::first}) {
        summary.friction.*value = angleOf(summary.friction.*value);
        summary.cohesion.*value = scaled(summary.cohesion.*value, kiloPascals);
    }
    if (!summary.shearWay.empty())
        noteCount(summary, L"Угол трения и сцепление", summary.friction.count, leastForDesign);
}

// What is typed stands; a typed normative value leaves the table aside.
void takeFromTable(DesignValues& values, const Number& tabled, double divisor)
{
    if (values.normative || !tabled)
        return;
    values.normative = tabled;
    if (!values.isTypedSecond)
        values.second = tabled;
    if (!values.isTypedFirst)
        values.first = *tabled / divisor;
    values.isFromTable = true;
}

void noteTables(ElementSummary& summary, const StandardTables& tables, TableSoil soil)
{
    const struct {
        const DesignValues& values;
        TableQuantity quantity;
        std::wstring_view symbol;
    } rows[] = {{summary.friction, TableQuantity::Friction, L"φ"},
        {summary.cohesion, TableQuantity::Cohesion, L"c"},
        {summary.modulus, TableQuantity::Modulus, L"E"}};
    std::wstring symbols;
    std::wstring factors;
    for (const auto& [values, quantity, symbol] : rows) {
        if (!values.isFromTable)
            continue;
        symbols += (symbols.empty() ? L"" : L", ") + std::wstring(symbol);
        factors += (factors.empty() ? L"" : L", ") + std::wstring(symbol) + L" "
            + numberText(tables.reliability(quantity, soil), 2);
    }
    if (!symbols.empty())
        summary.notes.push_back(symbols
            + L" — по таблицам СНиП 2.02.01-83 (СП 22.13330): испытаний нет; делители для значений I: "
            + factors + L", для II 1. Таблицы с печатным текстом норм не сверены.");
}

// Where no test and nobody says anything. The factors of safety of such values are fixed.
void fillFromTables(ElementSummary& summary, const SiteLaboratory& laboratory, const SiteElement& element)
{
    const StandardTables& tables = standardTablesInUse();
    const auto tabled = elementTableValues(tables, laboratory, element, summary.words);
    if (!tabled)
        return;
    const TableSoil soil = tabled->state.soil;
    summary.resistance = tabled->resistance;
    takeFromTable(summary.friction, tabled->friction, tables.reliability(TableQuantity::Friction, soil));
    takeFromTable(summary.cohesion, tabled->cohesion, tables.reliability(TableQuantity::Cohesion, soil));
    takeFromTable(summary.modulus, tabled->modulus, tables.reliability(TableQuantity::Modulus, soil));
    noteTables(summary, tables, soil);
}

const Statistics* propertyStatisticsOf(const SiteElement& element, int property)
{
    const auto found = element.properties.find(property);
    return found == element.properties.end() ? nullptr : &found->second.statistics;
}

void appendValues(std::vector<ElementValue>& values, const SiteElement& element, int property)
{
    const ElementShear& shear = element.shear;
    const Statistics& statistics =
        property == frictionProperty ? shear.partial.tanPhi : shear.partial.cohesion;
    for (std::size_t test = 0; test < shear.tests.size() && test < statistics.excluded.size(); ++test)
        values.push_back({shear.tests[test], 0, statistics.excluded[test]});
}

} // namespace

ElementSummary summaryOf(
    IDBProject& project, const SiteLaboratory& laboratory, const SiteElement& element, bool withTyped)
{
    ElementSummary summary;
    summary.name = element.name;
    summary.samples = element.samples.size();
    summary.words = elementName(project.getNumberedLinks(), element.name);
    if (element.record) {
        summary.index = element.record->texts[element_text::GeologicalIndex];
        if (summary.words.empty())
            summary.words = elementKindName(elementKindOf(*element.record));
    }
    summary.moisture = meanOf(element, 0);
    summary.voidRatio = element.fromMeans.voidRatio;
    summary.saturation = element.fromMeans.saturation;
    summary.plasticity = element.fromMeans.plasticity;
    summary.liquidity = element.fromMeans.liquidity;
    if (const Statistics* density = propertyStatisticsOf(element, 1)) {
        summary.density = computed(*density);
        noteCount(summary, L"Плотность", density->count, leastPhysical);
        noteSpread(summary, L"Плотность", *density, largestPhysicalVariation);
    }
    summary.modulus = computed(element.modulus.statistics);
    noteCount(summary, L"Модуль деформации", element.modulus.statistics.count, leastForDesign);
    noteSpread(summary, L"Модуль деформации", element.modulus.statistics, largestMechanicalVariation);
    computeShear(summary, element.shear);
    if (element.samples.empty())
        summary.notes.emplace_back(L"В слоях элемента нет проб.");
    if (withTyped && element.record) {
        typeOver(summary.density, *element.record, element_text::DensityNormative);
        typeOver(summary.friction, *element.record, element_text::FrictionNormative);
        typeOver(summary.cohesion, *element.record, element_text::CohesionNormative);
        typeOver(summary.modulus.normative,
            summary.modulus.isTypedNormative,
            element.record->texts[element_text::Modulus]);
    }
    fillFromTables(summary, laboratory, element);
    // The modulus enters settlements as it is.
    summary.modulus.second = summary.modulus.first = summary.modulus.normative;
    return summary;
}

std::vector<ElementSummary> summariesOf(IDBProject& project, const SiteLaboratory& laboratory, bool withTyped)
{
    std::vector<ElementSummary> summaries;
    for (const SiteElement& element : laboratory.elements())
        summaries.push_back(summaryOf(project, laboratory, element, withTyped));
    return summaries;
}

std::wstring_view valueMark(const DesignValues& values, bool isTyped)
{
    if (isTyped)
        return typedMark;
    return values.isFromTable ? tableMark : std::wstring_view();
}

std::vector<int> propertiesOf(const SiteElement& element)
{
    std::vector<int> properties;
    for (const auto& [number, statistics] : element.properties)
        if (!statistics.values.empty())
            properties.push_back(number);
    if (!element.modulus.values.empty())
        properties.push_back(modulusProperty);
    if (!element.shear.tests.empty()) {
        properties.push_back(frictionProperty);
        properties.push_back(cohesionProperty);
    }
    return properties;
}

const Statistics* statisticsOf(const SiteElement& element, int property)
{
    switch (property) {
    case modulusProperty:
        return &element.modulus.statistics;
    case frictionProperty:
        return &element.shear.partial.tanPhi;
    case cohesionProperty:
        return &element.shear.partial.cohesion;
    default:
        return propertyStatisticsOf(element, property);
    }
}

std::vector<ElementValue> propertyValues(
    const SiteLaboratory& laboratory, const SiteElement& element, int property)
{
    if (property == modulusProperty)
        return element.modulus.values;
    if (property != frictionProperty && property != cohesionProperty) {
        const auto found = element.properties.find(property);
        return found == element.properties.end() ? std::vector<ElementValue>() : found->second.values;
    }
    std::vector<ElementValue> values;
    appendValues(values, element, property);
    for (ElementValue& value : values)
        for (const ShearResult& test : laboratory.samples()[value.sample].result.shear)
            if (test.method == element.shear.method)
                value.value =
                    (property == frictionProperty ? test.fit.tanPhi : test.fit.cohesion).value_or(0);
    return values;
}

std::wstring elementPropertyName(int property, int language)
{
    switch (property) {
    case modulusProperty:
        return L"Модуль деформации, МПа";
    case frictionProperty:
        return L"tg φ";
    case cohesionProperty:
        return L"Сцепление, МПа";
    default:
        break;
    }
    const std::wstring_view* name = propertyNames.find(language, property);
    return name ? std::wstring(*name) : L"Свойство " + std::to_wstring(property);
}

int propertyDecimals(int property)
{
    switch (property) {
    case 1:
    case 2:
    case 5:
    case 10:
    case 11:
        return 2;
    case 7:
    case 12:
    case modulusProperty:
        return 1;
    default:
        return 3;
    }
}

std::wstring trendWarning(const SiteLaboratory& laboratory, const std::vector<ElementValue>& values)
{
    constexpr std::size_t leastForTrend = 6;
    double n = 0;
    double sumX = 0;
    double sumY = 0;
    double sumXX = 0;
    double sumXY = 0;
    double sumYY = 0;
    for (const ElementValue& value : values) {
        const Number depth = laboratory.samples()[value.sample].depth;
        if (value.excluded != ExcludedBy::Nobody || !depth)
            continue;
        ++n;
        sumX += *depth;
        sumY += value.value;
        sumXX += *depth * *depth;
        sumXY += *depth * value.value;
        sumYY += value.value * value.value;
    }
    const double spreadX = n * sumXX - sumX * sumX;
    const double spreadY = n * sumYY - sumY * sumY;
    if (n < leastForTrend || spreadX <= 0 || spreadY <= 0)
        return {};
    const double correlation = (n * sumXY - sumX * sumY) / std::sqrt(spreadX * spreadY);
    const double rest = 1 - correlation * correlation;
    const double student = rest > 0 ? std::fabs(correlation) * std::sqrt((n - 2) / rest) : 1e9;
    if (studentTails(student, n - 2) >= 0.05)
        return {};
    return std::wstring(L"Значения закономерно ") + (correlation > 0 ? L"растут" : L"убывают")
        + L" с глубиной (коэффициент корреляции " + numberText(correlation, 2)
        + L"): проверьте, не следует ли разделить элемент.";
}

std::wstring comparisonSentence(const Comparison& comparison)
{
    if (!comparison.isKnown)
        return L"Сравнить нельзя: нужно три определения с разбросом в каждом.";
    if (comparison.spreadsDiffer && comparison.meansDiffer)
        return L"Различаются и разброс, и средние значения: элементы объединять нельзя.";
    if (comparison.meansDiffer)
        return L"Средние значения различаются: элементы объединять нельзя.";
    if (comparison.spreadsDiffer)
        return L"Средние значения не различаются, но разброс разный: объединять элементы не следует.";
    return L"Ни разброс, ни средние значения не различаются: элементы можно объединить.";
}
