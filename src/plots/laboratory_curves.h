#pragma once

#include "drawing/drawing.h"
#include "site/laboratory.h"

#include <vector>

// The curves of one sample's tests. A point's id is the number of its cell, plus one, so that a click finds
// it.

struct CurveLook {
    double width = 170; // mm
    double height = 90;
    bool isSmooth = true; // grading and swelling: a monotone curve that never leaves its points' range
    Number strainTo = {}; // one scale of compression for all samples; missing: each its own
    Number coarsest = {}; // one scale of diameters, mm; missing: by the sample
};

Drawing gradingCurve(const SampleResult& sample, const CurveLook& look);
// Strain over load, natural and soaked; the moduli as text.
Drawing compressionCurve(const CompressionResult& test, const CurveLook& look);
Drawing shearCurve(const ShearInput& input, const ShearResult& test, const CurveLook& look);
Drawing swellingCurve(const Swelling& swelling, const CurveLook& look);
Drawing shrinkageCurve(const Shrinkage& shrinkage, const CurveLook& look);

// A smooth curve through the points that rises and falls only where they do; x must rise.
std::vector<Spot> monotoneCurve(const std::vector<Spot>& points, int stepsBetween);
