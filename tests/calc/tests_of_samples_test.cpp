#include "calc/collapse.h"
#include "calc/grading.h"
#include "calc/number_support.h"
#include "calc/oedometer.h"
#include "calc/shear.h"
#include "calc/shrinkage.h"
#include "calc/standard_tables.h"
#include "calc/swelling.h"

#include <algorithm>
#include <map>

// The tests of one sample: grading, compression, collapse, shear, swelling, shrinkage.

namespace
{

const std::map<int, double> sand = {
    {13, 4}, {15, 8}, {16, 16}, {17, 34}, {18, 26}, {19, 8}, {20, 3}, {21, .6}, {23, .4}};

bool hasRemark(const Remarks& remarks, Remark::Kind kind, const std::string& cell)
{
    return std::any_of(remarks.begin(), remarks.end(), [&](const Remark& remark) {
        return remark.kind == kind && remark.cell == cell;
    });
}

OedometerInput compressionOf(int test, const std::vector<double>& loads, const std::vector<double>& natural)
{
    OedometerInput input;
    input.test = test;
    for (std::size_t i = 0; i < loads.size(); ++i)
        input.stages.push_back({loads[i], natural[i], {}, {}, static_cast<int>(i)});
    return input;
}

OedometerInput loam()
{
    OedometerInput input = compressionOf(21, {0, .05, .1, .2, .3, .4}, {0, .300, .525, .800, .990, 1.140});
    input.height = 25;
    input.voidRatio = .692;
    input.beta = StandardTables::ofProgram().lateralExpansion(kindOfPlasticity(12.4));
    return input;
}

OedometerInput loessOfTwoCurves()
{
    OedometerInput input = compressionOf(23, {0, .05, .1, .15, .2, .3}, {0, .10, .16, .21, .25, .33});
    const double soaked[] = {0, .18, .34, .57, .89, 1.45};
    for (std::size_t i = 0; i < input.stages.size(); ++i)
        input.stages[i].soakedDeformation = soaked[i];
    input.height = 20;
    input.voidRatio = .9;
    return input;
}

} // namespace

TEST(GradingCurve, SandOfTheWorkedExample)
{
    const Grading grading = gradingOf(sand, GrainScale::Above200);
    expectNumber(grading.sum, 100, 1e-9);
    expectNumber(grading.d10, .084090);
    expectNumber(grading.d30, .188581);
    expectNumber(grading.d50, .319290);
    expectNumber(grading.d60, .391493);
    expectNumber(grading.uniformity, 4.6557, 1e-4);
    expectNumber(grading.curvature, 1.0803, 1e-4);
    const std::map<double, double> finer = {
        {5, 100}, {2, 96}, {1, 88}, {.5, 72}, {.25, 38}, {.1, 12}, {.05, 4}, {.01, 1}, {.005, .4}};
    for (const GrainPoint& point : grading.curve) {
        if (point.isReal) {
            ASSERT_EQ(finer.count(point.diameter), 1U) << point.diameter;
            EXPECT_NEAR(point.finer, finer.at(point.diameter), 1e-9);
        } else {
            EXPECT_EQ(point.diameter, .001);
        }
    }
    EXPECT_TRUE(grading.isComplete);
    EXPECT_TRUE(grading.remarks.empty());
}

TEST(GradingCurve, NothingIsReadBeyondTheRealEnds)
{
    std::map<int, double> clay = {{18, 10}, {19, 22}, {20, 30}, {21, 20}, {23, 18}};
    const Grading grading = gradingOf(clay, GrainScale::Above200);
    EXPECT_FALSE(grading.d10 || grading.uniformity || grading.curvature);
    EXPECT_TRUE(grading.d30 && grading.d60);
    // "> 200" has no upper bound.
    EXPECT_FALSE(gradingOf({{4, 70}, {5, 30}}, GrainScale::Above200).d50.has_value());
}

TEST(GradingCurve, OnAFlatPieceTheCoarserDiameterCounts)
{
    const Grading grading = gradingOf({{15, 40}, {17, 50}, {18, 10}}, GrainScale::Above200);
    expectNumber(grading.d60, 1, 1e-12); // 60 % are finer than 1 and than 0.5
    EXPECT_TRUE(hasRemark(grading.remarks, Remark::Doubtful, "grading"));
}

