#include "site/element_edits.h"

#include "core/base/letters.h"
#include "core/base/mexception.h"
#include "db/exact_key.h"
#include "modules/idbproject.h"
#include "site/cells.h"
#include "site/element_links.h"
#include "site/element_texts.h"
#include "site/layers.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace
{

using Renaming = std::function<std::wstring(const std::wstring&)>; // empty: the element goes

constexpr std::wstring_view bodyPrefix = L"Подошва ";

// "Подошва E:k" of an element's k-th body.
std::wstring renamedCurve(const std::wstring& curve, const Renaming& nameOf)
{
    const std::size_t colon = curve.find(L':');
    if (!curve.starts_with(bodyPrefix) || colon == std::wstring::npos)
        return curve;
    const std::wstring element = curve.substr(bodyPrefix.size(), colon - bodyPrefix.size());
    const std::wstring name = nameOf(element);
    return name.empty() ? curve : std::wstring(bodyPrefix) + name + curve.substr(colon);
}

void renameLinks(ElementsState& state, const Renaming& nameOf)
{
    NumberedLinks links;
    for (const auto& [key, value] : state.links) {
        if (!readLayerLink(key))
            links.insert({key, value});
        else if (const std::wstring name = nameOf(value); !name.empty())
            links.insert({key, name});
    }
    std::vector<std::pair<std::wstring, std::wstring>> kept;
    std::vector<std::pair<std::wstring, std::wstring>> moved;
    for (const auto& [element, record] : state.elements)
        if (const auto own = findExact(links, elementNameKey(element)); own != links.end()) {
            const std::wstring name = nameOf(element);
            (name == element ? kept : moved).emplace_back(name, own->second);
            links.erase(own);
        }
    // Of two that become one the one that stays keeps its words.
    kept.insert(kept.end(), moved.begin(), moved.end());
    for (const auto& [element, words] : kept)
        if (!element.empty())
            links.insert({elementNameKey(element), words});
    state.links = std::move(links);
}

bool namesElements(const SoundingRegister& soundings, const Renaming& nameOf)
{
    for (const auto& [key, rows] : soundings)
        for (const SoundingRow& row : rows)
            if (const std::wstring& element = row.cells[sounding_cell::Element];
                !element.empty() && nameOf(element) != element)
                return true;
    return false;
}

void renameUses(ElementsState& state, IDBProject& project, const Renaming& nameOf)
{
    renameLinks(state, nameOf);
    SoundingFlags flags;
    for (const auto& [element, kind] : state.soundingFlags)
        if (const std::wstring name = nameOf(element); !name.empty())
            flags.insert({name, kind});
    state.soundingFlags = std::move(flags);
    SectionCurveMap curves;
    for (const auto& [key, cells] : state.curves) {
        CurveKey renamed = key;
        renamed.second = renamedCurve(key.second, nameOf);
        curves.insert({renamed, cells});
    }
    state.curves = std::move(curves);
    if (!state.soundings && namesElements(project.getSoundings(), nameOf))
        state.soundings = project.getSoundings();
    if (!state.soundings)
        return;
    for (auto& [key, rows] : *state.soundings)
        for (SoundingRow& row : rows)
            if (std::wstring& element = row.cells[sounding_cell::Element]; !element.empty())
                element = nameOf(element);
}

void checkNames(const std::vector<std::wstring>& names)
{
    std::set<std::wstring_view> known;
    for (const std::wstring& name : names) {
        if (const std::wstring problem = elementNameProblem({}, name); !problem.empty())
            throw MException(problem);
        if (!known.insert(name).second)
            throw MException(L"Два элемента не могут иметь один номер: " + name + L".");
    }
    if (!haveCommonOrder(names))
        throw MException(
            L"Номера с буквами и без букв вместе, как и номера, которые начинаются одним числом, "
            L"не имеют общего порядка: элементы терялись бы. Дайте всем номерам один вид, "
            L"например «ИГЭ-2а».");
}

std::vector<std::wstring> namesOf(const StrataElementMap& elements)
{
    std::vector<std::wstring> names;
    names.reserve(elements.size());
    for (const auto& [name, element] : elements)
        names.push_back(name);
    return names;
}

} // namespace

ElementsState elementsOf(IDBProject& project)
{
    return {project.getStrataElements(),
        project.getNumberedLinks(),
        project.getSoundingFlags(),
        project.getSectionCurves(),
        std::nullopt};
}

void putElements(IDBProject& project, const ElementsState& state)
{
    project.getStrataElements() = state.elements;
    project.setNumberedLinks(state.links);
    project.setSoundingFlags(state.soundingFlags);
    project.setSectionCurves(state.curves);
    if (state.soundings)
        project.setSoundings(*state.soundings);
}

