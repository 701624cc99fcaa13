#pragma once

#include "core/base/typed_number.h"

#include <vector>

// Two or three determinations of one property of one sample: their mean, and whether they agree.

struct Weighing {
    Number container; // g
    Number wet; // with the container, g
    Number dry; // with the container, g
};

// Fraction; missing where a mass is missing or the dry soil weighs nothing.
Number moistureOf(const Weighing& weighing);

struct ParallelMean {
    Number mean;
    Number difference; // between the greatest and the least
    Number permitted; // missing: the standard sets none
    bool agrees = false; // known and within what is permitted
};

// Property 0, 3, 4 (fractions), 1, 2 (g/cm3); of density the soil decides.
ParallelMean parallelMean(const std::vector<Number>& values, int property, bool isSand);

// Permitted difference in the unit of the property.
Number permittedDifference(int property, double mean, bool isSand);
