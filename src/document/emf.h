#pragma once

#include "drawing/drawing.h"
#include "drawing/hatch.h"

#include <string>

// The drawing as an enhanced metafile, which text processors show and print sharp at any size: hundredths of
// a millimetre, texts in Arial, as long as the shipped font makes them. Null hatches: areas without a hatch.
std::string toEmf(const Drawing& drawing, const Hatches* hatches);
