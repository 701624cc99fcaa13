#pragma once

#include "modules/idbproject.h"

#include <optional>
#include <vector>

// What an undo step of the laboratory exchanges: samples as they were and as they are.

struct SampleState {
    PointDepthKey key;
    std::optional<LabSample> sample; // nothing: there is none
};
using SampleStates = std::vector<SampleState>;

void putSamples(IDBProject& project, const SampleStates& states);

// The sample of exactly this key; null where there is none.
const LabSample* findSample(IDBProject& project, const PointDepthKey& key);

// A new sample with the rows of the project's templates, numbered on from the greatest number.
LabSample newSample(IDBProject& project);

// Why a sample cannot stand under this key; empty where it can. Names and depths that the register would
// refuse or take for another's are told before they are lost.
std::wstring refusalOf(IDBProject& project, const PointDepthKey& key);
