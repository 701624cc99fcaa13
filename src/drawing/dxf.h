#pragma once

#include "drawing/drawing.h"
#include "drawing/hatch.h"

#include <string>

// The drawing as DXF R12 (AC1009): bytes of Windows-1251 with \U+XXXX for what it lacks, millimetres, y
// upwards, line ends CR LF, the same on every system. Layers by Drawing::layerNames or the usual names; signs
// are blocks; hatches are lines cut to their area, and each ring of an area is a closed polyline besides;
// grounds are filled triangles in the nearest colour of the standard palette.
std::string toDxf(const Drawing& drawing, const Hatches& hatches);
