#pragma once

#include "drawing/drawing.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class IDBProject;

// What the column of a point shows, copied out of the project: depths in metres, marks in metres, texts as
// they are printed.

struct ColumnLayer {
    std::int64_t id = 0; // number of the layer from above, from 1
    double top = 0;
    double bottom = 0;
    std::wstring bottomText;
    std::wstring thickness;
    std::wstring mark; // of the bottom; empty without a mark of the mouth
    std::wstring index; // geological, with marks
    std::wstring description;
    std::wstring element;
    std::uint32_t hatch = 0;
    std::optional<Color> color = {}; // chosen for the element
};

struct ColumnWater {
    double depth = 0;
    std::wstring depthText;
    std::wstring mark;
    std::wstring date;
    bool hasAppeared = false;
    bool hasSettled = false;
};

struct ColumnSample {
    enum Kind : std::uint8_t {
        Disturbed,
        Undisturbed,
        Bulk,
    };
    double depth = 0;
    std::wstring depthText;
    Kind kind = Disturbed;
    std::wstring number; // of the laboratory, or its code; empty: not in the laboratory
};

struct ColumnConsistency {
    double top = 0;
    double bottom = 0;
    std::int32_t kind = 0; // number in consistencyNames
};

struct ColumnSounding {
    struct Row {
        double depth = 0;
        std::optional<double> tip; // qc, MPa
        std::optional<double> sleeve; // fs, kPa
    };
    std::wstring point;
    double distance = 0; // m from the column's point; 0: its own
    std::vector<Row> rows; // from above
};

struct ColumnData {
    std::wstring point;
    std::wstring kind; // "Скважина"
    std::wstring mouthMark;
    std::wstring x;
    std::wstring y;
    std::wstring date;
    double depth = 0; // of the lowest layer
    std::wstring depthText;
    std::vector<ColumnLayer> layers;
    std::vector<ColumnWater> waters;
    std::vector<ColumnSample> samples;
    std::vector<ColumnConsistency> consistency;
    ColumnSounding sounding;
    // Layers that have no thickness, so no place in a strip to scale: number, depth, description.
    std::vector<std::wstring> leftOut = {};
};

// Everything that the project has for the point; the sounding is the named one, or its own, or else the
// nearest by the coordinates.
ColumnData columnData(IDBProject& project, std::wstring_view point, std::wstring_view sounding = {});
// Points that have a column: those with layers and the boreholes and pits without, in the register's order.
std::vector<std::wstring> columnPoints(IDBProject& project);

// The hatch and the colour of an element; 0 and nothing where it leaves them to the description.
std::uint32_t hatchOfElement(IDBProject& project, std::wstring_view element);
std::optional<Color> colorOfElement(IDBProject& project, std::wstring_view element);

// The site's elements as one column: index, name and number of each, its least and greatest thickness, the
// strip by the mean one. In the order of the register, or from above by the mean depth of their tops. Layers
// without an element do not take part.
ColumnData elementsColumn(IDBProject& project, bool isByDepth);
