#pragma once

#include "drawing/drawing.h"

#include <string>
#include <vector>

// A plane of two axes on paper, to put points and curves on.

struct GraphAxis {
    std::wstring title;
    double from = 0;
    double to = 1;
    bool isLogarithmic = false; // from and to above zero
    bool isReversed = false; // depths grow downwards
};

class Graph
{
public:
    // The frame of the plane, mm on the drawing; draws grid, ticks, numbers and titles.
    Graph(Drawing& drawing, double left, double top, double width, double height, GraphAxis x, GraphAxis y);

    Spot at(double x, double y) const;
    double right() const { return left_ + width_; }
    double bottom() const { return top_ + height_; }
    void mark(double x, double y, std::int64_t id, const Pen& pen, bool isFilled) const;
    void cross(double x, double y, std::int64_t id, const Pen& pen) const;
    void curve(const std::vector<Spot>& values, const Pen& pen) const;
    void bar(double from, double to, double height, const Color& ground) const;

private:
    void drawAxis(const GraphAxis& axis, bool isVertical) const;

    Drawing& drawing_;
    double left_;
    double top_;
    double width_;
    double height_;
    GraphAxis x_;
    GraphAxis y_;
};

// 1, 2 or 5 times a power of ten: the least such step that is not below the given one, above zero.
double roundStep(double least);
// Such that some five of them make the range.
double axisStep(double range);
// That the numbers of such steps need.
int decimalsOf(double step);

// The multiples of the step from one bound to the other, those at the bounds too.
std::vector<double> stepsBetween(double from, double to, double step);
// The powers of ten from the one at or below the first bound up to the second; both above zero.
std::vector<double> decadesBetween(double from, double to);

// Bounds that hold the values with round ends; equal values get room around them.
GraphAxis axisFor(const std::wstring& title, const std::vector<double>& values, bool fromZero = false);
