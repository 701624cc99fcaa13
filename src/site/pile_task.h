#pragma once

#include "site/soundings.h"

// The pile that a project has chosen, and its capacity by all soundings.

struct PileTask {
    bool isGiven = false; // a section and a depth of the tip are stored
    int kind = 0; // 0 driven, 1 to 9 bored as the rows of the working conditions, 10 screw
    PileSection section;
    int probeType = 2;
    Number planningMark; // m
    std::vector<double> tipDepths; // m, from the first to the last by the step
    double condition = 1.0; // gamma c
    double tipCondition = 1.0; // gamma cR
    double importance = 1.0; // gamma n
    struct Typed {
        double to = 0.0; // m
        Number tip, shaft; // R and f, kPa
    };
    std::vector<Typed> typedLayers; // of bored piles

    bool isBored() const { return kind >= 1 && kind <= 9; }
};
PileTask pileTask(IDBProject& project);

struct PilePoint {
    std::wstring_view point;
    PileResistance resistance;
};

struct PileRow {
    double tipDepth = 0.0; // m
    Number tipMark;
    std::vector<PilePoint> points; // soundings with readings
    PileGroup group; // of those whose resistance is known
};

// A row for each depth of the tip.
std::vector<PileRow> pileRows(IDBProject& project, const SiteSoundings& soundings, const PileTask& task);
// Of chosen soundings alone; empty: of all.
std::vector<PileRow> pileRows(IDBProject& project,
    const SiteSoundings& soundings,
    const PileTask& task,
    const std::vector<std::wstring>& points);