TEST(GradingCurve, WrongSumsAndForeignFractionsGiveNoDiameters)
{
    std::map<int, double> lossy = sand;
    lossy[17] = 33;
    const Grading grading = gradingOf(lossy, GrainScale::Above200);
    EXPECT_TRUE(hasRemark(grading.remarks, Remark::Impossible, "grading"));
    EXPECT_FALSE(grading.d10 || grading.d50 || grading.uniformity);
    EXPECT_FALSE(grading.curve.empty());
    expectNumber(gradingOf(withLossSpread(lossy), GrainScale::Above200).sum, 100, 1e-9);
    EXPECT_TRUE(withLossSpread({{13, 50}, {15, 48}}).empty());

    const Grading foreign = gradingOf({{4, 60}, {16, 40}}, GrainScale::Above800);
    EXPECT_TRUE(hasRemark(foreign.remarks, Remark::Impossible, "grading/4"));
    EXPECT_FALSE(foreign.d50.has_value());
    EXPECT_FALSE(gradingOf({}, GrainScale::Above200).sum.has_value());
    EXPECT_EQ(rulingFraction(sand), 17);
}

TEST(Compression, LoamOfTheWorkedExample)
{
    const Oedometer test = oedometerOf(loam());
    const double strain[] = {0, .0120, .0210, .0320, .0396, .0456};
    const double ratio[] = {.692000, .671696, .656468, .637856, .624997, .614845};
    ASSERT_EQ(test.rows.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i) {
        expectNumber(test.rows[i].strain, strain[i], 1e-9);
        expectNumber(test.rows[i].voidRatio, ratio[i]);
        EXPECT_FALSE(test.rows[i].soakedStrain.has_value());
    }
    const double m0[] = {.40608, .30456, .18612, .12859, .10152};
    const double modulus[] = {4.1667, 5.5556, 9.0909, 13.1579, 16.6667};
    ASSERT_EQ(test.intervals.size(), 5U);
    for (std::size_t i = 0; i < 5; ++i) {
        expectNumber(test.intervals[i].compressibility, m0[i], 5e-6);
        expectNumber(test.intervals[i].oedometricModulus, modulus[i], 1e-4);
    }
    expectNumber(test.intervals[2].modulus, 5.4545, 1e-4);
    // Any other interval, and one whose ends are no stages.
    expectNumber(intervalOf(test, .1, .3).oedometricModulus, .2 / (.0396 - .0210), 1e-9);
    expectNumber(strainAt(test, .15, Branch::Natural), .0265, 1e-9);
    EXPECT_FALSE(intervalOf(test, .3, .5).oedometricModulus.has_value());
    EXPECT_TRUE(test.remarks.empty());
}

TEST(Compression, AStageOnTheLineBetweenOthersChangesNothing)
{
    OedometerInput input = loam();
    input.stages.insert(input.stages.begin(), {.15, .6625, {}, {}, 12});
    const OedometerInterval interval = intervalOf(oedometerOf(input), .1, .2);
    expectNumber(interval.oedometricModulus, 9.0909, 1e-4);
    expectNumber(interval.compressibility, .18612, 5e-6);
}

TEST(Compression, WhatDoesNotGiveWayHasNoModulus)
{
    OedometerInput input = loam();
    input.stages[3].deformation = .525; // as at 0.1
    input.stages[5].deformation = .9; // less than before
    const Oedometer test = oedometerOf(input);
    expectNumber(test.intervals[2].compressibility, 0, 1e-12);
    EXPECT_FALSE(test.intervals[2].oedometricModulus || test.intervals[2].modulus);
    EXPECT_FALSE(test.intervals[4].oedometricModulus.has_value());
    EXPECT_TRUE(hasRemark(test.remarks, Remark::Impossible, "compression/21/5"));

    input = loam();
    input.stages.push_back({.2, .81, {}, {}, 16});
    const Oedometer repeated = oedometerOf(input);
    EXPECT_TRUE(hasRemark(repeated.remarks, Remark::Impossible, "compression/21/16"));
    for (const OedometerInterval& interval : repeated.intervals)
        EXPECT_TRUE(interval.from != .2 && interval.to != .2);

    input = loam();
    input.voidRatio.reset();
    EXPECT_FALSE(oedometerOf(input).intervals[2].compressibility.has_value());
    expectNumber(oedometerOf(input).intervals[2].oedometricModulus, 9.0909, 1e-4);
    input.height.reset();
    EXPECT_TRUE(oedometerOf(input).rows.empty());
    input = loam();
    input.stages[5].deformation = 12;
    EXPECT_FALSE(oedometerOf(input).rows[5].strain.has_value());
}

TEST(Compression, CorrectionIsTakenOffAndTheSoakedBranchIsItsOwn)
{
    OedometerInput input = loam();
    for (OedometerStage& stage : input.stages) {
        *stage.deformation += .01;
        stage.correction = .01;
    }
    expectNumber(oedometerOf(input).intervals[2].modulus, 5.4545, 1e-4);
    input = loam();
    input.test = 22;
    const Oedometer soaked = oedometerOf(input);
    EXPECT_FALSE(soaked.rows[3].strain.has_value());
    expectNumber(soaked.rows[3].soakedStrain, .032, 1e-9);
    expectNumber(soaked.intervals[2].modulus, 5.4545, 1e-4);
    input.test = 25;
    EXPECT_TRUE(oedometerOf(input).intervals.empty());
    EXPECT_EQ(oedometerOf(input).rows.size(), 6U);
}

