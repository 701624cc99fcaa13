#include "calc/confidence_tables.h"
#include "calc/number_support.h"
#include "calc/shear.h"
#include "calc/statistics.h"
#include "dictionaries/student_coefficients.h"

#include <algorithm>
#include <numbers>

namespace
{

std::vector<Determination> valuesOf(const std::vector<double>& numbers)
{
    std::vector<Determination> values;
    for (const double number : numbers)
        values.push_back({number, false, false});
    return values;
}

std::vector<double> ruledOut(const std::vector<Determination>& values, const Statistics& result)
{
    std::vector<double> out;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (result.excluded[i] == ExcludedBy::Rule)
            out.push_back(values[i].value);
    return out;
}

void expectLevel(const std::vector<ConfidenceLevel>& levels,
    double confidence,
    double student,
    double lower,
    double tolerance)
{
    const ConfidenceLevel* level = levelOf(levels, confidence);
    ASSERT_NE(level, nullptr);
    EXPECT_EQ(level->student, student);
    EXPECT_NEAR(level->lower, lower, tolerance);
}

// Area of Student's distribution up to t by Simpson's rule: an oracle that shares nothing with the tables.
double studentArea(double t, double freedom)
{
    const double scale = std::exp(std::lgamma((freedom + 1) / 2) - std::lgamma(freedom / 2))
        / std::sqrt(freedom * std::numbers::pi);
    const auto density = [&](double x) { return scale * std::pow(1 + x * x / freedom, -(freedom + 1) / 2); };
    constexpr int steps = 2000;
    double area = density(0) + density(t);
    for (int i = 1; i < steps; ++i)
        area += density(t * i / steps) * (i % 2 == 1 ? 4 : 2);
    return 0.5 + area * t / steps / 3;
}

double exactQuantile(double probability, double freedom)
{
    double low = 0;
    double high = 60;
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2;
        (studentArea(middle, freedom) < probability ? low : high) = middle;
    }
    return low;
}

const std::vector<double> densities = {1.92, 1.95, 1.89, 1.97, 1.93, 1.90, 1.94, 1.96, 1.91, 1.93};

} // namespace

TEST(ElementStatistics, DensityOfTheWorkedExample)
{
    const Statistics result = statisticsOf(valuesOf(densities));
    EXPECT_EQ(result.count, 10U);
    expectNumber(result.mean, 1.93, 1e-9);
    expectNumber(result.deviation, .025820);
    expectNumber(result.variation, .013378);
    expectLevel(result.levels, .85, 1.10, 1.92102, 5e-6);
    EXPECT_NEAR(levelOf(result.levels, .85)->upper, 1.93898, 5e-6);
    expectNumber(levelOf(result.levels, .85)->coefficient, 1.004675);
    expectLevel(result.levels, .95, 1.83, 1.91506, 5e-6);
    expectNumber(levelOf(result.levels, .95)->coefficient, 1.007802);
}

TEST(ElementStatistics, TheRuleUsesTheBiasedDeviation)
{
    const auto moduli = valuesOf({12.1, 13.4, 11.8, 12.7, 13.0, 12.3, 12.9, 15.5});
    const Statistics result = statisticsOf(moduli);
    EXPECT_EQ(ruledOut(moduli, result), std::vector<double>{15.5});
    expectNumber(result.mean, 12.6, 1e-9);
    expectNumber(result.deviation, .559762);
    expectLevel(result.levels, .85, 1.13, 12.36093, 5e-6);
    expectLevel(result.levels, .95, 1.94, 12.18955, 5e-6);
}

TEST(ElementStatistics, TheRuleIsAppliedUntilNoneIsLeft)
{
    const auto values = valuesOf({12.1, 12.4, 11.9, 12.2, 12.0, 12.3, 12.1, 12.2, 14.0, 20.0});
    const Statistics result = statisticsOf(values);
    EXPECT_EQ(ruledOut(values, result), (std::vector<double>{14.0, 20.0}));
    expectNumber(result.mean, 12.15, 1e-9);
    expectNumber(result.deviation, .160357);
    expectNumber(result.variation, .013198);
    // Two outliers hide each other.
    const auto masked = valuesOf({12.5, 12.4, 12.6, 12.5, 12.4, 12.6, 12.5, 12.5, 17.4, 17.6});
    EXPECT_TRUE(ruledOut(masked, statisticsOf(masked)).empty());
}

