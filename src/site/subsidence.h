#pragma once

#include "calc/subsidence.h"
#include "site/elements.h"
#include "site/layers.h"

// Subsidence of a point: its layers, the densities of their elements and the collapse tests of its samples.
// Views into the project: look, use and let go before the next change.

struct SubsidencePoint {
    std::wstring_view point;
    std::vector<SiteLayer> layers; // beside the calculation's
    std::vector<CollapsibleLayer> collapsible;
    std::vector<std::size_t> samples; // of the site, that took part
    Subsidence result;
    Remarks remarks; // of samples and of the calculation: "sample/CODE", "layer/2"
};

// Points that have a collapse test, in the order of their samples.
std::vector<SubsidencePoint> subsidencePoints(IDBProject& project, const SiteLaboratory& laboratory);
// One point, with or without a test.
SubsidencePoint subsidencePoint(
    IDBProject& project, const SiteLaboratory& laboratory, std::wstring_view point);
