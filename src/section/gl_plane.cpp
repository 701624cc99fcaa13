#include "section/gl_plane.h"

#include "section/geometry.h"

#include <algorithm>
#include <cmath>

static Vec3 difference(const Vec3& a, const Vec3& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

static float dot(const Vec3& a, const Vec3& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

static Vec3 normalOf(const GLPlaneData& corners)
{
    const Vec3 u = difference(corners.pointB, corners.pointA);
    const Vec3 v = difference(corners.pointC, corners.pointA);
    const Vec3 normal{u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
    const float length = std::sqrt(dot(normal, normal));
    // Corners in a line have no direction: their near-zero normal stays as it is.
    return length > drawingTolerance ? Vec3{normal.x / length, normal.y / length, normal.z / length} : normal;
}

GLPlaneDB::GLPlaneDB(const GLPlaneData& data, const Uuid& id, const std::wstring& name, const Uuid& linkId)
    : GLObjectDB(id, name, linkId)
    , data_(data)
{
    normal = normalOf(data);
    distance = dot(normal, data.pointA);
    minX = std::min({data.pointA.x, data.pointB.x, data.pointC.x});
    maxX = std::max({data.pointA.x, data.pointB.x, data.pointC.x});
    minY = std::min({data.pointA.y, data.pointB.y, data.pointC.y});
    maxY = std::max({data.pointA.y, data.pointB.y, data.pointC.y});
}
