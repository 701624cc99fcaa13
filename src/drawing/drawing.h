#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

// A picture of the trade on paper: everything in millimetres, x to the right, y down from the upper left
// corner of the sheet. Scale, pen widths, hatch density and text heights are chosen where a drawing is made;
// outputs (screen, PDF, PNG, printer, SVG, DXF) only carry it over, so that all show the same.

struct Spot {
    double x = 0;
    double y = 0;

    bool operator==(const Spot&) const = default;
};

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Color&) const = default;
};

enum class Dash : std::uint8_t {
    Solid,
    Dashed, // assumed
    Dotted,
    DashDotted, // level of water
};

struct Pen {
    double width = 0.25; // mm
    Color color = {};
    Dash dash = Dash::Solid;

    bool operator==(const Pen&) const = default;
};

// Straight from point to point; closed: back to the first.
struct Line {
    std::vector<Spot> points;
    Pen pen = {};
    bool closed = false;
};

// A ground and a hatch inside rings, without an outline of its own; rings inside others are holes (even-odd).
struct Area {
    std::vector<std::vector<Spot>> rings;
    Color ground = {255, 255, 255};
    bool hasGround = false;
    std::uint32_t hatch = 0; // number in the hatch library; 0: none
    Spot origin = {}; // the tiles are counted from here, so that neighbouring areas go together
    double hatchUnit =
        0.25; // mm of paper that a unit of the tile is: hundredths of the settings scaleHatching*
    Color hatchColor = {}; // of the strokes
};

struct Circle {
    Spot centre = {};
    double radius = 1; // mm
    Pen pen = {};
    bool isFilled = false; // with the colour of the pen
};

enum class Align : std::uint8_t {
    Left,
    Centre,
    Right,
};

enum class Font : std::uint8_t {
    Plain,
    Bold,
    Italic,
    Narrow,
};

// One line of text; what is longer is broken where the drawing is made (drawing/text_layout.h).
struct Text {
    std::wstring text;
    Spot at = {}; // on the base line
    double height = 2.5; // mm, of a capital letter
    Align align = Align::Left;
    double angle = 0; // degrees, counter-clockwise
    Font font = Font::Plain;
    Color color = {};
};

// Which part of a drawing an item belongs to: its layer in DXF and SVG.
enum class Layer : std::uint8_t {
    Frame,
    Stamp,
    Table, // rules and heads of the columns
    Ground,
    Hatch,
    Boundary,
    Text,
    Element,
    Water,
    Sample,
    Graph,
    Grid,
};

struct Item {
    Layer layer = Layer::Frame;
    std::int64_t id = 0; // what a click finds; 0: nothing
    std::variant<Line, Area, Circle, Text> shape;
    // Neighbouring items of one sign at one place belong together: a block in DXF. All instances of a sign
    // look alike, counted from their places.
    std::string sign = {};
    Spot signAt = {};
};

struct Drawing {
    double width = 210; // mm
    double height = 297; // mm
    std::wstring title = {}; // of the file that holds it
    std::wstring shows = {}; // the borehole, by which the sheet's own file is named; empty: it is numbered
    std::vector<Item> items = {};
    // Names of layers in files where they are not the usual ones, as the project's layer fields.
    std::map<Layer, std::wstring> layerNames = {};
};
