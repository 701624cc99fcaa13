#include "calc/aggressiveness.h"

#include <cmath>

namespace
{

// From this resistivity on a test of the cathode current is not needed, Ohm m (GOST 9.602).
constexpr double resistivityWithoutCurrent = 130.0;

// The greatest pH of the rule for metal in water.
constexpr double greatestWaterPh = 11.0;

constexpr double milligramsInGram = 1000.0;
constexpr double milligramsPerKilogramInPercent = 10000.0;

std::string cellName(ChemistryCell cell)
{
    return "chemistry/" + std::to_string(static_cast<int>(cell));
}

AnalysisValue divided(AnalysisValue value, double by)
{
    if (value.value)
        *value.value /= by;
    return value;
}

// pH that no water has is no pH.
AnalysisValue phOf(const Analysis& analysis)
{
    const AnalysisValue ph = analysis[CellPH];
    if (ph.value && (*ph.value < 0.0 || *ph.value > 14.0))
        return {};
    return ph;
}

// One index at a time: the value is judged by the rows of its case, the worse of them counts.
class Judge
{
public:
    Judge(const AggressivenessLimits& limits, Attacked attacked, bool isWater)
        : limits_(limits)
        , attacked_(attacked)
        , isWater_(isWater)
    {
    }

    // A row without a grade, a cement or a condition takes any.
    void index(const std::string& name,
        const AnalysisValue& value,
        ChemistryCell cell,
        std::string_view grade = {},
        std::wstring_view cement = {},
        std::wstring_view condition = {})
    {
        if (!value.value)
            return;
        std::optional<IndexVerdict> worst;
        for (const LimitRow& row : limits_.rows()) {
            if (row.attacked != attacked_ || row.isWater != isWater_ || row.index != name)
                continue;
            if ((!row.grade.empty() && row.grade != grade) || (!row.cement.empty() && row.cement != cement)
                || (!row.condition.empty() && row.condition != condition))
                continue;
            const Aggressiveness level = row.verdict(*value.value);
            // "< 20" tells a class only where 20 and nothing at all are of the same.
            if (value.isAtMost && row.verdict(0.0) != level) {
                remark(cell, L"«Не более» больше предела: степень по этому показателю не определена");
                return;
            }
            if (!worst || level > worst->level)
                worst = IndexVerdict{name, level, &row};
        }
        if (!worst)
            return;
        if (value.isAtMost)
            remark(cell, L"Принято как «не более»: предел лежит выше");
        verdict_.indexes.push_back(*worst);
    }

    void remark(ChemistryCell cell, const wchar_t* text)
    {
        verdict_.remarks.push_back({Remark::Doubtful, cellName(cell), text});
    }

    AggressivenessVerdict verdict()
    {
        for (const IndexVerdict& one : verdict_.indexes) {
            if (verdict_.level && one.level <= *verdict_.level)
                continue;
            verdict_.level = one.level;
            if (one.level != Aggressiveness::None)
                verdict_.by = one.index;
        }
        return std::move(verdict_);
    }

private:
    const AggressivenessLimits& limits_;
    Attacked attacked_;
    bool isWater_;
    AggressivenessVerdict verdict_;
};

// The column of the table of sulphates.
std::wstring_view bicarbonateColumn(const Number& meq)
{
    if (!meq || *meq <= 3.0)
        return L"HCO3 до 3";
    return *meq <= 6.0 ? L"HCO3 3-6" : L"HCO3 свыше 6";
}

// In the order in which the table has its indexes.
AggressivenessVerdict concreteInWater(const AggressivenessLimits& limits,
    const Analysis& analysis,
    const WaterChemistry& chemistry,
    const ProtectionChoice& choice,
    std::string_view grade)
{
    Judge judge(limits, Attacked::Concrete, true);
    const AnalysisValue bicarbonate = divided(analysis[CellHCO3], ionNamed("HCO3")->equivalent);
    Number alkali;
    for (const char* name : {"Na", "K"})
        if (const IonShare* share = chemistry.share(name))
            alkali = alkali.value_or(0.0) + share->mg / milligramsInGram;
    judge.index("HCO3", bicarbonate, CellHCO3, grade);
    judge.index("pH", phOf(analysis), CellPH, grade);
    judge.index("CO2", analysis[CellAggressiveCO2], CellAggressiveCO2, grade);
    judge.index("Mg", analysis[CellMg], CellMg, grade);
    judge.index("NH4", analysis[CellNH4], CellNH4, grade);
    judge.index("Na+K", {alkali, false}, CellNaK, grade);
    judge.index("salts", {chemistry.mineralisationGL, false}, CellDryResidue, grade);
    if (analysis[CellSO4].value && !bicarbonate.value)
        judge.remark(CellHCO3, L"HCO3 не определен: пределы сульфатов взяты для наименьшего содержания");
    judge.index(
        "SO4", analysis[CellSO4], CellSO4, grade, choice.cement, bicarbonateColumn(bicarbonate.value));
    return judge.verdict();
}

// Sulphates and chlorides of soil stand in cells of their own, else among the ions.
ChemistryCell soilCell(const Analysis& analysis, ChemistryCell own, ChemistryCell ion)
{
    return analysis[own].value ? own : ion;
}

std::wstring coverCondition(const ProtectionChoice& choice)
{
    return L"слой " + std::to_wstring(choice.coverMm);
}

} // namespace

