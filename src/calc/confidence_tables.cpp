#include "calc/confidence_tables.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace
{

// Number of determinations to the limit, for the biased deviation (two-sided 0.95). From memory of the
// standard's table, and each within 0.005 of the formula below, which stands in for the rows between.
struct OutlierRow {
    std::size_t n;
    double limit;
};
constexpr OutlierRow outlierRows[] = {
    {3, 1.41},
    {4, 1.71},
    {5, 1.92},
    {6, 2.07},
    {7, 2.18},
    {8, 2.27},
    {9, 2.35},
    {10, 2.41},
    {11, 2.47},
    {12, 2.52},
    {13, 2.56},
    {14, 2.60},
    {15, 2.64},
    {16, 2.67},
    {17, 2.70},
    {18, 2.73},
    {19, 2.75},
    {20, 2.78},
    {21, 2.80},
    {22, 2.82},
    {23, 2.84},
    {24, 2.86},
    {25, 2.88},
    {26, 2.90},
    {27, 2.91},
    {28, 2.93},
    {29, 2.94},
    {30, 2.96},
    {35, 3.02},
    {36, 3.03},
    {37, 3.04},
    {40, 3.07},
    {45, 3.12},
    {50, 3.16},
};

// Degrees of freedom to the one-sided coefficient. 0.85 and 0.95 as table E.2 of GOST 20522-2012 has them
// (0.85 of 10 degrees of freedom is 1.10 there, the quantile 1.09); the others are quantiles.
struct StudentRow {
    int freedom;
    double t85;
    double t90;
    double t95;
    double t975;
    double t99;
};
constexpr StudentRow studentRows[] = {
    {3, 1.25, 1.64, 2.35, 3.18, 4.54},
    {4, 1.19, 1.53, 2.13, 2.78, 3.75},
    {5, 1.16, 1.48, 2.01, 2.57, 3.36},
    {6, 1.13, 1.44, 1.94, 2.45, 3.14},
    {7, 1.12, 1.41, 1.90, 2.36, 3.00},
    {8, 1.11, 1.40, 1.86, 2.31, 2.90},
    {9, 1.10, 1.38, 1.83, 2.26, 2.82},
    {10, 1.10, 1.37, 1.81, 2.23, 2.76},
    {11, 1.09, 1.36, 1.80, 2.20, 2.72},
    {12, 1.08, 1.36, 1.78, 2.18, 2.68},
    {13, 1.08, 1.35, 1.77, 2.16, 2.65},
    {14, 1.08, 1.35, 1.76, 2.14, 2.62},
    {15, 1.07, 1.34, 1.75, 2.13, 2.60},
    {16, 1.07, 1.34, 1.75, 2.12, 2.58},
    {17, 1.07, 1.33, 1.74, 2.11, 2.57},
    {18, 1.07, 1.33, 1.73, 2.10, 2.55},
    {19, 1.07, 1.33, 1.73, 2.09, 2.54},
    {20, 1.06, 1.33, 1.72, 2.09, 2.53},
    {25, 1.06, 1.32, 1.71, 2.06, 2.49},
    {30, 1.05, 1.31, 1.70, 2.04, 2.46},
    {40, 1.05, 1.30, 1.68, 2.02, 2.42},
    {60, 1.05, 1.30, 1.67, 2.00, 2.39},
};

struct ColumnRow {
    double confidence;
    double StudentRow::*column;
};
constexpr ColumnRow columnRows[] = {
    {0.85, &StudentRow::t85},
    {0.90, &StudentRow::t90},
    {0.95, &StudentRow::t95},
    {0.975, &StudentRow::t975},
    {0.99, &StudentRow::t99},
};

// Newton's steps from Hastings' start: the normal distribution is exact in the library.
double normalQuantile(double probability)
{
    const double t = std::sqrt(-2 * std::log(1 - probability));
    double z = t
        - (2.515517 + 0.802853 * t + 0.010328 * t * t)
            / (1 + 1.432788 * t + 0.189269 * t * t + 0.001308 * t * t * t);
    for (int i = 0; i < 3; ++i) {
        const double rest = probability - 0.5 * std::erfc(-z / std::numbers::sqrt2);
        z += rest * std::sqrt(2 * std::numbers::pi) * std::exp(z * z / 2);
    }
    return z;
}

} // namespace

double studentQuantile(double probability, double freedom)
{
    // The expansion of Fisher and Cornish about the normal quantile.
    const double z = normalQuantile(probability);
    const double z2 = z * z;
    const double g1 = z * (z2 + 1) / 4;
    const double g2 = z * (5 * z2 * z2 + 16 * z2 + 3) / 96;
    const double g3 = z * (3 * z2 * z2 * z2 + 19 * z2 * z2 + 17 * z2 - 15) / 384;
    const double g4 =
        z * (79 * std::pow(z2, 4) + 776 * std::pow(z2, 3) + 1482 * z2 * z2 - 1920 * z2 - 945) / 92160;
    return z + g1 / freedom + g2 / std::pow(freedom, 2) + g3 / std::pow(freedom, 3)
        + g4 / std::pow(freedom, 4);
}

Number outlierLimit(std::size_t n)
{
    if (n < outlierRows[0].n)
        return {};
    const auto row = std::lower_bound(
        std::begin(outlierRows), std::end(outlierRows), n, [](const OutlierRow& each, std::size_t wanted) {
            return each.n < wanted;
        });
    if (row != std::end(outlierRows) && row->n == n)
        return row->limit;
    const double count = static_cast<double>(n);
    const double t = studentQuantile(1 - 0.05 / (2 * count), count - 2);
    return std::sqrt(count - 1) * t / std::sqrt(count - 2 + t * t);
}

Number studentCoefficient(int freedom, double confidence)
{
    const auto column = std::find_if(std::begin(columnRows),
        std::end(columnRows),
        [&](const ColumnRow& each) { return std::abs(each.confidence - confidence) < 1e-6; });
    if (column == std::end(columnRows) || freedom < studentRows[0].freedom)
        return {};
    const auto above = std::upper_bound(
        std::begin(studentRows), std::end(studentRows), freedom, [](int wanted, const StudentRow& each) {
            return wanted < each.freedom;
        });
    return (*std::prev(above)).*(column->column);
}
