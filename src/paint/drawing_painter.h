#pragma once

#include "drawing/drawing.h"
#include "drawing/hatch.h"

#include <QLineF>
#include <QPainterPath>
#include <QVector>

#include <vector>

class QPainter;

// A drawing with its hatches cut out once, to be painted many times.
class DrawingPainter
{
public:
    DrawingPainter() = default;
    DrawingPainter(Drawing drawing, const Hatches& hatches);

    const Drawing& drawing() const { return drawing_; }
    // A unit of the painter is a millimetre of paper: who calls has scaled it. Without the ground of the
    // sheet.
    void paint(QPainter& painter) const;

private:
    struct PaintedHatch {
        QVector<QLineF> lines;
        std::vector<HatchStrokes::Dots> dots;
        QPainterPath fills;
    };

    void paintArea(QPainter& painter, const Area& area, const PaintedHatch& hatch) const;

    Drawing drawing_;
    std::vector<PaintedHatch> hatches_; // one an item
};

// The same for one time.
void paint(QPainter& painter, const Drawing& drawing, const Hatches& hatches);
