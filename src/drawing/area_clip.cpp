#include "drawing/area_clip.h"

#include <algorithm>
#include <array>

namespace
{

using Segment = HatchStrokes::Segment;

constexpr double shortest = 1e-9; // part of a stroke that is worth a line

Spot between(const Spot& from, const Spot& to, double share)
{
    if (share <= 0)
        return from;
    if (share >= 1)
        return to;
    return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

// Where on the stroke the side crosses it; below 0 where it does not.
double crossing(const Spot& from, const Spot& to, const Segment& side)
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

bool isUprightBox(const std::vector<std::vector<Spot>>& rings)
{
    if (rings.size() != 1 || rings.front().size() != 4)
        return false;
    const std::vector<Spot>& ring = rings.front();
    const bool beginsLevel = ring[0].y == ring[1].y;
    for (std::size_t corner = 0; corner < 4; ++corner) {
        const Spot& next = ring[(corner + 1) % 4];
        const bool isLevel = (corner % 2 == 0) == beginsLevel;
        if (isLevel ? ring[corner].y != next.y : ring[corner].x != next.x)
            return false;
    }
    return true;
}

} // namespace

void Bounds::take(const Spot& spot)
{
    left = std::min(left, spot.x);
    top = std::min(top, spot.y);
    right = std::max(right, spot.x);
    bottom = std::max(bottom, spot.y);
}

Bounds boundsOf(const std::vector<Spot>& spots)
{
    Bounds bounds;
    for (const Spot& spot : spots)
        bounds.take(spot);
    return bounds;
}

AreaClip::AreaClip(const std::vector<std::vector<Spot>>& rings)
    : isBox_(isUprightBox(rings))
{
    for (const std::vector<Spot>& ring : rings)
        for (std::size_t corner = 0; corner < ring.size(); ++corner) {
            bounds_.take(ring[corner]);
            sides_.push_back({ring[corner], ring[(corner + 1) % ring.size()]});
        }
}

bool AreaClip::holds(const Spot& spot) const
{
    if (isBox_)
        return spot.x >= bounds_.left && spot.x < bounds_.right && spot.y >= bounds_.top
            && spot.y < bounds_.bottom;
    bool isInside = false;
    for (const Segment& side : sides_) {
        if ((side.from.y > spot.y) == (side.to.y > spot.y))
            continue;
        const double share = (spot.y - side.from.y) / (side.to.y - side.from.y);
        if (spot.x < side.from.x + share * (side.to.x - side.from.x))
            isInside = !isInside;
    }
    return isInside;
}

bool AreaClip::holds(const std::vector<Spot>& ring) const
{
    return std::all_of(ring.begin(), ring.end(), [this](const Spot& spot) { return holds(spot); });
}

bool AreaClip::holdsRound(const Spot& centre, double radius) const
{
    if (isBox_)
        return holds(Spot{centre.x - radius, centre.y - radius})
            && holds(Spot{centre.x + radius, centre.y + radius});
    return holds(dotOutline(centre, radius));
}

void AreaClip::cutByBox(const Spot& from, const Spot& to, std::vector<Segment>& out) const
{
    double begin = 0;
    double end = 1;
    const auto narrow = [&begin, &end](double start, double way, double least, double most) {
        if (way == 0) // along a side: the box holds its upper and left one, as any area does
            return start >= least && start < most;
        const double enter = ((way > 0 ? least : most) - start) / way;
        const double leave = ((way > 0 ? most : least) - start) / way;
        begin = std::max(begin, enter);
        end = std::min(end, leave);
        return end - begin > shortest;
    };
    if (narrow(from.x, to.x - from.x, bounds_.left, bounds_.right)
        && narrow(from.y, to.y - from.y, bounds_.top, bounds_.bottom))
        out.push_back({between(from, to, begin), between(from, to, end)});
}

void AreaClip::cut(const Spot& from, const Spot& to, std::vector<Segment>& out)
{
    if (isBox_)
        return cutByBox(from, to, out);
    shares_.assign({0.0, 1.0});
    for (const Segment& side : sides_)
        if (const double share = crossing(from, to, side); share > 0 && share < 1)
            shares_.push_back(share);
    std::sort(shares_.begin(), shares_.end());
    for (std::size_t part = 0; part + 1 < shares_.size(); ++part) {
        const double begin = shares_[part];
        const double end = shares_[part + 1];
        if (end - begin > shortest && holds(between(from, to, (begin + end) / 2)))
            out.push_back({between(from, to, begin), between(from, to, end)});
    }
}
