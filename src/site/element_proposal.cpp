#include "site/element_proposal.h"

#include "dictionaries/soil_names.h"
#include "modules/idbproject.h"
#include "site/by_point.h"
#include "site/element_edits.h"
#include "site/element_links.h"
#include "site/element_texts.h"
#include "site/layers.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace
{

struct Stem {
    std::wstring_view text;
    ElementKind kind;
};

// Beginnings of words, in Russian and Ukrainian.
constexpr Stem soils[] = {
    {L"насып", ElementKind::ManMade},
    {L"насип", ElementKind::ManMade},
    {L"техноген", ElementKind::ManMade},
    {L"торф", ElementKind::Organic},
    {L"почв", ElementKind::Organic},
    {L"чернозем", ElementKind::Organic},
    {L"заторф", ElementKind::Organic},
    {L"сапропел", ElementKind::Organic},
    {L"песок", ElementKind::Sand},
    {L"пески", ElementKind::Sand},
    {L"пісок", ElementKind::Sand},
    {L"супес", ElementKind::SandyLoam},
    {L"супіс", ElementKind::SandyLoam},
    {L"суглин", ElementKind::Loam},
    {L"глина", ElementKind::Clay},
    {L"глины", ElementKind::Clay},
    {L"гале", ElementKind::Coarse},
    {L"граві", ElementKind::Coarse},
    {L"грави", ElementKind::Coarse},
    {L"щеб", ElementKind::Coarse},
    {L"дресв", ElementKind::Coarse},
    {L"жорств", ElementKind::Coarse},
    {L"известняк", ElementKind::Rock},
    {L"вапняк", ElementKind::Rock},
    {L"песчаник", ElementKind::Rock},
    {L"гранит", ElementKind::Rock},
    {L"граніт", ElementKind::Rock},
    {L"мергел", ElementKind::Rock},
    {L"аргиллит", ElementKind::Rock},
    {L"алевролит", ElementKind::Rock},
    {L"доломит", ElementKind::Rock},
    {L"сланец", ElementKind::Rock},
};

// Words of coarseness and density of sands; those of consistency stand in the dictionary.
constexpr std::wstring_view sandStates[] = {L"гравелистый",
    L"крупный",
    L"мелкий",
    L"пылеватый",
    L"средней крупности",
    L"плотный",
    L"рыхлый",
    L"средней плотности"};

wchar_t small(wchar_t letter)
{
    if (letter >= L'А' && letter <= L'Я')
        return static_cast<wchar_t>(letter + (L'а' - L'А'));
    return letter == L'Ё' || letter == L'ё' ? L'е' : letter;
}

std::wstring lowered(std::wstring_view text)
{
    std::wstring lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), small);
    return lower;
}

bool isWordLetter(wchar_t letter)
{
    return (letter >= L'а' && letter <= L'я') || letter == L'і' || letter == L'ї' || letter == L'є';
}

// Whether the words stand in the text with no letter before or behind.
bool hasWords(const std::wstring& text, std::wstring_view words)
{
    for (std::size_t at = text.find(words); at != std::wstring::npos; at = text.find(words, at + 1)) {
        const std::size_t end = at + words.size();
        if ((at == 0 || !isWordLetter(text[at - 1])) && (end == text.size() || !isWordLetter(text[end])))
            return true;
    }
    return false;
}

// The end of the name of the soil, or 0 where none is named.
std::size_t findSoil(const std::wstring& text, ElementKind& kind)
{
    for (std::size_t at = 0; at < text.size();) {
        if (!isWordLetter(text[at])) {
            ++at;
            continue;
        }
        const std::size_t end = static_cast<std::size_t>(
            std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), isWordLetter)
            - text.begin());
        for (const Stem& stem : soils)
            if (std::wstring_view(text).substr(at, end - at).starts_with(stem.text)) {
                kind = stem.kind;
                return end;
            }
        at = end;
    }
    return 0;
}

bool isCohesive(ElementKind kind)
{
    return kind == ElementKind::SandyLoam || kind == ElementKind::Loam || kind == ElementKind::Clay;
}

// "aQ_III^2" and "aQIII2" are one index, whoever typed it.
std::wstring plainIndex(std::wstring_view index)
{
    std::wstring plain;
    std::copy_if(index.begin(), index.end(), std::back_inserter(plain), [](wchar_t letter) {
        return letter != L'_' && letter != L'^' && letter != L' ';
    });
    return plain;
}

