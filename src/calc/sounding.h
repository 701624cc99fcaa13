#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <cstdint>
#include <span>
#include <string_view>

// Static sounding: from forces to resistances, statistics of a layer, and what the tables of correlation make
// of them.

// Areas of the probe that forces are divided by, cm2: those of a cone 35.7 mm across, as the standard rounds
// them, and of its sleeve 310 mm high (GOST 19912).
struct ProbeAreas {
    double cone = 10.0;
    double sleeve = 350.0;
};

// A circle's area, cm2, of a diameter in metres.
double circleAreaCm2(double diameterM);
// The side of a cylinder, cm2; both in metres.
double cylinderAreaCm2(double diameterM, double heightM);

// MPa of a force in kN.
double coneResistanceMPa(double forceKN, double areaCm2);
// kPa of a force in kN.
double sleeveResistanceKPa(double forceKN, double areaCm2);
// Friction by cone resistance, per cent; nothing where the cone meets none.
Number frictionRatio(const Number& qcMPa, const Number& fsKPa);

// Of the values that are there.
struct Spread {
    std::uint32_t n = 0;
    Number mean, deviation, variation, least, greatest; // the deviation with n - 1, from two values on
};
Spread spreadOf(std::span<const Number> values);
Spread spreadOf(std::span<const double> values);

// What the tables of correlation ask of a soil.
struct SoundedSoil {
    enum Kind { UnknownKind, Sand, SandyLoam, Loam, Clay, OtherKind };
    enum Grain { UnknownGrain, Gravelly, Coarse, Medium, Fine, Silty };
    enum Wetness { UnknownWetness, NotSaturated, Saturated };
    enum State { UnknownState, Hard, SemiHard, StiffPlastic, SofterState };
    Kind kind = UnknownKind;
    Grain grain = UnknownGrain; // of sands
    Wetness wetness = UnknownWetness; // of sands
    State state = UnknownState; // of clays
    bool isAlluvial = false; // or fluvioglacial
};

enum class SandDensity { Loose, Medium, Dense };
// "dense", "medium", "loose".
const char* sandDensityName(SandDensity density);

struct SoundedProperties {
    Number modulusMPa, phiDegrees, cohesionKPa;
    std::optional<SandDensity> density; // of sands
    Remarks remarks; // "qc" where it leaves a table, "soil" where there is no table
};

// By the mean cone resistance of a layer whose middle lies so deep.
SoundedProperties soundedProperties(const SoundedSoil& soil, double qcMPa, double depthM);

// Liquidity index of a clay by both resistances. Nothing where the ratio of friction is under 0.9 %: no clay.
Number liquidityBySounding(const Number& qcMPa, const Number& fsKPa);

// Soil behaviour by the normalised chart of Robertson (1990), with the index of Robertson and Wride (1998):
// a second opinion that knows nothing of the borehole.
struct BehaviourType {
    double index = 0.0; // Ic
    int zone = 0; // 2 to 7
};
// Stresses in the ground at the reading, kPa. Nothing where a resistance is missing or not above the stress.
std::optional<BehaviourType> behaviourType(
    const Number& qcMPa, const Number& fsKPa, double totalStressKPa, double effectiveStressKPa);
std::wstring_view behaviourName(int zone);
