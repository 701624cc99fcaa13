#pragma once

#include "drawing/drawing.h"
#include "site/soundings.h"

// Graphs of static sounding beside the column of the joined borehole: cone resistance, friction of the sleeve
// (or of the rods), their ratio, over depth (GOST 19912).

struct SoundingGraphLook {
    double verticalScale = 100.0; // 1:n
    double tipPerTenCentimetres = 20.0; // MPa of qc on 10 cm of paper
    double sleevePerCentimetre = 50.0; // kPa of fs; of the rods' force kN
    bool isSideForce = false; // Qs in the place of fs: the probe has no sleeve
    bool hasGrid = true;
    bool isColoured = true;
    Color tipColor = {255, 0, 0};
    Color sideColor = {0, 0, 255};
};

// What stands in a graph: readings by depth, layers with their names.
struct SoundingGraph {
    std::wstring title; // "ТСЗ-1"
    std::wstring note; // date, rig, mark, borehole
    std::vector<SoundingReading> readings;
    struct Layer {
        double from = 0.0;
        double to = 0.0;
        std::wstring name; // number of the element
    };
    std::vector<Layer> layers;
    Number mark; // of the mouth
    int language = 0; // of its words, of dictionaries/dictionary.h
};

SoundingGraph soundingGraph(const SiteSounding& sounding, int language = 0);

// Sheets of A4, one below the other in depth; the layers are those of the first, the others are drawn over
// it. Values beyond an axis end at its border with a mark; what is missing breaks the line.
std::vector<Drawing> soundingGraphPages(
    const std::vector<SoundingGraph>& graphs, const SoundingGraphLook& look);

// Capacity of a pile over the depth of its tip.
struct CapacityGraph {
    std::wstring title;
    struct Point {
        double depth = 0.0;
        Number tip, side, capacity; // kN, the parts as means
    };
    std::vector<Point> points;
    int language = 0;
};
Drawing capacityDrawing(const CapacityGraph& graph);
