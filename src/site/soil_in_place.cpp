#include "site/soil_in_place.h"

#include "calc/statistics.h"
#include "modules/idbproject.h"
#include "site/cells.h"
#include "site/laboratory.h"

namespace
{

// Determinations of the density by element, as its statistics take them.
std::unordered_map<std::wstring_view, std::vector<Determination>> densitiesByElement(
    IDBProject& project, const SoilInPlace& place)
{
    std::unordered_map<std::wstring_view, std::vector<Determination>> densities;
    for (const auto& [key, sample] : project.getLabSamples()) {
        const PropertyCell* cell = propertyCell(sample, 1);
        const CellNumber number = cell ? readCellNumber(cell->value) : CellNumber();
        if (number.value)
            densities[place.elementAt(key)].push_back(
                {*number.value, !cell->enabled || number.isLeftOut, number.isKept});
    }
    return densities;
}

} // namespace

SoilInPlace::SoilInPlace(IDBProject& project)
    : layers_(project)
{
    const auto measured = densitiesByElement(project, *this);
    for (const auto& [name, record] : project.getStrataElements()) {
        Number density = readNumber(record.texts[element_text::DensityNormative]);
        if (const auto found = measured.find(name); !density && found != measured.end())
            density = statisticsOf(found->second).mean;
        elements_.try_emplace(name, Element{record.code, density});
    }
}

std::wstring_view SoilInPlace::elementAt(const PointDepthKey& key) const
{
    const Number depth = readNumber(key.depth);
    const SiteLayer* layer = depth ? layers_.layerAt(key.pointName, *depth) : nullptr;
    return layer ? std::wstring_view(layer->element) : std::wstring_view();
}

int SoilInPlace::kindAt(const PointDepthKey& key) const
{
    const auto found = elements_.find(elementAt(key));
    return found == elements_.end() ? 0 : found->second.kind;
}

Number SoilInPlace::stressAt(const PointDepthKey& key) const
{
    const Number depth = readNumber(key.depth);
    const SiteLayers::Point* point = depth ? layers_.find(key.pointName) : nullptr;
    if (!point)
        return {};
    const Number stress = stressUnder(point->layers, *depth, [this](std::wstring_view name) {
        const auto found = elements_.find(name);
        return found == elements_.end() ? Number() : found->second.density;
    });
    return stress ? Number(*stress / 1000) : Number();
}
