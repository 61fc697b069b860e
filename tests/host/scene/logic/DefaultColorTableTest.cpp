#include "lib/hvapi/scene/logic/DefaultColorTable.h"

#include <gtest/gtest.h>

#include <array>

namespace {

std::array<unsigned char, 1024> table()
{
    std::array<unsigned char, 1024> t;
    t.fill(0xA5);
    hvscene::writeDefaultColorTable(t.data());
    return t;
}

TEST(DefaultColorTableTest, IsAGreyRamp)
{
    const auto t = table();
    for (std::size_t i = 0; i < 256; ++i)
        for (std::size_t channel = 0; channel < 3; ++channel)
            EXPECT_EQ(t[4 * i + channel], i);
}

TEST(DefaultColorTableTest, AirIsClear)
{
    const auto t = table();
    for (std::size_t i = 0; i <= 60; ++i)
        EXPECT_EQ(t[4 * i + 3], 0) << i;
}

TEST(DefaultColorTableTest, AlphaRisesWithThePowerOneAndThreeFifths)
{
    const auto t = table();
    EXPECT_EQ(t[4 * 255 + 3], 217);
    EXPECT_EQ(t[4 * 157 + 3], 71);  // 217 * (97 / 195)^1.6 = 71.00
    EXPECT_EQ(t[4 * 158 + 3], 72);  // 217 * (98 / 195)^1.6 = 72.17
    for (std::size_t i = 61; i < 256; ++i)
        EXPECT_GE(t[4 * i + 3], t[4 * (i - 1) + 3]);
}

}  // namespace
