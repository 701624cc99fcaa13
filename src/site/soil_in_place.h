#pragma once

#include "core/base/typed_number.h"
#include "db/records/point_keys.h"
#include "site/layers.h"

#include <string_view>
#include <unordered_map>
#include <vector>

class IDBProject;

// Where samples were taken: the element of the layer, its kind, the stress of the soil above. It looks at
// layers, elements and densities alone, so it is there at once also for thousands of samples. A view into the
// project: use it and let go before the next change.
class SoilInPlace
{
public:
    explicit SoilInPlace(IDBProject& project);

    // Empty: the depth lies in no layer, or in one without an element.
    std::wstring_view elementAt(const PointDepthKey& key) const;
    // ElementKind as a number, 0 unknown.
    int kindAt(const PointDepthKey& key) const;
    // MPa; missing where a layer above or its density is.
    Number stressAt(const PointDepthKey& key) const;

private:
    struct Element {
        int kind = 0;
        Number density; // g/cm3
    };

    SiteLayers layers_;
    std::unordered_map<std::wstring_view, Element> elements_;
};

// Sum of thickness times density above a depth, kPa; missing where a layer or its density is. The density of
// an element by its name, g/cm3.
template <class DensityOf>
Number stressUnder(const std::vector<SiteLayer>& layers, double depth, DensityOf densityOf)
{
    constexpr double gravity = 9.81; // m/s2
    double stress = 0;
    double reached = 0;
    for (const SiteLayer& layer : layers) {
        if (reached >= depth - 1e-9)
            break;
        const Number density = densityOf(layer.element);
        if (!density || layer.top > reached + 1e-9)
            return {};
        const double bottom = layer.bottom < depth ? layer.bottom : depth;
        stress += (bottom - reached) * *density * gravity;
        reached = bottom;
    }
    return reached >= depth - 1e-9 ? Number(stress) : Number();
}
