#include "volume/logic/Quantise.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <numeric>
#include <vector>

namespace {

using viz::Simd;

std::vector<Simd> levels()
{
    std::vector<Simd> available{Simd::Plain};
    if (viz::widestSimd() != Simd::Plain) available.push_back(Simd::Avx2);
    if (viz::widestSimd() == Simd::Avx512) available.push_back(Simd::Avx512);
    return available;
}

template <typename Sample>
std::vector<int> quantised(const std::vector<Sample>& samples, const viz::ValueRange& range,
                           Simd simd = viz::widestSimd())
{
    std::vector<std::uint8_t> voxels(samples.size());
    viz::quantise(samples.data(), samples.size(), range.lowest, viz::valueScale(range), voxels.data(), simd);
    return {voxels.begin(), voxels.end()};
}

template <typename Pixel, typename Sample>
std::vector<int> stretched(const std::vector<Sample>& samples, int lowest, int highest,
                           Simd simd = viz::widestSimd())
{
    std::vector<Pixel> pixels(samples.size(), 7);
    viz::stretchSigned(samples.data(), samples.size(), lowest, highest, pixels.data(), simd);
    return {pixels.begin(), pixels.end()};
}

viz::ValueRange range(int lowest, int highest)
{
    viz::ValueRange r;
    r.widen(lowest, highest);
    r.separate();
    return r;
}

TEST(ValueRange, TakesTheExtremesOfAllFrames)
{
    viz::ValueRange r;
    r.widen(20, 30);
    r.widen(10, 25);
    r.widen(15, 200);
    EXPECT_EQ(r.lowest, 10);
    EXPECT_EQ(r.highest, 200);
}

TEST(ValueRange, ExtremesAreTruncated)
{
    viz::ValueRange r;
    r.widen(10.9, 200.9);
    EXPECT_EQ(r.lowest, 10);
    EXPECT_EQ(r.highest, 200);
}

TEST(ValueRange, ValuesAllAbove64000KeepThatAsTheLowest)
{
    viz::ValueRange r;
    r.widen(65000, 65500);
    EXPECT_EQ(r.lowest, 64000);
    EXPECT_EQ(r.highest, 65500);
}

TEST(ValueRange, EqualValuesAreSeparatedByOne)
{
    const viz::ValueRange same = range(77, 77);
    EXPECT_EQ(same.lowest, 77);
    EXPECT_EQ(same.highest, 78);
    EXPECT_EQ(viz::valueScale(same), 255.0F);
    EXPECT_EQ(range(10, 200).highest, 200);
}

TEST(Quantise, EndsOfTheRangeBecomeZeroAnd255)
{
    // scale 255 / 190; (100 - 10) * 1.342105 + 0.5 = 121.289
    EXPECT_EQ(quantised<std::uint8_t>({10, 100, 200}, range(10, 200)), (std::vector<int>{0, 121, 255}));
    EXPECT_EQ(quantised<std::uint16_t>({10, 100, 200}, range(10, 200)), (std::vector<int>{0, 121, 255}));
}

TEST(Quantise, RoundsToTheNearestVoxel)
{
    // scale 0.5: 1 gives 0.5 + 0.5 = 1, 509 gives 254.5 + 0.5 = 255
    EXPECT_EQ(quantised<std::uint16_t>({0, 1, 2, 3, 508, 509, 510}, range(0, 510)),
              (std::vector<int>{0, 1, 1, 2, 254, 255, 255}));
}

TEST(Quantise, AVolumeOfOneValueIsAllZero)
{
    EXPECT_EQ(quantised<std::uint8_t>({77, 77, 77}, range(77, 77)), (std::vector<int>{0, 0, 0}));
}

TEST(Quantise, ValuesBelowTheLowestKeepTheirLowByte)
{
    // padding of value 0: (0 - 10) * 1.342105 + 0.5 = -12.921, truncated to -12, low byte 244
    EXPECT_EQ(quantised<std::uint8_t>({0}, range(10, 200)), (std::vector<int>{244}));
    // (0 - 64000) * 1 + 0.5 = -63999.5, truncated to -63999 = -250 * 256 + 1
    EXPECT_EQ(quantised<std::uint16_t>({0}, range(64000, 64255)), (std::vector<int>{1}));
}

TEST(Quantise, IsComputedInSinglePrecision)
{
    // half of the range is 127.5 + 0.5 exactly; 255 / 326 in single precision lies below and gives 127
    EXPECT_EQ(quantised<std::uint16_t>({0, 163, 326}, range(0, 326)), (std::vector<int>{0, 127, 255}));
}

TEST(Quantise, EveryInstructionSetGivesTheSameVoxels)
{
    std::vector<std::uint16_t> all(65536 + 37);
    std::iota(all.begin(), all.end(), std::uint16_t{0});
    std::vector<std::uint8_t> bytes(all.begin(), all.end());
    for (const auto& r :
         {range(0, 65535), range(10, 200), range(0, 1), range(63999, 64001), range(1234, 3926)})
        for (const Simd simd : levels()) {
            EXPECT_EQ(quantised(all, r, simd), quantised(all, r, Simd::Plain));
            EXPECT_EQ(quantised(bytes, r, simd), quantised(bytes, r, Simd::Plain));
        }
}

TEST(Quantise, AnyCountAtAnyAddressStaysWithinItsBounds)
{
    std::vector<std::uint16_t> samples(300, 5);
    const viz::ValueRange r = range(0, 255);
    for (const Simd simd : levels())
        for (std::size_t start = 0; start < 3; ++start)
            for (std::size_t count = 0; count < 140; ++count) {
                std::vector<std::uint8_t> voxels(300, 99);
                viz::quantise(samples.data() + start, count, r.lowest, viz::valueScale(r),
                              voxels.data() + start, simd);
                for (std::size_t i = 0; i < voxels.size(); ++i)
                    ASSERT_EQ(voxels[i], i >= start && i < start + count ? 5 : 99) << i << " of " << count;
            }
}

TEST(StretchSigned, FullRangeIsMovedOnly)
{
    EXPECT_EQ(stretched<std::uint8_t>(std::vector<std::int8_t>{-128, -1, 0, 127}, -128, 127),
              (std::vector<int>{0, 127, 128, 255}));
    EXPECT_EQ(stretched<std::uint16_t>(std::vector<std::int16_t>{-32768, 0, 32767}, -32768, 32767),
              (std::vector<int>{0, 32768, 65535}));
}

TEST(StretchSigned, SpreadsAndTruncates)
{
    // 255 / 20 = 12.75: 12.75, 127.5, 242.25, 255
    EXPECT_EQ(stretched<std::uint8_t>(std::vector<std::int8_t>{-10, -9, 0, 9, 10}, -10, 10),
              (std::vector<int>{0, 12, 127, 242, 255}));
    // 65535 / 3092 = 21.195019: 21.195, 21703.699, 65535
    EXPECT_EQ(stretched<std::uint16_t>(std::vector<std::int16_t>{-1024, -1023, 0, 2068}, -1024, 2068),
              (std::vector<int>{0, 21, 21703, 65535}));
}

TEST(StretchSigned, TruncationMayTakeTheTopByOne)
{
    // 255 / 25 in double precision, times 25, lies just below 255
    EXPECT_EQ(stretched<std::uint8_t>(std::vector<std::int8_t>{0, 25}, 0, 25), (std::vector<int>{0, 254}));
}

TEST(StretchSigned, AFrameOfOneValueBecomesZero)
{
    EXPECT_EQ(stretched<std::uint8_t>(std::vector<std::int8_t>{-5, -5}, -5, -5), (std::vector<int>{0, 0}));
    EXPECT_EQ(stretched<std::uint16_t>(std::vector<std::int16_t>{300, 300}, 300, 300),
              (std::vector<int>{0, 0}));
}

TEST(StretchSigned, EveryInstructionSetGivesTheSamePixels)
{
    std::vector<std::int16_t> words(65536 + 11);
    std::iota(words.begin(), words.end(), std::int16_t{-32768});
    std::vector<std::int8_t> bytes(256 + 5);
    std::iota(bytes.begin(), bytes.end(), std::int8_t{-128});
    for (const Simd simd : levels()) {
        EXPECT_EQ((stretched<std::uint16_t>(words, -32768, 32767, simd)),
                  (stretched<std::uint16_t>(words, -32768, 32767, Simd::Plain)));
        EXPECT_EQ((stretched<std::uint8_t>(bytes, -128, 127, simd)),
                  (stretched<std::uint8_t>(bytes, -128, 127, Simd::Plain)));
    }
}

}  // namespace
