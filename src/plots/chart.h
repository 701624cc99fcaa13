#pragma once

#include "drawing/drawing.h"

#include <string>
#include <vector>

// A graph of one quantity over another: axes with round marks, curves, points, a few lines of results.

struct ChartAxis {
    std::wstring title;
    double from = 0;
    double to = 1; // above from; of a logarithmic axis both above zero
    bool isLogarithmic = false;
    bool isTurned = false; // the greater value is at the left (below)
};

struct ChartPoint {
    double x = 0;
    double y = 0;
    bool isHollow = false; // left out of the calculation
    std::int64_t id = 0; // what a click finds
};

struct ChartSeries {
    std::vector<ChartPoint> points;
    Color color = {};
    Dash dash = Dash::Solid;
    bool isJoined = true; // by straight pieces
    bool hasMarks = true;
    std::wstring name = {}; // in the legend; empty: not there
};

struct Chart {
    double width = 170; // mm
    double height = 90;
    std::wstring title = {};
    ChartAxis x;
    ChartAxis y;
    std::vector<ChartSeries> series = {};
    std::vector<std::wstring> notes = {}; // below the curves, left
};

Drawing drawChart(const Chart& chart);
// What a spot of the drawing (mm) means on the axes; beyond an axis its nearest end.
Spot chartValueAt(const Chart& chart, Spot spot);

// Round marks of an axis, from and to included where they are round: about so many.
std::vector<double> roundMarks(double from, double to, int about);
// A round value at or above.
double roundedUp(double value);
