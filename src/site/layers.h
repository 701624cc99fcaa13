#pragma once

#include "core/base/typed_number.h"
#include "db/records/lithology.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class IDBProject;

// A layer of a point. Views into the project: look, use and let go before the next change.
struct SiteLayer {
    std::size_t number = 0; // from above, from 1, as links count: of all stored layers of the point
    double top = 0; // m of depth
    double bottom = 0;
    std::wstring_view topText = {}; // as typed; "0" for the first
    std::wstring_view bottomText = {};
    std::wstring_view index = {}; // geological, as typed
    std::wstring_view description = {};
    std::wstring_view element = {}; // its number, "2а"; empty: none given

    double thickness() const { return bottom - top; }
    // Exact in decimals, with as many of them as were typed.
    std::wstring thicknessText() const;
    // Absolute mark of the bottom; empty where the mouth has none.
    std::wstring markText(std::wstring_view mouthMark) const;
};

// The layers of one point, from above. A depth that is no number and a layer that ends where or above where
// the last one did have no thickness and are left out; they keep their numbers.
std::vector<SiteLayer> layersOfPoint(IDBProject& project, std::wstring_view point);

// The layers of all points, gathered once: a calculation that asks for many samples makes one of these.
class SiteLayers
{
public:
    struct Point {
        std::wstring_view name;
        std::wstring_view markText = {}; // of the mouth, as typed; empty: none, or in no register of points
        std::vector<SiteLayer> layers;

        double depth() const { return layers.empty() ? 0 : layers.back().bottom; }
    };

    explicit SiteLayers(IDBProject& project);
    // Of one point alone.
    SiteLayers(IDBProject& project, std::wstring_view point);

    // Points that have rows in the register of layers, in the order in which they appear there.
    const std::vector<Point>& points() const { return points_; }
    // Null where the point has no layers.
    const Point* find(std::wstring_view name) const;
    // The layer that a depth lies in, at a boundary the upper one; null above the mouth, below the last
    // layer, and where the point has none.
    const SiteLayer* layerAt(std::wstring_view point, double depth) const;

private:
    std::vector<Point> points_;
    std::unordered_map<std::wstring_view, std::size_t> places_;
};

// Layers at depths, for a list that asks row by row and mostly several times for a point before the next:
// only what is asked for is gathered. Views into the project: look, use and let go before the next change.
class LayerFinder
{
public:
    explicit LayerFinder(IDBProject& project);
    ~LayerFinder();

    // As SiteLayers has it; nothing where that has null.
    std::optional<SiteLayer> layerAt(std::wstring_view point, double depth);

private:
    struct Rows;
    std::unique_ptr<Rows> rows_;
};

// The same for layers at hand.
const SiteLayer* layerAt(const std::vector<SiteLayer>& layers, double depth);
