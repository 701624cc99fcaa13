#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <vector>

// Swelling on wetting under loads.

struct SwellingStage {
    double load = 0; // MPa
    Number height; // after swelling, cm
    Number absolute; // growth of the height, cm
    Number relative; // as typed, fraction
    int row = 0; // number of the load in its ladder, for remarks
};

struct SwellingRow {
    double load = 0; // MPa
    Number absolute; // cm
    double relative = 0;
    bool isRepeated = false;
    int row = 0;
};

struct Swelling {
    std::vector<SwellingRow> rows; // by rising load
    Number free; // relative, under the piston alone
    Number pressure; // where the curve crosses zero, MPa
    Remarks remarks; // cells "swelling/ROW"
};

// The height before soaking in cm. The relative swell comes from the absolute one, else from the height, else
// it is the typed one.
Swelling swellingOf(const std::vector<SwellingStage>& stages, const Number& height);

// 0 not swelling, 1 weakly, 2 medium, 3 strongly, by the free swelling.
int swellingClass(double free);
