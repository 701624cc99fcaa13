#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <span>

// Subsidence of collapsible soils (SP 22.13330.2016, 6.1): by own weight, by layers, and under a foundation.

// A soil subsides where its relative subsidence is this much or more.
inline constexpr double leastRelativeSubsidence = 0.01;

struct CollapsePoint {
    double loadKPa = 0.0;
    double relative = 0.0;
};

// By the curve at a stress, linear between loads and from nothing at no load; beyond the last load its value.
struct CollapseValue {
    double relative = 0.0;
    bool isBeyond = false;
};
std::optional<CollapseValue> relativeSubsidence(std::span<const CollapsePoint> curve, double stressKPa);
// The load at which the curve first reaches 0.01; nothing where it never does.
Number initialPressureKPa(std::span<const CollapsePoint> curve);

// A layer of the ground with the curve of its sample, if it has one.
struct CollapsibleLayer {
    double fromM = 0.0;
    double toM = 0.0;
    Number saturatedDensity; // g/cm3
    std::vector<CollapsePoint> curve; // loads rise
    Number initialPressureKPa; // of the test; missing: by the curve
};

// A part of a layer, at most two metres thick.
struct SubsidencePart {
    double fromM = 0.0;
    double toM = 0.0;
    std::size_t layer = 0; // the layer's place in the list
    Number stressKPa; // by own weight, saturated, at the middle
    Number relative;
    Number subsidenceCm; // without the coefficient of the whole
};

enum class SubsidenceType { I, II };

struct Subsidence {
    std::vector<SubsidencePart> parts;
    Number thicknessM; // of the parts that subside
    Number coefficient; // ksl, by that thickness
    Number totalCm; // with it
    std::optional<SubsidenceType> type; // missing where no curve ever reaches 0.01
    Number lowerBoundaryM;
    Number initialPressureKPa; // the least of the layers
    Remarks remarks; // "layer/0"
};

// Layers from above, the first from the ground.
Subsidence subsidenceByOwnWeight(std::span<const CollapsibleLayer> layers, double greatestPartM = 2.0);
// Thickness, coefficient, sum, type and lower boundary anew from the parts as they stand: where something
// else than the curve gave them.
void sumUp(Subsidence& result);
// 1 up to 15 m, 1.25 from 20 m on.
double ownWeightCoefficient(double thicknessM);
// From 12 m of width on 1; up to 3 m by how far the pressure passes the initial one.
double foundationCoefficient(double widthM, double pressureKPa, double initialPressureKPa);
// I up to 5.00 cm.
SubsidenceType subsidenceType(double totalCm);
// "незначительная" and so on by relative subsidence (GOST 25100); empty below 0.01.
std::wstring_view subsidenceGrade(double relative, int language = 0);

struct Foundation {
    double widthM = 0.0;
    double lengthM = 0.0; // 0: a strip
    double depthM = 0.0;
    double pressureKPa = 0.0; // mean under its base
};

struct FoundationPart {
    double fromM = 0.0;
    double toM = 0.0;
    std::size_t layer = 0;
    Number stressKPa; // by own weight and foundation, at the middle
    Number relative, coefficient, subsidenceCm;
};

struct FoundationSubsidence {
    std::vector<FoundationPart> parts;
    Number totalCm;
    Remarks remarks;
};

// Stress of a load on a rectangle under its middle, as a part of the load; length 0: a strip.
double stressShare(double widthM, double lengthM, double depthBelowBaseM);
FoundationSubsidence subsidenceUnderFoundation(
    std::span<const CollapsibleLayer> layers, const Foundation& foundation, double greatestPartM = 2.0);
