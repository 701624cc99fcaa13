#pragma once

#include "section/records/vec3.h"

namespace glh::ns_float
{

// All points whose dot product with the normal is the distance.
struct plane {
    Vec3 normal;
    float distance = 0;
};

} // namespace glh::ns_float

// Bounds of an object on the drawing.
struct MaxMinController {
    float minX = 0;
    float minY = 0;
    float maxX = 0;
    float maxY = 0;
};
