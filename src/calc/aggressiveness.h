#pragma once

#include "calc/chemistry.h"
#include "calc/table_mistake.h"

#include <memory>

// Aggressiveness of water and soil to concrete, reinforcement and metals. Every limit is a row of a table
// with its standard; the table stands in one text file that an office can correct, a copy of it in the
// program.

// "None" is called low for metals, then Medium and Strong are medium and high; Weak is not used there.
enum class Aggressiveness { None, Weak, Medium, Strong };

enum class Attacked { Concrete, Reinforcement, Steel, Lead, Aluminium };

// Worse when the value stands so to the number.
struct Limit {
    enum Sign { Above, NotBelow, Below, NotAbove };
    Sign sign = Above;
    double value = 0.0;

    bool isReachedBy(double given) const;
};

struct LimitRow {
    Attacked attacked = Attacked::Concrete;
    bool isWater = true;
    std::string index; // "SO4", "pH", "salts"
    std::string grade; // of the concrete: "W4", "W10-W14"; empty: all
    std::wstring cement; // empty: all
    std::wstring condition; // "HCO3 до 3", "слой 20, Кф от 0.1"; empty: none
    std::optional<Limit> limits[3]; // weak, medium, strong
    std::wstring source; // standard and table

    // How the value stands; a row without limits says none.
    Aggressiveness verdict(double value) const;
    // Same place in the table: everything but limits and source.
    bool isSameCase(const LimitRow& other) const;
};

class AggressivenessLimits
{
public:
    // Those of the program.
    static const AggressivenessLimits& ofProgram();
    // Of a file's text (UTF-8). Each mistake is told; a file with one is not to be used. A case that the
    // program knows and the file lacks is a mistake.
    static AggressivenessLimits read(std::string_view text, std::vector<TableMistake>& mistakes);
    // The text of the program's own table: what the file beside the program is at first.
    static std::string_view programText();

    const std::vector<LimitRow>& rows() const { return rows_; }

private:
    std::vector<LimitRow> rows_;
};

// What is chosen for the site.
struct ProtectionChoice {
    std::wstring cement = L"портландцемент";
    int coverMm = 20;
    bool isFiltering = true; // Kf at least 0.1 m/day
    bool isOldEdition = false; // chlorides of water by the edition of 1985
    std::string reinforcementGrade; // empty: the lowest of the table, W6-W8 in water and W4-W6 in soil
};

struct IndexVerdict {
    std::string index;
    Aggressiveness level = Aggressiveness::None;
    const LimitRow* row = nullptr; // of the limits that were used; lives as long as these
};

struct AggressivenessVerdict {
    std::optional<Aggressiveness> level; // of the worst index; nothing where none was determined
    std::string
        by; // the ruling index, the first of the table's where several are alike; empty where none rules
    std::vector<IndexVerdict> indexes; // in the table's order
    Remarks remarks; // an index that could not be judged: "chemistry/0"
};

// A grade of the table: "W4", "W6", "W8", "W10-W14", "W16-W20".
AggressivenessVerdict concreteVerdict(const AggressivenessLimits& limits,
    const Analysis& analysis,
    const WaterChemistry& chemistry,
    const ProtectionChoice& choice,
    std::string_view grade);
// In water by the edition in force: Weak stands for "aggressive".
AggressivenessVerdict reinforcementVerdict(
    const AggressivenessLimits& limits, const Analysis& analysis, const ProtectionChoice& choice);
// Soil by resistivity and cathode current (A/m2), which is not needed above 130 Ohm m; water by pH and salts.
AggressivenessVerdict steelVerdict(
    const AggressivenessLimits& limits, const Analysis& analysis, const Number& cathodeCurrent);
// Sheaths of cables in soil.
AggressivenessVerdict sheathVerdict(
    const AggressivenessLimits& limits, const Analysis& analysis, Attacked leadOrAluminium);

// "none", "weak", "medium", "strong"; "low", "medium", "high".
const char* aggressivenessName(Aggressiveness level);
const char* metalAggressivenessName(Aggressiveness level);
