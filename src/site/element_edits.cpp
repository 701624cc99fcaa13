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
        if (const auto own = links.find(elementNameKey(element)); own != links.end()) {
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

// Own entries first: of two that become one the one that stays keeps what it had.
SoundingFlags renamedFlags(const SoundingFlags& flags, const Renaming& nameOf)
{
    SoundingFlags renamed;
    for (const bool isOwn : {true, false})
        for (const auto& [element, kind] : flags)
            if (const std::wstring name = nameOf(element); (name == element) == isOwn && !name.empty())
                renamed.insert({name, kind});
    return renamed;
}

// A body of a number that is taken takes the next one: no line drawn by hand is lost.
SectionCurveMap renamedCurves(const SectionCurveMap& curves, const Renaming& nameOf)
{
    SectionCurveMap renamed;
    for (const bool isOwn : {true, false})
        for (const auto& [key, cells] : curves) {
            CurveKey name = {key.first, renamedCurve(key.second, nameOf)};
            if ((name.second == key.second) != isOwn)
                continue;
            const std::wstring stem = name.second.substr(0, name.second.rfind(L':') + 1);
            for (std::size_t body = 1; !renamed.insert({name, cells}).second; ++body)
                name.second = stem + std::to_wstring(body);
        }
    return renamed;
}

template <class Map>
bool sameKeys(const Map& a, const Map& b)
{
    return std::ranges::equal(
        a, b, [](const auto& one, const auto& other) { return sameText(one.first, other.first); });
}

void renameUses(ElementsState& state, IDBProject& project, const Renaming& nameOf)
{
    renameLinks(state, nameOf);
    const SoundingFlags flags = state.soundingFlags.value_or(project.getSoundingFlags());
    if (SoundingFlags renamed = renamedFlags(flags, nameOf); !sameKeys(renamed, flags))
        state.soundingFlags = std::move(renamed);
    const SectionCurveMap curves = state.curves.value_or(project.getSectionCurves());
    if (SectionCurveMap renamed = renamedCurves(curves, nameOf); !sameKeys(renamed, curves))
        state.curves = std::move(renamed);
    if (auto renamed = renamedDrawings(project, nameOf))
        state.drawings = std::move(renamed);
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
        throw MixedElementNames(
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

static LayerDepths layerDepths(IDBProject& project)
{
    LayerDepths depths;
    for (const auto& [key, layer] : project.getLithology())
        depths[key.pointName].push_back(key.depth);
    return depths;
}

ElementsState elementsOf(IDBProject& project)
{
    return {project.getStrataElements(),
        project.getNumberedLinks(),
        std::make_shared<const LayerDepths>(layerDepths(project))};
}

ElementsState replacedBy(IDBProject& project, const ElementsState& state)
{
    ElementsState before = elementsOf(project);
    if (state.soundingFlags)
        before.soundingFlags = project.getSoundingFlags();
    if (state.curves)
        before.curves = project.getSectionCurves();
    if (state.soundings)
        before.soundings = project.getSoundings();
    if (state.drawings)
        before.drawings = drawingsOf(project);
    return before;
}

// The links of the state on the layers as they are now.
static NumberedLinks linksInPlace(NumberedLinks& current, const ElementsState& state, const LayerDepths& now)
{
    if (!state.layers || now == *state.layers)
        return state.links;
    NumberedLinks links;
    NumberedLinks known = state.links;
    for (const auto& [key, value] : known)
        if (!readLayerLink(key))
            links.insert({key, value});
    static const std::vector<std::wstring> none;
    for (const auto& [point, depths] : now) {
        const auto found = state.layers->find(point);
        const std::vector<std::wstring>& then = found == state.layers->end() ? none : found->second;
        for (std::size_t number = 1; number <= depths.size(); ++number) {
            const auto place = std::find(then.begin(), then.end(), depths[number - 1]);
            NumberedLinks& from = place == then.end() ? current : known;
            const std::size_t old =
                place == then.end() ? number : static_cast<std::size_t>(place - then.begin()) + 1;
            if (const auto link = from.find(layerLinkKey(point, old)); link != from.end())
                links.insert({layerLinkKey(point, number), link->second});
        }
    }
    return links;
}

void putElements(IDBProject& project, const ElementsState& state)
{
    project.getStrataElements() = state.elements;
    project.setNumberedLinks(linksInPlace(project.getNumberedLinks(), state, layerDepths(project)));
    if (state.soundingFlags)
        project.setSoundingFlags(*state.soundingFlags);
    if (state.curves)
        project.setSectionCurves(*state.curves);
    if (state.soundings)
        project.setSoundings(*state.soundings);
    if (state.drawings)
        putDrawings(project, *state.drawings);
}

std::wstring freeElementName(const StrataElementMap& elements)
{
    const bool hasLetters = std::any_of(
        elements.begin(), elements.end(), [](const auto& entry) { return containsLetter(entry.first); });
    for (std::size_t number = elements.size() + 1;; ++number) {
        const std::wstring digits = std::to_wstring(number);
        std::wstring name = hasLetters ? uniformElementName(digits) : digits;
        if (elementNameProblem(elements, name).empty())
            return name;
    }
}

void addElement(ElementsState& state, const std::wstring& name, const StrataElement& element)
{
    if (const std::wstring problem = elementNameProblem({}, name); !problem.empty())
        throw MException(problem);
    if (findExact(state.elements, name) != state.elements.end())
        throw MException(L"Элемент " + name + L" уже есть.");
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

void splitElement(ElementsState& state,
    const std::wstring& name,
    const std::wstring& newName,
    const std::vector<std::pair<std::wstring, std::size_t>>& layers)
{
    const auto element = findExact(state.elements, name);
    if (element == state.elements.end())
        throw MException(L"Элемента " + name + L" нет.");
    if (layers.empty())
        throw MException(L"Отметьте слои, которые отойдут новому элементу.");
    const StrataElement record = element->second;
    const std::wstring words(elementName(state.links, name));
    addElement(state, newName, record);
    setElementName(state.links, newName, words);
    for (const auto& [point, number] : layers)
        assignElement(state.links, point, number, newName);
    if (std::ranges::none_of(
            state.links, [&](const auto& link) { return link.second == name && readLayerLink(link.first); }))
        throw MException(L"У элемента " + name + L" не осталось бы слоёв: оставьте ему хотя бы один.");
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
    // Their order tells any two keys apart, whatever stands before the colon.
    const auto found = links.find(key);
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
