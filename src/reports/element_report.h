#pragma once

#include "document/document.h"
#include "site/element_summary.h"

#include <vector>

class IDBProject;
class ISettings;

// What goes into the report of elements beside its tables.
struct ElementReportLook {
    int language = 0; // of the names of properties
    bool withTyped = true; // values typed into the elements stand over the computed ones
    bool withDensities = false; // single values too: of the density,
    bool withFriction = false; // of tan(phi) and c,
    bool withModuli = false; // of the modulus,
    bool withSwelling = false; // of swelling
    bool withGradings = false; // a picture of the grading curves
    bool isSmoothed = true; // these curves
};
ElementReportLook elementReportLook(ISettings& settings);

// The table of normative and design values, then for each element its statistics and what the look asks for.
Document elementReport(IDBProject& project,
    const SiteLaboratory& laboratory,
    const std::vector<const SiteElement*>& elements,
    const ElementReportLook& look);
