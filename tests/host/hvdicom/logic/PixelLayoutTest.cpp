#include "lib/hvdicom/logic/PixelLayout.h"

#include <gtest/gtest.h>
#include <string>

using namespace hvdicom;

namespace {

PixelLayout whole()
{
    PixelLayout layout;
    layout.columns = 10;
    layout.rows = 20;
    layout.frames = 3;
    layout.bitsAllocated = 16;
    layout.bitsStored = 12;
    layout.highBit = 11;
    layout.elementBytes = 1200;
    return layout;
}

PixelLayout compressed()
{
    PixelLayout layout = whole();
    layout.isEncapsulated = true;
    layout.fragments = 3;
    layout.elementBytes = 30;
    return layout;
}

template <class F>
PixelFault after(PixelLayout layout, F const& change)
{
    change(layout);
    return pixelFault(layout);
}

}  // namespace

TEST(PixelLayout, agreesWithItsBytes)
{
    EXPECT_EQ(pixelFault(whole()), PixelFault::None);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.elementBytes = 1202; }), PixelFault::None);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.elementBytes = 1199; }), PixelFault::TooShort);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.elementBytes = 0; }), PixelFault::TooShort);
}

TEST(PixelLayout, needsASize)
{
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.columns = 0; }), PixelFault::NoSize);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.rows = 0; }), PixelFault::NoSize);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.rows = 65536; }), PixelFault::NoSize);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.frames = 0; }), PixelFault::NoFrames);
}

TEST(PixelLayout, needsSamplesOfUpTo32Bits)
{
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.bitsAllocated = 64; }), PixelFault::BadBits);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.bitsAllocated = 0; }), PixelFault::BadBits);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.bitsStored = 0; }), PixelFault::BadBits);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.bitsStored = 17; }), PixelFault::BadBits);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.highBit = 16; }), PixelFault::BadBits);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.highBit = 10; }), PixelFault::BadBits);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.highBit = 15; }), PixelFault::None);
    EXPECT_EQ(after(whole(), [](PixelLayout& l) { l.samplesPerPixel = 2; }), PixelFault::BadSamples);
}

TEST(PixelLayout, countsBitsWhereSamplesAreLessThanAByte)
{
    PixelLayout layout = whole();  // 3 frames of 200 bits: 75 bytes
    layout.bitsAllocated = layout.bitsStored = 1;
    layout.highBit = 0;
    EXPECT_EQ(after(layout, [](PixelLayout& l) { l.elementBytes = 75; }), PixelFault::None);
    EXPECT_EQ(after(layout, [](PixelLayout& l) { l.elementBytes = 74; }), PixelFault::TooShort);
    layout.columns = 1;
    layout.rows = 3;  // 9 bits
    EXPECT_EQ(after(layout, [](PixelLayout& l) { l.elementBytes = 2; }), PixelFault::None);
    EXPECT_EQ(after(layout, [](PixelLayout& l) { l.elementBytes = 1; }), PixelFault::TooShort);
}

TEST(PixelLayout, survivesProductsThatOverflow)
{
    PixelLayout layout = whole();
    layout.columns = layout.rows = 65535;
    layout.bitsAllocated = layout.bitsStored = 32;
    layout.highBit = 31;
    layout.elementBytes = 0xFFFFFFFE;
    for (std::uint64_t const frames : {std::uint64_t{1}, std::uint64_t{1000000}, std::uint64_t{2147483647},
                                       std::uint64_t{1} << 40, ~std::uint64_t{0}}) {
        layout.frames = frames;
        EXPECT_EQ(pixelFault(layout), PixelFault::TooShort) << frames;
    }
}

TEST(PixelLayout, boundsWhatCompressedBytesMayDeclare)
{
    EXPECT_EQ(pixelFault(compressed()), PixelFault::None);
    EXPECT_EQ(after(compressed(), [](PixelLayout& l) { l.frames = 4; }), PixelFault::TooFewParts);
    EXPECT_EQ(after(compressed(), [](PixelLayout& l) { l.columns = l.rows = 65535; }), PixelFault::TooLarge);
    EXPECT_EQ(after(compressed(), [](PixelLayout& l) { l.bitsAllocated = 12; }), PixelFault::BadBits);
    EXPECT_TRUE(isPlausibleExpansion(1, std::uint64_t{64} << 20));
    EXPECT_FALSE(isPlausibleExpansion(1, (std::uint64_t{64} << 20) + 4096));
    EXPECT_TRUE(isPlausibleExpansion(std::uint64_t{1} << 20, std::uint64_t{1} << 30));
}

TEST(PixelLayout, everyFaultHasItsWords)
{
    for (int fault = 1; fault <= static_cast<int>(PixelFault::TooLarge); ++fault)
        EXPECT_FALSE(std::string(describe(static_cast<PixelFault>(fault))).empty()) << fault;
}
