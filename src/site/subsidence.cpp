#include "site/subsidence.h"

#include "modules/idbproject.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace
{

constexpr double kilopascals = 1000.0; // in a megapascal

// The samples that were chosen for a point, by their codes; empty: all.
std::set<std::wstring_view> chosenCodes(IDBProject& project, std::wstring_view point)
{
    for (const auto& [name, codes] : project.getSubsidenceNames())
        if (name == point)
            return {codes.begin(), codes.end()};
    return {};
}

const CompressionResult* collapseTest(const SiteSample& sample)
{
    for (const CompressionResult& test : sample.result.compression)
        if (!test.collapse.rows.empty())
            return &test;
    return nullptr;
}

std::vector<CollapsePoint> curveOf(const CompressionResult& test)
{
    std::vector<CollapsePoint> curve;
    for (const CollapseRow& row : test.collapse.rows)
        curve.push_back({row.load * kilopascals, row.relative});
    std::ranges::stable_sort(curve, {}, &CollapsePoint::loadKPa);
    return curve;
}

// Of several samples in a layer the one nearest to its middle stands for it.
void addCurves(SubsidencePoint& made, const std::vector<SiteSample>& samples)
{
    std::vector<Number> distances(made.layers.size());
    for (const std::size_t index : made.samples) {
        const SiteSample& sample = samples[index];
        const SiteLayer* layer = sample.depth ? layerAt(made.layers, *sample.depth) : nullptr;
        if (!layer) {
            made.remarks.push_back({Remark::Missing,
                "samples",
                L"Проба " + sample.sample->code + L" не попадает ни в один слой"});
            continue;
        }
        const auto place = static_cast<std::size_t>(layer - made.layers.data());
        const double distance = std::abs(*sample.depth - (layer->top + layer->bottom) / 2.0);
        if (distances[place] && *distances[place] <= distance)
            continue;
        distances[place] = distance;
        const CompressionResult& test = *collapseTest(sample);
        made.collapsible[place].curve = curveOf(test);
        made.collapsible[place].initialPressureKPa.reset();
        if (test.collapse.initialPressure)
            made.collapsible[place].initialPressureKPa = *test.collapse.initialPressure * kilopascals;
    }
}

} // namespace

SubsidencePoint subsidencePoint(
    IDBProject& project, const SiteLaboratory& laboratory, std::wstring_view point)
{
    SubsidencePoint made;
    made.point = point;
    made.layers = layersOfPoint(project, point);
    for (const SiteLayer& layer : made.layers) {
        CollapsibleLayer collapsible{layer.top, layer.bottom, {}, {}, {}};
        if (const SiteElement* element = laboratory.element(layer.element))
            collapsible.saturatedDensity = element->fromMeans.saturatedDensity;
        made.collapsible.push_back(std::move(collapsible));
    }
    const std::set<std::wstring_view> codes = chosenCodes(project, point);
    const std::vector<SiteSample>& samples = laboratory.samples();
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (samples[i].key->pointName == point && collapseTest(samples[i])
            && (codes.empty() || codes.contains(samples[i].sample->code)))
            made.samples.push_back(i);
    addCurves(made, samples);
    made.result = subsidenceByOwnWeight(made.collapsible);
    made.remarks.insert(made.remarks.end(), made.result.remarks.begin(), made.result.remarks.end());
    return made;
}

std::vector<SubsidencePoint> subsidencePoints(IDBProject& project, const SiteLaboratory& laboratory)
{
    std::vector<std::wstring_view> names;
    for (const SiteSample& sample : laboratory.samples())
        if (collapseTest(sample)
            && std::ranges::find(names, std::wstring_view(sample.key->pointName)) == names.end())
            names.push_back(sample.key->pointName);
    std::vector<SubsidencePoint> points;
    points.reserve(names.size());
    for (const std::wstring_view name : names)
        points.push_back(subsidencePoint(project, laboratory, name));
    return points;
}
