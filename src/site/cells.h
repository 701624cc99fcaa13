#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Names of the cells that the project's records number only; docs/registers.md says what each carries. No
// screen, drawing or calculation names one of them by a bare number.

namespace element_text
{
// StrataElement::texts. Behind the index: values typed over the computed ones.
enum Cell : std::size_t {
    GeologicalIndex,
    DensityNormative, // g/cm3
    DensityII,
    DensityI,
    FrictionNormative, // degrees
    FrictionII,
    FrictionI,
    CohesionNormative, // kPa
    CohesionII,
    CohesionI,
    Modulus, // of deformation, MPa
};
} // namespace element_text

// StrataElement::code.
enum class ElementKind : std::int32_t {
    NotGiven,
    Sand,
    SandyLoam,
    Loam,
    Clay,
    Coarse,
    Rock,
    Organic,
    ManMade,
};

// CompressionGroup::numbers and flags.
namespace compression_number
{
enum Cell : std::size_t {
    FirstHeight, // micrometres; 0: that of the project's ring
    SecondHeight, // micrometres; 0: as the first
    NaturalStress, // Pa; 0: computed from the layers above
};
}
namespace compression_flag
{
enum Cell : std::size_t {
    KeptOut, // of the element's statistics
    KeptIn, // against the rule of outliers
};
}
// The number of a shear cell that is no load: its text says whether the test counts.
inline constexpr std::int32_t shearTestNote = 255;
inline constexpr std::wstring_view shearKeptOut = L"-";
inline constexpr std::wstring_view shearKeptIn = L"!";

// SoundingRow::cells.
namespace sounding_cell
{
enum Cell : std::size_t {
    Tip, // qc, MPa
    Sleeve, // fs, kPa
    Side, // Qs, kN
    Element, // empty: by the neighbouring borehole
};
}

// Keys of soundingTriples, and the places in each.
namespace sounding_triple
{
enum Key : std::uint8_t {
    GraphScales, // vertical 1:n; qc, MPa per 10 cm; fs, kPa per cm
    Pile, // side or diameter, second side, mm; step of the tip's depth, cm
    PileDepths, // planning mark, first and last depth of the tip, cm
    Coefficients, // gamma c, gamma cR, gamma n, in hundredths
    BoredLayers =
        10, // and on, for the n-th layer from 0: R under the tip, f along the shaft, kPa; its lower end, cm
};
}

// ChemistryRecord::cells.
namespace chemistry_cell
{
enum Cell : std::size_t {
    SO4, // 0 to 3: mg/l, of soil mg/kg
    Cl,
    HCO3,
    CO3,
    PH,
    Ca, // 5 to 10: mg/l, of soil up to NO3 mg/kg
    Mg,
    SodiumAndPotassium,
    NO3,
    IronTotal,
    AggressiveCO2,
    Hardness, // equivalents per cubic metre
    DryResidue, // 12 to 21: mg/l
    NH4,
    NO2,
    Na,
    K,
    FreeCO2,
    Fe2,
    Fe3,
    H2S,
    SiO2,
    Oxidability, // mg O/l
    Temperature,
    CarbonateHardness,
    Humus, // %
    SoilSO4, // mg/kg
    SoilCl,
    Resistivity, // Ohm m
    Kind, // "вода" or "грунт"
};
}
inline constexpr std::wstring_view chemistryOfWater = L"вода";
inline constexpr std::wstring_view chemistryOfSoil = L"грунт";

// SubsidenceCell::code.
namespace subsidence_code
{
enum Cell : std::int32_t {
    OwnWeight = 1, // cm
    LowerBoundary = 3, // m
    InitialPressure = 4, // kPa
};
}
