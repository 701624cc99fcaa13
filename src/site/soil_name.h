#pragma once

#include "ground/ground_controller.h"
#include "site/laboratory.h"

#include <memory>
#include <string>

// The name of a sample's soil, by the program's own classification.

struct SoilNaming {
    int group = 0; // 1 to 9 of soilGroupNames, 0 undetermined
    int fractionClass = 0; // of fractionSoilNames; 0 none
    std::wstring text; // "Суглинок полутвердый"; empty where nothing can be said
    std::wstring details; // state by void ratio and saturation, organics: for texts; may be empty
};

// By the results of the sample; what has to be rounded is rounded as the cells have it. The classification
// speaks the language of its settings; the scale is that of its project. Never throws for what cells hold.
SoilNaming nameSoil(GroundController& ground,
    const LabSample& sample,
    const SampleResult& result,
    GrainScale scale,
    int language);

// The classification for a project outside of the program, in a language of its own.
class SoilClassifier
{
public:
    SoilClassifier(IDBProject& project, int language);
    ~SoilClassifier();
    SoilClassifier(const SoilClassifier&) = delete;
    SoilClassifier& operator=(const SoilClassifier&) = delete;

    GroundController& ground();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};
