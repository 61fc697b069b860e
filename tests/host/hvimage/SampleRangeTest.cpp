#include "logic/SampleRange.h"

#include "logic/SampleTypes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

using hvimage::sampleRange;
using hvimage::Simd;

namespace {

std::vector<Simd> pathsOfThisMachine()
{
    std::vector<Simd> paths{Simd::Plain};
    if (hvimage::widestSimd() != Simd::Plain) paths.push_back(Simd::Avx2);
    if (hvimage::widestSimd() == Simd::Avx512) paths.push_back(Simd::Avx512);
    return paths;
}

template <class T>
void expectRangeForAllLengths(HVSDataTypes type)
{
    std::mt19937 random(7);
    for (Simd const simd : pathsOfThisMachine()) {
        // Around the widths of the vectors, and the lowest and highest at every place.
        for (std::size_t count : {1U, 2U, 3U, 31U, 32U, 33U, 63U, 64U, 65U, 127U, 200U}) {
            for (std::size_t place = 0; place < count; ++place) {
                std::vector<T> values(count);
                for (T& v : values)
                    v = static_cast<T>(40 + random() % 20);
                values[place] = std::numeric_limits<T>::lowest();
                values[(place + 1) % count] = std::numeric_limits<T>::max();
                hvimage::SampleRange const range = sampleRange(type, values.data(), count, simd);
                double const expectedLow = static_cast<double>(count == 1 ? std::numeric_limits<T>::max()
                                                                          : std::numeric_limits<T>::lowest());
                ASSERT_EQ(range.lowest, expectedLow) << count << " values, lowest at " << place;
                ASSERT_EQ(range.highest, static_cast<double>(std::numeric_limits<T>::max()));
            }
        }
    }
}

}  // namespace

TEST(SampleRange, EveryIntegerTypeOnEveryPathAtEveryPlace)
{
    expectRangeForAllLengths<std::uint8_t>(eTypeUInt8);
    expectRangeForAllLengths<std::uint16_t>(eTypeUInt16);
    expectRangeForAllLengths<std::uint32_t>(eTypeUInt32);
    expectRangeForAllLengths<std::int8_t>(eTypeInt8);
    expectRangeForAllLengths<std::int16_t>(eTypeInt16);
}

TEST(SampleRange, NeedsNoAlignment)
{
    for (Simd const simd : pathsOfThisMachine()) {
        std::vector<std::uint16_t> values(100, 500);
        values[57] = 499;
        values[99] = 501;
        // Two bytes further than the allocator's boundary: aligned for the sample, not for a vector.
        std::vector<std::uint16_t> shifted(101, 0);
        std::copy(values.begin(), values.end(), shifted.begin() + 1);
        hvimage::SampleRange const range = sampleRange(eTypeUInt16, shifted.data() + 1, 100, simd);
        EXPECT_EQ(range.lowest, 499.0);
        EXPECT_EQ(range.highest, 501.0);
    }
}

TEST(SampleRange, AllOfOneValue)
{
    std::vector<std::int16_t> const values(77, -5);
    for (Simd const simd : pathsOfThisMachine()) {
        hvimage::SampleRange const range = sampleRange(eTypeInt16, values.data(), values.size(), simd);
        EXPECT_EQ(range.lowest, -5.0);
        EXPECT_EQ(range.highest, -5.0);
    }
}

TEST(SampleRange, RealSamplesThatAreNoNumbersDoNotCount)
{
    double const none = std::nan("");
    std::vector<double> const values{none, 3.5, none, -2.25, none};
    hvimage::SampleRange const range = sampleRange(eTypeDouble, values.data(), values.size());
    EXPECT_EQ(range.lowest, -2.25);
    EXPECT_EQ(range.highest, 3.5);

    std::vector<float> const onlyNone{std::nanf(""), std::nanf("")};
    hvimage::SampleRange const empty = sampleRange(eTypeFloat, onlyNone.data(), onlyNone.size());
    EXPECT_EQ(empty.lowest, 0.0);
    EXPECT_EQ(empty.highest, 0.0);

    float const infinite = std::numeric_limits<float>::infinity();
    hvimage::SampleRange const one = sampleRange(eTypeFloat, &infinite, 1);
    EXPECT_EQ(one.lowest, std::numeric_limits<double>::infinity());
    EXPECT_EQ(one.highest, std::numeric_limits<double>::infinity());
}

TEST(SampleRange, NothingGivesZero)
{
    std::uint8_t const value = 9;
    for (hvimage::SampleRange const range :
         {sampleRange(eTypeUInt8, nullptr, 5), sampleRange(eTypeUInt8, &value, 0),
          sampleRange(eTypeNone, &value, 1), sampleRange(static_cast<HVSDataTypes>(99), &value, 1)}) {
        EXPECT_EQ(range.lowest, 0.0);
        EXPECT_EQ(range.highest, 0.0);
    }
}

TEST(SampleTypes, BytesOfEachType)
{
    int const expected[] = {0, 1, 2, 4, 4, 8, 1, 2, 0};
    for (int type = 0; type <= 8; ++type)
        EXPECT_EQ(hvimage::bytesPerSample(static_cast<HVSDataTypes>(type)), expected[type]) << type;
}

TEST(SampleTypes, RequiredBytesRefuseWhatCannotBeAddressed)
{
    std::uint64_t bytes = 0;
    EXPECT_TRUE(hvimage::requiredBytes(eTypeUInt16, 70000, 70000, bytes));
    EXPECT_EQ(bytes, 9800000000U);
    long const large = std::numeric_limits<long>::max();
    EXPECT_FALSE(hvimage::requiredBytes(eTypeUInt8, large, 2, bytes));
    EXPECT_FALSE(hvimage::requiredBytes(eTypeUInt16, large, 1, bytes));
    EXPECT_FALSE(hvimage::requiredBytes(eTypeUInt16, 1L << 32, 1L << 31, bytes));
    EXPECT_FALSE(hvimage::requiredBytes(eTypeUInt8, 0, 5, bytes));
    EXPECT_FALSE(hvimage::requiredBytes(eTypeUInt8, -3, -3, bytes));
    EXPECT_FALSE(hvimage::requiredBytes(eTypeNone, 2, 2, bytes));
}

TEST(SampleTypes, NumbersBecomeTheNearestSample)
{
    EXPECT_EQ(hvimage::toSample<std::uint8_t>(2.5), 3);
    EXPECT_EQ(hvimage::toSample<std::uint8_t>(2.49), 2);
    EXPECT_EQ(hvimage::toSample<std::uint8_t>(300.0), 255);
    EXPECT_EQ(hvimage::toSample<std::uint8_t>(-1.0), 0);
    EXPECT_EQ(hvimage::toSample<std::uint8_t>(std::nan("")), 0);
    EXPECT_EQ(hvimage::toSample<std::int16_t>(-2.5), -2);
    EXPECT_EQ(hvimage::toSample<std::int16_t>(-1e9), -32768);
    EXPECT_EQ(hvimage::toSample<std::uint32_t>(4294967295.0), 4294967295U);
    EXPECT_EQ(hvimage::toSample<float>(1e300), std::numeric_limits<float>::infinity());
    EXPECT_EQ(hvimage::toSample<double>(-0.125), -0.125);
}
