#include "lib/hvdicom/logic/StoredSamples.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

using namespace hvdicom;
using testing::ElementsAre;

namespace {

PixelLayout layoutOf(unsigned allocated, unsigned stored, unsigned highBit, bool isSigned = false,
                     bool lowIsWhite = false)
{
    PixelLayout layout;
    layout.columns = 1;
    layout.rows = 1;
    layout.bitsAllocated = allocated;
    layout.bitsStored = stored;
    layout.highBit = highBit;
    layout.isSigned = isSigned;
    layout.lowIsWhite = lowIsWhite;
    return layout;
}

template <class Out, class In>
std::vector<Out> decoded(PixelLayout const& layout, std::vector<In> const& raw)
{
    std::vector<Out> samples(raw.size());
    decodeSamples(sampleCoding(layout), raw.data(), 0, raw.size(), sizeof(Out) * 8, samples.data());
    return samples;
}

using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;

}  // namespace

TEST(StoredSamples, takesTheSmallestWordThatHoldsThem)
{
    EXPECT_EQ(outputBits(1), 8U);
    EXPECT_EQ(outputBits(8), 8U);
    EXPECT_EQ(outputBits(9), 16U);
    EXPECT_EQ(outputBits(16), 16U);
    EXPECT_EQ(outputBits(17), 32U);
    EXPECT_EQ(outputBits(32), 32U);
}

TEST(StoredSamples, leavesPlainOnesAlone)
{
    EXPECT_TRUE(isPlain(sampleCoding(layoutOf(16, 16, 15)), 16));
    EXPECT_TRUE(isPlain(sampleCoding(layoutOf(8, 8, 7)), 8));
    EXPECT_TRUE(isPlain(sampleCoding(layoutOf(32, 32, 31)), 32));
    EXPECT_FALSE(isPlain(sampleCoding(layoutOf(16, 12, 11)), 16));
    EXPECT_FALSE(isPlain(sampleCoding(layoutOf(16, 16, 15, true)), 16));
    EXPECT_FALSE(isPlain(sampleCoding(layoutOf(16, 8, 7)), 8));
}

TEST(StoredSamples, cutsOffWhatSharesTheWord)
{
    EXPECT_THAT((decoded<U16>(layoutOf(16, 12, 11), std::vector<U16>{0xF123, 0x0FFF})),
                ElementsAre(0x123, 0xFFF));
    EXPECT_THAT((decoded<U16>(layoutOf(16, 12, 15), std::vector<U16>{0x123F, 0xFFF0})),
                ElementsAre(0x123, 0xFFF));
    EXPECT_THAT((decoded<U8>(layoutOf(16, 8, 7), std::vector<U16>{0xAB12, 0x00FF})), ElementsAre(0x12, 0xFF));
}

TEST(StoredSamples, movesSignedOnesUpByHalfTheirRange)
{
    EXPECT_THAT((decoded<U16>(layoutOf(16, 16, 15, true), std::vector<U16>{0x8000, 0xFFFF, 0, 0x7FFF})),
                ElementsAre(0, 0x7FFF, 0x8000, 0xFFFF));
    // sign-extended 12 bits: -2048, -1, 0, 2047
    EXPECT_THAT((decoded<U16>(layoutOf(16, 12, 11, true), std::vector<U16>{0xF800, 0xFFFF, 0, 0x07FF})),
                ElementsAre(0, 2047, 2048, 4095));
    EXPECT_THAT((decoded<U32>(layoutOf(32, 32, 31, true), std::vector<U32>{0x80000000U, 0xFFFFFFFFU, 0U})),
                ElementsAre(0U, 0x7FFFFFFFU, 0x80000000U));
    EXPECT_THAT((decoded<U8>(layoutOf(8, 8, 7, true), std::vector<U8>{0x80, 0xFF, 0})),
                ElementsAre(0, 127, 128));
}

TEST(StoredSamples, turnsOverWhereTheLowestIsWhite)
{
    EXPECT_THAT((decoded<U16>(layoutOf(16, 12, 11, false, true), std::vector<U16>{0, 4095, 1})),
                ElementsAre(4095, 0, 4094));
    EXPECT_THAT((decoded<U8>(layoutOf(8, 8, 7, true, true), std::vector<U8>{0x80, 0x7F})),
                ElementsAre(255, 0));
}

TEST(StoredSamples, workInPlace)
{
    std::vector<U16> samples = {0x8000, 0x7FFF};
    decodeSamples(sampleCoding(layoutOf(16, 16, 15, true)), samples.data(), 0, 2, 16, samples.data());
    EXPECT_THAT(samples, ElementsAre(0, 0xFFFF));
}

TEST(StoredSamples, unpacksBitsWithoutGaps)
{
    std::vector<U8> const raw = {0b10110010, 0b00000001};
    std::vector<U8> samples(6);
    decodeSamples(sampleCoding(layoutOf(1, 1, 0)), raw.data(), 3, samples.size(), 8, samples.data());
    EXPECT_THAT(samples, ElementsAre(0, 1, 1, 0, 1, 1));
    // 12 bits a sample: 0x123, 0xABC are the bytes 23 C1 AB
    std::vector<U8> const twelve = {0x23, 0xC1, 0xAB};
    std::vector<U16> words(2);
    decodeSamples(sampleCoding(layoutOf(12, 12, 11)), twelve.data(), 0, 2, 16, words.data());
    EXPECT_THAT(words, ElementsAre(0x123, 0xABC));
}
