#include "drawing/triangles.h"

#include <algorithm>
#include <limits>

namespace
{

using Ring = std::vector<Spot>;

// Twice the area; positive where the corners turn to the left.
double turnOf(const Spot& a, const Spot& b, const Spot& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

double areaOf(const Ring& ring)
{
    double sum = 0;
    for (std::size_t corner = 0; corner < ring.size(); ++corner) {
        const Spot& next = ring[(corner + 1) % ring.size()];
        sum += ring[corner].x * next.y - next.x * ring[corner].y;
    }
    return sum;
}

bool isInTriangle(const Spot& spot, const Spot& a, const Spot& b, const Spot& c)
{
    return turnOf(a, b, spot) > 0 && turnOf(b, c, spot) > 0 && turnOf(c, a, spot) > 0;
}

bool isEar(const Ring& ring, std::size_t corner)
{
    const Spot& before = ring[(corner + ring.size() - 1) % ring.size()];
    const Spot& own = ring[corner];
    const Spot& next = ring[(corner + 1) % ring.size()];
    if (turnOf(before, own, next) <= 0)
        return false;
    return std::none_of(
        ring.begin(), ring.end(), [&](const Spot& spot) { return isInTriangle(spot, before, own, next); });
}

// A cut leads from the outer ring to the hole and back.
void joinHole(Ring& outer, Ring hole)
{
    const auto nearest = [&outer](const Spot& spot) {
        std::size_t best = 0;
        double smallest = std::numeric_limits<double>::max();
        for (std::size_t corner = 0; corner < outer.size(); ++corner) {
            const double x = outer[corner].x - spot.x;
            const double y = outer[corner].y - spot.y;
            if (x * x + y * y < smallest) {
                smallest = x * x + y * y;
                best = corner;
            }
        }
        return best;
    };
    const auto rightmost =
        std::max_element(hole.begin(), hole.end(), [](const Spot& a, const Spot& b) { return a.x < b.x; });
    std::rotate(hole.begin(), rightmost, hole.end());
    const std::size_t at = nearest(hole.front());
    hole.push_back(hole.front());
    hole.push_back(outer[at]);
    outer.insert(outer.begin() + static_cast<std::ptrdiff_t>(at) + 1, hole.begin(), hole.end());
}

} // namespace

std::vector<std::array<Spot, 3>> trianglesOf(const std::vector<std::vector<Spot>>& rings)
{
    std::vector<std::array<Spot, 3>> triangles;
    if (rings.empty() || rings.front().size() < 3)
        return triangles;
    Ring ring = rings.front();
    if (areaOf(ring) < 0)
        std::reverse(ring.begin(), ring.end());
    for (std::size_t number = 1; number < rings.size(); ++number) {
        Ring hole = rings[number];
        if (hole.size() < 3)
            continue;
        if (areaOf(hole) > 0)
            std::reverse(hole.begin(), hole.end());
        joinHole(ring, std::move(hole));
    }
    std::size_t corner = 0;
    std::size_t tried = 0;
    while (ring.size() > 3 && tried < ring.size()) {
        if (!isEar(ring, corner)) {
            corner = (corner + 1) % ring.size();
            ++tried;
            continue;
        }
        const std::size_t count = ring.size();
        triangles.push_back({ring[(corner + count - 1) % count], ring[corner], ring[(corner + 1) % count]});
        ring.erase(ring.begin() + static_cast<std::ptrdiff_t>(corner));
        corner = corner % ring.size();
        tried = 0;
    }
    if (ring.size() == 3)
        triangles.push_back({ring[0], ring[1], ring[2]});
    return triangles;
}
