#include "drawing/area_clip.h"
#include "drawing/hatch.h"
#include "drawing/hatch_courses.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{

using Ring = std::vector<Spot>;

bool areFinite(const std::vector<Ring>& rings)
{
    return std::all_of(rings.begin(), rings.end(), [](const Ring& ring) {
        return std::all_of(ring.begin(), ring.end(), [](const Spot& spot) {
            return std::isfinite(spot.x) && std::isfinite(spot.y);
        });
    });
}

// A sheet of a metre filled with the densest tile stays below this; more is a mistake in the scale.
constexpr double mostTiles = 4'000'000;

class Hatcher
{
public:
    Hatcher(const Area& area, const HatchTile& tile)
        : area_(area)
        , tile_(tile)
        , unit_(area.hatchUnit)
        , clip_(area.rings)
    {
    }

    HatchStrokes strokes()
    {
        const Bounds& bounds = clip_.bounds();
        const double columns = (bounds.right - bounds.left) / (tile_.width * unit_);
        const double rows = (bounds.bottom - bounds.top) / (tile_.height * unit_);
        if (!(columns < mostTiles && rows < mostTiles && columns * rows < mostTiles))
            return {};
        for (const HatchCourse& course : hatchCourses(tile_))
            drawCourse(course);
        for (const HatchTile::Shape& shape : tile_.shapes)
            drawShape(shape);
        return std::move(strokes_);
    }

private:
    Spot onPaper(const Spot& spot, const Spot& corner) const
    {
        return {corner.x + spot.x * unit_, corner.y + spot.y * unit_};
    }

    // Calls with the corner of each tile whose copy of something with that reach, in units, may meet the
    // area.
    template <class Act>
    void overTiles(const Bounds& reach, Act act) const
    {
        const Bounds& bounds = clip_.bounds();
        const double width = tile_.width * unit_;
        const double height = tile_.height * unit_;
        const double firstRow = std::floor((bounds.top - area_.origin.y - reach.bottom * unit_) / height);
        const double lastRow = std::ceil((bounds.bottom - area_.origin.y - reach.top * unit_) / height);
        const double firstColumn = std::floor((bounds.left - area_.origin.x - reach.right * unit_) / width);
        const double lastColumn = std::ceil((bounds.right - area_.origin.x - reach.left * unit_) / width);
        const auto rows = static_cast<std::int64_t>(lastRow - firstRow);
        const auto columns = static_cast<std::int64_t>(lastColumn - firstColumn);
        for (std::int64_t row = 0; row <= rows; ++row)
            for (std::int64_t column = 0; column <= columns; ++column) {
                const Spot corner{area_.origin.x + (firstColumn + static_cast<double>(column)) * width,
                    area_.origin.y + (firstRow + static_cast<double>(row)) * height};
                const Spot least = onPaper({reach.left, reach.top}, corner);
                const Spot most = onPaper({reach.right, reach.bottom}, corner);
                if (bounds.meets({least.x, least.y, most.x, most.y}))
                    act(corner);
            }
    }

    void drawCourse(const HatchCourse& course)
    {
        if (course.isEndless())
            return drawEndless(course);
        overTiles(boundsOf({course.from, course.to}), [&](const Spot& corner) {
            clip_.cut(onPaper(course.from, corner), onPaper(course.to, corner), strokes_.lines);
        });
    }