TEST(ElementStatistics, HandsDecideOverTheRule)
{
    auto values = valuesOf({12.1, 13.4, 11.8, 12.7, 13.0, 12.3, 12.9, 15.5});
    values[7].isKept = true;
    EXPECT_EQ(statisticsOf(values).count, 8U);
    values[0].isLeftOut = true;
    EXPECT_EQ(statisticsOf(values).excluded[0], ExcludedBy::Hand);
    EXPECT_EQ(statisticsOf(values).count, 7U);
    // Three are never fewer.
    const auto four = valuesOf({1, 1, 1, 9});
    EXPECT_EQ(statisticsOf(four).count, 3U);
    EXPECT_EQ(statisticsOf(valuesOf({1, 1, 9})).count, 3U);
}

TEST(ElementStatistics, FewEqualAndZeroValues)
{
    EXPECT_FALSE(statisticsOf({}).mean.has_value());
    EXPECT_FALSE(statisticsOf(valuesOf({5})).deviation.has_value());
    EXPECT_TRUE(statisticsOf(valuesOf({5, 6, 7, 8, 9})).levels.empty());
    const Statistics equal = statisticsOf(valuesOf(std::vector<double>(7, .1)));
    EXPECT_EQ(equal.count, 7U);
    expectNumber(equal.deviation, 0, 0);
    expectNumber(equal.levels[0].coefficient, 1, 0);
    const Statistics zero = statisticsOf(valuesOf({-1, 1, -2, 2, -3, 3}));
    EXPECT_FALSE(zero.variation.has_value());
    EXPECT_FALSE(zero.levels[0].coefficient.has_value());
    EXPECT_LT(zero.levels[0].lower, 0);
}

TEST(ElementStatistics, OrderScaleAndASecondRunChangeNothing)
{
    auto numbers = std::vector<double>{12.1, 13.4, 11.8, 12.7, 13.0, 12.3, 12.9, 15.5};
    const Statistics straight = statisticsOf(valuesOf(numbers));
    std::reverse(numbers.begin(), numbers.end());
    const Statistics turned = statisticsOf(valuesOf(numbers));
    EXPECT_NEAR(*straight.mean, *turned.mean, 1e-12);
    EXPECT_NEAR(straight.levels[2].lower, turned.levels[2].lower, 1e-12);
    for (double& number : numbers)
        number *= 1000;
    const Statistics scaled = statisticsOf(valuesOf(numbers));
    EXPECT_NEAR(scaled.levels[2].lower, 1000 * straight.levels[2].lower, 1e-8);
    EXPECT_NEAR(*scaled.variation, *straight.variation, 1e-12);
    numbers.erase(numbers.begin());
    const Statistics again = statisticsOf(valuesOf(numbers));
    EXPECT_NEAR(*again.mean, *scaled.mean, 1e-9);
}

TEST(ElementStatistics, ShearByPartialValues)
{
    const double tangents[] = {.360, .384, .349, .373, .395, .368};
    const double cohesions[] = {.026, .022, .031, .024, .019, .028};
    std::vector<ShearDetermination> tests;
    for (std::size_t i = 0; i < 6; ++i)
        tests.push_back({tangents[i], cohesions[i], false, false});
    const PartialShear partial = partialShearOf(tests);
    expectNumber(partial.tanPhi.mean, .3715, 1e-9);
    expectNumber(partial.tanPhi.deviation, .016502);
    expectLevel(partial.tanPhi.levels, .85, 1.16, .36369, 5e-6);
    expectLevel(partial.tanPhi.levels, .95, 2.01, .35796, 5e-6);
    EXPECT_NEAR(angleOf(*partial.tanPhi.mean), 20.3800, 1e-4);
    expectNumber(partial.cohesion.variation, .171581);
    expectLevel(partial.cohesion.levels, .85, 1.16, .02297, 5e-6);
    expectLevel(partial.cohesion.levels, .95, 2.01, .02148, 5e-6);
    expectNumber(levelOf(partial.cohesion.levels, .95)->coefficient, 1.163868);
    // An outlier of the one takes the other with it.
    tests.push_back({.370, .150, false, false});
    const PartialShear without = partialShearOf(tests);
    EXPECT_EQ(without.tanPhi.count, 6U);
    EXPECT_EQ(without.tanPhi.excluded[6], ExcludedBy::Rule);
}

