#pragma once

#include "section/records/gl_object.h"

#include <cstdint>
#include <utility>
#include <vector>

// The stored fields of a circle, in file order.
struct GLCircleData {
    Vec3 center;
    Vec3 color;
    std::vector<Vec3> points;
    float radius = 0;
    std::uint8_t style = 0;
};

class GLCircleDB : public GLObjectDB
{
public:
    GLCircleDB(GLCircleData data, const Uuid& id, const std::wstring& name, const Uuid& linkId)
        : GLObjectDB(id, name, linkId)
        , data_(std::move(data))
    {
    }

    const Vec3& getColor() const override { return data_.color; }
    void setColor(const Vec3& color) override { data_.color = color; }

    const GLCircleData& data() const { return data_; }
    const Vec3& center() const { return data_.center; }
    const std::vector<Vec3>& points() const { return data_.points; }
    float radius() const { return data_.radius; }
    std::uint8_t style() const { return data_.style; }

private:
    GLCircleData data_;
};
