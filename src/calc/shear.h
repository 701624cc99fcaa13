#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <cstddef>
#include <vector>

// Direct shear: the line tau = sigma tan(phi) + c through the points of one test.

struct ShearPoint {
    double normalStress = 0; // MPa
    double resistance = 0; // MPa
};

struct ShearFit {
    std::size_t points = 0;
    Number tanPhi; // missing with fewer than three points, or where all have one normal stress
    Number cohesion; // MPa, never below zero
    bool isThroughOrigin = false; // the free line had a negative cohesion
    Number determination; // R2 of the line
    std::vector<double> residuals; // tau less the line, MPa, as the points stand
    Remarks remarks; // cells "shear"
};

ShearFit shearOf(const std::vector<ShearPoint>& points);

// The same line without any demand but different stresses: two points give a preview. Where the free line
// would cut the axis below zero, it is turned about the origin.
struct LineFit {
    bool isDetermined = false;
    bool isThroughOrigin = false;
    double slope = 0;
    double offset = 0;
    double determinant = 0; // n sum(x2) - (sum x)2
    double sumOfSquares = 0; // of x
};
LineFit lineThrough(const std::vector<ShearPoint>& points);

// Angle of a slope, degrees.
double angleOf(double tangent);
