#pragma once

#include "modules/idbproject.h"

#include <memory>
#include <optional>
#include <vector>

class ModeScreen;

// What an undo step of the laboratory exchanges: samples as they were and as they are.

struct SampleState {
    PointDepthKey key;
    std::optional<LabSample> sample; // nothing: there is none
};
using SampleStates = std::vector<SampleState>;

// Changes samples as undo steps, and remembers which of them a step touched, so that a keystroke among ten
// thousand samples, or its undo, has one row read anew and not all.
class SampleStore
{
public:
    explicit SampleStore(ModeScreen& screen);

    // One undo step; nothing where nothing is to be changed.
    void change(SampleStates before, SampleStates after);

    // Nobody reads while the screen is out of sight: then anything may have changed when it comes back.
    void setInSight(bool isInSight);
    // What has changed since the last call, where that is known: no more than these samples. Nothing: any
    // part of the project may be another.
    std::optional<std::vector<PointDepthKey>> takeChanged();

private:
    // Outlives the screen in the undo steps.
    struct Changed {
        std::vector<PointDepthKey> keys;
        bool isInSight = false;
    };

    ModeScreen& screen_;
    std::shared_ptr<Changed> changed_ = std::make_shared<Changed>();
};

// The sample of exactly this key; null where there is none.
const LabSample* findSample(IDBProject& project, const PointDepthKey& key);

// The greatest number in the laboratory's register, 0 where it is empty.
int greatestNumber(IDBProject& project);
// A new sample with the rows of the project's set of properties.
LabSample blankSample(IDBProject& project, int number);

// Why a sample cannot stand under this key; empty where it can. Names and depths that the register would
// refuse or take for another's are told before they are lost.
std::wstring refusalOf(IDBProject& project, const PointDepthKey& key);
