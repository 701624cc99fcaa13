#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <map>
#include <vector>

// Grain size: the curve of per cent finer and the diameters read from it.

// Which of the two scales of fractions the project uses, as its granGost counts them.
enum class GrainScale { Above800 = 0, Above200 = 1 };

// A point of the curve, at the lower bound of a fraction.
struct GrainPoint {
    double diameter = 0; // mm
    double finer = 0; // %
    bool isReal = true; // false: the finest fraction has no lower bound, the point is for drawing alone
};

struct Grading {
    Number sum; // of the fractions, %; missing where there is none
    std::vector<GrainPoint> curve; // from the coarsest down; empty where a fraction is impossible
    Number d10; // mm
    Number d30;
    Number d50;
    Number d60;
    Number uniformity; // d60 / d10
    Number curvature; // d30^2 / (d60 d10)
    bool isComplete = false; // the sum is 100 within 0.1 and every fraction belongs to the scale
    Remarks remarks;
};

// Fraction number to per cent by mass; a fraction without a value is left out of the map. What the curve does
// not reach stays missing: nothing is drawn out beyond its ends.
Grading gradingOf(const std::map<int, double>& fractions, GrainScale scale);

// Rank of the fraction, 1 the coarsest; 0 where the scale lacks it.
int fractionRank(int number, GrainScale scale);
// Its lower bound, mm, as the scale names it.
double fractionBound(int number, GrainScale scale);

// The share is spread in proportion, so that the sum is 100: what the sieving lost, up to 1 %. Empty where
// the loss is greater or nothing was lost.
std::map<int, double> withLossSpread(const std::map<int, double>& fractions);

// The fraction that rules by its share, the coarser of equal ones; 0 where there is none.
int rulingFraction(const std::map<int, double>& fractions);
