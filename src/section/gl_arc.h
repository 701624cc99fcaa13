#pragma once

#include "section/records/gl_object.h"

// The stored fields of an arc, in file order.
struct GLArcData {
    Vec3 center;
    Vec3 color;
    float arcA = 0;
    float arcB = 0;
    float arcC = 0;
};

class GLArcDB : public GLObjectDB
{
public:
    GLArcDB(const GLArcData& data, const Uuid& id, const std::wstring& name, const Uuid& linkId)
        : GLObjectDB(id, name, linkId)
        , data_(data)
    {
    }

    const Vec3& getColor() const override { return data_.color; }
    void setColor(const Vec3& color) override { data_.color = color; }

    const GLArcData& data() const { return data_; }
    const Vec3& center() const { return data_.center; }
    float arcA() const { return data_.arcA; }
    float arcB() const { return data_.arcB; }
    float arcC() const { return data_.arcC; }

private:
    GLArcData data_;
};
