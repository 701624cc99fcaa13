#pragma once

#include "dictionaries/modes.h"
#include "plots/chart.h"
#include "site/laboratory.h"

#include <optional>
#include <vector>

class SiteLaboratory;
struct SiteSample;

// The curves of one sample's tests. A point's id is the number of its cell, plus one, so that a click finds
// it; that of a soaked specimen is higher by soakedPoint.
constexpr std::int64_t soakedPoint = 1000;

struct CurveLook {
    double width = 170; // mm
    double height = 90;
    bool isSmooth = true; // grading and swelling: a monotone curve that never leaves its points' range
    Number strainTo = {}; // one scale of compression for all samples; missing: each its own
    Number coarsest = {}; // one scale of diameters, mm; missing: by the sample
};

Chart gradingChart(const SampleResult& sample, const CurveLook& look);
// Strain over load, natural and soaked; the moduli as text.
Chart compressionChart(const CompressionInput& input, const CompressionResult& test, const CurveLook& look);
Chart shearChart(const ShearInput& input, const ShearResult& test, const CurveLook& look);
Chart swellingChart(const SampleResult& sample, const CurveLook& look);
Chart shrinkageChart(const Shrinkage& shrinkage, const CurveLook& look);

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
std::optional<Chart> chartOfTest(
    const SampleResult& result, TX_Lab_Modes test, int method, const CurveLook& look);

// The same with the scales that all samples of the site share, where the settings want that.
CurveLook lookOfTest(TX_Lab_Modes test, const LabCurveSettings& settings, const CurveSize& size);
void shareScale(CurveLook& look, TX_Lab_Modes test, const SiteLaboratory& site);
std::optional<Drawing> curveOfTest(const SiteLaboratory& site,
    const SiteSample& sample,
    TX_Lab_Modes test,
    int method,
    const LabCurveSettings& settings,
    const CurveSize& size);