std::wstring freeElementName(const StrataElementMap& elements)
{
    const bool hasLetters = std::any_of(
        elements.begin(), elements.end(), [](const auto& entry) { return containsLetter(entry.first); });
    for (std::size_t number = elements.size() + 1;; ++number) {
        const std::wstring digits = std::to_wstring(number);
        const std::wstring name = hasLetters ? uniformElementName(digits) : digits;
        if (elementNameProblem(elements, name).empty())
            return name;
    }
}

void addElement(ElementsState& state, const std::wstring& name, const StrataElement& element)
{
    if (const std::wstring problem = elementNameProblem(state.elements, name); !problem.empty())
        throw MException(problem);
    std::vector<std::wstring> names = namesOf(state.elements);
    names.push_back(name);
    checkNames(names);
    state.elements.insert({name, element});
}

void deleteElement(ElementsState& state, IDBProject& project, const std::wstring& name)
{
    renameUses(state, project, [&](const std::wstring& element) {
        return element == name ? std::wstring() : element;
    });
    eraseExact(state.elements, name);
}

void renameElements(ElementsState& state,
    IDBProject& project,
    const std::vector<std::pair<std::wstring, std::wstring>>& oldToNew)
{
    const std::map<std::wstring, std::wstring> wanted(oldToNew.begin(), oldToNew.end());
    const Renaming nameOf = [&](const std::wstring& element) {
        const auto found = wanted.find(element);
        return found == wanted.end() ? element : found->second;
    };
    std::vector<std::wstring> names = namesOf(state.elements);
    for (std::wstring& name : names)
        name = nameOf(name);
    checkNames(names);
    StrataElementMap renamed;
    for (const auto& [name, element] : state.elements)
        renamed.insert({nameOf(name), element});
    renameUses(state, project, nameOf);
    state.elements = std::move(renamed);
}

void mergeElements(
    ElementsState& state, IDBProject& project, const std::wstring& name, const std::wstring& into)
{
    renameUses(state, project, [&](const std::wstring& element) { return element == name ? into : element; });
    eraseExact(state.elements, name);
}

std::vector<std::pair<std::wstring, std::wstring>> numbersFromAbove(IDBProject& project)
{
    // An element stands where its layers stand on the average among those of their points.
    std::map<std::wstring_view, std::pair<double, int>> places;
    const SiteLayers site(project);
    for (const SiteLayers::Point& point : site.points())
        for (const SiteLayer& layer : point.layers)
            if (!layer.element.empty()) {
                auto& [depth, count] = places[layer.element];
                depth += (layer.top + layer.bottom) / 2;
                ++count;
            }
    std::vector<std::pair<double, std::wstring>> order;
    for (const auto& [name, element] : project.getStrataElements()) {
        const auto place = places.find(name);
        order.emplace_back(place == places.end() ? 1e9 : place->second.first / place->second.second, name);
    }
    std::stable_sort(
        order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::pair<std::wstring, std::wstring>> names;
    for (std::size_t i = 0; i < order.size(); ++i)
        names.emplace_back(order[i].second, std::to_wstring(i + 1));
    return names;
}

std::vector<std::pair<std::wstring, std::wstring>> uniformNames(const StrataElementMap& elements)
{
    const std::vector<std::wstring> names = namesOf(elements);
    std::vector<std::pair<std::wstring, std::wstring>> renamed;
    if (!haveCommonOrder(names))
        for (const std::wstring& name : names)
            renamed.emplace_back(name, uniformElementName(name));
    return renamed;
}

static void setLink(NumberedLinks& links, const std::wstring& key, const std::wstring& value)
{
    const auto found = findExact(links, key);
    if (value.empty()) {
        if (found != links.end())
            links.erase(found);
    } else if (found != links.end()) {
        found->second = value;
    } else {
        links.insert({key, value});
    }
}

void assignElement(
    NumberedLinks& links, std::wstring_view point, std::size_t layer, const std::wstring& element)
{
    if (canBeLinked(point))
        setLink(links, layerLinkKey(point, layer), element);
}

void setElementName(NumberedLinks& links, std::wstring_view element, const std::wstring& name)
{
    setLink(links, elementNameKey(element), name);
}

void moveLayerLinks(
    NumberedLinks& links, std::wstring_view point, const std::vector<std::size_t>& formerNumbers)
{
    std::map<std::size_t, std::wstring> former;
    for (auto link = links.begin(); link != links.end();) {
        const auto layer = readLayerLink(link->first);
        if (layer && layer->point == point) {
            former.emplace(layer->number, link->second);
            link = links.erase(link);
        } else {
            ++link;
        }
    }
    for (std::size_t now = 0; now < formerNumbers.size(); ++now)
        if (const auto element = former.find(formerNumbers[now]); element != former.end())
            links.insert({layerLinkKey(point, now + 1), element->second});
}