    // Each line of an endless course lies one step beside the other.
    void drawEndless(const HatchCourse& course)
    {
        const int divisor = std::gcd(course.columns, course.rows);
        const int columns = course.columns / divisor;
        const int rows = course.rows / divisor;
        const Spot way{columns * tile_.width * unit_, rows * tile_.height * unit_};
        const Spot step = stepBeside(columns, rows);
        const Spot start = onPaper(course.from, area_.origin);
        const double square = way.x * way.x + way.y * way.y;
        const double stepAcross = step.x * way.y - step.y * way.x;
        const double stepAlong = (step.x * way.x + step.y * way.y) / square;
        // How far the corners of the area lie beside the first line, in steps, and along it, in ways.
        double leastAcross = 0;
        double mostAcross = 0;
        double leastAlong = 0;
        double mostAlong = 0;
        bool isFirst = true;
        const Bounds& bounds = clip_.bounds();
        for (const double x : {bounds.left - start.x, bounds.right - start.x})
            for (const double y : {bounds.top - start.y, bounds.bottom - start.y}) {
                const double across = (x * way.y - y * way.x) / stepAcross;
                const double along = (x * way.x + y * way.y) / square;
                leastAcross = isFirst ? across : std::min(leastAcross, across);
                mostAcross = isFirst ? across : std::max(mostAcross, across);
                leastAlong = isFirst ? along : std::min(leastAlong, along);
                mostAlong = isFirst ? along : std::max(mostAlong, along);
                isFirst = false;
            }
        const double firstLine = std::ceil(leastAcross);
        const auto lines = static_cast<std::int64_t>(std::floor(mostAcross) - firstLine);
        for (std::int64_t line = 0; line <= lines; ++line) {
            const double number = firstLine + static_cast<double>(line);
            const Spot at{start.x + step.x * number, start.y + step.y * number};
            const double begin = leastAlong - stepAlong * number - 1;
            const double end = mostAlong - stepAlong * number + 1;
            // An upright or level line keeps its place exactly.
            clip_.cut({at.x + way.x * begin, at.y + way.y * begin},
                {at.x + way.x * end, at.y + way.y * end},
                strokes_.lines);
        }
    }

    // From a line to its neighbour: the whole tiles that span, with the way, the area of one tile.
    Spot stepBeside(int columns, int rows) const
    {
        for (int column = 0; column <= std::abs(columns) + 1; ++column)
            for (int row = -std::abs(rows) - 1; row <= std::abs(rows) + 1; ++row)
                if (std::abs(column * rows - row * columns) == 1)
                    return {column * tile_.width * unit_, row * tile_.height * unit_};
        return {0, tile_.height * unit_}; // not for a way without a common divisor
    }

    void drawShape(const HatchTile::Shape& shape)
    {
        constexpr int ovalCorners = 20;
        const std::vector<double>& n = shape.numbers;
        if (shape.stroke == HatchTile::Stroke::Dot)
            return drawDots({n[0], n[1]}, n[2]);
        if (shape.stroke == HatchTile::Stroke::Line && n.size() == 4)
            return; // stands among the courses
        drawOutline(hatchOutline(shape, ovalCorners));
    }

    void drawDots(const Spot& centre, double diameter)
    {
        const double radius = diameter / 2;
        const auto same = std::find_if(strokes_.dots.begin(),
            strokes_.dots.end(),
            [&](const HatchStrokes::Dots& dots) { return dots.radius == radius * unit_; });
        HatchStrokes::Dots& dots = same != strokes_.dots.end() ? *same : strokes_.dots.emplace_back();
        dots.radius = radius * unit_;
        const Bounds reach{centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius};
        overTiles(reach, [&](const Spot& corner) {
            const Spot at = onPaper(centre, corner);
            if (clip_.holdsRound(at, dots.radius))
                dots.centres.push_back(at);
        });
    }

    void drawOutline(const HatchOutline& outline)
    {
        overTiles(boundsOf(outline.corners), [&](const Spot& corner) {
            Ring ring = outline.corners;
            for (Spot& spot : ring)
                spot = onPaper(spot, corner);
            if (outline.isFilled) {
                if (clip_.holds(ring))
                    strokes_.fills.push_back(std::move(ring));
                return;
            }
            for (std::size_t point = 0; point + 1 < ring.size(); ++point)
                clip_.cut(ring[point], ring[point + 1], strokes_.lines);
            if (outline.isClosed)
                clip_.cut(ring.back(), ring.front(), strokes_.lines);
        });
    }

    const Area& area_;
    const HatchTile& tile_;
    double unit_;
    AreaClip clip_;
    HatchStrokes strokes_;
};

} // namespace

HatchStrokes hatchStrokes(const Area& area, const Hatches& hatches)
{
    const auto found = hatches.find(area.hatch);
    if (found == hatches.end() || area.rings.empty() || !areFinite(area.rings) || !(area.hatchUnit > 0))
        return {};
    return Hatcher(area, found->second).strokes();
}

std::vector<Spot> dotOutline(const Spot& centre, double radius)
{
    constexpr double slope = 0.70710678118654752;
    std::vector<Spot> ring;
    for (const Spot& way : {Spot{1, 0},
             {slope, slope},
             {0, 1},
             {-slope, slope},
             {-1, 0},
             {-slope, -slope},
             {0, -1},
             {slope, -slope}})
        ring.push_back({centre.x + way.x * radius, centre.y + way.y * radius});
    return ring;
}
