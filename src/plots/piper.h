#pragma once

#include "calc/chemistry.h"
#include "drawing/drawing.h"

#include <optional>
#include <span>
#include <string>

// A water on Piper's diagram: shares of equivalents, per cent of cations and of anions.
struct PiperSample {
    std::wstring name;
    double calcium = 0;
    double magnesium = 0;
    double sodium = 0; // with potassium
    double bicarbonate = 0; // with carbonate
    double sulphate = 0;
    double chloride = 0; // with nitrate
};

// Nothing where a side has none of the diagram's ions.
std::optional<PiperSample> piperSample(const WaterChemistry& chemistry, std::wstring name);

// Where a water stands in a triangle whose lower left corner has the first share, lower right the second: in
// sides of it, y upwards.
Spot triangleSpot(double first, double second, double top);

// Two triangles, the rhomb above them, and the list of the waters by their numbers; 170 mm wide.
Drawing piperDiagram(std::span<const PiperSample> samples);
