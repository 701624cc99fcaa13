#include "site/sounding_layers.h"

#include "modules/idbproject.h"
#include "site/cells.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace
{

constexpr double sameDepth = 1e-9;
constexpr double leastThickness = 0.05; // m, of a layer that a hand leaves

std::wstring elementFor(
    IDBProject& project, const ProposedLayer& layer, const std::vector<SoundingLayer>& shaft)
{
    std::map<std::wstring_view, double> alike;
    std::map<std::wstring_view, double> all;
    for (const SoundingLayer& lent : shaft) {
        const double common = std::min(lent.to, layer.to) - std::max(lent.from, layer.from);
        if (common <= 0.0 || lent.element.empty())
            continue;
        all[lent.element] += common;
        const PileSoil soil = pileSoil(project, lent.element);
        if (layer.isSand && soil != PileSoil::Unknown && (soil == PileSoil::Sand) == *layer.isSand)
            alike[lent.element] += common;
    }
    const auto& candidates = alike.empty() ? all : alike;
    const auto best =
        std::ranges::max_element(candidates, {}, [](const auto& entry) { return entry.second; });
    return best == candidates.end() ? std::wstring() : std::wstring(best->first);
}

} // namespace

std::vector<JournalLayer> proposedJournalLayers(IDBProject& project,
    const SiteSounding& sounding,
    const std::vector<SoundingLayer>& shaft,
    const LayerRule& rule)
{
    std::vector<LayerReading> readings;
    readings.reserve(sounding.readings.size());
    for (const SoundingReading& reading : sounding.readings)
        readings.push_back({reading.depth, reading.tip, reading.sleeve});
    std::vector<JournalLayer> layers;
    for (const ProposedLayer& layer : proposedLayers(readings, rule))
        layers.push_back({layer.from, layer.to, elementFor(project, layer, shaft)});
    return layers;
}

std::vector<JournalLayer> journalLayers(const SiteSounding& sounding)
{
    std::vector<JournalLayer> layers;
    for (const SoundingLayer& layer : sounding.layers)
        layers.push_back({layer.from, std::min(layer.to, sounding.depth()), std::wstring(layer.element)});
    return layers;
}

std::vector<SoundingRow> rowsWithLayers(
    std::vector<SoundingRow> rows, const std::vector<JournalLayer>& layers)
{
    for (SoundingRow& row : rows) {
        const Number depth = readNumber(row.depth);
        if (!depth)
            continue;
        const auto layer = std::ranges::find_if(layers, [&](const JournalLayer& one) {
            return *depth > one.from + sameDepth && *depth <= one.to + sameDepth;
        });
        if (layer != layers.end())
            row.cells[sounding_cell::Element] = layer->element;
    }
    return rows;
}

SoundingLayerResult layerResult(IDBProject& project, const SiteSounding& sounding, const JournalLayer& layer)
{
    SoundingLayer made{layer.from, layer.to, layer.element, {}, 0, 0};
    const auto below = [&](double depth) {
        return static_cast<std::size_t>(
            std::ranges::find_if(sounding.readings,
                [&](const SoundingReading& reading) { return reading.depth > depth + sameDepth; })
            - sounding.readings.begin());
    };
    made.first = below(layer.from);
    made.last = below(layer.to);
    return layerResult(project, sounding, made);
}

bool moveBoundary(std::vector<JournalLayer>& layers, std::size_t above, double depth)
{
    if (above + 1 >= layers.size())
        return false;
    const double least = layers[above].from + leastThickness;
    const double most = layers[above + 1].to - leastThickness;
    if (least > most)
        return false;
    depth = roundedTo(std::clamp(depth, least, most), 2);
    if (std::abs(depth - layers[above].to) < sameDepth)
        return false;
    layers[above].to = depth;
    layers[above + 1].from = depth;
    return true;
}

bool splitLayer(std::vector<JournalLayer>& layers, std::size_t place)
{
    if (place >= layers.size() || layers[place].to - layers[place].from < 2 * leastThickness)
        return false;
    JournalLayer lower = layers[place];
    lower.from = roundedTo((lower.from + lower.to) / 2.0, 2);
    layers[place].to = lower.from;
    layers.insert(layers.begin() + static_cast<std::ptrdiff_t>(place) + 1, std::move(lower));
    return true;
}

bool joinLayer(std::vector<JournalLayer>& layers, std::size_t place)
{
    if (place + 1 >= layers.size())
        return false;
    layers[place].to = layers[place + 1].to;
    layers.erase(layers.begin() + static_cast<std::ptrdiff_t>(place) + 1);
    return true;
}
