#pragma once

#include "section/records/gl_object.h"

#include <utility>
#include <vector>

// The stored fields of a polygon, in file order.
struct GLPolygonData {
    Vec3 color;
    std::vector<Vec3> points;
    float valueA = 0;
    float valueB = 0;
};

class GLPolygonDB : public GLObjectDB
{
public:
    GLPolygonDB(GLPolygonData data, const Uuid& id, const std::wstring& name, const Uuid& linkId)
        : GLObjectDB(id, name, linkId)
        , data_(std::move(data))
    {
    }

    const Vec3& getColor() const override { return data_.color; }
    void setColor(const Vec3& color) override { data_.color = color; }

    const GLPolygonData& data() const { return data_; }
    const std::vector<Vec3>& points() const { return data_.points; }
    float valueA() const { return data_.valueA; }
    void setValueA(float value) { data_.valueA = value; }
    float valueB() const { return data_.valueB; }

private:
    GLPolygonData data_;
};
