#pragma once

#include "core/base/typed_number.h"

#include <cstddef>

// The ladders of GOST 20522: how far an outlier may lie, and Student's one-sided coefficients.

// Largest distance of a value from the mean of n of them, in biased deviations; n from 3 on, missing below.
Number outlierLimit(std::size_t n);

// For so many degrees of freedom, 3 and more, at a one-sided confidence of 0.85, 0.90, 0.95, 0.975 or 0.99;
// missing otherwise. Between the rows of the table the lower one, on the safe side.
Number studentCoefficient(int freedom, double confidence);

// Quantile of Student's distribution at a probability above 0.5; freedom 3 and more, exact to 0.001 from 20
// degrees of freedom on, for probabilities up to 0.9999.
double studentQuantile(double probability, double freedom);
