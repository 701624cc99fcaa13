#include "drawing/hit_test.h"

#include "drawing/text_layout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{

void take(std::optional<Extent>& extent, const Spot& spot)
{
    if (!extent) {
        extent = {spot.x, spot.y, spot.x, spot.y};
        return;
    }
    extent->left = std::min(extent->left, spot.x);
    extent->top = std::min(extent->top, spot.y);
    extent->right = std::max(extent->right, spot.x);
    extent->bottom = std::max(extent->bottom, spot.y);
}

std::optional<Extent> extentOfSpots(const std::vector<Spot>& spots)
{
    std::optional<Extent> extent;
    for (const Spot& spot : spots)
        take(extent, spot);
    return extent;
}

std::optional<Extent> extentOfShape(const Line& line)
{
    return extentOfSpots(line.points);
}

std::optional<Extent> extentOfShape(const Area& area)
{
    std::optional<Extent> extent;
    for (const std::vector<Spot>& ring : area.rings)
        for (const Spot& spot : ring)
            take(extent, spot);
    return extent;
}

std::optional<Extent> extentOfShape(const Circle& circle)
{
    const Spot& centre = circle.centre;
    const double radius = circle.radius;
    return Extent{centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius};
}

std::optional<Extent> extentOfShape(const Text& text)
{
    const double width = textWidth(text.text, text.font, text.height);
    const double begin = text.align == Align::Left ? 0 : text.align == Align::Centre ? -width / 2 : -width;
    const double turn = text.angle * std::numbers::pi / 180;
    std::optional<Extent> extent;
    for (const double along : {begin, begin + width})
        for (const double up : {text.height, -descentOf(text.font, text.height)})
            take(extent,
                {text.at.x + along * std::cos(turn) - up * std::sin(turn),
                    text.at.y - along * std::sin(turn) - up * std::cos(turn)});
    return extent;
}

bool isInside(const std::vector<std::vector<Spot>>& rings, const Spot& place)
{
    bool inside = false;
    for (const std::vector<Spot>& ring : rings)
        for (std::size_t corner = 0; corner < ring.size(); ++corner) {
            const Spot& from = ring[corner];
            const Spot& to = ring[(corner + 1) % ring.size()];
            if ((from.y > place.y) != (to.y > place.y)
                && place.x < from.x + (place.y - from.y) / (to.y - from.y) * (to.x - from.x))
                inside = !inside;
        }
    return inside;
}

double distanceToSide(const Spot& place, const Spot& from, const Spot& to)
{
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const double square = x * x + y * y;
    const double share =
        square > 0 ? std::clamp(((place.x - from.x) * x + (place.y - from.y) * y) / square, 0.0, 1.0) : 0.0;
    return std::hypot(place.x - from.x - share * x, place.y - from.y - share * y);
}

bool meets(const Line& line, const Spot& place, double reach)
{
    if (line.closed && isInside({line.points}, place))
        return true;
    for (std::size_t point = 0; point + 1 < line.points.size(); ++point)
        if (distanceToSide(place, line.points[point], line.points[point + 1]) <= reach)
            return true;
    return false;
}

bool meets(const Area& area, const Spot& place, double)
{
    return isInside(area.rings, place);
}

bool meets(const Circle& circle, const Spot& place, double reach)
{
    return std::hypot(place.x - circle.centre.x, place.y - circle.centre.y) <= circle.radius + reach;
}

bool meets(const Text& text, const Spot& place, double)
{
    const std::optional<Extent> extent = extentOfShape(text);
    return extent && place.x >= extent->left && place.x <= extent->right && place.y >= extent->top
        && place.y <= extent->bottom;
}

} // namespace

std::optional<Extent> extentOf(const Item& item)
{
    return std::visit([](const auto& shape) { return extentOfShape(shape); }, item.shape);
}

std::optional<Extent> extentOf(const Drawing& drawing, std::int64_t id)
{
    std::optional<Extent> extent;
    for (const Item& item : drawing.items)
        if (item.id == id)
            if (const std::optional<Extent> own = extentOf(item)) {
                take(extent, {own->left, own->top});
                take(extent, {own->right, own->bottom});
            }
    return extent;
}

std::int64_t idAt(const Drawing& drawing, const Spot& place, double reach)
{
    const auto found = std::find_if(drawing.items.rbegin(), drawing.items.rend(), [&](const auto& item) {
        return item.id != 0
            && std::visit([&](const auto& shape) { return meets(shape, place, reach); }, item.shape);
    });
    return found == drawing.items.rend() ? 0 : found->id;
}
