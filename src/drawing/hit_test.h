#pragma once

#include "drawing/drawing.h"

#include <optional>

// Finding what a person points at.

struct Extent {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    bool operator==(const Extent&) const = default;
};

// What the item covers, mm; texts by the widths of the shipped fonts. Nothing where it has no place.
std::optional<Extent> extentOf(const Item& item);
// What the items of that id cover together.
std::optional<Extent> extentOf(const Drawing& drawing, std::int64_t id);
// The id of the uppermost item at the place that has one; lines and small things are found within the reach
// (mm). 0: nothing there.
std::int64_t idAt(const Drawing& drawing, const Spot& place, double reach);
