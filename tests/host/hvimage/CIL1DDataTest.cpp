#include "hvimage/CIL1DData.h"

#include <gtest/gtest.h>

#include <cstdint>

TEST(CIL1DData, SignedBytesAreTypeSix)
{
    std::int8_t const values[] = {5, -128, 127, 0};
    CIL1DData data;
    ASSERT_TRUE(data.initWithArray(values, 4, static_cast<HVSDataTypes>(6)));
    EXPECT_EQ(data.Min(), -128.0);
    EXPECT_EQ(data.Max(), 127.0);
}

TEST(CIL1DData, SignedWordsAreTypeSeven)
{
    std::int16_t const values[] = {5, -32768, 32767};
    CIL1DData data;
    ASSERT_TRUE(data.initWithArray(values, 3, static_cast<HVSDataTypes>(7)));
    EXPECT_EQ(data.Min(), -32768.0);
    EXPECT_EQ(data.Max(), 32767.0);
}

TEST(CIL1DData, TakesACopyAndReplacesTheFormerValues)
{
    std::int16_t values[] = {1, 2, 3};
    CIL1DData data;
    ASSERT_TRUE(data.initWithArray(values, 3, eTypeInt16));
    values[0] = -50;
    EXPECT_EQ(data.Min(), 1.0);
    ASSERT_TRUE(data.initWithArray(values, 1, eTypeInt16));
    EXPECT_EQ(data.Max(), -50.0);
}

TEST(CIL1DData, RefusedArraysLeaveTheFormerValues)
{
    std::int8_t const value = 4;
    CIL1DData data;
    EXPECT_EQ(data.Min(), 0.0);
    EXPECT_EQ(data.Max(), 0.0);
    ASSERT_TRUE(data.initWithArray(&value, 1, eTypeInt8));
    EXPECT_FALSE(data.initWithArray(nullptr, 1, eTypeInt8));
    EXPECT_FALSE(data.initWithArray(&value, 0, eTypeInt8));
    EXPECT_FALSE(data.initWithArray(&value, -1, eTypeInt8));
    EXPECT_FALSE(data.initWithArray(&value, 1, eTypeNone));
    EXPECT_EQ(data.Min(), 4.0);
}
