#include "section/geometry.h"

#include <cmath>

bool isVertical(const Vec3& a, const Vec3& b)
{
    return std::fabs(a.x - b.x) < drawingTolerance && a.y != b.y;
}

static Vec3 pointAlong(const Vec3& p, const Vec3& q, float t)
{
    return {p.x + t * (q.x - p.x), p.y + t * (q.y - p.y), p.z + t * (q.z - p.z)};
}

static float distanceBetween(const Vec3& p, const Vec3& q)
{
    const float x = q.x - p.x;
    const float y = q.y - p.y;
    const float z = q.z - p.z;
    return std::sqrt(x * x + y * y + z * z);
}

std::array<Vec3, 4> segmentQuad(const Vec3& p, const Vec3& q)
{
    const bool vertical = isVertical(p, q);
    Vec3 a = q;
    Vec3 b = p;
    // A length that is no number counts as long.
    if (!(distanceBetween(p, q) <= 5.0F)) {
        a = pointAlong(p, q, vertical ? 0.005F : 0.02F);
        b = pointAlong(p, q, vertical ? 0.995F : 0.98F);
    }
    const float dx = a.x - p.x;
    const float dy = a.y - p.y;
    const float ex = q.x - b.x;
    const float ey = q.y - b.y;
    return {{{p.x + dy, p.y - dx, p.z},
        {q.x + ey, q.y - ex, q.z},
        {q.x - ey, q.y + ex, q.z},
        {p.x - dy, p.y + dx, p.z}}};
}
