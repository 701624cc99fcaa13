#pragma once

#include "calc/subsidence.h"
#include "drawing/drawing.h"

#include <span>
#include <string>

struct SubsidenceStratum {
    double fromM = 0.0;
    double toM = 0.0;
    std::wstring name; // of its element
    Number initialPressureKPa;
};

struct SubsidenceLook {
    bool isSmooth = true; // curves through the middles of the parts are rounded
    int language = 0;
};

// A point's layers, its stress by own weight beside the initial pressure of each layer, and the relative
// subsidence of its parts, one axis of depth for all; the limit of 0.01 is a dashed rule. 172 mm wide; the
// depth is scaled to fit 120 mm.
Drawing subsidencePicture(const Subsidence& subsidence,
    std::span<const SubsidenceStratum> strata,
    const std::wstring& title,
    const SubsidenceLook& look);
