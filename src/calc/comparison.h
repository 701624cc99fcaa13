#pragma once

#include "core/base/typed_number.h"

#include <cstddef>

// Whether two sets of determinations may be one element: first the spreads (Fisher), then the means
// (Student), each two-sided at 0.05.

struct CompareInput {
    std::size_t count = 0;
    double mean = 0;
    double deviation = 0; // with n - 1
};

struct Comparison {
    Number fisher; // larger variance by the smaller one; missing where the smaller is 0
    Number fisherProbability; // of so large a ratio by chance
    Number student; // size of the difference of the means in its errors
    Number studentFreedom; // n1 + n2 - 2, by Welch where the spreads differ
    Number studentProbability;
    bool spreadsDiffer = false;
    bool meansDiffer = false;
    bool isKnown = false; // both sets have three values at least and some spread
};

Comparison compare(const CompareInput& a, const CompareInput& b);

// Probability of a Fisher ratio above f, and of a Student t beyond t on either side.
double fisherTail(double f, double freedomA, double freedomB);
double studentTails(double t, double freedom);
