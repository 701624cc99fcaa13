#include "plots/chart.h"
#include "plots/laboratory_curves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
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
    const Drawing shear = drawChart(shearChart(result.input.shear[0], result.shear[0], {}));
    const std::vector<Circle> circles = shapesOf<Circle>(shear, Layer::Graph);
    ASSERT_EQ(circles.size(), 4U);
    EXPECT_EQ(
        std::count_if(circles.begin(), circles.end(), [](const Circle& each) { return !each.isFilled; }), 1);
    // The points of the test lie on a rising line.
    EXPECT_GT(circles[0].centre.y, circles[2].centre.y);
    EXPECT_LT(circles[0].centre.x, circles[2].centre.x);
    for (const Drawing& drawing : {shear, drawChart(gradingChart(result, {}))})
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
    for (const Chart& chart : {gradingChart(none, {}),
             compressionChart({}, {}, {}),
             shearChart({}, {}, {}),
             swellingChart(none, {}),
             shrinkageChart({}, {})})
        EXPECT_FALSE(drawChart(chart).items.empty());
}

TEST(LaboratoryCurves, PointsInBracketsAreDrawnHollow)
{
    LabSample sample;
    sample.compression[23].cells = {{4, L"0.3", L"(0.5)", {}, 0, {}}, {8, L"(0.525)", L"0.8", {}, 0, {}}};
    sample.swelling = {{1, {}, L"0.2", {}}, {4, {}, L"(0.1)", {}}};
    const SampleResult result = sampleResult(sample, {2.5F, 2.5F, 0}, GrainScale::Above200, 3);
    const auto hollow = [](const ChartSeries& series) {
        std::string text;
        for (const ChartPoint& point : series.points)
            if (point.isHollow)
                text += std::to_string(point.id) + ":" + std::to_string(std::lround(point.y * 10000)) + " ";
        return text;
    };
    const Chart pair = compressionChart(result.input.compression[0], result.compression[0], {});
    EXPECT_EQ(hollow(pair.series[0]), "9:210 ");
    EXPECT_EQ(hollow(pair.series[1]), "1005:200 ");
    EXPECT_EQ(hollow(swellingChart(result, {}).series[0]), "5:400 ");
}

TEST(Charts, ASpotOfThePaperIsTheValueThatIsDrawnThere)
{
    Chart chart;
    chart.x = {L"", 0.001, 10, true, false};
    chart.y = {L"", 0, 0.2, false, true};
    chart.series = {{{{0.05, 0.13, false, 7}}}};
    for (const Item& item : drawChart(chart).items)
        if (item.id == 7) {
            const Spot value = chartValueAt(chart, std::get<Circle>(item.shape).centre);
            EXPECT_NEAR(value.x, 0.05, 1e-9);
            EXPECT_NEAR(value.y, 0.13, 1e-9);
        }
    EXPECT_NEAR(chartValueAt(chart, {0, 1000}).y, 0.2, 1e-12);
}

TEST(Axes, MarksAreRoundAndInside)
{
    EXPECT_EQ(roundMarks(0, 100, 5), (std::vector<double>{0, 20, 40, 60, 80, 100}));
    EXPECT_EQ(roundMarks(0.5, 2.1, 4), (std::vector<double>{0.5, 1.0, 1.5, 2.0}));
    EXPECT_TRUE(roundMarks(1, 1, 5).empty());
    EXPECT_NEAR(roundedUp(0.0593), 0.06, 1e-12);
    EXPECT_NEAR(roundedUp(0.3), 0.3, 1e-12);
}
