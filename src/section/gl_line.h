#pragma once

#include "section/records/gl_object.h"

#include <cstdint>

// The stored fields of a line, in file order.
struct GLLineData {
    std::uint8_t style = 0;
    Vec3 from;
    Vec3 to;
    Vec3 color;
    float width = 0;
};

class GLLineDB : public GLObjectDB
{
public:
    GLLineDB(const GLLineData& data, const Uuid& id, const std::wstring& name, const Uuid& linkId);

    const Vec3& getColor() const override { return data_.color; }
    void setColor(const Vec3& color) override { data_.color = color; }

    const GLLineData& data() const { return data_; }
    std::uint8_t style() const { return data_.style; }
    const Vec3& from() const { return data_.from; }
    const Vec3& to() const { return data_.to; }
    float width() const { return data_.width; }
    // Whether the ends stand one above the other, to 1e-5, and are not the same.
    bool vertical() const { return vertical_; }

private:
    GLLineData data_;
    bool vertical_;
};
