#include "calc/comparison.h"

#include <gtest/gtest.h>

// Critical values of printed tables: F at 0.05 one-sided, t at 0.05 two-sided.
TEST(Comparison, ProbabilitiesOfPrintedTables)
{
    constexpr struct {
        double f, freedomA, freedomB, tail;
    } fisher[] = {{5.05, 5, 5, 0.05},
        {3.18, 9, 9, 0.05},
        {4.95, 6, 6, 0.0366},
        {1, 7, 7, 0.5},
        {2.16, 10, 20, 0.068},
        {161.4, 1, 1, 0.05},
        {2.35, 10, 20, 0.05}};
    for (const auto& row : fisher)
        EXPECT_NEAR(fisherTail(row.f, row.freedomA, row.freedomB), row.tail, 0.0006) << row.f;
    constexpr struct {
        double t, freedom, tails;
    } student[] = {{12.706, 1, 0.05},
        {2.571, 5, 0.05},
        {2.228, 10, 0.05},
        {2.000, 60, 0.05},
        {2.921, 16, 0.01},
        {0, 4, 1}};
    for (const auto& row : student)
        EXPECT_NEAR(studentTails(row.t, row.freedom), row.tails, 0.0002) << row.t;
}

TEST(Comparison, SpreadsFirstThenMeans)
{
    // Densities of two neighbouring loams, equal spreads.
    const Comparison same = compare({10, 1.930, 0.0258}, {9, 1.945, 0.0272});
    EXPECT_TRUE(same.isKnown);
    EXPECT_FALSE(same.spreadsDiffer);
    EXPECT_FALSE(same.meansDiffer);
    // Pooled variance (9 x 0.00066564 + 8 x 0.00073984) / 17, error sqrt(s2 (1/10 + 1/9)).
    EXPECT_NEAR(*same.student, 0.015 / 0.0121650, 0.001);
    EXPECT_DOUBLE_EQ(*same.studentFreedom, 17);

    EXPECT_TRUE(compare({10, 1.930, 0.0258}, {9, 1.990, 0.0272}).meansDiffer);
    const Comparison wide = compare({10, 1.930, 0.0258}, {9, 1.930, 0.1});
    EXPECT_TRUE(wide.spreadsDiffer);
    EXPECT_FALSE(wide.meansDiffer);
    EXPECT_LT(*wide.studentFreedom, 17);
    EXPECT_EQ(compare({9, 1.930, 0.1}, {10, 1.930, 0.0258}).fisher, wide.fisher)
        << "no matter which comes first";

    EXPECT_FALSE(compare({2, 1, 0.1}, {9, 1, 0.1}).isKnown);
    EXPECT_FALSE(compare({5, 1, 0}, {9, 2, 0}).isKnown);
    const Comparison constant = compare({5, 1, 0}, {9, 2, 0.1});
    EXPECT_TRUE(constant.isKnown);
    EXPECT_TRUE(constant.spreadsDiffer);
    EXPECT_TRUE(constant.meansDiffer);
}
