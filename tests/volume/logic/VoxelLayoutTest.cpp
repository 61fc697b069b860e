#include "volume/logic/VoxelLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using viz::VoxelLayout;

TEST(AxialLayout, FirstRowLiesInTheLastPlane)
{
    // 3 columns, 2 rows, 4 frames: a plane has 3 * 4 voxels
    const VoxelLayout layout = viz::axialLayout(1, 3, 2, 4);
    EXPECT_EQ(layout.index(0, 1), 3);
    EXPECT_EQ(layout.index(2, 1), 5);
    EXPECT_EQ(layout.index(0, 0), 15);
    EXPECT_EQ(layout.index(2, 0), 17);
}

TEST(AxialLayout, EveryVoxelIsTakenOnce)
{
    std::vector<int> taken(3 * 5 * 4);
    for (unsigned f = 0; f < 4; ++f)
        for (unsigned y = 0; y < 5; ++y)
            for (unsigned x = 0; x < 3; ++x)
                ++taken.at(static_cast<std::size_t>(viz::axialLayout(f, 3, 5, 4).index(x, y)));
    EXPECT_EQ(std::count(taken.begin(), taken.end(), 1), 60);
}

TEST(AxialLayout, CountsBeyond32BitsDoNotOverflow)
{
    // 4000 * 4000 * 400 voxels are 6.4e9
    EXPECT_EQ(viz::axialLayout(399, 4000, 4000, 400).index(3999, 0), 6399999999);
}

TEST(StoreFrame, PixelsGoToTheirPlaces)
{
    const std::vector<std::uint16_t> pixels{10, 11, 12, 13, 14, 15};  // 3 columns, 2 rows
    std::vector<std::uint8_t> block(12, 99);
    viz::storeFrame(pixels.data(), 3, 2, 10, 1.0F, viz::axialLayout(1, 3, 2, 2), block.data());
    EXPECT_EQ(block, (std::vector<std::uint8_t>{99, 99, 99, 3, 4, 5, 99, 99, 99, 0, 1, 2}));
}

TEST(StoreFrame, ALayoutWithoutStraightRows)
{
    // columns of the picture run along the block's rows: index y + x * 2
    const std::vector<std::uint8_t> pixels{1, 2, 3, 4, 5, 6};
    std::vector<std::uint8_t> block(6);
    viz::storeFrame(pixels.data(), 3, 2, 0, 1.0F, VoxelLayout{0, 2, 1}, block.data());
    EXPECT_EQ(block, (std::vector<std::uint8_t>{1, 4, 2, 5, 3, 6}));
}

TEST(StoreFrame, ALongRowWithoutStraightRows)
{
    std::vector<std::uint32_t> pixels(1500);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<std::uint32_t>(i % 256);
    std::vector<std::uint8_t> block(3000, 7);
    viz::storeFrame(pixels.data(), 1500, 1, 0, 1.0F, VoxelLayout{0, 2, 0}, block.data());
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        ASSERT_EQ(block[2 * i], pixels[i]);
        ASSERT_EQ(block[2 * i + 1], 7);
    }
}

}  // namespace
