#include "section/gl_polyline.h"

#include "section/geometry.h"

#include <utility>

GLPolyLineDB::GLPolyLineDB(GLPolyLineData data, const Uuid& id, const std::wstring& name, const Uuid& linkId)
    : GLObjectDB(id, name, linkId)
    , data_(std::move(data))
{
    const std::vector<Vec3>& given = data_.points;
    if (data_.closed) {
        closedPoints_ = given;
        if (!given.empty())
            closedPoints_.push_back(given.front());
    }
    if (given.size() > 2)
        for (std::size_t i = 1; i < given.size(); ++i)
            if (given[i] != given[i - 1])
                quads_.push_back(segmentQuad(given[i - 1], given[i]));
    if (points().size() == 2)
        vertical_ = isVertical(points()[0], points()[1]);
}