TEST(ElementStatistics, ShearByAllPointsJointly)
{
    const double stresses[] = {.1, .1, .2, .2, .3, .3, .1, .2, .3};
    const double resistances[] = {.061, .066, .100, .104, .133, .139, .070, .096, .141};
    std::vector<JointPoint> points;
    for (std::size_t i = 0; i < 9; ++i)
        points.push_back({stresses[i], resistances[i], false, false});
    const JointShear joint = jointShearOf(points);
    EXPECT_EQ(joint.count, 9U);
    expectNumber(joint.tanPhi, .36, 1e-9);
    expectNumber(joint.cohesion, .029111);
    expectNumber(joint.deviation, .0040158, 1e-7);
    expectNumber(joint.tanPhiVariation, .045541);
    expectNumber(joint.cohesionVariation, .121659);
    expectLevel(joint.tanPhiLevels, .85, 1.12, .341638, 1e-6);
    expectLevel(joint.tanPhiLevels, .95, 1.90, .328850, 1e-6);
    expectLevel(joint.cohesionLevels, .85, 1.12, .025144, 1e-6);
    expectLevel(joint.cohesionLevels, .95, 1.90, .022382, 1e-6);
    expectNumber(levelOf(joint.cohesionLevels, .95)->coefficient, 1.300649);
    // A wild point goes out alone, the rest is as before.
    points.push_back({.2, .300, false, false});
    EXPECT_EQ(jointShearOf(points).excluded[9], ExcludedBy::Rule);
    expectNumber(jointShearOf(points).tanPhi, .36, 1e-9);
    points.resize(3);
    EXPECT_TRUE(jointShearOf(points).tanPhiLevels.empty());
    EXPECT_FALSE(jointShearOf({{.1, .06}, {.1, .07}, {.1, .08}}).tanPhi.has_value());
    // Exact points: nothing of the rounding goes out.
    const JointShear exact = jointShearOf({{.1, .05}, {.2, .09}, {.3, .13}, {.4, .17}, {.5, .21}, {.6, .25}});
    EXPECT_EQ(exact.count, 6U);
}

TEST(ConfidenceTables, AgreeWithTheQuantiles)
{
    for (const auto& [freedom, coefficient] : studentCoefficients) {
        EXPECT_EQ(studentCoefficient(freedom, .95), coefficient) << freedom;
        for (const double confidence : {.90, .95, .975, .99})
            EXPECT_NEAR(*studentCoefficient(freedom, confidence), exactQuantile(confidence, freedom), .0065)
                << freedom << " at " << confidence;
        EXPECT_NEAR(*studentCoefficient(freedom, .85), exactQuantile(.85, freedom), .011) << freedom;
    }
    EXPECT_EQ(studentCoefficient(22, .95), 1.72);
    EXPECT_EQ(studentCoefficient(500, .95), 1.67);
    EXPECT_FALSE(studentCoefficient(2, .95).has_value());
    EXPECT_FALSE(studentCoefficient(10, .5).has_value());
}

TEST(ConfidenceTables, LimitOfOutliersByTableAndFormula)
{
    for (std::size_t n = 4; n <= 60; ++n) {
        const double count = static_cast<double>(n);
        const double t = exactQuantile(1 - .05 / (2 * count), count - 2);
        EXPECT_NEAR(*outlierLimit(n), std::sqrt(count - 1) * t / std::sqrt(count - 2 + t * t), .0055) << n;
        EXPECT_GE(*outlierLimit(n), *outlierLimit(n - 1));
    }
    EXPECT_FALSE(outlierLimit(2).has_value());
}
