#pragma once

#include "section/records/gl_object.h"

#include <vector>

// The stored fields of an ellipse, in file order.
struct GLEllipseData {
    Vec3 center;
    Vec3 color;
    float radiusX = 0;
    float radiusY = 0;
};

class GLEllipseDB : public GLObjectDB
{
public:
    // Beyond it, or where a radius is no finite number, there is no outline: in single precision whole steps
    // stop moving such a point, and a record of forty bytes would ask for gigabytes.
    static constexpr float largestOutlineRadius = 100000.0F;

    GLEllipseDB(const GLEllipseData& data, const Uuid& id, const std::wstring& name, const Uuid& linkId)
        : GLObjectDB(id, name, linkId)
        , data_(data)
    {
    }

    const Vec3& getColor() const override { return data_.color; }
    void setColor(const Vec3& color) override { data_.color = color; }

    const GLEllipseData& data() const { return data_; }
    const Vec3& center() const { return data_.center; }
    float radiusX() const { return data_.radiusX; }
    float radiusY() const { return data_.radiusY; }
    // The ellipse in steps of one drawing unit, four mirrored points a step, z 0. Made at the first call.
    const std::vector<Vec3>& outline() const;

private:
    GLEllipseData data_;
    mutable std::vector<Vec3> outline_;
    mutable bool outlineMade_ = false;
};
