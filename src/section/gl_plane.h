#pragma once

#include "section/plane.h"
#include "section/records/gl_object.h"

// The stored fields of a plane: its corners.
struct GLPlaneData {
    Vec3 pointA;
    Vec3 pointB;
    Vec3 pointC;
};

// A triangle of the terrain. The plane and the bounds follow from the corners; the colour is not stored.
class GLPlaneDB : public GLObjectDB, public MaxMinController, public glh::ns_float::plane
{
public:
    GLPlaneDB(const GLPlaneData& data, const Uuid& id, const std::wstring& name, const Uuid& linkId);

    const Vec3& getColor() const override { return color_; }
    void setColor(const Vec3& color) override { color_ = color; }

    const GLPlaneData& data() const { return data_; }
    const Vec3& pointA() const { return data_.pointA; }
    const Vec3& pointB() const { return data_.pointB; }
    const Vec3& pointC() const { return data_.pointC; }

private:
    GLPlaneData data_;
    Vec3 color_;
};
