#include "logic/TiffSamples.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using hvimage::TiffNumber;
using hvimage::TiffPage;

TiffPage page(std::uint16_t bits, TiffNumber number = TiffNumber::Unsigned, std::uint16_t samples = 1)
{
    TiffPage p;
    p.width = 10;
    p.height = 10;
    p.bits = bits;
    p.samples = samples;
    p.number = number;
    return p;
}

template <class T>
std::vector<T> unpacked(std::vector<std::uint8_t> const& row, std::size_t count, unsigned bits,
                        HVSDataTypes type)
{
    std::vector<T> samples(count);
    hvimage::unpackRow(row.data(), count, bits, type, samples.data());
    return samples;
}

}  // namespace

TEST(TiffSamples, TheNarrowestTypeThatHasTheBits)
{
    for (std::uint16_t bits = 1; bits <= 8; ++bits)
        EXPECT_EQ(hvimage::sampleTypeOf(page(bits)), eTypeUInt8) << bits;
    for (std::uint16_t bits = 9; bits <= 16; ++bits)
        EXPECT_EQ(hvimage::sampleTypeOf(page(bits)), eTypeUInt16) << bits;
    for (std::uint16_t bits = 17; bits <= 32; ++bits)
        EXPECT_EQ(hvimage::sampleTypeOf(page(bits)), eTypeUInt32) << bits;
    EXPECT_EQ(hvimage::sampleTypeOf(page(16, TiffNumber::Signed)), eTypeUInt16);
    EXPECT_EQ(hvimage::sampleTypeOf(page(16, TiffNumber::Untyped)), eTypeUInt16);
}

TEST(TiffSamples, WhatIsNoWholeNumberHasNoType)
{
    EXPECT_EQ(hvimage::sampleTypeOf(page(32, TiffNumber::Float)), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(page(16, TiffNumber::Float)), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(page(16, TiffNumber::ComplexInteger)), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(page(32, TiffNumber::ComplexFloat)), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(page(16, static_cast<TiffNumber>(0))), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(page(16, static_cast<TiffNumber>(77))), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(page(8, TiffNumber::Unsigned, 3)), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(page(8, TiffNumber::Unsigned, 0)), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(page(0)), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(page(33)), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(page(64)), eTypeNone);
    EXPECT_EQ(hvimage::sampleTypeOf(TiffPage()), eTypeNone);
}

TEST(TiffSamples, TheReasonIsTold)
{
    char const* reason = nullptr;
    hvimage::sampleTypeOf(page(32, TiffNumber::Float), &reason);
    ASSERT_NE(reason, nullptr);
    EXPECT_NE(std::string(reason).find("floating-point"), std::string::npos);
    hvimage::sampleTypeOf(page(8, TiffNumber::Unsigned, 3), &reason);
    EXPECT_NE(std::string(reason).find("colour"), std::string::npos);
    hvimage::sampleTypeOf(page(8), &reason);
    EXPECT_EQ(reason, nullptr);
}

TEST(TiffSamples, OddBitsComeHighestFirst)
{
    EXPECT_EQ(unpacked<std::uint8_t>({0xA5}, 8, 1, eTypeUInt8),
              (std::vector<std::uint8_t>{1, 0, 1, 0, 0, 1, 0, 1}));
    EXPECT_EQ(unpacked<std::uint8_t>({0x1F, 0x80}, 3, 4, eTypeUInt8), (std::vector<std::uint8_t>{1, 15, 8}));
    EXPECT_EQ(unpacked<std::uint16_t>({0x12, 0x34, 0x56, 0xFF, 0xF0}, 3, 12, eTypeUInt16),
              (std::vector<std::uint16_t>{0x123, 0x456, 0xFFF}));
    EXPECT_EQ(unpacked<std::uint32_t>({0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x00, 0x00, 0x04}, 2, 31, eTypeUInt32),
              (std::vector<std::uint32_t>{0x7FFFFFFF, 1}));
}

TEST(TiffSamples, ThreeBytesAreInTheMachinesOrder)
{
#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
    EXPECT_EQ(unpacked<std::uint32_t>({0x01, 0x02, 0x83, 0xFF, 0, 0}, 2, 24, eTypeUInt32),
              (std::vector<std::uint32_t>{0x830201, 0xFF}));
#endif
}

TEST(TiffSamples, SignedSamplesKeepTheirOrder)
{
    // -128, -1, 0, 127
    std::vector<std::uint8_t> bytes{0x80, 0xFF, 0x00, 0x7F};
    hvimage::shiftSigned(eTypeUInt8, bytes.data(), bytes.size(), 8);
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{0, 127, 128, 255}));
    std::vector<std::uint16_t> words{0xFC00, 0x0000, 0x0400};  // -1024, 0, 1024
    hvimage::shiftSigned(eTypeUInt16, words.data(), words.size(), 16);
    EXPECT_EQ(words, (std::vector<std::uint16_t>{31744, 32768, 33792}));
    std::vector<std::uint16_t> twelve{0x800, 0xFFF, 0x000, 0x7FF};  // of 12 bits
    hvimage::shiftSigned(eTypeUInt16, twelve.data(), twelve.size(), 12);
    EXPECT_EQ(twelve, (std::vector<std::uint16_t>{0, 2047, 2048, 4095}));
    std::vector<std::uint32_t> wide{0x80000000U, 0, 0x7FFFFFFFU};
    hvimage::shiftSigned(eTypeUInt32, wide.data(), wide.size(), 32);
    EXPECT_EQ(wide, (std::vector<std::uint32_t>{0, 0x80000000U, 0xFFFFFFFFU}));
}

TEST(TiffSamples, AFileHoldsWhatItsCompressionAllows)
{
    TiffPage p = page(16);  // 200 bytes
    EXPECT_TRUE(hvimage::canHold(200, p));
    EXPECT_FALSE(hvimage::canHold(199, p));
    p.compression = 32773;
    EXPECT_TRUE(hvimage::canHold(4, p));
    EXPECT_FALSE(hvimage::canHold(3, p));
    p.compression = 4;  // fax: a white page takes next to nothing
    EXPECT_TRUE(hvimage::canHold(1, p));
    p.compression = 8;
    p.width = 0xFFFFFFFFU;
    p.height = 0xFFFFFFFFU;
    p.samples = 0xFFFF;
    p.bits = 0xFFFF;
    EXPECT_FALSE(hvimage::canHold(std::uint64_t{1} << 40, p)) << "products beyond 64 bits";
}
