#pragma once

#include "db/records/orderings.h"
#include "db/records/point_keys.h"
#include "db/records/register_header.h"

#include <cstdint>
#include <map>

// A water level measured at the depth of its key.
struct WaterValue {
    Date3 date;
    std::int32_t flagA = 0;
    std::int32_t flagB = 0;
};

using WaterRegister = std::map<PointDepthKey, WaterValue, PointDepthOrder>;
