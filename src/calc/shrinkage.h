#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <vector>

// Shrinkage on drying: volume over moisture, and the moisture where the soil stops shrinking.

struct ShrinkageStage {
    Number diameter; // cm
    Number height; // cm
    Number mass; // g
    Number volume; // as typed, cm3: only where diameter or height is missing
    Number moisture; // as typed, fraction: of the first stage, else only where the mass is missing
    int row = 0; // for remarks
    bool isLeftOut = false; // its sizes count for nothing; its mass still may
};

struct ShrinkagePoint {
    Number moisture; // fraction
    Number volume; // cm3
    int row = 0;
    bool isLeftOut = false;
};

struct Shrinkage {
    std::vector<ShrinkagePoint> points; // as the stages stand
    Number limit; // moisture, fraction
    Number slope; // of the shrinking branch, cm3 per unit of moisture, for the picture
    Number offset; // cm3
    Number finalVolume; // cm3
    Number heightStrain; // relative, of the last stage
    Number diameterStrain;
    Number volumeStrain;
    Remarks remarks; // cells "shrinkage/ROW"
};

// The moisture of the sample stands in where the first stage has none.
Shrinkage shrinkageOf(const std::vector<ShrinkageStage>& stages, const Number& moisture);
