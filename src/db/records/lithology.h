#pragma once

#include "db/records/orderings.h"
#include "db/records/point_keys.h"

#include <map>
#include <string>

// A layer. Its lower boundary is the depth of its key; the layer above ends where this one begins.
struct LithologyValue {
    std::wstring geoIndex;
    std::wstring description;
};

using LithologyRegister = std::map<PointDepthKey, LithologyValue, PointDepthOrder>;
