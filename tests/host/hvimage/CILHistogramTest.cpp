#include "hvimage/CILHistogram.h"

#include "hvimage/CILImage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <vector>

namespace {

template <class T>
std::vector<double> binsOf(HVSDataTypes type, std::vector<T> samples, double low, double high, unsigned bins)
{
    CILImage image;
    EXPECT_TRUE(image.initWithData(type, static_cast<long>(samples.size()), 1, samples.data()));
    CILHistogram histogram;
    histogram.setImageMin(low);
    histogram.setImageMax(high);
    histogram.setMaxBins(bins);
    EXPECT_TRUE(image.Histogram(histogram));
    std::vector<double> counts(bins, -1.0);
    EXPECT_TRUE(histogram.getData(eTypeDouble, counts.data()));
    return counts;
}

using Doubles = std::vector<double>;

}  // namespace

TEST(CILHistogram, DividesTheRangeEvenlyAndTheLastBinHasItsEnd)
{
    // Four bins of 0 to 8: [0, 2) [2, 4) [4, 6) [6, 8].
    std::vector<std::uint8_t> const samples = {0, 1, 2, 3, 4, 5, 6, 7, 8, 8};
    EXPECT_EQ(binsOf(eTypeUInt8, samples, 0, 8, 4), (Doubles{2, 2, 2, 4}));
}

TEST(CILHistogram, EveryByteHasABinOfItsOwnBut254And255ShareTheLast)
{
    std::vector<std::uint8_t> samples;
    for (int value = 0; value < 256; ++value)
        samples.insert(samples.end(), static_cast<std::size_t>(value) + 1, static_cast<std::uint8_t>(value));
    Doubles const bins = binsOf(eTypeUInt8, samples, 0, 255, 255);
    for (std::size_t bin = 0; bin < 254; ++bin)
        EXPECT_EQ(bins[bin], static_cast<double>(bin) + 1.0) << bin;
    EXPECT_EQ(bins[254], 255.0 + 256.0);
}

TEST(CILHistogram, EverySampleIsCountedOnceWhateverTheRange)
{
    std::vector<std::uint8_t> samples(100003);
    std::uint32_t random = 12345;
    for (std::uint8_t& sample : samples)
        sample = static_cast<std::uint8_t>(7 + ((random = random * 1664525U + 1013904223U) >> 24) % 231);
    CILImage image;
    ASSERT_TRUE(image.initWithData(eTypeUInt8, static_cast<long>(samples.size()), 1, samples.data()));
    image.RefreshImageStats();
    Doubles const bins = binsOf(eTypeUInt8, samples, image.getMin(), image.getMax(), 255);
    EXPECT_EQ(std::accumulate(bins.begin(), bins.end(), 0.0), 100003.0);
}

TEST(CILHistogram, WhatLiesOutsideOrIsNoNumberIsNotCounted)
{
    float const none = std::numeric_limits<float>::quiet_NaN();
    float const endless = std::numeric_limits<float>::infinity();
    EXPECT_EQ(
        binsOf<float>(eTypeFloat, {-0.1F, 0.0F, 0.4F, 0.5F, 1.0F, 1.1F, none, endless, -endless}, 0, 1, 2),
        (Doubles{2, 2}));
}

TEST(CILHistogram, SignedSamplesAndWordsKeepTheirValues)
{
    EXPECT_EQ(binsOf<std::int8_t>(eTypeInt8, {-128, -1, 0, 127}, -128, 127, 3), (Doubles{1, 2, 1}));
    EXPECT_EQ(binsOf<std::int16_t>(eTypeInt16, {-32768, -1, 0, 32767}, -32768, 32767, 3), (Doubles{1, 2, 1}));
    EXPECT_EQ(binsOf<std::uint16_t>(eTypeUInt16, {0, 30000, 65535, 65535}, 0, 65535, 2), (Doubles{2, 2}));
    EXPECT_EQ(binsOf<std::uint32_t>(eTypeUInt32, {0, 4294967295U}, 0, 4294967295.0, 2), (Doubles{1, 1}));
}

TEST(CILHistogram, ARangeOfOneValueFillsTheFirstBin)
{
    EXPECT_EQ(binsOf<std::uint8_t>(eTypeUInt8, {9, 9, 9, 10}, 9, 9, 3), (Doubles{3, 0, 0}));
}

TEST(CILHistogram, TheWidestRangeOfAllIsDividedToo)
{
    double const end = std::numeric_limits<double>::max();
    EXPECT_EQ(binsOf<double>(eTypeDouble, {-end, -1.0, 1.0, end}, -end, end, 4), (Doubles{1, 0, 2, 1}));
}

TEST(CILHistogram, ImpossibleRangesAndEmptyImagesAreRefused)
{
    std::uint8_t samples[] = {1, 2};
    CILImage image;
    CILHistogram histogram;
    EXPECT_FALSE(image.Histogram(histogram));
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 2, 1, samples));
    ASSERT_TRUE(image.Histogram(histogram));
    EXPECT_EQ(histogram.Max(), 1.0);
    histogram.setImageMin(300.0);
    EXPECT_FALSE(image.Histogram(histogram));
    histogram.setImageMin(std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(image.Histogram(histogram));
    EXPECT_EQ(histogram.Max(), 1.0);
}

TEST(CILHistogram, NoBinsAreOneBin)
{
    EXPECT_EQ(binsOf<std::uint8_t>(eTypeUInt8, {1, 2, 3}, 0, 255, 1), (Doubles{3}));
    std::uint8_t samples[] = {1, 2};
    CILImage image;
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 2, 1, samples));
    CILHistogram histogram;
    histogram.setMaxBins(0);
    ASSERT_TRUE(image.Histogram(histogram));
    EXPECT_EQ(histogram.Max(), 2.0);
}

TEST(CILHistogram, IntegralIsTheRunningSum)
{
    std::uint8_t samples[] = {0, 0, 1, 3};
    CILImage image;
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 4, 1, samples));
    CILHistogram histogram;
    EXPECT_FALSE(histogram.integrate(&histogram));
    histogram.setImageMax(3);
    histogram.setMaxBins(4);
    ASSERT_TRUE(image.Histogram(histogram));
    CILHistogram sums;
    ASSERT_TRUE(histogram.integrate(&sums));
    EXPECT_FALSE(histogram.integrate(nullptr));
    Doubles values(4);
    ASSERT_TRUE(sums.getData(eTypeDouble, values.data()));
    EXPECT_EQ(values, (Doubles{2, 3, 3, 4}));
}

TEST(CIL1DData, ValuesAreGivenInTheTypeThatIsAskedFor)
{
    double const values[] = {1.5, -3.0, 300.0};
    CIL1DData data;
    std::uint8_t bytes[3] = {};
    EXPECT_FALSE(data.getData(eTypeUInt8, bytes));
    ASSERT_TRUE(data.initWithArray(values, 3, eTypeDouble));
    EXPECT_FALSE(data.getData(eTypeUInt8, nullptr));
    EXPECT_FALSE(data.getData(eTypeNone, bytes));
    ASSERT_TRUE(data.getData(eTypeUInt8, bytes));
    EXPECT_EQ(bytes[0], 2);
    EXPECT_EQ(bytes[1], 0);
    EXPECT_EQ(bytes[2], 255);
    float floats[3] = {};
    ASSERT_TRUE(data.getData(eTypeFloat, floats));
    EXPECT_EQ(floats[1], -3.0F);
}
