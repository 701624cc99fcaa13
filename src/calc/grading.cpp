#include "calc/grading.h"

#include "dictionaries/fractions.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double permittedDeviation = 0.1; // of the sum from 100 %
constexpr double permittedLoss = 1.0; // in sieving, %

const FractionRow* rowOf(int number)
{
    const auto row = std::find_if(std::begin(fractionRows),
        std::end(fractionRows),
        [&](const FractionRow& each) { return each.number == number; });
    return row == std::end(fractionRows) ? nullptr : &*row;
}

// The bounds stand as singles; the scale means the decimal.
double decimalOf(float bound)
{
    return roundedTo(static_cast<double>(bound), 4);
}

double boundOfRank(int rank, GrainScale scale)
{
    return decimalOf(scale == GrainScale::Above200 ? fractionBound200.at(rank) : fractionBound800.at(rank));
}

std::string cellOf(int number)
{
    return "grading/" + std::to_string(number);
}

// Shares by rank; an impossible one is remarked and spoils the curve.
std::map<int, double> sharesByRank(const std::map<int, double>& fractions, GrainScale scale, Grading& result)
{
    std::map<int, double> shares;
    for (const auto& [number, share] : fractions) {
        const int rank = fractionRank(number, scale);
        if (rank == 0) {
            result.remarks.push_back(
                {Remark::Impossible, cellOf(number), L"Фракция из другой шкалы, чем выбрана в проекте"});
        } else if (share < 0 || share > 100) {
            result.remarks.push_back(
                {Remark::Impossible, cellOf(number), L"Содержание фракции вне пределов 0 – 100 %"});
        } else {
            shares.emplace(rank, share);
        }
    }
    return shares;
}

void warnOfGaps(const std::map<int, double>& shares, Grading& result)
{
    const int ranks = shares.rbegin()->first - shares.begin()->first + 1;
    if (static_cast<std::size_t>(ranks) != shares.size())
        result.remarks.push_back({Remark::Doubtful,
            "grading",
            L"Между фракциями есть незаполненная: в расчёте она считается за 0 %"});
}

void drawCurve(const std::map<int, double>& shares, GrainScale scale, Grading& result)
{
    const int first = shares.begin()->first;
    const int last = shares.rbegin()->first;
    if (first > 1)
        result.curve.push_back({boundOfRank(first - 1, scale), 100, true});
    double coarser = 0;
    for (int rank = first; rank <= last; ++rank) {
        const auto share = shares.find(rank);
        coarser += share == shares.end() ? 0 : share->second;
        const bool isReal = rank < static_cast<int>(fractionRanks);
        result.curve.push_back({boundOfRank(rank, scale), std::max(0.0, 100 - coarser), isReal});
    }
}

// Straight between two points over the logarithm of the diameter; on a flat piece the coarser end.
Number diameterAt(const std::vector<GrainPoint>& curve, double finer)
{
    for (std::size_t i = 0; i < curve.size() && curve[i].isReal; ++i) {
        const double coarse = roundedTo(curve[i].finer, 6);
        if (coarse == finer)
            return curve[i].diameter;
        if (coarse < finer || i + 1 == curve.size() || !curve[i + 1].isReal)
            continue;
        const double fine = roundedTo(curve[i + 1].finer, 6);
        if (fine < finer)
            return curve[i + 1].diameter
                * std::pow(curve[i].diameter / curve[i + 1].diameter, (finer - fine) / (coarse - fine));
    }
    return {};
}

void readDiameters(Grading& result)
{
    result.d10 = diameterAt(result.curve, 10);
    result.d30 = diameterAt(result.curve, 30);
    result.d50 = diameterAt(result.curve, 50);
    result.d60 = diameterAt(result.curve, 60);
    if (result.d10 && result.d60)
        result.uniformity = *result.d60 / *result.d10;
    if (result.uniformity && result.d30)
        result.curvature = *result.d30 * *result.d30 / (*result.d60 * *result.d10);
}

double sumOf(const std::map<int, double>& shares)
{
    double sum = 0;
    for (const auto& [number, share] : shares)
        sum += share;
    return sum;
}

} // namespace

int fractionRank(int number, GrainScale scale)
{
    const FractionRow* row = rowOf(number);
    if (!row)
        return 0;
    return scale == GrainScale::Above200 ? row->rank200 : row->rank800;
}

double fractionBound(int number, GrainScale scale)
{
    const int rank = fractionRank(number, scale);
    return rank == 0 ? 0 : boundOfRank(rank, scale);
}

Grading gradingOf(const std::map<int, double>& fractions, GrainScale scale)
{
    Grading result;
    const std::map<int, double> shares = sharesByRank(fractions, scale, result);
    const bool arePossible = shares.size() == fractions.size();
    if (shares.empty())
        return result;
    result.sum = sumOf(shares);
    warnOfGaps(shares, result);
    const double deviation = roundedTo(*result.sum - 100, 6);
    if (std::abs(deviation) > permittedDeviation) {
        result.remarks.push_back({Remark::Impossible,
            "grading",
            L"Сумма фракций " + numberText(result.sum, 1) + L" %, а должна быть 100 %"
                + (std::abs(deviation) <= permittedLoss ? L"; потерю до 1 % можно разнести по фракциям"
                                                        : L"")});
    }
    result.isComplete = arePossible && std::abs(deviation) <= permittedDeviation;
    if (arePossible)
        drawCurve(shares, scale, result);
    if (result.isComplete)
        readDiameters(result);
    return result;
}

std::map<int, double> withLossSpread(const std::map<int, double>& fractions)
{
    const double sum = sumOf(fractions);
    const double loss = roundedTo(100 - sum, 6);
    if (sum <= 0 || loss == 0 || std::abs(loss) > permittedLoss)
        return {};
    std::map<int, double> spread = fractions;
    for (auto& [number, share] : spread)
        share *= 100 / sum;
    return spread;
}

int rulingFraction(const std::map<int, double>& fractions)
{
    // Fraction numbers rise as the grains get finer, in either scale.
    const auto ruling = std::max_element(
        fractions.begin(), fractions.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
    return ruling == fractions.end() || ruling->second <= 0 ? 0 : ruling->first;
}
