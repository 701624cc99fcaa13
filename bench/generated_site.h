#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"

#include <cstddef>

// A made-up site with the proportions of a real one: a point has 5 to 10 layers, 5 samples, a water level,
// 2 laboratory samples with 20 properties, 12 fractions and 10 load rows; every third point has a sounding of
// 200 rows. Names are the numbers from 1 on. About 6 kB of file a point without, 10 kB with a sounding.
Reference<DBProject> generatedSite(std::size_t points);
