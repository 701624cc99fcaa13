#pragma once

#include "calc/subsidence.h"
#include "drawing/drawing.h"

#include <string>

// A point's stress by own weight and the relative subsidence of its parts over the depth, one axis of depth
// for both; the limit of 0.01 is a dashed rule. 160 mm wide; the depth is scaled to fit 120 mm.
Drawing subsidencePicture(const Subsidence& subsidence, const std::wstring& title);
