#include "lib/hvapi/scene/logic/VolumeSize.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace hvscene;

namespace {

constexpr std::size_t plenty = std::numeric_limits<std::size_t>::max();
constexpr float inf = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();

TEST(VolumeSizeTest, CountsLieAlongXYZAndTheExtentsOfBAndCAreSwapped)
{
    const float extent[3] = {10.0f, 30.0f, 20.0f};
    const auto size = volumeSize(5, 4, 6, extent, plenty);
    ASSERT_TRUE(size);
    EXPECT_EQ(size->width, 5);
    EXPECT_EQ(size->height, 4);
    EXPECT_EQ(size->depth, 6);
    EXPECT_EQ(size->voxels(), 120u);
    EXPECT_EQ(size->lengths.x, 10.0);
    EXPECT_EQ(size->lengths.y, 20.0);
    EXPECT_EQ(size->lengths.z, 30.0);
    EXPECT_EQ(size->thickness().x, 2.0);
    EXPECT_EQ(size->thickness().y, 5.0);
    EXPECT_EQ(size->thickness().z, 5.0);
}

TEST(VolumeSizeTest, BoxIsCentredOnTheOrigin)
{
    const float extent[3] = {10.0f, 30.0f, 20.0f};
    const Box box = volumeSize(5, 4, 6, extent, plenty)->box();
    EXPECT_EQ(box.min.x, -5.0);
    EXPECT_EQ(box.max.x, 5.0);
    EXPECT_EQ(box.min.y, -10.0);
    EXPECT_EQ(box.max.y, 10.0);
    EXPECT_EQ(box.min.z, -15.0);
    EXPECT_EQ(box.max.z, 15.0);
}

TEST(VolumeSizeTest, RefusesACountOfZero)
{
    const float extent[3] = {1, 1, 1};
    EXPECT_FALSE(volumeSize(0, 4, 6, extent, plenty));
    EXPECT_FALSE(volumeSize(5, 0, 6, extent, plenty));
    EXPECT_FALSE(volumeSize(5, 4, 0, extent, plenty));
    EXPECT_TRUE(volumeSize(1, 1, 1, extent, plenty));
}

TEST(VolumeSizeTest, RefusesCountsAboveTheSignedRange)
{
    const float extent[3] = {1, 1, 1};
    EXPECT_TRUE(volumeSize(2147483647u, 1, 1, extent, plenty));
    EXPECT_FALSE(volumeSize(2147483648u, 1, 1, extent, plenty));
    EXPECT_FALSE(volumeSize(1, 4294967295u, 1, extent, plenty));
    EXPECT_FALSE(volumeSize(1, 1, 4294967295u, extent, plenty));
}

TEST(VolumeSizeTest, RefusesAProductThatOverflowsOrExceedsTheLimit)
{
    const float extent[3] = {1, 1, 1};
    EXPECT_FALSE(volumeSize(2147483647u, 2147483647u, 2147483647u, extent, plenty));
    EXPECT_FALSE(volumeSize(65536u, 65536u, 2147483647u, extent, std::size_t(1) << 40));
    EXPECT_TRUE(volumeSize(10, 10, 10, extent, 1000));
    EXPECT_FALSE(volumeSize(10, 10, 10, extent, 999));
    EXPECT_FALSE(volumeSize(1001, 1, 1, extent, 1000));
    EXPECT_FALSE(volumeSize(1, 1001, 1, extent, 1000));
}

TEST(VolumeSizeTest, RefusesLengthsThatAreNotFiniteOrNotAboveZero)
{
    for (float bad : {0.0f, -1.0f, inf, -inf, nan}) {
        for (int k = 0; k < 3; ++k) {
            float extent[3] = {1, 1, 1};
            extent[k] = bad;
            EXPECT_FALSE(volumeSize(2, 2, 2, extent, plenty)) << k << " " << bad;
        }
    }
    EXPECT_FALSE(volumeSize(2, 2, 2, nullptr, plenty));
}

}  // namespace
