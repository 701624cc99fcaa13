#include "plots/chart.h"
#include "plots/laboratory_curves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace
{

LabSample sandAndClay()
{
    LabSample sample;
    sample.grading = {{13, L"4"},
        {15, L"8"},
        {16, L"16"},
        {17, L"34"},
        {18, L"26"},
        {19, L"8"},
        {20, L"3"},
        {21, L"0.6"},
        {23, L"0.4"}};
    sample.shear[3] = {{7, L"0.063"}, {15, L"0.101"}, {19, L"0.135"}, {20, L"(0.9)"}};
    return sample;
}

template <class Shape>
std::vector<Shape> shapesOf(const Drawing& drawing, Layer layer)
{
    std::vector<Shape> shapes;
    for (const Item& item : drawing.items)
        if (const Shape* shape = std::get_if<Shape>(&item.shape); shape && item.layer == layer)
            shapes.push_back(*shape);
    return shapes;
}

} // namespace

TEST(SmoothCurve, NeverLeavesNorTurnsBetweenItsPoints)
{
    std::mt19937 random(3);
    for (int run = 0; run < 200; ++run) {
        std::vector<Spot> points;
        double x = 0;
        for (int i = 0; i < 9; ++i) {
            x += 0.05 + static_cast<double>(random() % 100) / 50;
            points.push_back(
                {x, random() % 4 == 0 && i > 0 ? points.back().y : static_cast<double>(random() % 101)});
        }
        std::sort(points.begin(), points.end(), [](const Spot& a, const Spot& b) { return a.x < b.x; });
        std::vector<double> heights;
        for (const Spot& point : points)
            heights.push_back(point.y);
        std::sort(heights.begin(), heights.end());
        for (std::size_t i = 0; i < points.size(); ++i)
            points[i].y = heights[i];
        const std::vector<Spot> curve = monotoneCurve(points, 10);
        EXPECT_EQ(curve.size(), 81U);
        for (std::size_t i = 1; i < curve.size(); ++i)
            ASSERT_GE(curve[i].y, curve[i - 1].y - 1e-9);
        for (std::size_t i = 0; i < points.size(); ++i)
            EXPECT_NEAR(curve[10 * i].y, points[i].y, 1e-9);
    }
}

TEST(LaboratoryCurves, EveryPointLiesInsideAndALeftOutOneIsHollow)
{
    const SampleResult result = sampleResult(sandAndClay(), {}, GrainScale::Above200, 0);
    const Drawing shear = shearCurve(result.input.shear[0], result.shear[0], {});
    const std::vector<Circle> circles = shapesOf<Circle>(shear, Layer::Graph);
    ASSERT_EQ(circles.size(), 4U);
    EXPECT_EQ(
        std::count_if(circles.begin(), circles.end(), [](const Circle& each) { return !each.isFilled; }), 1);
    // The points of the test lie on a rising line.
    EXPECT_GT(circles[0].centre.y, circles[2].centre.y);
    EXPECT_LT(circles[0].centre.x, circles[2].centre.x);
    for (const Drawing& drawing : {shear, gradingCurve(result, {})})
        for (const Line& line : shapesOf<Line>(drawing, Layer::Graph))
            for (const Spot& spot : line.points) {
                EXPECT_GE(spot.x, 0);
                EXPECT_LE(spot.x, drawing.width);
                EXPECT_GE(spot.y, 0);
                EXPECT_LE(spot.y, drawing.height);
            }
}

TEST(LaboratoryCurves, EmptyTestsGiveEmptyAxesAndNoFault)
{
    const SampleResult none = sampleResult({}, {}, GrainScale::Above200, 0);
    EXPECT_FALSE(gradingCurve(none, {}).items.empty());
    EXPECT_FALSE(compressionCurve({}, {}).items.empty());
    EXPECT_FALSE(shearCurve({}, {}, {}).items.empty());
    EXPECT_FALSE(swellingCurve({}, {}).items.empty());
    EXPECT_FALSE(shrinkageCurve({}, {}).items.empty());
}

TEST(Axes, MarksAreRoundAndInside)
{
    EXPECT_EQ(roundMarks(0, 100, 5), (std::vector<double>{0, 20, 40, 60, 80, 100}));
    EXPECT_EQ(roundMarks(0.5, 2.1, 4), (std::vector<double>{0.5, 1.0, 1.5, 2.0}));
    EXPECT_TRUE(roundMarks(1, 1, 5).empty());
    EXPECT_NEAR(roundedUp(0.0593), 0.06, 1e-12);
    EXPECT_NEAR(roundedUp(0.3), 0.3, 1e-12);
}
