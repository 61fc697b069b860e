#include "hvimage/CILMathFns.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

long nearest(double value)
{
    return CILMathFns::round(value, static_cast<eRoundingStyle>(2));
}

}  // namespace

TEST(CILMathFns, StyleTwoIsNearestWithHalvesUp)
{
    EXPECT_EQ(nearest(0.0), 0);
    EXPECT_EQ(nearest(2.4), 2);
    EXPECT_EQ(nearest(2.5), 3);
    EXPECT_EQ(nearest(-2.5), -2);
    EXPECT_EQ(nearest(-2.6), -3);
    EXPECT_EQ(nearest(511.99999), 512);
}

TEST(CILMathFns, JustBelowAHalfIsNotCarriedUp)
{
    EXPECT_EQ(nearest(std::nextafter(0.5, 0.0)), 0);
}

TEST(CILMathFns, LargeIntegersStay)
{
    EXPECT_EQ(nearest(4503599627370497.0), 4503599627370497);
}

TEST(CILMathFns, WhatNoIntegerHoldsGivesTheNearerEnd)
{
    EXPECT_EQ(nearest(1e300), std::numeric_limits<long>::max());
    EXPECT_EQ(nearest(-1e300), std::numeric_limits<long>::min());
    EXPECT_EQ(nearest(std::numeric_limits<double>::infinity()), std::numeric_limits<long>::max());
    EXPECT_EQ(nearest(std::nan("")), 0);
}

TEST(CILMathFns, OtherStyles)
{
    EXPECT_EQ(CILMathFns::round(-1.2, eRoundDown), -2);
    EXPECT_EQ(CILMathFns::round(-1.2, eRoundUp), -1);
    EXPECT_EQ(CILMathFns::round(1.2, eRoundUp), 2);
}
