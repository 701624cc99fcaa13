#pragma once

#include "drawing/drawing.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

// A fill pattern of the hatch library: a tile that repeats in both directions, drawn from strokes. Its unit
// is a point on the screen; on paper Area::hatchUnit says what it is. data/README.md tells the bytes.
struct HatchTile {
    enum class Stroke : std::uint8_t {
        Line,
        Fill,
        Dot,
        Oval,
    };
    struct Shape {
        Stroke stroke = Stroke::Line;
        std::vector<double> numbers;
    };

    std::wstring name;
    int width = 0;
    int height = 0;
    std::vector<Shape> shapes;
};

// Nothing where the bytes are of another form.
std::optional<HatchTile> readHatchTile(const std::vector<std::uint8_t>& bytes);

// The tiles of the library by number; patterns of another form are left out.
using Hatches = std::map<std::uint32_t, HatchTile>;
Hatches readHatches(const std::map<std::uint32_t, std::vector<std::uint8_t>>& patterns);

// A stroke of a tile from corner to corner, in units of the tile; dots and ovals have that many of
// them all round.
struct HatchOutline {
    std::vector<Spot> corners;
    bool isClosed = false;
    bool isFilled = false;
};
HatchOutline hatchOutline(const HatchTile::Shape& shape, int roundCorners);

// What a hatch leaves on the paper inside an area, in millimetres: strokes cut at the rings.
struct HatchStrokes {
    struct Segment {
        Spot from;
        Spot to;
    };
    struct Dots {
        double radius = 0;
        std::vector<Spot> centres;
    };
    std::vector<Segment> lines;
    std::vector<Dots> dots; // filled, one entry a radius
    std::vector<std::vector<Spot>> fills; // small filled outlines
};

// Lines and outlines are cut at the rings, straight strokes that meet from tile to tile are one line; dots
// and filled shapes are kept whole where they lie inside altogether and left out where they do not. Nothing
// where the number is not in the library, or the area is without extent.
HatchStrokes hatchStrokes(const Area& area, const Hatches& hatches);

// A dot as corners, for outputs that know no circle.
std::vector<Spot> dotOutline(const Spot& centre, double radius);
