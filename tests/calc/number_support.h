#pragma once

#include "core/base/typed_number.h"

#include <gtest/gtest.h>

#include <cmath>

// A result that is there and near the figure of the worked example, whose last digit is cut.
inline void expectNumber(const Number& number, double expected, double tolerance = 1e-6)
{
    ASSERT_TRUE(number.has_value()) << "expected " << expected;
    EXPECT_NEAR(*number, expected, tolerance);
}
