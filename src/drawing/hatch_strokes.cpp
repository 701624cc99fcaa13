#include "drawing/hatch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace
{

using Ring = std::vector<Spot>;

struct Bounds {
    double left = std::numeric_limits<double>::max();
    double top = std::numeric_limits<double>::max();
    double right = std::numeric_limits<double>::lowest();
    double bottom = std::numeric_limits<double>::lowest();

    void take(const Spot& spot)
    {
        left = std::min(left, spot.x);
        top = std::min(top, spot.y);
        right = std::max(right, spot.x);
        bottom = std::max(bottom, spot.y);
    }
    bool meets(const Bounds& other) const
    {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }
};

Bounds boundsOf(const Ring& ring)
{
    Bounds bounds;
    for (const Spot& spot : ring)
        bounds.take(spot);
    return bounds;
}

bool areFinite(const std::vector<Ring>& rings)
{
    return std::all_of(rings.begin(), rings.end(), [](const Ring& ring) {
        return std::all_of(ring.begin(), ring.end(), [](const Spot& spot) {
            return std::isfinite(spot.x) && std::isfinite(spot.y);
        });
    });
}

Spot between(const Spot& from, const Spot& to, double share)
{
    return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

// The sides of all rings; even-odd.
class Clip
{
public:
    explicit Clip(const std::vector<Ring>& rings)
    {
        for (const Ring& ring : rings)
            for (std::size_t corner = 0; corner < ring.size(); ++corner) {
                bounds_.take(ring[corner]);
                sides_.push_back({ring[corner], ring[(corner + 1) % ring.size()]});
            }
    }

    const Bounds& bounds() const { return bounds_; }

    bool holds(const Spot& spot) const
    {
        bool isInside = false;
        for (const HatchStrokes::Segment& side : sides_) {
            if ((side.from.y > spot.y) == (side.to.y > spot.y))
                continue;
            const double share = (spot.y - side.from.y) / (side.to.y - side.from.y);
            if (spot.x < side.from.x + share * (side.to.x - side.from.x))
                isInside = !isInside;
        }
        return isInside;
    }

    bool holds(const Ring& ring) const
    {
        return std::all_of(ring.begin(), ring.end(), [this](const Spot& spot) { return holds(spot); });
    }

    void cut(const Spot& from, const Spot& to, std::vector<HatchStrokes::Segment>& out)
    {
        shares_.assign({0.0, 1.0});
        for (const HatchStrokes::Segment& side : sides_)
            if (const double share = crossing(from, to, side); share > 0 && share < 1)
                shares_.push_back(share);
        std::sort(shares_.begin(), shares_.end());
        for (std::size_t part = 0; part + 1 < shares_.size(); ++part) {
            const double begin = shares_[part];
            const double end = shares_[part + 1];
            if (end - begin > 1e-9 && holds(between(from, to, (begin + end) / 2)))
                out.push_back({between(from, to, begin), between(from, to, end)});
        }
    }

private:
    // Where on the stroke the side crosses it; below 0 where it does not.
    static double crossing(const Spot& from, const Spot& to, const HatchStrokes::Segment& side)
    {
        const double x = to.x - from.x;
        const double y = to.y - from.y;
        const double sideX = side.to.x - side.from.x;
        const double sideY = side.to.y - side.from.y;
        const double cross = x * sideY - y * sideX;
        if (cross == 0)
            return -1;
        const double alongSide = ((side.from.x - from.x) * y - (side.from.y - from.y) * x) / cross;
        if (alongSide < 0 || alongSide > 1)
            return -1;
        return ((side.from.x - from.x) * sideY - (side.from.y - from.y) * sideX) / cross;
    }

    std::vector<HatchStrokes::Segment> sides_;
    Bounds bounds_;
    std::vector<double> shares_;
};

Ring ovalRing(const std::vector<double>& numbers, double width, double height, double degrees, int corners)
{
    const double turn = degrees * std::numbers::pi / 180;
    Ring ring;
    for (int corner = 0; corner < corners; ++corner) {
        const double angle = 2 * std::numbers::pi * corner / corners;
        const double x = width / 2 * std::cos(angle);
        const double y = height / 2 * std::sin(angle);
        ring.push_back({numbers[0] + x * std::cos(turn) - y * std::sin(turn),
            numbers[1] + x * std::sin(turn) + y * std::cos(turn)});
    }
    return ring;
}

// A stroke of the tile as points, in units of the tile.
struct Outline {
    Ring points;
    bool isClosed = false;
    bool isFilled = false;
    Bounds bounds;
};

Outline outlineOf(const HatchTile::Shape& shape)
{
    constexpr int dotCorners = 8;
    constexpr int ovalCorners = 20;
    const std::vector<double>& numbers = shape.numbers;
    Outline outline;
    if (shape.stroke == HatchTile::Stroke::Dot)
        outline = {ovalRing(numbers, numbers[2], numbers[2], 0, dotCorners), true, true, {}};
    else if (shape.stroke == HatchTile::Stroke::Oval)
        outline = {ovalRing(numbers, numbers[2], numbers[3], numbers[4], ovalCorners), true, false, {}};
    else {
        for (std::size_t number = 0; number + 1 < numbers.size(); number += 2)
            outline.points.push_back({numbers[number], numbers[number + 1]});
        outline.isFilled = shape.stroke == HatchTile::Stroke::Fill;
        outline.isClosed = outline.isFilled;
    }
    outline.bounds = boundsOf(outline.points);
    return outline;
}

void strokeTile(const Outline& outline, const Spot& corner, double unit, Clip& clip, HatchStrokes& strokes)
{
    Ring ring = outline.points;
    for (Spot& spot : ring)
        spot = {corner.x + spot.x * unit, corner.y + spot.y * unit};
    if (outline.isFilled) {
        if (clip.holds(ring))
            strokes.fills.push_back(std::move(ring));
        return;
    }
    for (std::size_t point = 0; point + 1 < ring.size(); ++point)
        clip.cut(ring[point], ring[point + 1], strokes.lines);
    if (outline.isClosed)
        clip.cut(ring.back(), ring.front(), strokes.lines);
}

} // namespace

HatchStrokes hatchStrokes(const Area& area, const Hatches& hatches)
{
    // A sheet of a metre filled with the densest tile stays below this; more is a mistake in the scale.
    constexpr double mostTiles = 4'000'000;
    HatchStrokes strokes;
    const auto found = hatches.find(area.hatch);
    Clip clip(area.rings);
    const Bounds& bounds = clip.bounds();
    if (found == hatches.end() || area.rings.empty() || !areFinite(area.rings) || !(area.hatchUnit > 0))
        return strokes;
    const double width = found->second.width * area.hatchUnit;
    const double height = found->second.height * area.hatchUnit;
    if (!((bounds.right - bounds.left) / width * ((bounds.bottom - bounds.top) / height) < mostTiles))
        return strokes;
    for (const HatchTile::Shape& shape : found->second.shapes) {
        const Outline outline = outlineOf(shape);
        const Bounds& reach = outline.bounds;
        const double unit = area.hatchUnit;
        // The tiles whose copy of the stroke may reach into the area.
        const double firstRow = std::floor((bounds.top - area.origin.y - reach.bottom * unit) / height);
        const double lastRow = std::ceil((bounds.bottom - area.origin.y - reach.top * unit) / height);
        const double firstColumn = std::floor((bounds.left - area.origin.x - reach.right * unit) / width);
        const double lastColumn = std::ceil((bounds.right - area.origin.x - reach.left * unit) / width);
        const auto rows = static_cast<std::int64_t>(lastRow - firstRow);
        const auto columns = static_cast<std::int64_t>(lastColumn - firstColumn);
        for (std::int64_t row = 0; row <= rows; ++row)
            for (std::int64_t column = 0; column <= columns; ++column) {
                const Spot corner{area.origin.x + (firstColumn + static_cast<double>(column)) * width,
                    area.origin.y + (firstRow + static_cast<double>(row)) * height};
                const Bounds copy{corner.x + reach.left * unit,
                    corner.y + reach.top * unit,
                    corner.x + reach.right * unit,
                    corner.y + reach.bottom * unit};
                if (copy.meets(bounds))
                    strokeTile(outline, corner, unit, clip, strokes);
            }
    }
    return strokes;
}
