#pragma once

#include "calc/collapse.h"
#include "calc/grading.h"
#include "calc/oedometer.h"
#include "calc/physical.h"
#include "calc/shear.h"
#include "calc/shrinkage.h"
#include "calc/swelling.h"
#include "db/records/laboratory.h"

#include <map>
#include <string_view>
#include <vector>

// A laboratory sample as numbers: what its cells hold, and everything that follows from them.

// A cell of a test under a load. A load that the ladder lacks stands in the text: "0.0567@0.04".
struct LoadCell {
    CellNumber number;
    Number load; // as the text gives it, MPa
    bool isText = false; // there is something, and it is no number
};
LoadCell readLoadCell(std::wstring_view text);
// The text that puts a value under any load: under the number of the nearest load of the ladder, with the
// load behind an @ where the ladder lacks it. Loads of the three ladders by their number; missing where there
// is none.
Number compressionLoad(int number);
Number shearLoad(int number);
Number swellLoad(int number);

// The number of a physical property as typed; the first row of the property that holds something.
const PropertyCell* propertyCell(const LabSample& sample, int property);
CellNumber propertyNumber(const LabSample& sample, int property);

// One point of a shear test with the place it has in its cells.
struct ShearReading {
    ShearPoint point;
    bool isLeftOut = false; // in brackets: drawn hollow
    bool isKept = false; // "!": against the rule of outliers
    std::size_t cell = 0; // index in the cells of its method
};

struct ShearInput {
    int method = 0;
    std::vector<ShearReading> readings;
    bool isLeftOut = false; // the test stays out of the element's statistics
    bool isKept = false;
    bool isImpossible = false; // a value cannot be: no line is drawn through the rest
};

struct CompressionInput {
    OedometerInput oedometer; // without void ratio and beta, which come from the sample
    std::vector<OedometerStage> leftOut; // those with a value in brackets, and only such values: drawn hollow
    Number naturalStress; // as stored, MPa
    bool isLeftOut = false;
    bool isKept = false;
};

// What the cells hold. The remarks tell the texts that are no numbers.
struct SampleInput {
    PhysicalInput physical;
    std::map<int, double> fractions;
    bool isGradingReadable = true; // every filled cell is a number that counts
    std::vector<CompressionInput> compression; // by number of the test
    std::vector<ShearInput> shear; // by method
    std::vector<SwellingStage> swelling;
    std::vector<SwellingStage> swellingLeftOut; // with a value in brackets: drawn hollow
    Number swellingHeight; // cm
    std::vector<ShrinkageStage> shrinkage;
    Remarks remarks;
};

SampleInput sampleInput(const LabSample& sample, const LabTriple& rings);

struct ShearResult {
    int method = 0;
    ShearFit fit;
    bool isLeftOut = false;
    bool isKept = false;
};

struct CompressionResult {
    Oedometer oedometer;
    Collapse collapse;
    Number storedStress; // MPa
    bool isLeftOut = false;
    bool isKept = false;
};

struct SampleResult {
    SampleInput input;
    Physical physical;
    Grading grading;
    std::vector<CompressionResult> compression;
    std::vector<ShearResult> shear;
    Swelling swelling;
    Shrinkage shrinkage;
    Remarks remarks; // of all tests, by test, the unreadable texts first
};

// The kind of the sample's element (ElementKind as a number, 0 unknown) stands in for the plasticity index
// where beta needs it. Collapse under a computed stress in place is added by addCollapse.
SampleResult sampleResult(const LabSample& sample, const LabTriple& rings, GrainScale scale, int elementKind);

// Relative collapse of each test, under the stored stress in place, else under the given one, MPa.
void addCollapse(SampleResult& result, const Number& naturalStress);

// How a typed derived value compares with the computed one; a remark where they differ by more than rounding.
void compareTyped(const LabSample& sample, const Physical& physical, Remarks& remarks);
