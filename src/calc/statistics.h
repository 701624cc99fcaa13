#pragma once

#include "core/base/typed_number.h"

#include <cstddef>
#include <optional>
#include <vector>

// Statistics of an element by GOST 20522: outliers, mean, spread, design values.

// One value of one sample.
struct Determination {
    double value = 0;
    bool isLeftOut = false; // by hand
    bool isKept = false; // against the rule of outliers
};

enum class ExcludedBy { Nobody, Rule, Hand };

// At one confidence: 0.85 for deformations, 0.95 for bearing capacity.
struct ConfidenceLevel {
    double confidence = 0;
    double student = 0;
    Number error; // rho
    Number coefficient; // of safety for the soil, 1 / (1 - rho); missing where rho reaches 1
    double lower = 0; // design values: to either side of the mean
    double upper = 0;
};

struct Statistics {
    std::size_t count = 0; // that took part
    Number mean;
    Number deviation; // S, from two values on
    Number variation; // S over the mean's size; missing where the mean is 0
    Number least;
    Number greatest;
    std::vector<ExcludedBy> excluded; // one an input value
    std::vector<ConfidenceLevel> levels; // empty below six values
};

inline constexpr std::size_t leastForDesign = 6;
inline constexpr std::size_t leastPhysical = 10; // determinations of a physical property that a report wants
inline constexpr double confidences[] = {0.85, 0.90, 0.95, 0.975, 0.99};

// One quantity. The farthest value beyond the limit goes out, one at a time, while at least four are left.
Statistics statisticsOf(const std::vector<Determination>& values);

// The level of a confidence among those of the result; null where there are none.
const ConfidenceLevel* levelOf(const std::vector<ConfidenceLevel>& levels, double confidence);

// tan(phi) and c of the tests of one element: each like one quantity, but what goes out takes its whole test.
struct ShearDetermination {
    double tanPhi = 0;
    double cohesion = 0; // MPa
    bool isLeftOut = false;
    bool isKept = false;
};
struct PartialShear {
    Statistics tanPhi;
    Statistics cohesion; // MPa; its lower bound is never below zero
};
PartialShear partialShearOf(const std::vector<ShearDetermination>& tests);

// All points of all tests in one line.
struct JointPoint {
    double normalStress = 0; // MPa
    double resistance = 0; // MPa
    bool isLeftOut = false;
    bool isKept = false;
};
struct JointShear {
    std::size_t count = 0;
    Number tanPhi;
    Number cohesion; // MPa
    Number deviation; // of the resistance about the line, MPa
    Number tanPhiVariation;
    Number cohesionVariation;
    std::vector<ConfidenceLevel> tanPhiLevels;
    std::vector<ConfidenceLevel> cohesionLevels;
    std::vector<ExcludedBy> excluded;
};
JointShear jointShearOf(const std::vector<JointPoint>& points);
