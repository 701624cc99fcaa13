#include "plots/column_sheet.h"

#include <algorithm>
#include <iterator>

namespace
{

// The usual width of a lane, mm, and the least that it bears. The description takes what is left.
struct LaneWidth {
    std::int32_t column;
    double usual;
};
constexpr LaneWidth laneWidths[] = {
    {column_lane::Index, 11},
    {column_lane::Thickness, 10},
    {column_lane::Bottom, 10},
    {column_lane::Mark, 12},
    {column_lane::Section, 24},
    {column_lane::Strip, 20},
    {column_lane::Water, 20},
    {column_lane::Samples, 17},
    {column_lane::Element, 9},
    {column_lane::Description, 70},
    {column_lane::Sounding, 34},
};
constexpr double smallestDescription = 34;
constexpr double widestLane = 100; // beyond it the other lanes of a small sheet have no room for their titles

double usualWidth(std::int32_t column)
{
    const auto* const found = std::find_if(std::begin(laneWidths),
        std::end(laneWidths),
        [column](const LaneWidth& width) { return width.column == column; });
    return found == std::end(laneWidths) ? 10 : found->usual;
}

double leadsBetween(const ColumnLane& left, const ColumnLane& right)
{
    const bool isBeside = (isStrip(left.column) && isLaneOfRows(right.column))
        || (isLaneOfRows(left.column) && isStrip(right.column));
    return isBeside ? leadsWidth : 0;
}

} // namespace

std::vector<PlacedLane> placedLanes(const ColumnLook& look, double left, double right)
{
    const std::vector<ColumnLane> lanes = look.lanes.empty() ? usualLanes() : look.lanes;
    std::vector<double> widths;
    double sum = 0;
    double leads = 0;
    std::size_t description = lanes.size();
    for (std::size_t lane = 0; lane < lanes.size(); ++lane) {
        if (lanes[lane].column == column_lane::Description && lanes[lane].width <= 0)
            description = lane;
        widths.push_back(
            lanes[lane].width > 0 ? std::min(lanes[lane].width, widestLane) : usualWidth(lanes[lane].column));
        sum += lane == description ? 0 : widths.back();
        leads += lane > 0 ? leadsBetween(lanes[lane - 1], lanes[lane]) : 0;
    }
    const double room = right - left - leads;
    const bool hasDescription = description < lanes.size();
    const double others = room - (hasDescription ? smallestDescription : 0);
    const double share = sum > others && sum > 0 ? others / sum : 1;
    if (hasDescription)
        widths[description] = room - sum * share;
    std::vector<PlacedLane> placed;
    double x = left;
    for (std::size_t lane = 0; lane < lanes.size(); ++lane) {
        x += lane > 0 ? leadsBetween(lanes[lane - 1], lanes[lane]) : 0;
        const double width = lane == description ? widths[lane] : widths[lane] * share;
        placed.push_back({lanes[lane], x, x + width});
        x += width;
    }
    return placed;
}
