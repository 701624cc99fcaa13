#pragma once

#include "calc/piles.h"
#include "calc/sounding.h"
#include "db/records/sounding.h"
#include "site/layers.h"

#include <memory>

struct SitePoint;

// Static soundings as numbers, with the layers that the neighbouring borehole lends them. Views into the
// project: look, use and let go before the next change.

struct SoundingReading {
    double depth = 0.0; // m
    Number tip, sleeve, side; // qc MPa, fs kPa, Qs kN
    std::wstring_view element; // typed in the journal; empty: by the borehole
    std::size_t row = 0; // in the journal, from 0
};

// A layer of the sounding with the readings that lie in it: from its top, which is not its own, to its
// bottom.
struct SoundingLayer {
    double from = 0.0; // m of depth in the sounding
    double to = 0.0;
    std::wstring_view element; // empty: none given
    std::wstring_view index; // geological, of the element, else of the borehole's layer
    std::size_t first = 0; // readings first to last - 1
    std::size_t last = 0;
};

struct SiteSounding {
    std::wstring_view point;
    std::wstring_view device, date;
    const SitePoint* place = nullptr; // null: stands in no register of points
    std::vector<SoundingReading> readings; // by depth
    std::wstring_view borehole; // that lends the layers; empty: none
    std::vector<SoundingLayer> layers; // those with readings, from above
    Remarks remarks; // "sounding/ROW/CELL", CELL 0 the depth

    double depth() const { return readings.empty() ? 0.0 : readings.back().depth; }
};

class SiteSoundings
{
public:
    explicit SiteSoundings(IDBProject& project);
    // Those of one point alone, as all of them would have it.
    SiteSoundings(IDBProject& project, std::wstring_view point);
    SiteSoundings(const SiteSoundings&) = delete;
    SiteSoundings& operator=(const SiteSoundings&) = delete;

    // In the order of their register.
    const std::vector<SiteSounding>& all() const { return soundings_; }
    const SiteSounding* find(std::wstring_view point) const;
    // The layers of the whole depth of a sounding, with readings or not: what a pile's shaft stands in.
    std::vector<SoundingLayer> shaft(const SiteSounding& sounding) const;

private:
    using Places = std::unordered_map<std::wstring_view, const SitePoint*>;

    void add(IDBProject& project, const SoundingRegister::value_type& journal, const Places& places);

    std::shared_ptr<const std::vector<SitePoint>> points_;
    SiteLayers layers_;
    std::vector<SiteSounding> soundings_;
    std::vector<std::vector<SoundingLayer>> shafts_; // beside the soundings
};

// The readings of a journal by depth; rows without a depth are told and left out.
std::vector<SoundingReading> soundingReadings(const std::vector<SoundingRow>& rows, Remarks& remarks);

// Statistics of a layer and what the tables make of its mean.
struct SoundingLayerResult {
    Spread tip, sleeve; // qc MPa, fs kPa
    SoundedProperties properties;
    Number liquidity;
};
SoundingLayerResult layerResult(
    IDBProject& project, const SiteSounding& sounding, const SoundingLayer& layer);

// The soil of an element, from its kind, its name and its index.
SoundedSoil soundedSoil(IDBProject& project, std::wstring_view element, std::wstring_view index = {});
// The same of a kind and a name in words, Russian or Ukrainian.
SoundedSoil soundedSoilNamed(int kind, std::wstring_view name);
// The kind of soil of an element for a pile's coefficients: as chosen, else by the element.
PileSoil pileSoil(IDBProject& project, std::wstring_view element);
