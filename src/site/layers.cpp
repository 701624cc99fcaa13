#include "site/layers.h"

#include "modules/idbproject.h"
#include "site/by_point.h"
#include "site/element_links.h"

#include <algorithm>

namespace
{

using LayerRows = std::vector<const LithologyRegister::value_type*>;

// Each layer of the rows, from above, until take answers false.
template <class Take>
void goDown(const LayerRows& rows, std::wstring_view point, const ElementLinks& links, const Take& take)
{
    double top = 0;
    std::wstring_view topText = L"0";
    std::size_t number = 0;
    for (const auto* row : rows) {
        ++number;
        const Number bottom = readNumber(row->first.depth);
        if (!bottom || *bottom <= top)
            continue;
        if (!take(SiteLayer{number,
                top,
                *bottom,
                topText,
                row->first.depth,
                row->second.geoIndex,
                row->second.description,
                links.elementOf(point, number)}))
            return;
        top = *bottom;
        topText = row->first.depth;
    }
}

std::vector<SiteLayer> layersOfRows(const LayerRows& rows, std::wstring_view point, const ElementLinks& links)
{
    std::vector<SiteLayer> layers;
    layers.reserve(rows.size());
    goDown(rows, point, links, [&](const SiteLayer& layer) {
        layers.push_back(layer);
        return true;
    });
    return layers;
}

} // namespace

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

SiteLayers::SiteLayers(IDBProject& project, std::wstring_view point)
{
    const auto rows = rowsOfPoint(project.getLithology(), point);
    if (rows.empty())
        return;
    const std::wstring_view name = rows.front()->first.pointName;
    places_.emplace(name, 0);
    points_.push_back({name,
        absoluteMark(project, point),
        layersOfRows(rows, name, ElementLinks(project.getNumberedLinks()))});
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

struct LayerFinder::Rows {
    PointRuns<LithologyRegister> runs;
    ElementLinks links;
    std::wstring point = {}; // asked for last
    LayerRows ofPoint = {};
};

LayerFinder::LayerFinder(IDBProject& project)
    : rows_(new Rows{PointRuns(project.getLithology()), ElementLinks(project.getNumberedLinks())})
{
}

LayerFinder::~LayerFinder() = default;

std::optional<SiteLayer> LayerFinder::layerAt(std::wstring_view point, double depth)
{
    if (rows_->point != point) {
        rows_->point = point;
        rows_->ofPoint.clear();
        rows_->runs.findOf(point, [&](const auto& row) {
            rows_->ofPoint.push_back(&row);
            return false;
        });
        sortByDepth(rows_->ofPoint);
    }
    std::optional<SiteLayer> found;
    if (depth >= 0)
        goDown(rows_->ofPoint, point, rows_->links, [&](const SiteLayer& layer) {
            if (layer.bottom >= depth)
                found = layer;
            return !found;
        });
    return found;
}

const SiteLayer* layerAt(const std::vector<SiteLayer>& layers, double depth)
{
    const auto layer =
        std::lower_bound(layers.begin(), layers.end(), depth, [](const SiteLayer& above, double wanted) {
            return above.bottom < wanted;
        });
    return layer != layers.end() && depth >= 0 ? &*layer : nullptr;
}
