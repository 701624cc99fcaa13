#pragma once

#include "drawing/drawing.h"
#include "drawing/hatch.h"

#include <string>

// The drawing as SVG 1.1 in UTF-8, in millimetres, a group for each layer's run of items. Texts stay texts
// and are as long as the shipped fonts make them, whichever font shows them.
std::string toSvg(const Drawing& drawing, const Hatches& hatches);

// The name of a layer in files.
const char* layerName(Layer layer);
