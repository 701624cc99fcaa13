#pragma once

#include "db/records/orderings.h"
#include "db/records/point_keys.h"

#include <array>
#include <map>
#include <string>

// One chemical analysis: thirty cells in fixed order.
struct ChemistryRecord {
    std::array<std::wstring, 30> cells;
};

using ChemistryRegister = std::map<PointDepthKey, ChemistryRecord, PointDepthOrder>;
