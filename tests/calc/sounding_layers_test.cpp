#include "calc/sounding_layers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

// A clay of 2 MPa and 80 kPa down to 3 m, a sand of 9 MPa and 60 kPa to 6 m, clay again to 8 m; each reading
// is off by up to a tenth.
std::vector<LayerReading> profile(double step)
{
    std::vector<LayerReading> readings;
    unsigned noise = 1;
    for (int i = 1; i * step <= 8.0 + 1e-9; ++i) {
        noise = noise * 1103515245u + 12345u;
        const double factor = 0.9 + 0.2 * static_cast<double>((noise >> 16) % 1000) / 1000.0;
        const double depth = i * step;
        const bool isSand = depth > 3.0 + 1e-9 && depth <= 6.0 + 1e-9;
        readings.push_back({depth, (isSand ? 9.0 : 2.0) * factor, isSand ? 60.0 : 80.0});
    }
    return readings;
}

} // namespace

TEST(SoundingLayers, BoundariesAreFoundAtAnyStep)
{
    for (const double step : {0.01, 0.1, 0.2}) {
        SCOPED_TRACE(step);
        const std::vector<ProposedLayer> layers = proposedLayers(profile(step));
        ASSERT_EQ(layers.size(), 3U);
        EXPECT_EQ(layers[0].from, 0.0);
        EXPECT_NEAR(layers[0].to, 3.0, 0.011);
        EXPECT_NEAR(layers[1].from, 3.0, 0.011);
        EXPECT_NEAR(layers[1].to, 6.0, 0.011);
        EXPECT_NEAR(layers[2].to, 8.0, 1e-9);
        EXPECT_EQ(layers[0].isSand, false);
        EXPECT_EQ(layers[1].isSand, true);
        for (std::size_t i = 1; i < layers.size(); ++i)
            EXPECT_EQ(layers[i].first, layers[i - 1].last);
    }
}

TEST(SoundingLayers, ThinOnesAndSmallChangesAreNoLayers)
{
    std::vector<LayerReading> readings = profile(0.1);
    // A stone of 0.2 m in the clay.
    for (LayerReading& reading : readings)
        if (reading.depth > 1.45 && reading.depth < 1.65)
            reading.tip = 30.0;
    EXPECT_EQ(proposedLayers(readings).size(), 3U);
    // A change that the user calls none.
    LayerRule rule;
    rule.change = 10.0;
    EXPECT_EQ(proposedLayers(readings, rule).size(), 1U);
    rule.change = 0.4;
    rule.leastThicknessM = 3.5;
    EXPECT_LE(proposedLayers(readings, rule).size(), 2U);
}

TEST(SoundingLayers, BadJournalsHaveAnAnswer)
{
    EXPECT_TRUE(proposedLayers({}).empty());
    EXPECT_TRUE(proposedLayers(std::vector<LayerReading>{{1.0, 2.0, {}}}).empty());
    // No readings of the cone, all at one depth, zeros.
    for (const Number& tip : {Number(), Number(0.0), Number(5.0)})
        for (const double step : {0.0, 0.2}) {
            std::vector<LayerReading> readings;
            for (int i = 0; i < 30; ++i)
                readings.push_back({1.0 + i * step, tip, {}});
            const std::vector<ProposedLayer> layers = proposedLayers(readings);
            ASSERT_EQ(layers.size(), 1U);
            EXPECT_EQ(layers[0].last, 30U);
            EXPECT_FALSE(layers[0].isSand);
        }
}