// The consistency registered for a depth: rows give the lower ends of their stretches.
std::wstring registeredState(const std::vector<const ConsistencyRegister::value_type*>& rows, double depth)
{
    for (const auto* row : rows)
        if (const Number end = readNumber(row->first.depth); end && depth <= *end) {
            const BilingualRow* name = consistencyNames.find(row->second.consistencyKind);
            return name ? std::wstring(name->russian) : std::wstring();
        }
    return {};
}

using SoilKey = std::tuple<std::wstring, ElementKind, std::wstring>; // index, kind, state

struct Group {
    std::wstring_view index; // as typed
    std::map<std::wstring_view, std::size_t> elements; // that its layers have
    std::vector<ElementProposal::Layer> without;
    double depth = 0; // sum of the middles
    std::size_t layers = 0;
};

class Proposer
{
public:
    explicit Proposer(IDBProject& project)
        : project_(project)
        , site_(project)
    {
    }

    ElementProposal propose()
    {
        gather();
        std::vector<std::pair<const SoilKey*, const Group*>> order;
        for (const auto& [key, group] : groups_)
            if (!group.without.empty())
                order.emplace_back(&key, &group);
        const auto middle = [](const Group* group) {
            return group->depth / static_cast<double>(group->layers);
        };
        std::stable_sort(order.begin(), order.end(), [&](const auto& a, const auto& b) {
            return middle(a.second) < middle(b.second);
        });
        known_ = project_.getStrataElements();
        for (const auto& [key, group] : order)
            add(*key, *group);
        return std::move(proposal_);
    }

private:
    void gather()
    {
        std::unordered_map<std::wstring_view, std::vector<const ConsistencyRegister::value_type*>> states;
        for (auto& of : rowsByPoint(project_.getConsistency()))
            states.emplace(of.point, std::move(of.rows));
        for (const SiteLayers::Point& point : site_.points())
            for (const SiteLayer& layer : point.layers)
                place(point.name, layer, foundOr(states, point.name));
    }

    void place(std::wstring_view point,
        const SiteLayer& layer,
        const std::vector<const ConsistencyRegister::value_type*>& states)
    {
        LayerSoil soil = soilOfDescription(layer.description);
        if (soil.kind == ElementKind::NotGiven || !canBeLinked(point)) {
            if (layer.element.empty())
                ++proposal_.leftOut;
            return;
        }
        if (soil.state.empty() && isCohesive(soil.kind))
            soil.state = registeredState(states, (layer.top + layer.bottom) / 2);
        Group& group = groups_[{plainIndex(layer.index), soil.kind, soil.state}];
        group.index = layer.index;
        group.depth += (layer.top + layer.bottom) / 2;
        ++group.layers;
        if (layer.element.empty())
            group.without.push_back({std::wstring(point), layer.number, 0});
        else
            ++group.elements[layer.element];
    }

    void add(const SoilKey& key, const Group& group)
    {
        const auto& [plain, kind, state] = key;
        ElementProposal::Element element;
        element.kind = kind;
        element.index = latinLookAlike(group.index).value_or(std::wstring());
        element.words = std::wstring(elementKindName(kind)) + (state.empty() ? L"" : L" " + state);
        const auto most = std::max_element(group.elements.begin(),
            group.elements.end(),
            [](const auto& a, const auto& b) { return a.second < b.second; });
        element.isNew = most == group.elements.end();
        element.name = element.isNew ? freeElementName(known_) : std::wstring(most->first);
        if (element.isNew)
            known_.insert({element.name, {}});
        element.layers = group.without.size();
        for (ElementProposal::Layer layer : group.without) {
            layer.element = proposal_.elements.size();
            proposal_.layers.push_back(std::move(layer));
        }
        proposal_.elements.push_back(std::move(element));
    }

    IDBProject& project_;
    SiteLayers site_;
    std::map<SoilKey, Group> groups_;
    StrataElementMap known_;
    ElementProposal proposal_;
};

} // namespace

LayerSoil soilOfDescription(std::wstring_view description)
{
    const std::wstring text = lowered(description);
    LayerSoil soil;
    const std::size_t end = findSoil(text, soil.kind);
    if (end == 0)
        return soil;
    const std::wstring behind = text.substr(end);
    if (isCohesive(soil.kind)) {
        for (const BilingualRow& row : consistencyNames)
            if (hasWords(behind, row.russian))
                soil.state = row.russian;
    } else if (soil.kind == ElementKind::Sand) {
        for (const std::wstring_view state : sandStates)
            if (hasWords(behind, state))
                soil.state += (soil.state.empty() ? L"" : L" ") + std::wstring(state);
    }
    return soil;
}

ElementProposal proposeElements(IDBProject& project)
{
    return Proposer(project).propose();
}
