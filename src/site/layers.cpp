#include "site/layers.h"

#include "modules/idbproject.h"
#include "site/by_point.h"
#include "site/element_links.h"

#include <algorithm>

static std::vector<SiteLayer> layersOfRows(const std::vector<const LithologyRegister::value_type*>& rows,
    std::wstring_view point,
    const ElementLinks& links)
{
    std::vector<SiteLayer> layers;
    layers.reserve(rows.size());
    double top = 0;
    std::wstring_view topText = L"0";
    std::size_t number = 0;
    for (const auto* row : rows) {
        ++number;
        const Number bottom = readNumber(row->first.depth);
        if (!bottom || *bottom <= top)
            continue;
        layers.push_back({number,
            top,
            *bottom,
            topText,
            row->first.depth,
            row->second.geoIndex,
            row->second.description,
            links.elementOf(point, number)});
        top = *bottom;
        topText = row->first.depth;
    }
    return layers;
}

std::wstring SiteLayer::thicknessText() const
{
    return differenceText(bottomText, topText);
}

std::wstring SiteLayer::markText(std::wstring_view mouthMark) const
{
    return differenceText(mouthMark, bottomText);
}

std::vector<SiteLayer> layersOfPoint(IDBProject& project, std::wstring_view point)
{
    return layersOfRows(
        rowsOfPoint(project.getLithology(), point), point, ElementLinks(project.getNumberedLinks()));
}

SiteLayers::SiteLayers(IDBProject& project)
{
    const ElementLinks links(project.getNumberedLinks());
    const auto marks = absoluteMarks(project);
    for (const auto& [point, rows] : rowsByPoint(project.getLithology())) {
        places_.emplace(point, points_.size());
        points_.push_back({point, foundOr(marks, point), layersOfRows(rows, point, links)});
    }
}

const SiteLayers::Point* SiteLayers::find(std::wstring_view name) const
{
    const auto place = places_.find(name);
    return place == places_.end() ? nullptr : &points_[place->second];
}

const SiteLayer* SiteLayers::layerAt(std::wstring_view point, double depth) const
{
    const Point* found = find(point);
    return found ? ::layerAt(found->layers, depth) : nullptr;
}

const SiteLayer* layerAt(const std::vector<SiteLayer>& layers, double depth)
{
    const auto layer =
        std::lower_bound(layers.begin(), layers.end(), depth, [](const SiteLayer& above, double wanted) {
            return above.bottom < wanted;
        });
    return layer != layers.end() && depth >= 0 ? &*layer : nullptr;
}
