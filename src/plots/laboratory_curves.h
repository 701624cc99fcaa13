#pragma once

#include "dictionaries/modes.h"
#include "drawing/drawing.h"
#include "site/laboratory.h"

#include <optional>
#include <vector>

class SiteLaboratory;
struct SiteSample;

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

// As the user's settings want them.
struct LabCurveSettings {
    bool smoothGrading = true;
    bool smoothSwelling = true;
    bool oneScaleOfGrading = false; // all samples over the same diameters
    bool oneScaleOfCompression = false; // all samples over the same strains
};

struct CurveSize {
    double width = 170; // mm
    double height = 90;
};

// The curve of one test of a sample; nothing where the test was not made. The method counts for compression
// and shear.
std::optional<Drawing> curveOfTest(const SiteLaboratory& site,
    const SiteSample& sample,
    TX_Lab_Modes test,
    int method,
    const LabCurveSettings& settings,
    const CurveSize& size);
