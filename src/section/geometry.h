#pragma once

#include "section/records/vec3.h"

#include <array>

// The small geometry of the drawing records, in single precision throughout.

// Two coordinates nearer than this are the same.
inline constexpr float drawingTolerance = 1e-5F;

// Whether b stands above or below a: x the same to the tolerance, y different.
bool isVertical(const Vec3& a, const Vec3& b);

// The band around a segment from p to q by which it is picked: four points. A segment longer than 5 drawing
// units has a thin band, half as wide as 2 % of its length (0.5 % where it is vertical); the band of a
// shorter one is half as wide as it is long.
std::array<Vec3, 4> segmentQuad(const Vec3& p, const Vec3& q);
