#pragma once

#include "dictionaries/modes.h"

#include <cstdint>
#include <string>

// The state of the screen that a change belongs to. Each has an undo history of its own, so that Ctrl+Z takes
// back the last change of what is in view and of nothing else.
struct UndoContext {
    TX_Modes mode = ModeNone;
    std::wstring sample = {}; // the current item: a point, a sample
    std::wstring sampleName = {};
    TX_Lab_Modes labMode = LabNone;
    std::int32_t labState = 0;
    std::int32_t compressionView = 20;
    std::int32_t shearView = 99;
    std::int32_t probingView = 99;
    std::int32_t probingSubView = 99;
    bool chemistryFlag = false;

    bool operator==(const UndoContext&) const = default;
};
