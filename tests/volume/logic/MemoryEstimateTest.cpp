#include "volume/logic/MemoryEstimate.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();

TEST(MemoryEstimate, IsTheProductTimesTheFactorTruncated)
{
    EXPECT_EQ(viz::memoryToTry(10, 10, 3, 1.8F), 540U);
    EXPECT_EQ(viz::memoryToTry(1, 1, 1, 1.8F), 1U);
    EXPECT_EQ(viz::memoryToTry(3, 1, 1, 1.5F), 4U);
}

TEST(MemoryEstimate, TheProductHas64Bits)
{
    EXPECT_EQ(viz::volumeBytes(65536, 65536, 1024), std::uint64_t{1} << 42);
    EXPECT_EQ(viz::memoryToTry(65536, 65536, 1024, 2.0F), std::uint64_t{1} << 43);
}

TEST(MemoryEstimate, ResultsBeyond64BitsGiveTheLargest)
{
    EXPECT_EQ(viz::volumeBytes(0xFFFFFFFF, 0xFFFFFFFF, 0x7FFFFFFF), most);
    EXPECT_EQ(viz::memoryToTry(0xFFFFFFFF, 0xFFFFFFFF, 0x7FFFFFFF, 1.8F), most);
    EXPECT_EQ(viz::memoryToTry(0xFFFFFFFF, 0xFFFFFFFF, 1, 1.8F), most);
}

TEST(MemoryEstimate, NothingNeedsNothing)
{
    EXPECT_EQ(viz::memoryToTry(10, 10, 0, 1.8F), 0U);
    EXPECT_EQ(viz::memoryToTry(10, 10, -5, 1.8F), 0U);
    EXPECT_EQ(viz::memoryToTry(0, 10, 5, 1.8F), 0U);
    EXPECT_EQ(viz::memoryToTry(10, 10, 5, 0.0F), 0U);
    EXPECT_EQ(viz::memoryToTry(10, 10, 5, std::numeric_limits<float>::quiet_NaN()), 0U);
}

TEST(MemoryEstimate, TextureDepthIsTruncated)
{
    EXPECT_EQ(viz::textureDepthToTry(1), 1);
    EXPECT_EQ(viz::textureDepthToTry(3), 5);
    EXPECT_EQ(viz::textureDepthToTry(5), 9);
    EXPECT_EQ(viz::textureDepthToTry(1024), 1843);
    EXPECT_EQ(viz::textureDepthToTry(0), 0);
    EXPECT_EQ(viz::textureDepthToTry(-4), 0);
    EXPECT_EQ(viz::textureDepthToTry(std::numeric_limits<int>::max()), std::numeric_limits<int>::max());
}

}  // namespace