bool Limit::isReachedBy(double given) const
{
    // Sums of decimals miss a limit that they should meet by the last binary digit.
    if (std::abs(given - value) <= 1e-9 * std::abs(value))
        given = value;
    switch (sign) {
    case Above:
        return given > value;
    case NotBelow:
        return given >= value;
    case Below:
        return given < value;
    default:
        return given <= value;
    }
}

Aggressiveness LimitRow::verdict(double value) const
{
    constexpr Aggressiveness levels[] = {
        Aggressiveness::Weak, Aggressiveness::Medium, Aggressiveness::Strong};
    Aggressiveness level = Aggressiveness::None;
    for (std::size_t i = 0; i < 3; ++i)
        if (limits[i] && limits[i]->isReachedBy(value))
            level = levels[i];
    return level;
}

AggressivenessVerdict concreteVerdict(const AggressivenessLimits& limits,
    const Analysis& analysis,
    const WaterChemistry& chemistry,
    const ProtectionChoice& choice,
    std::string_view grade)
{
    if (analysis.isWater)
        return concreteInWater(limits, analysis, chemistry, choice, grade);
    Judge judge(limits, Attacked::Concrete, false);
    const ChemistryCell cell = soilCell(analysis, CellSoilSO4, CellSO4);
    judge.index("SO4", analysis[cell], cell, grade, choice.cement);
    return judge.verdict();
}

AggressivenessVerdict reinforcementVerdict(
    const AggressivenessLimits& limits, const Analysis& analysis, const ProtectionChoice& choice)
{
    Judge judge(limits, Attacked::Reinforcement, analysis.isWater);
    std::string grade = choice.reinforcementGrade;
    if (analysis.isWater) {
        if (grade.empty())
            grade = "W6-W8";
        const std::wstring condition = choice.isOldEdition
            ? L"СНиП 2.03.11-85"
            : coverCondition(choice) + (choice.isFiltering ? L", Кф от 0.1" : L", Кф до 0.1");
        judge.index("Cl", analysis[CellCl], CellCl, grade, {}, condition);
    } else {
        if (grade.empty())
            grade = "W4-W6";
        const ChemistryCell cell = soilCell(analysis, CellSoilCl, CellCl);
        judge.index("Cl", analysis[cell], cell, grade, {}, coverCondition(choice));
    }
    return judge.verdict();
}

AggressivenessVerdict steelVerdict(
    const AggressivenessLimits& limits, const Analysis& analysis, const Number& cathodeCurrent)
{
    Judge judge(limits, Attacked::Steel, analysis.isWater);
    if (!analysis.isWater) {
        const AnalysisValue resistivity = analysis[CellResistivity];
        judge.index("R", resistivity, CellResistivity);
        if (!resistivity.value || *resistivity.value <= resistivityWithoutCurrent)
            judge.index("J", {cathodeCurrent, false}, CellResistivity);
        return judge.verdict();
    }
    const AnalysisValue ph = phOf(analysis);
    judge.index("pH", ph, CellPH);
    const Number sulphate = analysis[CellSO4].exact();
    const Number chloride = analysis[CellCl].exact();
    AggressivenessVerdict verdict = judge.verdict();
    if (verdict.level == Aggressiveness::Strong)
        return verdict;
    if (!ph.value || *ph.value > greatestWaterPh || !sulphate || !chloride)
        return {}; // the rule needs all three
    Judge both(limits, Attacked::Steel, true);
    both.index("SO4+Cl", {(*sulphate + *chloride) / milligramsInGram, false}, CellSO4);
    both.index("pH", ph, CellPH);
    return both.verdict();
}

AggressivenessVerdict sheathVerdict(
    const AggressivenessLimits& limits, const Analysis& analysis, Attacked leadOrAluminium)
{
    Judge judge(limits, leadOrAluminium, false);
    if (analysis.isWater)
        return judge.verdict();
    judge.index("pH", phOf(analysis), CellPH);
    judge.index("humus", analysis[CellHumus], CellHumus);
    judge.index("NO3", divided(analysis[CellNO3], milligramsPerKilogramInPercent), CellNO3);
    const ChemistryCell chloride = soilCell(analysis, CellSoilCl, CellCl);
    judge.index("Cl", divided(analysis[chloride], milligramsPerKilogramInPercent), chloride);
    judge.index("Fe", divided(analysis[CellFe], milligramsPerKilogramInPercent), CellFe);
    return judge.verdict();
}

const char* aggressivenessName(Aggressiveness level)
{
    constexpr const char* names[] = {"none", "weak", "medium", "strong"};
    return names[static_cast<std::size_t>(level)];
}

const char* metalAggressivenessName(Aggressiveness level)
{
    constexpr const char* names[] = {"low", "low", "medium", "high"};
    return names[static_cast<std::size_t>(level)];
}
