#pragma once

#include "section/records/gl_object.h"

#include <cstdint>
#include <utility>
#include <vector>

// The stored fields of a spline, in file order.
struct GLSplineData {
    Vec3 color;
    std::vector<float> valuesX;
    std::vector<float> valuesY;
    std::vector<float> valuesZ;
    std::uint8_t style = 0;
    float width = 0;
};

class GLSplineDB : public GLObjectDB
{
public:
    GLSplineDB(GLSplineData data, const Uuid& id, const std::wstring& name, const Uuid& linkId)
        : GLObjectDB(id, name, linkId)
        , data_(std::move(data))
    {
    }

    const Vec3& getColor() const override { return data_.color; }
    void setColor(const Vec3& color) override { data_.color = color; }

    const GLSplineData& data() const { return data_; }
    const std::vector<float>& valuesX() const { return data_.valuesX; }
    const std::vector<float>& valuesY() const { return data_.valuesY; }
    const std::vector<float>& valuesZ() const { return data_.valuesZ; }
    std::uint8_t style() const { return data_.style; }
    float width() const { return data_.width; }

private:
    GLSplineData data_;
};
