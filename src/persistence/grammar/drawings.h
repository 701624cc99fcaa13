#pragma once

#include "core/base/reference.h"
#include "db/records/section_records.h"
#include "persistence/format.h"
#include "persistence/grammar/grammar.h"
#include "section/gl_arc.h"
#include "section/gl_block.h"
#include "section/gl_circle.h"
#include "section/gl_ellipse.h"
#include "section/gl_line.h"
#include "section/gl_plane.h"
#include "section/gl_polygon.h"
#include "section/gl_polyline.h"
#include "section/gl_spline.h"
#include "section/gl_text.h"

// The drawing objects. The place of the colour among the fields differs from class to class: that is the
// format.

template <class Archive, Of<Vec3> Vector>
void fields(Archive& archive, Vector& vector)
{
    archive.word("x", vector.x);
    archive.word("y", vector.y);
    archive.word("z", vector.z);
}

template <class Archive, Of<GLLineData> Data>
void fields(Archive& archive, Data& line)
{
    archive.byte("style", line.style);
    archive.record("from", line.from);
    archive.record("to", line.to);
    archive.record("color", line.color);
    archive.word("width", line.width);
}

template <class Archive, Of<GLTextData> Data>
void fields(Archive& archive, Data& text)
{
    archive.record("position", text.position);
    archive.record("color", text.color);
    archive.word("height", text.height);
    archive.text("text", text.text);
    archive.word("angle", text.angle);
}

template <class Archive, Of<GLPolygonData> Data>
void fields(Archive& archive, Data& polygon)
{
    archive.record("color", polygon.color);
    archive.list("points", polygon.points);
    archive.word("valueA", polygon.valueA);
    archive.word("valueB", polygon.valueB);
}

template <class Archive, Of<GLPolyLineData> Data>
void fields(Archive& archive, Data& polyline)
{
    archive.record("color", polyline.color);
    archive.list("points", polyline.points);
    archive.byte("style", polyline.style);
    archive.flag("closed", polyline.closed);
    archive.word("width", polyline.width);
}

template <class Archive, Of<GLCircleData> Data>
void fields(Archive& archive, Data& circle)
{
    archive.record("center", circle.center);
    archive.record("color", circle.color);
    archive.list("points", circle.points);
    archive.word("radius", circle.radius);
    archive.byte("style", circle.style);
}

template <class Archive, Of<GLSplineData> Data>
void fields(Archive& archive, Data& spline)
{
    archive.record("color", spline.color);
    archive.list("valuesX", spline.valuesX);
    archive.list("valuesY", spline.valuesY);
    archive.list("valuesZ", spline.valuesZ);
    archive.byte("style", spline.style);
    archive.word("width", spline.width);
}

template <class Archive, Of<GLEllipseData> Data>
void fields(Archive& archive, Data& ellipse)
{
    archive.record("center", ellipse.center);
    archive.record("color", ellipse.color);
    archive.word("radiusX", ellipse.radiusX);
    archive.word("radiusY", ellipse.radiusY);
}

template <class Archive, Of<GLArcData> Data>
void fields(Archive& archive, Data& arc)
{
    archive.record("center", arc.center);
    archive.record("color", arc.color);
    archive.word("arcA", arc.arcA);
    archive.word("arcB", arc.arcB);
    archive.word("arcC", arc.arcC);
}

// The objects of a block stand behind its name; the block alone stores one.
template <class Archive, Of<GLBlockData> Data>
void fields(Archive& archive, Data& block)
{
    const auto level = archive.enter();
    archive.objects("objects", block.objects);
}

// A plane stands in a list of its own, without a type code.
template <class Archive, Of<GLPlaneData> Data>
void fields(Archive& archive, Data& plane)
{
    archive.record("pointA", plane.pointA);
    archive.record("pointB", plane.pointB);
    archive.record("pointC", plane.pointC);
}

