#pragma once

#include "drawing/hatch.h"

#include <vector>

// A straight stroke of a tiled pattern over all tiles that it runs through: an area then takes one line from
// edge to edge instead of a piece from each tile.
struct HatchCourse {
    Spot from; // units of the tile
    Spot to; // of an endless one: where it has come to when it repeats
    // Whole tiles that an endless course crosses before it repeats, without a common divisor; both 0: it
    // ends.
    int columns = 0;
    int rows = 0;

    bool isEndless() const { return columns != 0 || rows != 0; }
};

// The straight strokes of the tile, joined where one goes on in the direction of another, in the same tile or
// the next.
std::vector<HatchCourse> hatchCourses(const HatchTile& tile);
