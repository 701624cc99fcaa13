#pragma once

#include "drawing/drawing.h"

#include <array>
#include <vector>

// The triangles that fill a ring (or its holes left open, where further rings are holes: they are joined to
// it by cuts). Rings that cross themselves are filled as far as it goes.
std::vector<std::array<Spot, 3>> trianglesOf(const std::vector<std::vector<Spot>>& rings);
