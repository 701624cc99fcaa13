#pragma once

#include "db/records/orderings.h"
#include "db/records/point_keys.h"

#include <cstdint>
#include <map>

// A sample taken at the depth of its key; the kind is a number of the dictionary sampleKinds.
struct SampleValue {
    std::int32_t sampleKind = 0;
};

using SampleRegister = std::map<PointDepthKey, SampleValue, PointDepthOrder>;