// One row a class that an object list can hold: its type code and its name, which is also the name of an
// object read from a file. The writer tells the class of an object by trying the rows from first to last.
template <class Class, class Data>
struct DrawingClass {
    using Object = Class;
    using Fields = Data;
    format::DrawingCode code;
    std::string_view name;
};

template <class Visitor>
constexpr bool anyDrawingClass(Visitor&& visit)
{
    using format::DrawingCode;
    return visit(DrawingClass<GLLineDB, GLLineData>{DrawingCode::line, "GLLineDB"})
        || visit(DrawingClass<GLBlockDB, GLBlockData>{DrawingCode::block, "GLBlockDB"})
        || visit(DrawingClass<GLTextDB, GLTextData>{DrawingCode::text, "GLTextDB"})
        || visit(DrawingClass<GLPolygonDB, GLPolygonData>{DrawingCode::polygon, "GLPolygonDB"})
        || visit(DrawingClass<GLPolyLineDB, GLPolyLineData>{DrawingCode::polyline, "GLPolyLineDB"})
        || visit(DrawingClass<GLCircleDB, GLCircleData>{DrawingCode::circle, "GLCircleDB"})
        || visit(DrawingClass<GLSplineDB, GLSplineData>{DrawingCode::spline, "GLSplineDB"})
        || visit(DrawingClass<GLEllipseDB, GLEllipseData>{DrawingCode::ellipse, "GLEllipseDB"})
        || visit(DrawingClass<GLArcDB, GLArcData>{DrawingCode::arc, "GLArcDB"});
}

// What every object has in front of the fields of its class. Only a block stores its name, the others are
// named after their class when they are read.
struct ObjectHead {
    Uuid id;
    Uuid linkId;
    std::wstring name;
};

template <class Archive, class Head>
void objectHead(Archive& archive, Head& head, bool isBlock)
{
    archive.guid("id", head.id);
    archive.guid("linkId", head.linkId);
    if (isBlock)
        archive.text("name", head.name);
}

// Calls visit(row of the class, object) for an object of a listed class; false for any other, null included.
template <class Visitor>
bool visitDrawing(GLObjectDB* object, Visitor&& visit)
{
    return anyDrawingClass([&](auto row) {
        auto* drawing = dynamic_cast<typename decltype(row)::Object*>(object);
        if (drawing)
            visit(row, *drawing);
        return drawing != nullptr;
    });
}

// The fields of an object that is there, for every archive that does not read.
template <class Archive, class Row, class Object>
void existingObject(Archive& archive, const Row&, Object& object)
{
    constexpr bool isBlock = std::same_as<Object, GLBlockDB>;
    const ObjectHead head{object.getId(), object.getLinkId(), isBlock ? object.getName() : std::wstring()};
    objectHead(archive, head, isBlock);
    fields(archive, object.data());
}

// A new object from an archive that reads. The data is filled inside a holder, since any read can fail.
template <class Archive, class Row>
auto readObject(Archive& archive, const Row& row)
{
    using Object = typename Row::Object;
    constexpr bool isBlock = std::same_as<Object, GLBlockDB>;
    ObjectHead head;
    head.name.assign(row.name.begin(), row.name.end());
    objectHead(archive, head, isBlock);
    typename Row::Fields data;
    fields(archive, data);
    return makeReference<Object>(std::move(data), head.id, head.name, head.linkId);
}

// A plane has an identifier and its three corners; its link is none and its name that of its class.
template <class Archive>
void existingPlane(Archive& archive, GLPlaneDB& plane)
{
    archive.guid("id", plane.getId());
    fields(archive, plane.data());
}

template <class Archive>
Reference<GLPlaneDB> readPlane(Archive& archive)
{
    Uuid id;
    archive.guid("id", id);
    GLPlaneData data;
    fields(archive, data);
    return makeReference<GLPlaneDB>(data, id, L"GLPlaneDB", Uuid());
}
