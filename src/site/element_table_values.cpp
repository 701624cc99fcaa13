#include "site/element_table_values.h"

#include "site/cells.h"
#include "site/element_proposal.h"
#include "site/element_texts.h"

#include <algorithm>
#include <array>

namespace
{

bool names(std::wstring_view text, std::wstring_view piece)
{
    return text.find(piece) != std::wstring_view::npos;
}

struct SandWord {
    std::wstring_view word;
    TableSoil soil;
};
// "средней крупности" before "крупный".
constexpr SandWord sandWords[] = {
    {L"гравелист", TableSoil::CoarseSand},
    {L"средней крупности", TableSoil::MediumSand},
    {L"крупн", TableSoil::CoarseSand},
    {L"мелк", TableSoil::FineSand},
    {L"пылеват", TableSoil::SiltySand},
};

// Classes of gradings from gravelly to silty sand.
constexpr std::array sandClasses = {TableSoil::CoarseSand,
    TableSoil::CoarseSand,
    TableSoil::MediumSand,
    TableSoil::FineSand,
    TableSoil::SiltySand};
constexpr int firstSandClass = 4;

std::optional<TableSoil> sandOf(
    const SiteLaboratory& laboratory, const SiteElement& element, std::wstring_view words)
{
    for (const SandWord& each : sandWords)
        if (names(words, each.word))
            return each.soil;
    std::array<int, sandClasses.size()> counts{};
    for (const std::size_t sample : element.samples) {
        const int place = laboratory.samples()[sample].soil.fractionClass - firstSandClass;
        if (place >= 0 && place < static_cast<int>(counts.size()))
            ++counts[static_cast<std::size_t>(place)];
    }
    const auto most = std::ranges::max_element(counts);
    return *most > 0 ? std::optional(sandClasses[static_cast<std::size_t>(most - counts.begin())])
                     : std::nullopt;
}

std::optional<TableSoil> coarseOf(std::wstring_view words)
{
    if (names(words, L"галеч") || names(words, L"щеб"))
        return TableSoil::Pebbles;
    if (names(words, L"грави") || names(words, L"дресв"))
        return TableSoil::Gravel;
    return std::nullopt;
}

std::wstring lowercase(std::wstring_view words)
{
    std::wstring lower(words);
    for (wchar_t& c : lower)
        if (c >= L'А' && c <= L'Я')
            c = static_cast<wchar_t>(c + (L'а' - L'А'));
    return lower;
}

std::optional<TableSoil> soilOf(
    const SiteLaboratory& laboratory, const SiteElement& element, std::wstring_view words, ElementKind kind)
{
    switch (kind) {
    case ElementKind::Sand:
        return sandOf(laboratory, element, words);
    case ElementKind::SandyLoam:
        return TableSoil::SandyLoam;
    case ElementKind::Loam:
        return TableSoil::Loam;
    case ElementKind::Clay:
        return TableSoil::Clay;
    case ElementKind::Coarse:
        return coarseOf(words);
    default:
        return std::nullopt;
    }
}

// The letters before the age: "aQ_III" is a.
bool isOfTabledOrigin(std::wstring_view index)
{
    const std::size_t age = index.find(L'Q');
    return index.substr(0, age).find_first_not_of(L"adl") == std::wstring_view::npos;
}

} // namespace

std::optional<ElementTableValues> elementTableValues(const StandardTables& tables,
    const SiteLaboratory& laboratory,
    const SiteElement& element,
    const std::wstring& words)
{
    const std::wstring lower = lowercase(words);
    ElementKind kind = element.record ? elementKindOf(*element.record) : ElementKind::NotGiven;
    if (kind == ElementKind::NotGiven)
        kind = soilOfDescription(lower).kind;
    const std::optional<TableSoil> soil = soilOf(laboratory, element, lower, kind);
    if (!soil)
        return std::nullopt;
    ElementTableValues values;
    values.state = {.soil = *soil,
        .voidRatio = element.fromMeans.voidRatio,
        .liquidity = element.fromMeans.liquidity,
        .saturation = element.fromMeans.saturation,
        .isFilledWithSand = names(lower, L"песчан") || names(lower, L"песком")};
    values.resistance = tables.resistance(values.state);
    if (*soil >= TableSoil::Pebbles)
        return values;
    const std::wstring_view index = element.record
        ? std::wstring_view(element.record->texts[element_text::GeologicalIndex])
        : std::wstring_view();
    const bool isQuaternary = index.empty() || names(index, L"Q");
    if (isSand(*soil) || isQuaternary) {
        values.friction = tables.value(TableQuantity::Friction, values.state);
        values.cohesion = tables.value(TableQuantity::Cohesion, values.state);
    }
    if (isSand(*soil) || (isQuaternary && isOfTabledOrigin(index)))
        values.modulus = tables.value(TableQuantity::Modulus, values.state);
    return values;
}
