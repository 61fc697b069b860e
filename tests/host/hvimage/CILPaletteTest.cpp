#include "hvimage/CILPalette.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace {

using Color = std::array<double, 4>;

Color colorOf(CILPalette const& palette, double value)
{
    Color c{};
    palette.GetRGBForImageValue(value, &c[0], &c[1], &c[2], &c[3]);
    return c;
}

Color gray(double v)
{
    return {v, v, v, 255.0};
}

std::vector<unsigned char> entriesOf(CILPalette& palette)
{
    unsigned char const* const buffer = palette.getColorTableBuffer();
    return std::vector<unsigned char>(buffer, buffer + 4 * palette.getMaxIndex());
}

}  // namespace

TEST(CILPalette, BeginsAsLinearGraysOfBytes)
{
    CILPalette palette;
    EXPECT_EQ(palette.getMaxIndex(), 256);
    EXPECT_EQ(palette.reversed(), 0);
    ASSERT_NE(palette.getColorTableBuffer(), nullptr);
    for (int i = 0; i < 256; ++i) {
        unsigned char const* const entry = palette.getColorTableBuffer() + 4 * i;
        ASSERT_EQ(entry[0], i);
        ASSERT_EQ(entry[1], i);
        ASSERT_EQ(entry[2], i);
        ASSERT_EQ(entry[3], 255);
    }
    EXPECT_EQ(colorOf(palette, 100.0), gray(100.0));
}

TEST(CILPalette, AnUnknownTypeLeavesNoTable)
{
    CILPalette palette;
    palette.setColorTableType(static_cast<HVS_COLORTABLE_TYPES>(5), 0.0F, 1.0F);
    EXPECT_EQ(palette.getColorTableBuffer(), nullptr);
    EXPECT_EQ(palette.getMaxIndex(), 0);
    EXPECT_EQ(colorOf(palette, 100.0), gray(0.0));
    palette.setColorTableType(eColorTableGrays, 0.0F, 1.0F);
    EXPECT_EQ(palette.getMaxIndex(), 256);
}

TEST(CILPalette, ReversalLeavesTheBufferAndTurnsTheColours)
{
    CILPalette palette(eColorTableJet);
    std::vector<unsigned char> const before = entriesOf(palette);
    palette.setReversed(5);
    EXPECT_EQ(palette.reversed(), 1);
    EXPECT_EQ(entriesOf(palette), before);
    EXPECT_EQ(colorOf(palette, 0.0), (Color{128, 0, 0, 255}));
    EXPECT_EQ(colorOf(palette, 255.0), (Color{0, 0, 128, 255}));
    palette.setReversed(0);
    EXPECT_EQ(palette.reversed(), 0);
}

TEST(CILPalette, LogScaleChangesTheBufferAndComesBack)
{
    CILPalette palette;
    std::vector<unsigned char> const linear = entriesOf(palette);
    palette.setLogScale(1);
    EXPECT_EQ(palette.getColorTableBuffer()[4], 32);
    EXPECT_NE(entriesOf(palette), linear);
    palette.setLogScale(0);
    EXPECT_EQ(entriesOf(palette), linear);
}

TEST(CILPalette, PartOfATable)
{
    CILPalette palette;
    palette.setColorTableType(eColorTableGrays, 0.5F, 1.0F);
    EXPECT_EQ(palette.getMaxIndex(), 256);
    EXPECT_EQ(palette.getColorTableBuffer()[0], 128);
    EXPECT_EQ(palette.getColorTableBuffer()[4 * 255], 255);
    palette.setColorTableType(eColorTableGrays, -3.0F, std::nanf(""));
    EXPECT_EQ(palette.getColorTableBuffer()[4 * 255], 0);
}

TEST(CILPalette, ImageValuesFindTheirEntries)
{
    CILPalette palette;
    palette.SetImageMinMax(1000.0, 3000.0);
    EXPECT_EQ(colorOf(palette, 1000.0), gray(0.0));
    EXPECT_EQ(colorOf(palette, 3000.0), gray(255.0));
    EXPECT_EQ(colorOf(palette, 2000.0), gray(128.0));  // 127.5, halves up
    EXPECT_EQ(colorOf(palette, -5.0), gray(0.0));
    EXPECT_EQ(colorOf(palette, 9000.0), gray(255.0));
    EXPECT_EQ(colorOf(palette, std::nan("")), gray(0.0));
    palette.SetImageMinMax(7.0, 7.0);
    EXPECT_EQ(colorOf(palette, 7.0), gray(0.0));
    EXPECT_EQ(colorOf(palette, 8.0), gray(0.0));
}

TEST(CILPalette, CopiesAreIndependent)
{
    CILPalette first(eColorTableRed);
    first.setReversed(1);
    CILPalette second(first);
    CILPalette third;
    third = first;
    first.setColorTableType(eColorTableGrays, 0.0F, 1.0F);
    first.setReversed(0);
    EXPECT_EQ(second.reversed(), 1);
    EXPECT_EQ(entriesOf(second), entriesOf(third));
    EXPECT_NE(entriesOf(first), entriesOf(second));
}
