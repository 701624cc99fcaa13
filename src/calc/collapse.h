#pragma once

#include "calc/oedometer.h"

#include <vector>

// Collapse of a loess on wetting, by two curves (test 23) or by one (24): relative to the height that the
// natural specimen has under the stress in place.

// Numbers of the compression tests that tell of it.
inline constexpr int collapseTests[] = {23, 24};

struct CollapseRow {
    double load = 0; // MPa
    double relative = 0;
};

struct Collapse {
    Number naturalStress; // MPa
    Number naturalHeight; // of the natural specimen under it, mm
    std::vector<CollapseRow> rows;
    Number initialPressure; // smallest load with 0.01, MPa
    Remarks remarks; // cells "compression/TEST/ROW"
};

// No rows where the test is another, or the stress in place is missing or beyond the last stage.
Collapse collapseOf(const Oedometer& test, const Number& naturalStress);

// 0 not collapsible, 1 weakly to 4 very strongly, by the relative collapse.
int collapseClass(double relative);
