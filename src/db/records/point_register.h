#pragma once

#include "db/records/orderings.h"
#include "db/records/point_keys.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

// One row of a point in the register; the first row is the one that marks are read from.
struct PointRow {
    std::wstring text0;
    std::wstring text1;
    std::wstring absoluteMark; // m
    std::int32_t kindA = 0;
    std::wstring text3;
    std::wstring text4;
    std::wstring text5;
    std::wstring text6;
    std::int32_t kindB = 0;
};

using PointRegister = std::map<PointKey, std::vector<PointRow>, PointNameOrder>;
