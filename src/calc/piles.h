#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <cstdint>
#include <span>

// Capacity of piles by static sounding (SP 24.13330, 7.3; before it SNiP 2.02.03-85, section 5) and of bored
// piles by resistances of tip and shaft. Metres, kPa, kN.

struct PileSection {
    enum Form { Round, Square, Rectangular, OtherForm };
    Form form = Square;
    double sideM = 0.0; // or diameter
    double secondSideM = 0.0; // of a rectangle

    // Nothing where the sides do not tell them.
    Number areaM2() const;
    Number perimeterM() const;
    double widthM() const; // diameter or larger side
};

// Kinds of soil as the coefficients know them.
enum class PileSoil : std::uint8_t { Unknown = 0, Sand = 1, SandyLoam = 2, Loam = 3, Clay = 4 };

// A reading of the sounding; depths rise.
struct PileReading {
    double depthM = 0.0;
    Number qcMPa, fsKPa, sideForceKN;
};

// A layer that the shaft stands in.
struct ShaftLayer {
    double fromM = 0.0;
    double toM = 0.0;
    PileSoil soil = PileSoil::Unknown;
};

struct PileByProbe {
    PileSection section;
    bool isScrew = false;
    bool isInSaturatedSand = false; // screw piles: halves the coefficient under the tip
    int probeType = 2; // 1: cone and rods, 2 and 3: cone and sleeve
    int variant = 1; // column of the coefficients along the shaft
    double rodDiameterM = 0.036; // of probe 1
};

// What one sounding says of one tip; parts that cannot be told are missing, with the reason in the remarks.
struct PileResistance {
    Number tipKN, sideKN;
    Number tipConeKPa, tipCoefficient; // qs and b1
    Number shaftKPa; // f, the mean along the shaft
    Remarks remarks; // "tip", "side", "section"

    Number totalKN() const;
};

// Coefficient under the tip, of the mean cone resistance in its window.
double tipCoefficient(double qsKPa, bool isScrew);
// Along the shaft for a probe with a sleeve (bi), or of probe 1 (b2).
double sleeveCoefficient(double fsKPa, bool isSand, int variant);
double rodCoefficient(double fsKPa, bool isSand);

// Driven and screw piles. The mean of qc goes over the closed window from a width above the tip to four
// below; a window that reaches past the last reading has no answer.
PileResistance pileResistance(const PileByProbe& pile,
    std::span<const PileReading> readings,
    std::span<const ShaftLayer> layers,
    double tipDepthM);

// A layer with resistances that somebody typed or took from tables.
struct BoredLayer {
    double toM = 0.0;
    Number tipKPa, shaftKPa;
    PileSoil soil = PileSoil::Unknown;
};

struct BoredPile {
    PileSection section;
    int kind = 0; // row of the working conditions, 0 to 8
    double condition = 1.0; // of the pile in the ground
    double tipCondition = 1.0; // of the ground under the tip
};

// Layers from above, each from the end of the one before. The condition of the pile is in both parts.
PileResistance boredPileResistance(
    const BoredPile& pile, std::span<const BoredLayer> layers, double tipDepthM);

// One tip by several soundings.
struct PileGroup {
    std::uint32_t n = 0;
    Number resistanceKN, deviationKN, variation;
    Number coefficient; // reliability by the ground: 1 below six soundings
    Number capacityKN; // then the smallest, else mean by coefficient
    Number loadKN;
};

struct PileLoad {
    double condition = 1.0;
    double importance = 1.0;
    double reliability = 1.25; // of capacity by sounding
};
PileGroup pileGroup(std::span<const double> resistancesKN, const PileLoad& load);
