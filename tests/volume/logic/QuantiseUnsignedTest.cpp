#include "volume/logic/QuantiseUnsigned.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <numeric>
#include <vector>

namespace {

using viz::Simd;
using viz::UnsignedRange;

constexpr std::uint32_t largest = std::numeric_limits<std::uint32_t>::max();

std::vector<Simd> levels()
{
    std::vector<Simd> available{Simd::Plain};
    if (viz::widestSimd() != Simd::Plain) available.push_back(Simd::Avx2);
    if (viz::widestSimd() == Simd::Avx512) available.push_back(Simd::Avx512);
    return available;
}

template <typename Sample>
std::vector<int> quantised(const std::vector<Sample>& samples, const UnsignedRange& range,
                           Simd simd = viz::widestSimd())
{
    std::vector<std::uint8_t> voxels(samples.size());
    viz::quantiseUnsigned(samples.data(), samples.size(), range.lowest, viz::valueScale(range), voxels.data(),
                          simd);
    return {voxels.begin(), voxels.end()};
}

TEST(UnsignedRange, TakesTheExtremesOfAllFrames)
{
    UnsignedRange range = UnsignedRange::ofFrame(20, 30);
    range.widen(UnsignedRange::ofFrame(10, 25));
    range.widen(UnsignedRange::ofFrame(15, 200));
    EXPECT_EQ(range.lowest, 10U);
    EXPECT_EQ(range.highest, 200U);
}

TEST(UnsignedRange, BeginsWithTheFirstFrameAlone)
{
    const UnsignedRange range = UnsignedRange::ofFrame(65000, 65500);
    EXPECT_EQ(range.lowest, 65000U);
}

TEST(UnsignedRange, ExtremesAreTruncated)
{
    const UnsignedRange range = UnsignedRange::ofFrame(10.9, 200.9);
    EXPECT_EQ(range.lowest, 10U);
    EXPECT_EQ(range.highest, 200U);
}

TEST(UnsignedRange, ValuesOnBothSidesOfTheSignBitKeepTheirOrder)
{
    UnsignedRange range = UnsignedRange::ofFrame(2016411648.0, 2305097728.0);
    EXPECT_EQ(range.lowest, 2016411648U);
    EXPECT_EQ(range.highest, 2305097728U);
    range.widen(UnsignedRange::ofFrame(0, 4294967295.0));
    EXPECT_EQ(range.lowest, 0U);
    EXPECT_EQ(range.highest, largest);
}

TEST(UnsignedRange, WhatNoSampleCanBeStaysInTheNumbers)
{
    const double nothing = std::numeric_limits<double>::quiet_NaN();
    const UnsignedRange range = UnsignedRange::ofFrame(-5, 1e300);
    EXPECT_EQ(range.lowest, 0U);
    EXPECT_EQ(range.highest, largest);
    EXPECT_EQ(UnsignedRange::ofFrame(nothing, nothing).highest, 0U);
}

TEST(UnsignedRange, EqualValuesAreSeparatedByOne)
{
    UnsignedRange range{77, 77};
    range.separate();
    EXPECT_EQ(range.highest, 78U);
    EXPECT_EQ(viz::valueScale(range), 255.0F);
    UnsignedRange different{10, 200};
    different.separate();
    EXPECT_EQ(different.highest, 200U);
}

TEST(UnsignedRange, TheLargestNumberIsSeparatedToo)
{
    UnsignedRange range{largest, largest};
    range.separate();
    EXPECT_EQ(viz::valueScale(range), 255.0F);
    EXPECT_EQ(quantised<std::uint32_t>({largest}, range), (std::vector<int>{0}));
}

TEST(QuantiseUnsigned, EndsOfTheRangeBecomeZeroAnd255)
{
    // scale 255 / 190; (100 - 10) * 1.342105 + 0.5 = 121.289
    const UnsignedRange range{10, 200};
    EXPECT_EQ(quantised<std::uint8_t>({10, 100, 200}, range), (std::vector<int>{0, 121, 255}));
    EXPECT_EQ(quantised<std::uint16_t>({10, 100, 200}, range), (std::vector<int>{0, 121, 255}));
    EXPECT_EQ(quantised<std::uint32_t>({10, 100, 200}, range), (std::vector<int>{0, 121, 255}));
}

TEST(QuantiseUnsigned, RoundsToTheNearestVoxel)
{
    // scale 0.5: 1 gives 0.5 + 0.5 = 1, 509 gives 254.5 + 0.5 = 255
    EXPECT_EQ(quantised<std::uint16_t>({0, 1, 2, 3, 508, 509, 510}, {0, 510}),
              (std::vector<int>{0, 1, 1, 2, 254, 255, 255}));
}

TEST(QuantiseUnsigned, SamplesAcrossTheSignBitMapInOrder)
{
    // A signed CT as its decoder gives it: -1024 is 2^31 - 2^26, 1024 is 2^31 + 2^26, 0 is 2^31.
    const std::uint32_t half = 0x80000000U;
    const std::uint32_t far = 0x04000000U;
    EXPECT_EQ(quantised<std::uint32_t>({half - far, half, half + far}, {half - far, half + far}),
              (std::vector<int>{0, 128, 255}));
}

TEST(QuantiseUnsigned, TheWholeRangeOf32Bits)
{
    EXPECT_EQ(quantised<std::uint32_t>({0, 0x80000000U, largest}, {0, largest}),
              (std::vector<int>{0, 128, 255}));
}

TEST(QuantiseUnsigned, ValuesBelowTheLowestWrapAround)
{
    // 0 - 1000 is 4294966296 in 32 bits, 4294966272 in single precision; times 255 / 64000 and rounded that
    // is 17112755.92, which rounds to 17112756, and 0.5 more rounds back = 66846 * 256 + 180
    EXPECT_EQ(quantised<std::uint16_t>({0}, {1000, 65000}), (std::vector<int>{180}));
    EXPECT_EQ(quantised<std::uint32_t>({0}, {1000, 65000}), (std::vector<int>{180}));
}

TEST(QuantiseUnsigned, AResultBeyond32BitsIsZero)
{
    // 0 - 50 is close to 2^32; times 5.1 it is far beyond
    EXPECT_EQ(quantised<std::uint8_t>({0}, {50, 100}), (std::vector<int>{0}));
    EXPECT_EQ(quantised<std::uint32_t>({0}, {50, 100}), (std::vector<int>{0}));
}

TEST(QuantiseUnsigned, NarrowSamplesUnderAWideLowest)
{
    EXPECT_EQ(quantised<std::uint16_t>({100, 7}, {65536, 70000}),
              quantised<std::uint32_t>({100, 7}, {65536, 70000}));
}

TEST(QuantiseUnsigned, IsComputedInSinglePrecision)
{
    // half of the range is 127.5 + 0.5 exactly; 255 / 326 in single precision lies below and gives 127
    EXPECT_EQ(quantised<std::uint16_t>({0, 163, 326}, {0, 326}), (std::vector<int>{0, 127, 255}));
}

TEST(QuantiseUnsigned, EveryInstructionSetAndTypeGivesTheSameVoxels)
{
    std::vector<std::uint16_t> words(65536 + 37);
    std::iota(words.begin(), words.end(), std::uint16_t{0});
    const std::vector<std::uint8_t> bytes(words.begin(), words.end());
    const std::vector<std::uint32_t> wide(words.begin(), words.end());
    std::vector<std::uint32_t> far(wide.size());
    for (std::size_t i = 0; i < far.size(); ++i)
        far[i] = static_cast<std::uint32_t>(i) * 65521U;
    for (const UnsignedRange& range :
         {UnsignedRange{0, 65535}, UnsignedRange{10, 200}, UnsignedRange{0, 1}, UnsignedRange{63999, 64001},
          UnsignedRange{1234, 3926}, UnsignedRange{20000, 65535}, UnsignedRange{0x7FFF0000U, 0x90000000U}}) {
        const auto expected = quantised(wide, range, Simd::Plain);
        const auto expectedFar = quantised(far, range, Simd::Plain);
        const auto expectedBytes = quantised(bytes, range, Simd::Plain);
        for (const Simd simd : levels()) {
            EXPECT_EQ(quantised(wide, range, simd), expected);
            EXPECT_EQ(quantised(words, range, simd), expected);
            EXPECT_EQ(quantised(far, range, simd), expectedFar);
            EXPECT_EQ(quantised(bytes, range, simd), expectedBytes);
        }
    }
}

// Samples above, at and below the upper end, and one below the lower end, which is far above it as an
// unsigned number.
template <typename Sample>
void expectClamped(viz::Simd simd)
{
    const std::vector<Sample> samples{10, 11, 60, 61, 62, 255, 9};
    std::vector<std::uint8_t> voxels(samples.size());
    viz::quantiseClamped(samples.data(), samples.size(), 10, 5.0F, voxels.data(), simd);
    EXPECT_EQ(voxels, (std::vector<std::uint8_t>{0, 5, 250, 255, 255, 255, 255}));
}

TEST(QuantiseUnsigned, ClampedStopsAt255AtEveryLevel)
{
    for (const Simd simd : levels()) {
        expectClamped<std::uint8_t>(simd);
        expectClamped<std::uint16_t>(simd);
        expectClamped<std::uint32_t>(simd);
    }
}

}  // namespace
