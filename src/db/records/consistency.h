#pragma once

#include "db/records/orderings.h"
#include "db/records/point_keys.h"

#include <cstdint>
#include <map>

// The consistency of the soil down to the depth of its key; the kind is a number of consistencyNames.
struct ConsistencyValue {
    std::int32_t consistencyKind = 0;
};

using ConsistencyRegister = std::map<PointDepthKey, ConsistencyValue, PointDepthOrder>;
