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

TEST(DefaultColorTableTest, AlphaRisesSmoothlyFromSixtyToAHundredAndEighty)
{
    const auto t = table();
    EXPECT_EQ(t[4 * 90 + 3], 40);    // s = 1/4: 255 * 10/64 = 39.84
    EXPECT_EQ(t[4 * 120 + 3], 128);  // s = 1/2: 127.5
    EXPECT_EQ(t[4 * 150 + 3], 215);  // s = 3/4: 255 * 54/64 = 215.16
    for (std::size_t i = 180; i < 256; ++i)
        EXPECT_EQ(t[4 * i + 3], 255) << i;
    for (std::size_t i = 61; i < 256; ++i)
        EXPECT_GE(t[4 * i + 3], t[4 * (i - 1) + 3]);
}

}  // namespace
