#pragma once

#include "calc/comparison.h"
#include "site/elements.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The normative and design values of elements as a report has them: computed from the samples, from the
// standards' tables where there are no tests, with the values typed into the element over them.

struct DesignValues {
    Number normative;
    Number second; // design value for deformations, 0.85
    Number first; // for bearing capacity, 0.95
    bool isTypedNormative = false; // the value is the one typed into the element
    bool isTypedSecond = false;
    bool isTypedFirst = false;
    bool isFromTable = false; // there are no tests: what is not typed is a standard's value
    std::size_t count = 0; // determinations behind the computed one
};

struct ElementSummary {
    std::wstring_view name; // number
    std::wstring index;
    std::wstring words; // "Суглинок тугопластичный"; made from the kind where none are typed
    std::size_t samples = 0;
    Number moisture; // fraction, means
    Number voidRatio; // from the means
    Number saturation;
    Number plasticity; // %
    Number liquidity;
    DesignValues density; // g/cm3
    DesignValues friction; // degrees
    DesignValues cohesion; // kPa
    DesignValues modulus; // MPa; the design values are the normative one
    Number resistance; // R0 of the standards' tables, kPa
    std::wstring shearWay; // how friction and cohesion came about; empty where they did not
    std::vector<std::wstring> notes; // what is missing or doubtful, in sentences
};

// Typed values count where told so; else only the samples speak.
ElementSummary summaryOf(
    IDBProject& project, const SiteLaboratory& laboratory, const SiteElement& element, bool withTyped);
std::vector<ElementSummary> summariesOf(
    IDBProject& project, const SiteLaboratory& laboratory, bool withTyped);

// How a value is marked beside its number: typed, from a table, or not at all; and what stands below a table
// of them.
inline constexpr std::wstring_view typedMark = L"*";
inline constexpr std::wstring_view tableMark = L"†";
std::wstring_view valueMark(const DesignValues& values, bool isTyped);
inline constexpr std::wstring_view summaryLegend =
    L"II: для расчётов по деформациям, доверительная вероятность 0.85; I: по несущей способности, 0.95. "
    L"* — введено вручную; † — по таблицам норм, испытаний нет.";

// The properties of which an element has values, by number; 100 stands for the modulus, 101 and 102 for
// tan(phi) and cohesion of the partial values.
inline constexpr int modulusProperty = 100;
inline constexpr int frictionProperty = 101;
inline constexpr int cohesionProperty = 102;
std::vector<int> propertiesOf(const SiteElement& element);
// Null where the element has none; the values themselves stand in propertyValues.
const Statistics* statisticsOf(const SiteElement& element, int property);
std::vector<ElementValue> propertyValues(
    const SiteLaboratory& laboratory, const SiteElement& element, int property);
std::wstring elementPropertyName(int property, int language);
// Decimals with which its values are shown.
int propertyDecimals(int property);

// How the values go with depth: "" where they do not, else a sentence that warns.
std::wstring trendWarning(const SiteLaboratory& laboratory, const std::vector<ElementValue>& values);
// A plain sentence as answer to whether two elements may be joined by this property.
std::wstring comparisonSentence(const Comparison& comparison);