TEST(Compression, BetaByPlasticity)
{
    const auto beta = [](double plasticity) {
        return StandardTables::ofProgram().lateralExpansion(kindOfPlasticity(plasticity));
    };
    EXPECT_FALSE(beta(.9).has_value());
    EXPECT_EQ(beta(1.0), .7);
    EXPECT_EQ(beta(100 * (.24 - .17)), .7);
    EXPECT_EQ(beta(7.1), .6);
    EXPECT_EQ(beta(17.0), .6);
    EXPECT_EQ(beta(17.1), .4);
    EXPECT_EQ(StandardTables::ofProgram().lateralExpansion(1), .8);
    EXPECT_FALSE(StandardTables::ofProgram().lateralExpansion(0).has_value());
}

TEST(Collapse, ByTwoCurves)
{
    const Collapse collapse = collapseOf(oedometerOf(loessOfTwoCurves()), .1);
    expectNumber(collapse.naturalHeight, 19.84, 1e-9);
    const double relative[] = {0, .004032, .009073, .018145, .032258, .056452};
    ASSERT_EQ(collapse.rows.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_NEAR(collapse.rows[i].relative, relative[i], 1e-6);
    expectNumber(collapse.initialPressure, .105111);
    EXPECT_EQ(collapseClass(.032258), 2);
    EXPECT_EQ(collapseClass(.0099), 0);
}

TEST(Collapse, ByOneCurveAgreesWithTwo)
{
    OedometerInput input = compressionOf(24, {0, .05, .1, .2}, {0, .10, .16, .25});
    input.stages[3].soakedDeformation = .89;
    input.height = 20;
    const Collapse collapse = collapseOf(oedometerOf(input), .1);
    ASSERT_EQ(collapse.rows.size(), 1U);
    EXPECT_NEAR(collapse.rows[0].relative, .032258, 1e-6);
}

TEST(Collapse, NothingWithoutTheStressInPlace)
{
    const Oedometer test = oedometerOf(loessOfTwoCurves());
    EXPECT_TRUE(collapseOf(test, {}).rows.empty());
    EXPECT_TRUE(collapseOf(test, .5).rows.empty());
    EXPECT_TRUE(hasRemark(collapseOf(test, .5).remarks, Remark::Missing, "compression/23/5"));
    OedometerInput combined = loessOfTwoCurves();
    combined.test = 25;
    EXPECT_TRUE(collapseOf(oedometerOf(combined), .1).rows.empty());
    // Swelling on wetting is shown, not cut.
    OedometerInput swollen = loessOfTwoCurves();
    swollen.stages[1].soakedDeformation = .02;
    const Collapse negative = collapseOf(oedometerOf(swollen), .1);
    EXPECT_LT(negative.rows[1].relative, 0);
    EXPECT_TRUE(hasRemark(negative.remarks, Remark::Doubtful, "compression/23/1"));
}

TEST(DirectShear, WorkedExamples)
{
    const ShearFit loamFit = shearOf({{.1, .063}, {.2, .101}, {.3, .135}});
    expectNumber(loamFit.tanPhi, .36, 1e-9);
    expectNumber(loamFit.cohesion, .027667);
    EXPECT_NEAR(angleOf(*loamFit.tanPhi), 19.7989, 1e-4);
    EXPECT_NEAR(loamFit.residuals[1], .00133, 1e-5);
    expectNumber(loamFit.determination, .99897, 1e-5);
    EXPECT_TRUE(loamFit.remarks.empty());

    const ShearFit sandFit = shearOf({{.1, .052}, {.2, .118}, {.3, .181}});
    expectNumber(sandFit.tanPhi, .593571);
    expectNumber(sandFit.cohesion, 0, 0);
    EXPECT_NEAR(angleOf(*sandFit.tanPhi), 30.6922, 1e-4);
    EXPECT_TRUE(sandFit.isThroughOrigin);
}

TEST(DirectShear, NoLineNoResult)
{
    const std::vector<std::vector<ShearPoint>> none = {
        {},
        {{.1, .063}},
        {{.1, .063}, {.2, .101}},
        {{.1, .063}, {.1, .060}, {.1, .061}},
        {{.1, .13}, {.2, .10}, {.3, .06}},
    };
    for (const auto& points : none) {
        const ShearFit fit = shearOf(points);
        EXPECT_FALSE(fit.tanPhi || fit.cohesion);
        EXPECT_EQ(fit.points, points.size());
        EXPECT_FALSE(fit.remarks.empty());
    }
}

TEST(DirectShear, APointOnTheLineAndTheOrderChangeNothing)
{
    const ShearFit fit = shearOf({{.3, .135}, {.25, .36 * .25 + .0276666666666667}, {.1, .063}, {.2, .101}});
    expectNumber(fit.tanPhi, .36, .003);
    const ShearFit doubled = shearOf({{.2, .063}, {.4, .101}, {.6, .135}});
    expectNumber(doubled.tanPhi, .18, 1e-9);
    expectNumber(doubled.cohesion, .027667);
}

TEST(Swelling, WorkedExample)
{
    const Swelling swelling = swellingOf(
        {{.2, {}, -.014, {}, 5}, {.0025, {}, .184, {}, 1}, {.05, {}, .092, {}, 3}, {.1, {}, .042, {}, 4}},
        2.0);
    expectNumber(swelling.free, .092, 1e-12);
    expectNumber(swelling.pressure, .175, 1e-9);
    EXPECT_EQ(swellingClass(*swelling.free), 2);
    // From the heights alone, and as typed.
    expectNumber(swellingOf({{.0025, 2.184, {}, {}, 1}}, 2.0).free, .092, 1e-12);
    expectNumber(swellingOf({{.0025, {}, {}, .092, 1}}, {}).free, .092, 1e-12);
}

TEST(Swelling, NoCrossingNoPressure)
{
    const Swelling swelling = swellingOf({{.05, {}, .092, {}, 3}, {.1, {}, .042, {}, 4}}, 2.0);
    EXPECT_FALSE(swelling.free || swelling.pressure);
    const Swelling repeated =
        swellingOf({{.0025, {}, .1, {}, 1}, {.0025, {}, .2, {}, 1}, {.1, {}, -.1, {}, 4}}, 2.0);
    EXPECT_FALSE(repeated.free || repeated.pressure);
    EXPECT_TRUE(hasRemark(repeated.remarks, Remark::Impossible, "swelling/1"));
    EXPECT_TRUE(
        hasRemark(swellingOf({{.1, -2.0, {}, {}, 4}}, 2.0).remarks, Remark::Impossible, "swelling/4"));
}

TEST(Shrinkage, WorkedExample)
{
    std::vector<ShrinkageStage> stages = {{5.00, 2.50, 96.00, {}, .28, 1},
        {4.86, 2.43, 90.30, {}, {}, 2},
        {4.75, 2.37, 85.80, {}, {}, 3},
        {4.68, 2.34, 82.50, {}, {}, 4},
        {4.665, 2.333, 79.60, {}, {}, 5},
        {4.66, 2.33, 76.20, {}, {}, 6}};
    const Shrinkage shrinkage = shrinkageOf(stages, {});
    const double volume[] = {49.0874, 45.0784, 41.9977, 40.2529, 39.8757, 39.7391};
    const double moisture[] = {.28, .204, .144, .1, .06133, .016};
    for (std::size_t i = 0; i < 6; ++i) {
        expectNumber(shrinkage.points[i].volume, volume[i], 1e-4);
        expectNumber(shrinkage.points[i].moisture, moisture[i], 1e-5);
    }
    expectNumber(shrinkage.limit, .09401, 1e-5);
    expectNumber(shrinkage.slope, 49.6076, 1e-3);
    expectNumber(shrinkage.volumeStrain, .1904, 1e-4);
    EXPECT_TRUE(shrinkage.remarks.empty());
    // A stage that is left out is drawn, and changes nothing: first, last, or between.
    for (const std::size_t place : {0U, 3U, 6U}) {
        std::vector<ShrinkageStage> more = stages;
        more.insert(more.begin() + static_cast<std::ptrdiff_t>(place),
            {5.5, 3.0, place == 0 ? 96.00 : 85.0, {}, .28, 9, true});
        const Shrinkage same = shrinkageOf(more, {});
        ASSERT_EQ(same.points.size(), 7U);
        EXPECT_TRUE(same.points[place].isLeftOut);
        expectNumber(same.limit, .09401, 1e-5);
        expectNumber(same.volumeStrain, .1904, 1e-4);
        EXPECT_TRUE(same.remarks.empty()) << place;
    }
    // The sample's moisture stands in for the first stage's.
    stages[0].moisture.reset();
    expectNumber(shrinkageOf(stages, .28).limit, .09401, 1e-5);
    EXPECT_FALSE(shrinkageOf(stages, {}).limit.has_value());
    stages[2].mass = -85.8;
    EXPECT_TRUE(hasRemark(shrinkageOf(stages, .28).remarks, Remark::Impossible, "shrinkage/3"));
    EXPECT_FALSE(shrinkageOf(stages, .28).limit.has_value());
    stages.resize(2);
    EXPECT_FALSE(shrinkageOf(stages, .28).limit.has_value());
}
