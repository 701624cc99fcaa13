#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <vector>

// Compression without lateral expansion: strains, void ratios, moduli of any interval.

struct OedometerStage {
    double load = 0; // MPa
    Number deformation; // of the natural branch (of test 22: the soaked one), mm
    Number soakedDeformation; // mm
    Number correction; // for the apparatus, taken off both, mm
    int row = 0; // number of the load in its ladder, for remarks
};

struct OedometerInput {
    int test = 21; // 21 natural, 22 soaked, 23 two curves, 24 one curve, 25 combined
    Number voidRatio; // before loading
    Number height; // of the (first) specimen, mm
    Number secondHeight; // of the soaked specimen of test 23, mm; missing: as the first
    Number beta; // by the kind of soil; missing: unknown
    std::vector<OedometerStage> stages; // in any order
};

struct OedometerRow {
    double load = 0; // MPa
    Number strain;
    Number voidRatio;
    Number soakedStrain;
    Number soakedVoidRatio;
    bool isRepeated = false; // its load stands twice: no interval begins or ends here
    int row = 0;
};

// Between two neighbouring loads. What is not compressed has no modulus.
struct OedometerInterval {
    double from = 0; // MPa
    double to = 0;
    Number compressibility; // m0, 1/MPa
    Number oedometricModulus; // MPa
    Number modulus; // with beta, MPa
    Number soakedModulus; // with beta, MPa
};

struct Oedometer {
    int test = 21;
    Number voidRatio;
    Number height; // mm
    Number beta;
    std::vector<OedometerRow> rows; // by rising load
    std::vector<OedometerInterval> intervals; // of the natural branch (of test 22: the soaked one)
    Remarks remarks; // cells "compression/TEST/ROW"
};

// The combined test (25) has no results: its rows are kept for drawing, there are no intervals.
Oedometer oedometerOf(const OedometerInput& input);

enum class Branch { Natural, Soaked };

// Strain at any load between the first and the last stage of the branch, linear between stages and from zero
// load to the first. Missing beyond the last one.
Number strainAt(const Oedometer& test, double load, Branch branch);

// Of any interval, loads in MPa; each missing where a load is not reached or nothing was compressed.
OedometerInterval intervalOf(const Oedometer& test, double from, double to);

// The branch that its modulus is taken from: natural, of test 22 soaked.
Branch mainBranch(const Oedometer& test);

// Kind of soil by the plasticity index, 2 to 4; 0 where it is not plastic.
int kindOfPlasticity(const Number& plasticity);
