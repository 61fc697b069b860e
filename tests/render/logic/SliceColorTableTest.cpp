#include "render/logic/SliceColorTable.h"

#include "render/logic/NextPowerOfTwo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

struct SliceColorTableTest : ::testing::Test
{
    SliceColorTableTest() { std::fill(std::begin(table), std::end(table), 7); }

    /// A palette of n entries (i, 2i, 3i, 200), low bytes.
    void makePalette(int n)
    {
        entries.clear();
        for (int i = 0; i < n; ++i)
            for (int channel : {i, 2 * i, 3 * i, 200})
                entries.push_back(static_cast<unsigned char>(channel));
        palette.entries = entries.data();
        palette.maxIndex = n;
        palette.colorAt = [this](double value, double(&rgba)[4]) {
            asked.push_back(value);
            rgba[0] = value / 4.0 + 0.9;
            rgba[1] = 10.9;
            rgba[2] = 20.0;
            rgba[3] = 255.0;
        };
    }

    std::vector<unsigned char> entries;
    std::vector<double> asked;
    PaletteView palette;
    unsigned char table[1024];
};

TEST_F(SliceColorTableTest, ATableOf256IsCopiedByteByByte)
{
    makePalette(256);
    fillSliceColorTable(palette, table);
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(table[4 * i], i);
        EXPECT_EQ(table[4 * i + 1], (2 * i) & 255);
        EXPECT_EQ(table[4 * i + 3], 200);
    }
    EXPECT_TRUE(asked.empty());
}

TEST_F(SliceColorTableTest, AShorterTableRepeatsItsLastColour)
{
    makePalette(100);
    fillSliceColorTable(palette, table);
    EXPECT_EQ(table[4 * 98], 98);
    EXPECT_EQ(table[4 * 99], 99);
    EXPECT_EQ(table[4 * 100], 99);
    EXPECT_EQ(table[4 * 255], 99);
}

TEST_F(SliceColorTableTest, AReversedTableIsWrittenFromItsEnd)
{
    makePalette(100);
    palette.reversed = true;
    fillSliceColorTable(palette, table);
    EXPECT_EQ(table[0], 99);
    EXPECT_EQ(table[4 * 155], 99);  // entry 100, beyond the last
    EXPECT_EQ(table[4 * 156], 99);
    EXPECT_EQ(table[4 * 157], 98);
    EXPECT_EQ(table[4 * 255], 0);
}

TEST_F(SliceColorTableTest, APaletteOf512FillsOnlyThe128FirstEntries)
{
    makePalette(512);
    fillSliceColorTable(palette, table);
    // step = 512 / 255; i goes 0, 2, 4, ... 254, since 2 + 0.0078 is truncated.
    ASSERT_EQ(asked.size(), 128U);
    EXPECT_EQ(asked[0], 0.0);
    EXPECT_EQ(asked[1], 4.0);      // 2 * 2.0078 + 0.5, truncated
    EXPECT_EQ(asked[64], 257.0);   // 128 * 2.0078 = 257.004
    EXPECT_EQ(asked[127], 510.0);  // 254 * 2.0078 = 509.99
    EXPECT_EQ(table[0], 0);        // 0.9, truncated
    EXPECT_EQ(table[4 * 1], 1);    // 4 / 4 + 0.9
    EXPECT_EQ(table[4 * 1 + 1], 10);
    EXPECT_EQ(table[4 * 127], 128);  // 127.5 + 0.9
    EXPECT_EQ(table[4 * 127 + 3], 255);
    for (int i = 4 * 128; i < 1024; ++i)
        EXPECT_EQ(table[i], 7) << "entry " << i / 4 << " keeps what it had";
}

TEST_F(SliceColorTableTest, WithoutAPaletteTheTableStays)
{
    fillSliceColorTable(palette, table);
    EXPECT_EQ(std::count(std::begin(table), std::end(table), 7), 1024);
    makePalette(1);
    palette.maxIndex = 0;
    fillSliceColorTable(palette, table);
    EXPECT_EQ(std::count(std::begin(table), std::end(table), 7), 1024);
}

TEST(NextPowerOfTwo, KeepsAPowerWhenAsked)
{
    EXPECT_EQ(nextPowerOfTwo(0, true), 0U);
    EXPECT_EQ(nextPowerOfTwo(1, true), 1U);
    EXPECT_EQ(nextPowerOfTwo(64, true), 64U);
    EXPECT_EQ(nextPowerOfTwo(65, true), 128U);
    EXPECT_EQ(nextPowerOfTwo(100, true), 128U);
    EXPECT_EQ(nextPowerOfTwo(0x80000000U, true), 0x80000000U);
}

TEST(NextPowerOfTwo, ElseGoesToTheOneAbove)
{
    EXPECT_EQ(nextPowerOfTwo(1, false), 2U);
    EXPECT_EQ(nextPowerOfTwo(64, false), 128U);
    EXPECT_EQ(nextPowerOfTwo(100, false), 128U);
    EXPECT_EQ(nextPowerOfTwo(0, false), 1U);
    EXPECT_EQ(nextPowerOfTwo(0x80000000U, false), 0U);
}

}  // namespace
