#pragma once

#include "drawing/hatch.h"

#include <limits>
#include <vector>

struct Bounds {
    double left = std::numeric_limits<double>::max();
    double top = std::numeric_limits<double>::max();
    double right = std::numeric_limits<double>::lowest();
    double bottom = std::numeric_limits<double>::lowest();

    void take(const Spot& spot);
    bool meets(const Bounds& other) const
    {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }
};

Bounds boundsOf(const std::vector<Spot>& spots);

// What lies inside rings (even-odd). Upright rectangles, of which most areas are, are cut without a walk over
// their sides.
class AreaClip
{
public:
    explicit AreaClip(const std::vector<std::vector<Spot>>& rings);

    const Bounds& bounds() const { return bounds_; }
    bool holds(const Spot& spot) const;
    bool holds(const std::vector<Spot>& ring) const;
    bool holdsRound(const Spot& centre, double radius) const;
    // The parts of the stroke that lie inside, in their order.
    void cut(const Spot& from, const Spot& to, std::vector<HatchStrokes::Segment>& out);

private:
    void cutByBox(const Spot& from, const Spot& to, std::vector<HatchStrokes::Segment>& out) const;

    std::vector<HatchStrokes::Segment> sides_;
    Bounds bounds_;
    bool isBox_ = false;
    std::vector<double> shares_;
};
