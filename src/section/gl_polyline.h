#pragma once

#include "section/records/gl_object.h"

#include <array>
#include <cstdint>
#include <vector>

// The stored fields of a polyline, in file order.
struct GLPolyLineData {
    Vec3 color;
    std::vector<Vec3> points;
    std::uint8_t style = 0;
    bool closed = false;
    float width = 0;
};

// What is computed beside the fields is computed once, from the points given to the constructor.
class GLPolyLineDB : public GLObjectDB
{
public:
    using Quad = std::array<Vec3, 4>;

    GLPolyLineDB(GLPolyLineData data, const Uuid& id, const std::wstring& name, const Uuid& linkId);

    const Vec3& getColor() const override { return data_.color; }
    void setColor(const Vec3& color) override { data_.color = color; }

    // As given and as stored: a closed line's first point is not repeated here.
    const GLPolyLineData& data() const { return data_; }
    // With the first point again at the end of a closed line.
    const std::vector<Vec3>& points() const { return data_.closed ? closedPoints_ : data_.points; }
    std::uint8_t style() const { return data_.style; }
    bool closed() const { return data_.closed; }
    float width() const { return data_.width; }
    // One band a segment of the given points, none for a repeated point and none for a line of two points.
    const std::vector<Quad>& quads() const { return quads_; }
    // Of a line of two points that stand one above the other.
    bool vertical() const { return vertical_; }

private:
    GLPolyLineData data_;
    std::vector<Vec3> closedPoints_;
    std::vector<Quad> quads_;
    bool vertical_ = false;
};
