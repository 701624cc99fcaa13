#include "calc/oedometer.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{

constexpr double largestStrain = 0.4;

std::string cellOf(int test, int row)
{
    return "compression/" + std::to_string(test) + "/" + std::to_string(row);
}

class Test
{
public:
    explicit Test(const OedometerInput& input)
        : input_(input)
    {
        result_.test = input.test;
        result_.voidRatio = input.voidRatio;
        result_.height = input.height;
        result_.beta = input.beta;
    }

    Oedometer take()
    {
        if (!input_.height || *input_.height <= 0) {
            remark(Remark::Missing, 0, L"Не задана высота образца: относительная деформация не вычислена");
            return std::move(result_);
        }
        makeRows();
        markRepeated();
        checkBranch(&OedometerRow::strain, L"Деформация уменьшается с ростом нагрузки");
        checkBranch(
            &OedometerRow::soakedStrain, L"Деформация замоченного образца уменьшается с ростом нагрузки");
        if (input_.test != 25)
            makeIntervals();
        if (!result_.voidRatio && !result_.rows.empty())
            remark(Remark::Missing,
                result_.rows.front().row,
                L"Нет коэффициента пористости: m0 и коэффициенты пористости ступеней не вычислены");
        return std::move(result_);
    }

private:
    void remark(Remark::Kind kind, int row, const wchar_t* text)
    {
        result_.remarks.push_back({kind, cellOf(input_.test, row), text});
    }

    Number strainOf(const Number& deformation, const OedometerStage& stage, const Number& height)
    {
        if (!deformation || !height || *height <= 0)
            return {};
        const double strain = (*deformation - stage.correction.value_or(0)) / *height;
        if (strain < largestStrain)
            return strain;
        remark(Remark::Impossible, stage.row, L"Деформация больше 40 % высоты образца");
        return {};
    }

    Number voidRatioAt(const Number& strain, const OedometerStage& stage)
    {
        if (!strain || !input_.voidRatio)
            return {};
        const double ratio = *input_.voidRatio - *strain * (1 + *input_.voidRatio);
        if (ratio > 0)
            return ratio;
        remark(Remark::Impossible,
            stage.row,
            L"Деформация больше объёма пор: коэффициент пористости не положителен");
        return {};
    }

    void makeRows()
    {
        std::vector<OedometerStage> stages = input_.stages;
        std::stable_sort(stages.begin(), stages.end(), [](const OedometerStage& a, const OedometerStage& b) {
            return a.load < b.load;
        });
        const Number second = input_.secondHeight ? input_.secondHeight : input_.height;
        const Number soakedHeight = input_.test == 23 ? second : input_.height;
        for (const OedometerStage& stage : stages) {
            if (!stage.deformation && !stage.soakedDeformation)
                continue;
            OedometerRow row;
            row.load = stage.load;
            row.row = stage.row;
            const Number strain = strainOf(stage.deformation, stage, input_.height);
            // What test 22 measures is the soaked branch alone.
            (input_.test == 22 ? row.soakedStrain : row.strain) = strain;
            if (input_.test != 22 && input_.test != 21)
                row.soakedStrain = strainOf(stage.soakedDeformation, stage, soakedHeight);
            row.voidRatio = voidRatioAt(row.strain, stage);
            row.soakedVoidRatio = voidRatioAt(row.soakedStrain, stage);
            if (row.load < 0)
                remark(Remark::Impossible, row.row, L"Отрицательная нагрузка");
            else
                result_.rows.push_back(row);
        }
    }

    void markRepeated()
    {
        auto& rows = result_.rows;
        for (std::size_t i = 1; i < rows.size(); ++i)
            if (rows[i].load - rows[i - 1].load < 1e-9) {
                rows[i].isRepeated = rows[i - 1].isRepeated = true;
                remark(Remark::Impossible,
                    rows[i].row,
                    L"Одна и та же нагрузка стоит дважды: ступень не рассчитана");
            }
    }

    void checkBranch(Number OedometerRow::*strain, const wchar_t* text)
    {
        const OedometerRow* before = nullptr;
        for (const OedometerRow& row : result_.rows) {
            if (!(row.*strain) || row.isRepeated)
                continue;
            if (before && *(row.*strain) < *(before->*strain) - 1e-12)
                remark(Remark::Impossible, row.row, text);
            before = &row;
        }
    }

    void makeIntervals()
    {
        const auto strain =
            mainBranch(result_) == Branch::Natural ? &OedometerRow::strain : &OedometerRow::soakedStrain;
        const OedometerRow* before = nullptr;
        for (const OedometerRow& row : result_.rows) {
            if (row.isRepeated)
                before = nullptr;
            else if (row.*strain) {
                if (before)
                    result_.intervals.push_back(intervalOf(result_, before->load, row.load));
                before = &row;
            }
        }
    }

    const OedometerInput& input_;
    Oedometer result_;
};

// Not "infinite" where nothing gave way, but missing.
Number slopeOf(double from, double to, const Number& strainFrom, const Number& strainTo)
{
    if (!strainFrom || !strainTo || *strainTo - *strainFrom <= 1e-12)
        return {};
    return (to - from) / (*strainTo - *strainFrom);
}

Number times(const Number& a, const Number& b)
{
    return a && b ? Number(*a * *b) : Number();
}

} // namespace

Oedometer oedometerOf(const OedometerInput& input)
{
    return Test(input).take();
}

Branch mainBranch(const Oedometer& test)
{
    return test.test == 22 ? Branch::Soaked : Branch::Natural;
}

Number strainAt(const Oedometer& test, double load, Branch branch)
{
    const auto strain = branch == Branch::Natural ? &OedometerRow::strain : &OedometerRow::soakedStrain;
    double loadBefore = 0;
    double strainBefore = 0;
    for (const OedometerRow& row : test.rows) {
        if (!(row.*strain))
            continue;
        const double own = *(row.*strain);
        if (std::abs(row.load - load) < 1e-9)
            return row.isRepeated ? Number() : Number(own);
        if (row.load > load) {
            if (row.isRepeated || row.load <= loadBefore)
                return {};
            return strainBefore + (own - strainBefore) * (load - loadBefore) / (row.load - loadBefore);
        }
        loadBefore = row.load;
        strainBefore = own;
    }
    return std::abs(load) < 1e-9 && !test.rows.empty() ? Number(0.0) : Number();
}

OedometerInterval intervalOf(const Oedometer& test, double from, double to)
{
    OedometerInterval interval;
    interval.from = from;
    interval.to = to;
    if (test.test == 25 || to - from <= 1e-9)
        return interval;
    const Branch branch = mainBranch(test);
    const Number before = strainAt(test, from, branch);
    const Number after = strainAt(test, to, branch);
    // A specimen that rises under a greater load was read wrongly: it has no compressibility.
    if (before && after && *after >= *before - 1e-12 && test.voidRatio)
        interval.compressibility = (*after - *before) * (1 + *test.voidRatio) / (to - from);
    interval.oedometricModulus = slopeOf(from, to, before, after);
    interval.modulus = times(interval.oedometricModulus, test.beta);
    if (test.test != 21)
        interval.soakedModulus =
            times(slopeOf(from, to, strainAt(test, from, Branch::Soaked), strainAt(test, to, Branch::Soaked)),
                test.beta);
    return interval;
}

int kindOfPlasticity(const Number& plasticity)
{
    // 0.24 - 0.17 is a little more than 7 per cent in binary fractions.
    const double index = plasticity ? roundedTo(*plasticity, 6) : 0;
    if (index < 1)
        return 0;
    if (index <= 7)
        return 2;
    return index <= 17 ? 3 : 4;
}
