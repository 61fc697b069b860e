#include "phantom/Noise.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace phantom;

TEST(Noise, hashIsTheSameOnEveryMachine)
{
    EXPECT_EQ(voxelHash(0, 0), 0x48218226ff3cd4bfULL);
    EXPECT_EQ(voxelHash(1, 0), 0xdce423fc82c0d5b8ULL);
    EXPECT_EQ(voxelHash(1, 12345), 0xe3ed1f1085e85c65ULL);
}

TEST(Noise, hasMeanZeroDeviationOneAndStaysBounded)
{
    double sum = 0, squares = 0, largest = 0;
    constexpr int n = 200000;
    for (int i = 0; i < n; ++i) {
        const double v = noise(7, i);
        sum += v;
        squares += v * v;
        largest = std::max(largest, std::fabs(v));
    }
    EXPECT_NEAR(sum / n, 0.0, 0.01);
    EXPECT_NEAR(squares / n, 1.0, 0.01);
    EXPECT_LE(largest, 3.5);
    EXPECT_GT(largest, 2.5);
}
