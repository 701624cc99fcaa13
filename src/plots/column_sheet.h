#pragma once

#include "plots/column.h"
#include "plots/column_pages.h"

// One sheet of a column: places of its lanes, and the drawing of each.

struct PlacedLane {
    ColumnLane lane;
    double left = 0; // on the sheet, mm
    double right = 0;
};

// A lane of layers is ruled by the rows of the table, the others by depth.
inline bool isLaneOfRows(std::int32_t column)
{
    return column == column_lane::Index || column == column_lane::Thickness || column == column_lane::Bottom
        || column == column_lane::Mark || column == column_lane::Element
        || column == column_lane::Description;
}
inline bool isStrip(std::int32_t column)
{
    return column == column_lane::Section || column == column_lane::Strip;
}

// The lanes from left to right within that width; beside the strip stands room for lines from layers to rows.
std::vector<PlacedLane> placedLanes(const ColumnLook& look, double left, double right);

// The title block and what stands beside it, of one sheet among several; numbers from 0.
void addColumnBlocks(
    Sketch& sketch, const ColumnLook& look, const std::wstring& title, std::size_t number, std::size_t count);

inline constexpr double leadsWidth = 5; // between the strip and rows, mm
inline constexpr double headRow = 6; // of the texts above the table, mm
inline constexpr double captionHeight = 32; // mm
inline constexpr double sampleLabelHeight = 3.4; // mm
inline constexpr double waterLabelHeight = 6.8; // mm

class ColumnSheet
{
public:
    ColumnSheet(Drawing& drawing,
        const ColumnData& data,
        const ColumnLook& look,
        const ColumnPage& page,
        double perMetre,
        const std::vector<PlacedLane>& lanes);

    // The captions with their upper edge there, then the body.
    void draw(double top, bool isLast);

private:
    double yOf(double depth) const { return bodyTop_ + (depth - page_.top) * perMetre_; }
    double bodyBottom(bool isLast) const;
    void drawCaptions(double top);
    void drawGraphScale(const PlacedLane& lane, double top);
    void drawRows(const PlacedLane& lane);
    void drawCell(const PlacedLane& lane, const ColumnRow& row, const Extent& box, bool isLastLayer);
    void drawElement(const ColumnRow& row, const Extent& box);
    void drawIndex(const ColumnRow& row, const Extent& box);
    void drawDescription(const ColumnRow& row, const Extent& box);
    void drawStrip(const PlacedLane& lane);
    void drawLayer(const ColumnRow& row, double left, double right);
    void drawConsistency(double left, double right);
    void drawLeaders(const PlacedLane& strip, bool isLeft);
    void drawWaters(const PlacedLane& lane);
    void drawSamples(const PlacedLane& lane);
    void drawGraph(const PlacedLane& lane);
    void drawCurve(const PlacedLane& lane,
        std::optional<double> ColumnSounding::Row::*value,
        double greatest,
        const Pen& pen);
    template <class Row>
    std::vector<const Row*> onPage(const std::vector<Row>& rows) const;

    Sketch sketch_;
    const ColumnData& data_;
    const ColumnLook& look_;
    const ColumnPage& page_;
    double perMetre_;
    const std::vector<PlacedLane>& lanes_;
    double bodyTop_ = 0;
    double bottom_ = 0;
    double greatestTip_ = 0;
    double greatestSleeve_ = 0;
};

template <class Row>
std::vector<const Row*> ColumnSheet::onPage(const std::vector<Row>& rows) const
{
    const bool isLast = page_.bottom >= drawnDepth(data_) - 1e-9;
    std::vector<const Row*> found;
    for (const Row& row : rows)
        if (row.depth >= page_.top
            && (row.depth < page_.bottom || (isLast && row.depth <= page_.bottom + 1e-9)))
            found.push_back(&row);
    return found;
}
