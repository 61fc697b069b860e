#include "lib/hvapi/scene/logic/ScaleBar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using hvscene::roundLength;

namespace {

TEST(ScaleBarTest, TakesTheLargestRoundLengthThatFits)
{
    EXPECT_DOUBLE_EQ(roundLength(1.0), 1.0);
    EXPECT_DOUBLE_EQ(roundLength(1.99), 1.0);
    EXPECT_DOUBLE_EQ(roundLength(2.0), 2.0);
    EXPECT_DOUBLE_EQ(roundLength(4.999), 2.0);
    EXPECT_DOUBLE_EQ(roundLength(5.0), 5.0);
    EXPECT_DOUBLE_EQ(roundLength(9.99), 5.0);
    EXPECT_DOUBLE_EQ(roundLength(10.0), 10.0);
    EXPECT_DOUBLE_EQ(roundLength(730.0), 500.0);
    EXPECT_DOUBLE_EQ(roundLength(0.034), 0.02);
}

TEST(ScaleBarTest, IsNeverAboveItsLimit)
{
    for (double limit = 1e-6; limit < 1e6; limit *= 1.01) {
        EXPECT_LE(roundLength(limit), limit);
        EXPECT_GE(roundLength(limit), limit / 2.6);
    }
    for (double power = 1e-6; power < 1e6; power *= 10.0)
        EXPECT_LE(roundLength(power), power);
}

TEST(ScaleBarTest, HasNothingForALimitThatIsNoLength)
{
    EXPECT_EQ(roundLength(0.0), 0.0);
    EXPECT_EQ(roundLength(-3.0), 0.0);
    EXPECT_EQ(roundLength(std::numeric_limits<double>::infinity()), 0.0);
    EXPECT_EQ(roundLength(std::numeric_limits<double>::quiet_NaN()), 0.0);
}

}  // namespace
