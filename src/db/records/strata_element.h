#pragma once

#include "db/records/orderings.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

// A geological element with its two drawing patterns.
struct StrataElement {
    std::int32_t valueC = 0;
    std::int32_t code = 0;
    std::int32_t valueB = 0;
    std::array<std::wstring, 11> texts;
    std::vector<std::uint8_t> patternA;
    std::uint8_t patternFlagA = 0;
    std::int32_t lowerBound = 0;
    std::int32_t middleValue = 0;
    std::int32_t upperBound = 0;
    std::int32_t patternFlagB = 0;
    std::vector<std::uint8_t> patternB;
};

using StrataElementMap = std::map<std::wstring, StrataElement, NumericTextOrder>;
