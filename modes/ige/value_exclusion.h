#pragma once

#include "calc/statistics.h"
#include "db/records/laboratory.h"
#include "db/records/point_keys.h"

class IDBProject;

// A sample before and after a value of it was left out of its element's statistics, or taken back.
struct ExcludedSample {
    PointDepthKey key;
    LabSample sample;
};

void putSample(IDBProject& project, const ExcludedSample& state);

// The value of a property (numbers as in site/element_summary.h) goes out by hand where it counted; where it
// was out it comes back: by the flag if a hand took it out, against the rule if that did.
void toggleExclusion(LabSample& sample, int property, int shearMethod, ExcludedBy excluded);
