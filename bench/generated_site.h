#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"

#include <cstddef>

// How the points are named: by numbers alone, all with letters, or some so and some so, as a site that was
// drilled in several campaigns.
enum class SiteNames { numeric, lettered, mixed };

// A made-up site with the proportions of a real one: a point has 5 to 10 layers, 5 samples, a water level,
// 2 laboratory samples with 20 properties, 12 fractions and 10 load rows; every third point has a sounding of
// 200 rows; 23,000 points have 10,000 drawing objects in their sections, fewer points have fewer. About 4 kB
// of file a point, 23,000 points make about 100 MB. Always the same for the same arguments.
Reference<DBProject> generatedSite(std::size_t points, SiteNames names = SiteNames::numeric);
