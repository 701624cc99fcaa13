#include "calc/subsidence.h"

#include <gtest/gtest.h>

namespace
{

// Layers of two metres whose curves say the same under every load.
std::vector<CollapsibleLayer> flatLayers(std::initializer_list<double> values)
{
    std::vector<CollapsibleLayer> layers;
    double top = 0.0;
    for (const double value : values) {
        layers.push_back({top, top + 2.0, 1.8, {{0.0, value}, {1000.0, value}}, {}});
        top += 2.0;
    }
    return layers;
}

} // namespace

TEST(Subsidence, OnlyLayersFromOnePerCentOnCount)
{
    const Subsidence two = subsidenceByOwnWeight(flatLayers({0.018, 0.014, 0.009, 0.016, 0.012}));
    EXPECT_NEAR(*two.totalCm, 12.0, 1e-9); // with 0.009: 13.8
    EXPECT_EQ(two.type, SubsidenceType::II);
    EXPECT_NEAR(*two.lowerBoundaryM, 10.0, 1e-9);
    EXPECT_NEAR(*two.parts[2].subsidenceCm, 0.0, 1e-12);

    const Subsidence one = subsidenceByOwnWeight(flatLayers({0.008, 0.012, 0.011}));
    EXPECT_NEAR(*one.totalCm, 4.6, 1e-9); // with 0.008: 6.2 and the other type
    EXPECT_EQ(one.type, SubsidenceType::I);

    // Exactly 5.00 cm is still type I.
    const Subsidence border = subsidenceByOwnWeight(flatLayers({0.011, 0.014}));
    EXPECT_NEAR(*border.totalCm, 5.0, 1e-12);
    EXPECT_EQ(border.type, SubsidenceType::I);
    EXPECT_EQ(subsidenceType(5.001), SubsidenceType::II);

    const Subsidence none = subsidenceByOwnWeight(flatLayers({0.004, 0.009}));
    EXPECT_EQ(none.totalCm, 0.0);
    EXPECT_FALSE(none.type);
    EXPECT_FALSE(none.lowerBoundaryM);
    EXPECT_FALSE(none.initialPressureKPa);
}

TEST(Subsidence, CurvesBetweenTheirLoads)
{
    const CollapsePoint curve[] = {{50, 0.004}, {100, 0.012}, {200, 0.028}};
    EXPECT_NEAR(*initialPressureKPa(curve), 87.5, 1e-9);
    EXPECT_NEAR(relativeSubsidence(curve, 150)->relative, 0.020, 1e-12);
    EXPECT_NEAR(relativeSubsidence(curve, 25)->relative, 0.002, 1e-12); // from nothing at no load
    EXPECT_NEAR(relativeSubsidence(curve, 200)->relative, 0.028, 1e-12);
    EXPECT_FALSE(relativeSubsidence(curve, 200)->isBeyond);
    EXPECT_NEAR(relativeSubsidence(curve, 300)->relative, 0.028, 1e-12);
    EXPECT_TRUE(relativeSubsidence(curve, 300)->isBeyond);
    EXPECT_FALSE(relativeSubsidence({}, 100));
    const CollapsePoint first[] = {{50, 0.02}};
    EXPECT_NEAR(*initialPressureKPa(first), 25.0, 1e-9);
    const CollapsePoint never[] = {{50, 0.004}, {300, 0.0099}};
    EXPECT_FALSE(initialPressureKPa(never));
}

