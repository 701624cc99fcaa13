#pragma once

#include "core/base/typed_number.h"

#include <string>
#include <string_view>
#include <vector>

// Values of standards where there are no tests: strength and modulus by kind of soil, void ratio and
// liquidity index; resistance of the ground beneath footings. All rows stand in one text file, which the user
// can change.

enum class TableSoil {
    GravellySand, // and coarse
    MediumSand,
    FineSand,
    SiltySand,
    SandyLoam,
    Loam,
    Clay,
};

enum class TableQuantity {
    Cohesion, // kPa
    Friction, // degrees
    Modulus, // MPa
};

// Values over the void ratio, for a range of the liquidity index (of sands 0 to 0).
struct TableRow {
    TableQuantity quantity = TableQuantity::Cohesion;
    TableSoil soil = TableSoil::MediumSand;
    double liquidityFrom = 0;
    double liquidityTo = 0;
    double firstVoidRatio = 0.45; // then every 0.1
    std::vector<Number> values;
};

// Reads the text of the file; what cannot be read goes into the faults, a line each, and is left out.
std::vector<TableRow> readStandardTables(std::string_view text, std::vector<std::string>& faults);
// The rows that the program carries.
const std::vector<TableRow>& standardTables();

// Linear over the void ratio; missing outside the row, and for a liquidity index that no row covers.
Number tableValue(const std::vector<TableRow>& tables,
    TableQuantity quantity,
    TableSoil soil,
    const Number& voidRatio,
    const Number& liquidity);

// For bearing capacity (index I) such a value is divided by this; of index II by 1.
double tableFactor(TableQuantity quantity, TableSoil soil);
