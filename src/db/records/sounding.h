#pragma once

#include "db/records/orderings.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

// A static sounding. The ordering looks at the name alone, so a point has one sounding at most.
struct SoundingKey {
    std::wstring pointName;
    std::uint32_t pointKind = 0;
    std::wstring device;
    std::wstring date; // "01.01.2019"
};

// One row of the journal.
struct SoundingRow {
    std::wstring depth;
    std::array<std::wstring, 4> cells;
};

// One row of the pile calculation.
struct SoundingCalcRow {
    std::array<std::wstring, 8> cells;
};

using SoundingRegister = std::map<SoundingKey, std::vector<SoundingRow>, PointNameOrder>;
using SoundingFlags = std::map<std::wstring, std::uint8_t, NumericTextOrder>;
using SoundingTriples = std::map<std::uint8_t, std::array<std::int32_t, 3>>;