TEST(Subsidence, StressByOwnWeightAtTheMiddleOfAPart)
{
    const double unitWeights[] = {17.0, 17.5, 18.2, 18.6, 19.0};
    const double stresses[] = {17.0, 51.5, 87.2, 124.0, 161.6};
    std::vector<CollapsibleLayer> layers;
    for (const double weight : unitWeights) {
        const double top = 2.0 * static_cast<double>(layers.size());
        layers.push_back({top, top + 2.0, weight / 9.81, {{300.0, 0.03}}, {}});
    }
    const Subsidence result = subsidenceByOwnWeight(layers);
    ASSERT_EQ(result.parts.size(), 5U);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_NEAR(*result.parts[i].stressKPa, stresses[i], 1e-9);

    // A layer of five metres is three equal parts; without a density nothing below has a stress.
    layers[1].toM = 7.0;
    layers.resize(2);
    EXPECT_EQ(subsidenceByOwnWeight(layers).parts.size(), 4U);
    EXPECT_NEAR(subsidenceByOwnWeight(layers).parts[1].toM, 2.0 + 5.0 / 3.0, 1e-12);
    layers[0].saturatedDensity.reset();
    const Subsidence unknown = subsidenceByOwnWeight(layers);
    EXPECT_FALSE(unknown.parts[3].stressKPa);
    EXPECT_FALSE(unknown.totalCm);
    EXPECT_FALSE(unknown.remarks.empty());
    EXPECT_FALSE(subsidenceByOwnWeight({}).totalCm);
}

TEST(Subsidence, Coefficients)
{
    EXPECT_EQ(ownWeightCoefficient(15.0), 1.0);
    EXPECT_NEAR(ownWeightCoefficient(18.0), 1.15, 1e-12);
    EXPECT_EQ(ownWeightCoefficient(25.0), 1.25);
    EXPECT_NEAR(foundationCoefficient(3.0, 250.0, 120.0), 2.45, 1e-12);
    EXPECT_NEAR(foundationCoefficient(1.0, 150.0, 140.0), 0.65, 1e-12);
    EXPECT_EQ(foundationCoefficient(12.0, 250.0, 120.0), 1.0);
    EXPECT_NEAR(foundationCoefficient(7.5, 250.0, 120.0), (2.45 + 1.0) / 2.0, 1e-12);
    // The total has the coefficient, the parts have not: nine layers of 2 m are 18 m.
    const Subsidence thick =
        subsidenceByOwnWeight(flatLayers({0.02, 0.02, 0.02, 0.02, 0.02, 0.02, 0.02, 0.02, 0.02}));
    EXPECT_NEAR(*thick.totalCm, 36.0 * 1.15, 1e-9);
    EXPECT_NEAR(*thick.parts[0].subsidenceCm, 4.0, 1e-9);
    EXPECT_EQ(subsidenceGrade(0.0099), L"");
    EXPECT_EQ(subsidenceGrade(0.03), L"слабопросадочный");
    EXPECT_EQ(subsidenceGrade(0.0301), L"среднепросадочный");
}

TEST(Subsidence, UnderAFoundation)
{
    // Square, at one and two half-widths below: the table of SP 22 has 0.703 and 0.336; a strip 0.818 and
    // 0.550.
    EXPECT_NEAR(stressShare(2.0, 2.0, 1.0), 0.703, 3e-3);
    EXPECT_NEAR(stressShare(2.0, 2.0, 2.0), 0.336, 2e-3);
    EXPECT_NEAR(stressShare(2.0, 0.0, 1.0), 0.818, 2e-3);
    EXPECT_NEAR(stressShare(2.0, 0.0, 2.0), 0.550, 2e-3);
    EXPECT_NEAR(stressShare(2.0, 1e6, 2.0), stressShare(2.0, 0.0, 2.0), 1e-6);

    std::vector<CollapsibleLayer> layers = {{0.0, 10.0, 1.8, {{100.0, 0.01}, {300.0, 0.05}}, {}}};
    const Foundation foundation{2.0, 2.0, 2.0, 250.0};
    const FoundationSubsidence result = subsidenceUnderFoundation(layers, foundation);
    ASSERT_EQ(result.parts.size(), 4U);
    // By hand: at 3 m 52.974 own + 0.7009 * (250 - 35.316) = 203.44; relative 0.030689; ksl 2.75.
    EXPECT_NEAR(*result.parts[0].stressKPa, 203.44, 0.01);
    EXPECT_NEAR(*result.parts[0].subsidenceCm, 0.030689 * 200.0 * 2.75, 0.005);
    double sum = 0.0;
    for (const FoundationPart& part : result.parts)
        sum += *part.subsidenceCm;
    EXPECT_NEAR(*result.totalCm, sum, 1e-9);
    layers[0].saturatedDensity.reset();
    EXPECT_FALSE(subsidenceUnderFoundation(layers, foundation).totalCm);
}
