#pragma once

#include "db/records/orderings.h"
#include "section/records/gl_object.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

class InformRecord;

// View settings of the drawings: raw words that only the drawing modules interpret.
using Pair2 = std::array<std::uint32_t, 2>;
using Quad4 = std::array<std::uint32_t, 4>;

// One point of a section line.
struct SectionRef {
    std::wstring name;
    std::int32_t number = 0;
};

// The two ends of a section. A mark below 1e-5 m stands for "not given" and is filled in from the point
// register when the file is opened.
struct SectionPointValue {
    std::wstring textA;
    std::wstring textB;
    std::uint32_t word0 = 0;
    std::uint32_t word1 = 0;
    float markA = 0; // m
    float markB = 0; // m
};

struct CurveKey {
    std::wstring first;
    std::wstring second;
};

struct CurveCell {
    std::wstring textA;
    std::wstring textB;
};

// Keys are names in the form "Разрез 0-0'".
using SectionLineMap = std::map<std::wstring, std::vector<SectionRef>, SectionNameOrder>;
using SectionPointMap = std::map<std::wstring, SectionPointValue, SectionNameOrder>;
using SectionCurveMap = std::map<CurveKey, std::vector<CurveCell>, CurveOrder>;
using TerrainCellMap = std::map<std::uint8_t, std::vector<std::wstring>>;
using ProfileTextMap = std::map<std::wstring, std::vector<std::wstring>>;

using GLObjectList = std::vector<GLObjectDB*>;
using InformList = std::vector<InformRecord*>;
