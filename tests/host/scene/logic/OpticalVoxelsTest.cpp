#include "lib/hvapi/scene/logic/OpticalVoxels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

using namespace hvscene;

namespace {

OpticalVoxels row(std::initializer_list<float> intensities)
{
    OpticalVoxels optical;
    double x = 0.0;
    for (const float intensity : intensities)
        optical.voxels.push_back({{x++, 0.0, 0.0}, {1.0, 1.0, 1.0}, intensity});
    return optical;
}

using Indices = std::vector<std::size_t>;

TEST(OpticalVoxelsTest, NothingHasNoRangeAndNoBox)
{
    const OpticalVoxels none;
    EXPECT_EQ(none.lowest(), 0.0);
    EXPECT_EQ(none.highest(), 0.0);
    EXPECT_EQ(none.defaultThreshold(), 0.0);
    EXPECT_TRUE(none.box().empty);
    EXPECT_TRUE(drawnVoxels(none, 0.0f, 0.5).empty());
}

TEST(OpticalVoxelsTest, TheDefaultThresholdIsToldOrAQuarterOfTheWay)
{
    OpticalVoxels optical = row({10.0f, 2.0f, 6.0f});
    EXPECT_EQ(optical.lowest(), 2.0);
    EXPECT_EQ(optical.highest(), 10.0);
    EXPECT_EQ(optical.defaultThreshold(), 4.0);
    optical.threshold = 9.0;
    EXPECT_EQ(optical.defaultThreshold(), 9.0);
}

TEST(OpticalVoxelsTest, TheBoxIsAroundAllVoxels)
{
    OpticalVoxels optical;
    optical.voxels = {{{1.0, 2.0, 3.0}, {2.0, 4.0, 6.0}, 1.0f}, {{-5.0, 0.0, 0.0}, {2.0, 1.0, 1.0}, 0.0f}};
    const Box box = optical.box();
    EXPECT_EQ(box.min.x, -6.0);
    EXPECT_EQ(box.min.y, -0.5);
    EXPECT_EQ(box.min.z, -0.5);
    EXPECT_EQ(box.max.x, 2.0);
    EXPECT_EQ(box.max.y, 4.0);
    EXPECT_EQ(box.max.z, 6.0);
}

TEST(OpticalVoxelsTest, AVoxelAtTheThresholdIsDrawnAndOneBelowIsNot)
{
    const OpticalVoxels optical = row({1.0f, 2.0f, 3.0f, 2.0f});
    EXPECT_EQ(drawnVoxels(optical, 2.0f, 1.0), (Indices{1, 2, 3}));
    EXPECT_EQ(drawnVoxels(optical, 3.5f, 1.0), Indices());
    EXPECT_EQ(drawnVoxels(optical, -1.0f, 1.0), (Indices{0, 1, 2, 3}));
}

TEST(OpticalVoxelsTest, AShareIsSpreadOverTheListAndLeavesOneAtLeast)
{
    const OpticalVoxels optical = row({1, 1, 1, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_EQ(drawnVoxels(optical, 0.0f, 0.5), (Indices{0, 2, 4, 6, 8}));
    EXPECT_EQ(drawnVoxels(optical, 0.0f, 0.3), (Indices{0, 3, 6}));
    EXPECT_EQ(drawnVoxels(optical, 0.0f, 1.0 / 30.0), (Indices{0}));
    EXPECT_EQ(drawnVoxels(optical, 0.0f, 0.0), Indices());
    EXPECT_EQ(drawnVoxels(optical, 0.0f, -3.0), Indices());
    EXPECT_EQ(drawnVoxels(optical, 0.0f, 7.0).size(), 10U);
}

TEST(OpticalVoxelsTest, ColoursRunFromTheLowestToTheHighestIntensity)
{
    EXPECT_EQ(colourPlace(2.0, 2.0, 10.0), 0.0);
    EXPECT_EQ(colourPlace(4.0, 2.0, 10.0), 0.25);
    EXPECT_EQ(colourPlace(10.0, 2.0, 10.0), 1.0);
    EXPECT_EQ(colourPlace(3.0, 3.0, 3.0), 1.0);
    const double most = std::numeric_limits<float>::max();
    EXPECT_EQ(colourPlace(0.0, -most, most), 0.5);
}

TEST(OpticalVoxelsTest, BoxesHaveTheirCornersColoursAndSidesSeenFromOutside)
{
    OpticalVoxels optical = row({0.0f, 5.0f, 10.0f});
    optical.voxels[2].size = {1.0, 0.25, 2.0};
    unsigned char table[1024];
    for (int k = 0; k < 1024; ++k)
        table[k] = static_cast<unsigned char>(k / 4);
    const VoxelBoxes boxes = voxelBoxes(optical, {1, 2}, table);
    ASSERT_EQ(boxes.corners.size(), 2U * 24);
    ASSERT_EQ(boxes.colours.size(), 2U * 32);
    EXPECT_EQ(boxes.smallest, 0.25);
    EXPECT_EQ(boxes.middles, (std::vector<unsigned int>{0, 8}));
    EXPECT_EQ(boxes.colours[0], 128) << "half way, rounded";
    EXPECT_EQ(boxes.colours[3], 255);
    EXPECT_EQ(boxes.colours[32], 255);
    const auto corner = [&](unsigned int k) {
        return Vec3{static_cast<double>(boxes.corners[3 * k]), static_cast<double>(boxes.corners[3 * k + 1]),
                    static_cast<double>(boxes.corners[3 * k + 2])};
    };
    for (std::size_t side = 0; side < 6; ++side) {
        ASSERT_EQ(boxes.sides[side].size(), 8U);
        for (std::size_t voxel = 0; voxel < 2; ++voxel) {
            const unsigned int* k = boxes.sides[side].data() + 4 * voxel;
            const Vec3 a = corner(k[0]);
            const Vec3 b = corner(k[1]);
            const Vec3 c = corner(k[2]);
            const Vec3 e = corner(k[3]);
            const Vec3 normal = cross(b - a, c - a);
            const Vec3 outwards = (a + c) * 0.5 - optical.voxels[voxel + 1].center;
            const double along[3] = {normal.x, normal.y, normal.z};
            EXPECT_GT(dot(normal, outwards), 0.0) << "side " << side;
            EXPECT_EQ(along[side / 2] > 0.0, side % 2 == 1) << "side " << side;
            EXPECT_EQ(length(a + c - (b + e)), 0.0) << "a rectangle";
        }
    }
}

}  // namespace
