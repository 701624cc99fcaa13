#pragma once

#include "db/records/orderings.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

// One cell of a point's subsidence row; within a point a code occurs once at most.
struct SubsidenceCell {
    std::int32_t code = 0;
    std::wstring text;
    std::wstring title;
};

using SubsidenceMap = std::map<std::wstring, std::vector<SubsidenceCell>>;
using SubsidenceNames = std::map<std::wstring, std::vector<std::wstring>, NumericTextOrder>;
using SubsidenceGroups = std::map<std::wstring, std::vector<std::vector<std::wstring>>, NumericTextOrder>;
using NumberedLinks = std::map<std::wstring, std::wstring, ColonNumberOrder>;
