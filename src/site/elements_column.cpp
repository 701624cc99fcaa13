#include "core/base/typed_number.h"
#include "modules/idbproject.h"
#include "site/cells.h"
#include "site/column.h"
#include "site/element_links.h"
#include "site/layers.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

namespace
{

struct Occurrence {
    double least = std::numeric_limits<double>::max();
    double greatest = 0;
    double sumOfThickness = 0;
    double sumOfTops = 0;
    int count = 0;
    std::wstring_view index = {};
    std::wstring_view description = {}; // the longest: it says most

    double meanThickness() const { return count ? sumOfThickness / count : 0; }
    double meanTop() const { return count ? sumOfTops / count : std::numeric_limits<double>::max(); }
};

using Occurrences = std::unordered_map<std::wstring_view, Occurrence>;

Occurrences occurrencesOf(const SiteLayers& layers)
{
    Occurrences found;
    for (const SiteLayers::Point& point : layers.points())
        for (const SiteLayer& layer : point.layers) {
            if (layer.element.empty())
                continue;
            Occurrence& own = found[layer.element];
            own.least = std::min(own.least, layer.thickness());
            own.greatest = std::max(own.greatest, layer.thickness());
            own.sumOfThickness += layer.thickness();
            own.sumOfTops += layer.top;
            ++own.count;
            own.index = own.index.empty() ? layer.index : own.index;
            if (layer.description.size() > own.description.size())
                own.description = layer.description;
        }
    return found;
}

std::wstring rangeText(const Occurrence& occurrence)
{
    const std::wstring least = numberText(occurrence.least, 1);
    const std::wstring greatest = numberText(occurrence.greatest, 1);
    return least == greatest ? least : least + L"\u2013" + greatest;
}

} // namespace

ColumnData elementsColumn(IDBProject& project, bool isByDepth)
{
    const SiteLayers layers(project);
    Occurrences occurrences = occurrencesOf(layers);
    std::vector<std::pair<std::wstring_view, const StrataElement*>> elements;
    for (const auto& [name, element] : project.getStrataElements())
        elements.emplace_back(name, &element);
    if (isByDepth)
        std::stable_sort(elements.begin(), elements.end(), [&](const auto& a, const auto& b) {
            return occurrences[a.first].meanTop() < occurrences[b.first].meanTop();
        });
    ColumnData data;
    double top = 0;
    for (const auto& [name, element] : elements) {
        const Occurrence& own = occurrences[name];
        constexpr double ofUnseen = 1; // m of the strip for an element that no hole has met
        ColumnLayer layer;
        layer.id = static_cast<std::int64_t>(data.layers.size()) + 1;
        layer.top = top;
        layer.bottom = top + (own.count ? own.meanThickness() : ofUnseen);
        layer.thickness = own.count ? rangeText(own) : L"\u2013";
        layer.index = element->texts[element_text::GeologicalIndex];
        if (layer.index.empty())
            layer.index = own.index;
        layer.element = name;
        layer.description = elementName(project.getNumberedLinks(), name);
        if (!own.description.empty() && own.description != layer.description)
            layer.description += (layer.description.empty() ? L"" : L". ") + std::wstring(own.description);
        layer.hatch = hatchOfElement(project, name);
        layer.color = colorOfElement(project, name);
        top = layer.bottom;
        data.layers.push_back(std::move(layer));
    }
    data.depth = top;
    return data;
}
