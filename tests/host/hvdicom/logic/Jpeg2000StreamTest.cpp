#include "lib/hvdicom/Jpeg2000Stream.h"
#include "support/dicom/DicomBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

using namespace hvdicom;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::uint8_t const* bytesOf(QByteArray const& stream)
{
    return reinterpret_cast<std::uint8_t const*>(stream.constData());
}

std::string decode(QByteArray const& stream, Jpeg2000Frame const& frame, void* target)
{
    return decodeJpeg2000(bytesOf(stream), static_cast<std::size_t>(stream.size()), frame, target);
}

QByteArray square(unsigned bits = 12)
{
    std::vector<std::int64_t> samples(32 * 32);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::int64_t>(i * 37 % (1U << bits));
    return jpeg2000Frame(samples, 32, 32, bits, false);
}

}  // namespace

TEST(Jpeg2000Stream, givesTheSamplesBack)
{
    QByteArray const stream = jpeg2000Frame({0, 1, 4095, 2, 3, 77}, 3, 2, 12, false);
    std::vector<std::uint16_t> samples(6);
    EXPECT_EQ(decode(stream, {3, 2, 1, 16}, samples.data()), "");
    EXPECT_THAT(samples, ElementsAre(0, 1, 4095, 2, 3, 77));
}

TEST(Jpeg2000Stream, writesSignedOnesAsTwosComplement)
{
    QByteArray const stream = jpeg2000Frame({-32768, -1, 0, 32767}, 2, 2, 16, true);
    std::vector<std::uint16_t> samples(4);
    EXPECT_EQ(decode(stream, {2, 2, 1, 16}, samples.data()), "");
    EXPECT_THAT(samples, ElementsAre(0x8000, 0xFFFF, 0, 0x7FFF));
}

TEST(Jpeg2000Stream, putsTheComponentsOfAPixelTogether)
{
    QByteArray const stream = jpeg2000Frame({1, 2, 3, 200, 100, 50}, 2, 1, 8, false, 3);
    std::vector<std::uint8_t> samples(6);
    EXPECT_EQ(decode(stream, {2, 1, 3, 8}, samples.data()), "");
    EXPECT_THAT(samples, ElementsAre(1, 2, 3, 200, 100, 50));
}

TEST(Jpeg2000Stream, refusesWhatDisagreesWithTheFile)
{
    std::vector<std::uint16_t> samples(64 * 64);
    EXPECT_THAT(decode(square(), {31, 32, 1, 16}, samples.data()), HasSubstr("size"));
    EXPECT_THAT(decode(square(), {32, 33, 1, 16}, samples.data()), HasSubstr("size"));
    EXPECT_THAT(decode(square(), {32, 32, 3, 16}, samples.data()), HasSubstr("components"));
    EXPECT_THAT(decode(square(), {32, 32, 1, 8}, samples.data()), HasSubstr("bits"));
    EXPECT_THAT(decode(square(8), {32, 32, 1, 32}, samples.data()), HasSubstr("bits"));
}

TEST(Jpeg2000Stream, refusesATruncatedOneWhereverItIsCut)
{
    QByteArray const stream = square();
    std::vector<std::uint16_t> samples(32 * 32);
    for (int length = 0; length < stream.size() - 2; length += 1 + length / 16)
        EXPECT_NE(decode(stream.left(length), {32, 32, 1, 16}, samples.data()), "") << length;
    EXPECT_EQ(decode(stream, {32, 32, 1, 16}, samples.data()), "");
}

TEST(Jpeg2000Stream, isToldByItsFirstBytes)
{
    QByteArray const stream = square();
    EXPECT_TRUE(beginsJpeg2000(bytesOf(stream), 4));
    EXPECT_FALSE(beginsJpeg2000(bytesOf(stream), 3));
    QByteArray const file("\0\0\0\x0CjP  ", 8);
    EXPECT_TRUE(beginsJpeg2000(bytesOf(file), 8));
    QByteArray const other("something else");
    EXPECT_FALSE(beginsJpeg2000(bytesOf(other), 14));
}
