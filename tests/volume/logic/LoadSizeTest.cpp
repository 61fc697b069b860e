#include "volume/logic/LoadSize.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

double toNearest(double value)
{
    return std::floor(value + 0.5);
}

viz::LoadSize sizeOf(unsigned columns, unsigned rows, int percent)
{
    return viz::loadSize(columns, rows, viz::resolutionFactor(percent), toNearest);
}

struct Case
{
    unsigned columns, rows;
    int percent;
    unsigned loadColumns, loadRows, reducedColumns, reducedRows;
    float factor;
};

class LoadSizeTable : public testing::TestWithParam<Case>
{};

TEST_P(LoadSizeTable, GivesTheSizeWorkedOutByHand)
{
    const Case& c = GetParam();
    const viz::LoadSize size = sizeOf(c.columns, c.rows, c.percent);
    EXPECT_EQ(size.columns, c.loadColumns);
    EXPECT_EQ(size.rows, c.loadRows);
    EXPECT_EQ(size.reducedColumns, c.reducedColumns);
    EXPECT_EQ(size.reducedRows, c.reducedRows);
    EXPECT_FLOAT_EQ(size.factor, c.factor);
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, LoadSizeTable,
    testing::Values(
        // full resolution leaves any size alone, padding included
        Case{64, 64, 100, 64, 64, 64, 64, 1.0F}, Case{100, 100, 100, 100, 100, 100, 100, 1.0F},
        Case{510, 3, 100, 510, 3, 510, 3, 1.0F},
        // 506.88 rounds to 507; 507 mod 20 is 7, and 13 more make 520
        Case{512, 512, 99, 520, 520, 507, 507, 0.99F},
        // 50 x 150: too narrow, and rows are the larger, so columns become 64 and set the factor
        Case{100, 300, 50, 64, 192, 64, 192, 0.64F},
        // the same lying down: rows become 64
        Case{300, 100, 50, 192, 64, 192, 64, 0.64F},
        // 160 and 320 need padding to the next step of 20 although 160 is one itself; 320 is five times 64
        Case{320, 640, 50, 180, 320, 160, 320, 0.5F},
        // 76.8 and 60: rows become 64, columns 128 * 0.64 = 81.92, padded to 100
        Case{128, 100, 60, 100, 64, 82, 64, 0.64F},
        // equal sides below 64 count as rows being the larger; the picture is enlarged
        Case{32, 32, 50, 64, 64, 64, 64, 2.0F},
        // the factor comes back to exactly 1, and the rows are still padded: 100 to 120
        Case{64, 100, 50, 64, 120, 64, 100, 1.0F}, Case{100, 64, 50, 120, 64, 100, 64, 1.0F},
        // a line of pixels: the factor becomes 64, the long side 65536
        Case{1, 1024, 50, 64, 65536, 64, 65536, 64.0F}, Case{1024, 1, 10, 65536, 64, 65536, 64, 64.0F}));

TEST(LoadSize, FrameChangesWhereSizeOrPaddingDiffers)
{
    EXPECT_FALSE(sizeOf(100, 100, 100).changesFrame());
    EXPECT_TRUE(sizeOf(512, 512, 99).changesFrame());
    EXPECT_TRUE(sizeOf(64, 100, 50).changesFrame()) << "factor 1, but padded";
    EXPECT_FALSE(sizeOf(64, 64, 50).changesFrame()) << "factor came back to 1 and nothing is padded";
    EXPECT_TRUE(sizeOf(32, 32, 50).changesFrame());
}

TEST(LoadSize, FactorIsInSinglePrecision)
{
    EXPECT_EQ(viz::resolutionFactor(99), 0.99F);
    EXPECT_EQ(viz::resolutionFactor(100), 1.0F);
    EXPECT_EQ(sizeOf(100, 300, 50).factor, 64.0F / 100.0F);
    // 190 * 0.35F is 66.5 in single precision, and rounds up; the exact product lies below the half
    EXPECT_EQ(sizeOf(190, 190, 35).reducedColumns, 67U);
}

TEST(LoadSize, EveryStoredFrameHoldsItsPicture)
{
    for (unsigned columns = 1; columns <= 1024; columns += 31)
        for (unsigned rows = 1; rows <= 1024; rows += 29)
            for (int percent = 10; percent <= 100; percent += 9) {
                const viz::LoadSize size = sizeOf(columns, rows, percent);
                ASSERT_GE(size.columns, size.reducedColumns);
                ASSERT_GE(size.rows, size.reducedRows);
                ASSERT_GE(size.reducedColumns, 1U);
                ASSERT_GE(size.reducedRows, 1U);
            }
}

TEST(LoadSize, NoPixelsStayNoPixels)
{
    const viz::LoadSize size = sizeOf(0, 512, 50);
    EXPECT_EQ(size.columns, 0U);
    EXPECT_EQ(size.rows, 512U);
}

TEST(FullResolution, IsExcludedBySidesThatAreNoMultipleOf64Or20)
{
    EXPECT_FALSE(viz::excludesFullResolution(500, 500));
    EXPECT_FALSE(viz::excludesFullResolution(512, 512));
    EXPECT_FALSE(viz::excludesFullResolution(64, 20));
    EXPECT_TRUE(viz::excludesFullResolution(510, 510));
    EXPECT_TRUE(viz::excludesFullResolution(510, 500));
    EXPECT_TRUE(viz::excludesFullResolution(512, 138));
}

TEST(PaddedExtent, KeepsTheSizeOfAPixel)
{
    EXPECT_FLOAT_EQ(viz::paddedExtent(50.0F, 100, 120), 60.0F);
    EXPECT_FLOAT_EQ(viz::paddedExtent(50.0F, 100, 100), 50.0F);
    EXPECT_FLOAT_EQ(viz::paddedExtent(50.0F, 0, 100), 50.0F);
}

TEST(RawExtents, StandInTheOrderColumnsFramesRows)
{
    const viz::RawSpacing spacing{0.3F, 0.2F, 0.5F};
    const auto extent = viz::rawExtents(spacing, 100, 40, 10, sizeOf(100, 40, 100));
    EXPECT_FLOAT_EQ(extent[0], 20.0F);
    EXPECT_FLOAT_EQ(extent[1], 5.0F);
    EXPECT_FLOAT_EQ(extent[2], 12.0F);
}

TEST(RawExtents, RowsCorrectTheExtentOfTheFrames)
{
    // 512 x 256 at 0.99: 507 x 253, stored as 520 x 260
    const viz::RawSpacing spacing{0.3F, 0.2F, 0.5F};
    const auto extent = viz::rawExtents(spacing, 512, 256, 10, sizeOf(512, 256, 99));
    EXPECT_FLOAT_EQ(extent[0], 105.025641F);  // 102.4 + 102.4 / 507 * 13
    EXPECT_FLOAT_EQ(extent[1], 5.1383399F);   // 5 + 5 / 253 * 7
    EXPECT_FLOAT_EQ(extent[2], 76.8F);
}

TEST(RawExtents, PaddingAtFactorOneIsCorrectedAsWell)
{
    const auto extent = viz::rawExtents({1.0F, 1.0F, 1.0F}, 64, 100, 10, sizeOf(64, 100, 50));
    EXPECT_FLOAT_EQ(extent[0], 64.0F);
    EXPECT_FLOAT_EQ(extent[1], 12.0F);  // 10 + 10 / 100 * 20
    EXPECT_FLOAT_EQ(extent[2], 100.0F);
}

}  // namespace
