#pragma once

#include "calc/chemistry.h"
#include "drawing/drawing.h"

#include <array>
#include <optional>
#include <span>
#include <string>

// A water on Schoeller's diagram: mg-equivalents a litre along six axes, Ca, Mg, Na + K, Cl + NO3, SO4,
// HCO3 + CO3.
struct SchoellerSample {
    std::wstring name;
    std::array<Number, 6> meq; // nothing where it was not determined, or is none: a logarithm has no zero
};
// Nothing where fewer than two axes have a value.
std::optional<SchoellerSample> schoellerSample(const WaterChemistry& chemistry, std::wstring name);

// The decades that hold all values, as powers of ten; at least two of them.
struct Decades {
    int from = -1;
    int to = 1;
};
Decades decadesOf(std::span<const SchoellerSample> samples);

// A broken line a water over logarithmic axes, with the list of the waters by their numbers; 170 mm wide. A
// line breaks where an axis has no value.
Drawing schoellerDiagram(std::span<const SchoellerSample> samples, int language);
