#pragma once

#include "db/records/orderings.h"
#include "db/records/point_keys.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

// A physical property: its number in propertyNames and its value as typed.
struct PropertyCell {
    std::int32_t id = 0;
    bool enabled = false;
    std::wstring value;
    std::int32_t aux = 0; // not stored
    std::int32_t limit = 999; // not stored
};

// One load of a shear test.
struct ShearCell {
    std::int32_t id = 0;
    std::wstring value;
};

// One load of a compression test.
struct CompressionCell {
    std::int32_t id = 0;
    std::wstring textA;
    std::wstring textB;
    std::wstring textC;
    std::int32_t aux = 0; // not stored
    std::wstring note; // not stored
};

// One load of a swelling test.
struct SwellingCell {
    std::int32_t id = 0;
    std::wstring textA;
    std::wstring textB;
    std::wstring textC;
};

// One stage of drying. Cells: stage, diameter (cm), height (cm), weight (g), volume (cm3), moisture
// (fraction).
struct ShrinkageRow {
    std::int32_t stage = 0;
    std::array<std::wstring, 6> cells;
};

// One compression test: its loads, then what only the laboratory screens interpret.
struct CompressionGroup {
    std::vector<CompressionCell> cells;
    std::array<std::int32_t, 4> flags{};
    std::array<std::int32_t, 4> numbers{};
};

struct SoilKind {
    std::int32_t code = 0;
    std::wstring text;
};

// The results of all tests of one sample. Every value stays a text: an empty cell is not a zero.
struct LabSample {
    std::int32_t number = 0;
    std::wstring code;
    std::vector<PropertyCell> physical;
    SoilKind soilKind;
    std::map<std::uint8_t, std::wstring> grading; // fraction number to percentage
    std::map<std::uint8_t, std::vector<ShearCell>> shear; // number of the test method
    std::map<std::uint8_t, CompressionGroup> compression; // number of the test
    std::vector<SwellingCell> swelling;
    std::vector<ShrinkageRow> shrinkage;
};

struct LabTriple {
    float valueA = 2.5F;
    float valueB = 2.5F;
    std::int32_t number = 0;

    bool operator==(const LabTriple&) const = default;
};

using LabSampleRegister = std::map<PointDepthKey, LabSample, PointDepthOrder>;
