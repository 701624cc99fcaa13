#include "calc/comparison.h"

#include <cmath>
#include <limits>
#include <utility>

static constexpr double significance = 0.05;
static constexpr std::size_t leastValues = 3;

// The continued fraction of the incomplete beta function, by the method of Lentz.
static double betaFraction(double a, double b, double x)
{
    constexpr double tiny = 1e-300;
    constexpr int mostSteps = 500;
    const auto notZero = [](double value) { return std::fabs(value) < tiny ? tiny : value; };
    double c = 1;
    double d = 1 / notZero(1 - (a + b) * x / (a + 1));
    double fraction = d;
    for (int m = 1; m <= mostSteps; ++m) {
        const double even = m * (b - m) * x / ((a + 2 * m - 1) * (a + 2 * m));
        d = 1 / notZero(1 + even * d);
        c = notZero(1 + even / c);
        fraction *= d * c;
        const double odd = -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1));
        d = 1 / notZero(1 + odd * d);
        c = notZero(1 + odd / c);
        const double step = d * c;
        fraction *= step;
        if (std::fabs(step - 1) < 1e-14)
            break;
    }
    return fraction;
}

static double incompleteBeta(double a, double b, double x)
{
    if (x <= 0)
        return 0;
    if (x >= 1)
        return 1;
    const double front = std::exp(
        std::lgamma(a + b) - std::lgamma(a) - std::lgamma(b) + a * std::log(x) + b * std::log(1 - x));
    // On the side where the fraction converges fast.
    return x < (a + 1) / (a + b + 2) ? front * betaFraction(a, b, x) / a
                                     : 1 - front * betaFraction(b, a, 1 - x) / b;
}

double fisherTail(double f, double freedomA, double freedomB)
{
    return incompleteBeta(freedomB / 2, freedomA / 2, freedomB / (freedomB + freedomA * f));
}

double studentTails(double t, double freedom)
{
    return incompleteBeta(freedom / 2, 0.5, freedom / (freedom + t * t));
}

Comparison compare(const CompareInput& first, const CompareInput& second)
{
    Comparison result;
    if (first.count < leastValues || second.count < leastValues)
        return result;
    CompareInput a = first;
    CompareInput b = second;
    if (a.deviation < b.deviation)
        std::swap(a, b);
    if (!(a.deviation > 0))
        return result;
    const double freedomA = static_cast<double>(a.count - 1);
    const double freedomB = static_cast<double>(b.count - 1);
    if (b.deviation > 0) {
        result.fisher = a.deviation * a.deviation / (b.deviation * b.deviation);
        result.fisherProbability = std::fmin(1, 2 * fisherTail(*result.fisher, freedomA, freedomB));
    }
    result.spreadsDiffer = !result.fisher || *result.fisherProbability < significance;
    const double errorA = a.deviation * a.deviation / (freedomA + 1);
    const double errorB = b.deviation * b.deviation / (freedomB + 1);
    double error = errorA + errorB;
    double freedom = error * error / (errorA * errorA / freedomA + errorB * errorB / freedomB);
    if (!result.spreadsDiffer) {
        freedom = freedomA + freedomB;
        const double common =
            (freedomA * a.deviation * a.deviation + freedomB * b.deviation * b.deviation) / freedom;
        error = common / (freedomA + 1) + common / (freedomB + 1);
    }
    result.student = std::fabs(a.mean - b.mean) / std::sqrt(error);
    result.studentFreedom = freedom;
    result.studentProbability = studentTails(*result.student, freedom);
    result.meansDiffer = *result.studentProbability < significance;
    result.isKnown = true;
    return result;
}
