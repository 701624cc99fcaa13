#pragma once

#include "laboratory/test_choice.h"
#include "site/laboratory.h"

#include <cstdint>

// The points of a test's curve and the cells that they come from. Ids as the curves give them
// (plots/laboratory_curves.h).

// The number of the cell in its record; -1 where the point stands for no single one.
int cellOfPoint(const LabSample& sample, const TestChoice& choice, std::int64_t id);

// Writes what the point's new ordinate means into its cells: a deformation, a resistance, a height; of
// grading the shares of the two fractions that part there. Brackets and a load behind an @ stay. False where
// the point cannot be moved.
bool movePoint(LabSample& sample,
    const SampleResult& result,
    const TestChoice& choice,
    std::int64_t id,
    double ordinate);

// Puts the point's values into brackets, or takes the brackets away. Not for grading, whose fractions have a
// sum.
bool canLeaveOut(const TestChoice& choice);
bool isLeftOut(const LabSample& sample, const TestChoice& choice, std::int64_t id);
void leaveOut(LabSample& sample, const TestChoice& choice, std::int64_t id, bool isOut);
