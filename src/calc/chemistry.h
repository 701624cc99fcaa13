#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

// An analysis of water, or of the water extract of soil: equivalents, balance, hardness, Kurlov's formula.

// The thirty cells of an analysis, in their order.
enum ChemistryCell {
    CellSO4,
    CellCl,
    CellHCO3,
    CellCO3, // mg/l
    CellPH,
    CellCa,
    CellMg,
    CellNaK,
    CellNO3,
    CellFe,
    CellAggressiveCO2, // mg/l
    CellHardness, // °Ж
    CellDryResidue,
    CellNH4,
    CellNO2,
    CellNa,
    CellK,
    CellFreeCO2,
    CellFe2,
    CellFe3,
    CellH2S,
    CellSiO2, // mg/l
    CellOxidability, // mg O/l
    CellTemperature, // °C
    CellCarbonateHardness, // °Ж
    CellHumus, // per cent
    CellSoilSO4,
    CellSoilCl, // mg/kg
    CellResistivity, // Ohm m
    CellKind,
    ChemistryCellCount
};
static_assert(ChemistryCellCount == 30);

// "< 20" is at most 20: good for a limit above it, missing for everything else.
struct AnalysisValue {
    Number value;
    bool isAtMost = false;

    Number exact() const { return isAtMost ? std::nullopt : value; }
};
AnalysisValue readAnalysisValue(std::wstring_view text);

struct Analysis {
    bool isWater = true; // of soil the cells 0 to 9, 13 and 14 are in mg/kg
    std::array<AnalysisValue, ChemistryCellCount> cells;

    const AnalysisValue& operator[](ChemistryCell cell) const
    {
        return cells[static_cast<std::size_t>(cell)];
    }
};

// Reads the thirty texts; the kind from cell 29, or from whether cells 0 to 24 hold an ion.
Analysis analysisOf(std::span<const std::wstring, ChemistryCellCount> texts);
// Title and unit of a cell as a table shows them: "SO4, мг/л".
std::wstring_view chemistryCellTitle(ChemistryCell cell, bool isWater);

struct Ion {
    const char* name; // "HCO3"
    bool isCation;
    double equivalent; // mg in one mg-equivalent
    ChemistryCell cell;
};
// Cations first, then anions.
std::span<const Ion> ions();
// Of a name as in ions(), or nothing.
const Ion* ionNamed(std::string_view name);

// The mass of a mg-equivalent of the ion in a cell, mg; sodium with potassium as sodium. Nothing where the
// cell holds none.
Number cellEquivalent(ChemistryCell cell);
// The text of such a cell in mg-equivalents, and one of mg-equivalents in mg, both to a thousandth; "<"
// stays. What is no number, or no ion, stays as it is.
std::wstring textInEquivalents(ChemistryCell cell, std::wstring_view milligrams);
std::wstring textInMilligrams(ChemistryCell cell, std::wstring_view equivalents);

struct IonShare {
    const Ion* ion = nullptr;
    double mg = 0.0;
    double meq = 0.0;
    double percent = 0.0; // of the cations or of the anions
};

struct WaterChemistry {
    std::vector<IonShare> shares; // those that were determined, in the order of ions()
    Number cationsMeq, anionsMeq;
    Number balancePercent; // of both sums; missing where one side has no ion
    Number mineralisationGL, dryResidueMgL; // by calculation, of water
    Number hardness, carbonateHardness, permanentHardness; // °Ж, of water
    Remarks remarks; // "chemistry/4"

    const IonShare* share(std::string_view name) const;
};

// Sodium and potassium by themselves where both stand, else their sum as sodium. Nothing is added by
// difference; a balance error beyond the limit is a remark, data are never corrected.
WaterChemistry waterChemistry(const Analysis& analysis, double balanceLimitPercent = 5.0);

struct KurlovLook {
    int decimals = 1; // of the mineralisation
    double leastPercent = 10.0; // ions below are left out
};

// The parts of the formula M (anions / cations); CO3 goes with HCO3, potassium with sodium.
struct Kurlov {
    std::wstring mineralisation; // "0.9"
    struct Part {
        std::wstring ion;
        double percent;
    };
    std::vector<Part> anions, cations; // falling
};
// Nothing where a side has no ion.
std::optional<Kurlov> kurlov(const WaterChemistry& chemistry, const KurlovLook& look = {});
// "M0.9 HCO3 48 SO4 32 Cl 20 / Ca 48 Na 29 Mg 24".
std::wstring kurlovText(const Kurlov& formula);

// "сульфатно-гидрокарбонатная магниево-натриево-кальциевая": ions from so many %-eq on, the main one last.
// In a language of dictionaries/dictionary.h, as the classes below.
std::wstring waterName(const WaterChemistry& chemistry, double leastPercent = 20.0, int language = 0);
// "пресная", of g/l; "жесткая", of °Ж.
std::wstring_view mineralisationClass(double gramsPerLitre, int language = 0);
std::wstring_view hardnessClass(double degrees, int language = 0);
