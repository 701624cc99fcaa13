#pragma once

#include "calc/table_mistake.h"
#include "core/base/typed_number.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Values of standards where there are no tests, and the factors between an oedometer's modulus and that of
// the ground. All of them stand in one text file, standard_tables.txt, which an office may change.

enum class TableSoil {
    AnySand, // of rows only
    CoarseSand, // and gravelly
    MediumSand,
    FineSand,
    SiltySand,
    SandyLoam,
    Loam,
    Clay,
    Pebbles, // and crushed stone
    Gravel, // and grus
};

enum class TableQuantity {
    Cohesion, // kPa
    Friction, // degrees
    Modulus, // MPa
    CohesionFactor, // design values I are the normative ones divided by it
    FrictionFactor,
    ModulusFactor,
    LateralExpansion, // beta
    FieldFactor, // m_k, of the modulus with beta
    OedometerFactor, // m_oed, of the oedometric modulus, without beta
    Resistance, // R0, kPa
};

struct StandardRow {
    TableQuantity quantity = TableQuantity::Cohesion;
    TableSoil soil = TableSoil::AnySand;
    Number liquidityFrom; // "IL 0..0.25"; of a point, "IL 1", both are the same
    Number liquidityTo;
    std::wstring condition; // other words; empty: any
    std::vector<std::pair<double, double>>
        values; // void ratio and value, rising; of a single one the first is 0
    bool isSingle = false;
    std::wstring source;

    bool isSameCase(const StandardRow& other) const;
};

// What a table is entered with. Missing: not known.
struct TableState {
    TableSoil soil = TableSoil::Loam;
    Number voidRatio = {};
    Number liquidity = {};
    Number saturation = {}; // of fine and silty sands, for the resistance
    bool isFilledWithSand = false; // of pebbles and gravel; else the liquidity is that of their filling
};

class StandardTables
{
public:
    // The rows that the program carries.
    static const StandardTables& ofProgram();
    static std::string_view programText();
    // Reads the text of a file. Where there are mistakes it is not to be used: a row that is not understood,
    // one that stands twice, one that the program has and the file lacks.
    static StandardTables read(std::string_view text, std::vector<TableMistake>& mistakes);

    const std::vector<StandardRow>& rows() const { return rows_; }

    // Cohesion, friction, modulus: linear over the void ratio, the first range of liquidity takes harder
    // soils too; missing outside the row and where no row covers the state.
    Number value(TableQuantity quantity, const TableState& state) const;
    // What the design value I is divided by; 1 where there is no row.
    double reliability(TableQuantity quantity, TableSoil soil) const;
    // beta by kind as an element's code has it (1 sand, 2 sandy loam, 3 loam, 4 clay); missing for others.
    Number lateralExpansion(int kind) const;
    // m_k or m_oed: linear over the void ratio, beyond the row its end value.
    struct Factor {
        Number value; // missing for sands, for softer soils, without a void ratio
        bool isBeyond = false;
    };
    Factor oedometerFactor(TableQuantity quantity, const TableState& state) const;
    // R0, kPa: linear over void ratio and liquidity; of sands by density and saturation. Missing outside.
    Number resistance(const TableState& state) const;

private:
    const StandardRow* rowOf(TableQuantity quantity, TableSoil soil, const Number& liquidity) const;
    const StandardRow* rowOf(TableQuantity quantity, TableSoil soil, std::wstring_view condition) const;
    Number clayResistance(const TableState& state) const;

    std::vector<StandardRow> rows_;
};

bool isSand(TableSoil soil);
// Dense, of medium density, loose by the void ratio: 2, 1, 0; missing where it is not known.
std::optional<int> sandDensity(TableSoil soil, const Number& voidRatio);
