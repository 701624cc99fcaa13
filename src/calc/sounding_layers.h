#pragma once

#include "core/base/typed_number.h"

#include <span>
#include <vector>

// A sounding parted into layers by its own statistics, without a borehole. No standard tells how: the rule is
// practice, and its bounds are the user's.

struct LayerReading {
    double depth = 0.0; // m, rising
    Number tip; // qc, MPa
    Number sleeve; // fs, kPa
};

struct LayerRule {
    double change = 0.4; // of the moving mean against the layer's: a new layer from here on
    double leastThicknessM = 0.4;
    double sandRatioPercent = 1.2; // friction by cone resistance below which it is sand
};

struct ProposedLayer {
    double from = 0.0; // m; the last reading of the layer above, 0 for the first
    double to = 0.0; // its last reading
    std::size_t first = 0; // readings first to last - 1
    std::size_t last = 0;
    std::optional<bool> isSand; // by the friction ratio of its means; nothing without a sleeve
};

// From above. A layer begins where the moving mean of the cone's resistance leaves the mean of the layer by
// more than the change, and stays; its boundary is the reading that parts the two best. Layers thinner than
// allowed fall to the neighbour that is more like them. Nothing of fewer than two readings.
std::vector<ProposedLayer> proposedLayers(std::span<const LayerReading> readings, const LayerRule& rule = {});
