#include "phantom/Scan.h"
#include "phantom/Mouse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>

using namespace phantom;

namespace {

using Bytes = std::vector<unsigned char>;

Solid block(Tissue tissue, double density, Box box)
{
    return {tissue, density, {box}, {}, 0, 0};
}

std::uint64_t fnv1a(const Bytes& bytes)
{
    std::uint64_t h = 0xcbf29ce484222325ULL;
    for (const unsigned char b : bytes)
        h = (h ^ b) * 0x100000001b3ULL;
    return h;
}

Bytes mouse(int size, unsigned threads = 2, std::uint64_t seed = 1)
{
    return sampledFrames(Scan(mouseOnBed(), size, seed), 0, size, 8, threads);
}

std::array<long, 256> histogram(const Bytes& bytes)
{
    std::array<long, 256> counts{};
    for (const unsigned char b : bytes)
        ++counts[b];
    return counts;
}

long countBetween(const std::array<long, 256>& counts, int first, int last)
{
    return std::accumulate(counts.begin() + first, counts.begin() + last + 1, 0L);
}

/// Voxel of a mouse scan at a place in mm.
int at(const Bytes& bytes, int size, Vec3 mm)
{
    const auto index = [size](double v) { return static_cast<int>((v / fieldOfView + 0.5) * size); };
    return bytes[(static_cast<std::size_t>(index(mm.z)) * size + index(mm.y)) * size + index(mm.x)];
}

}  // namespace

TEST(Scan, xRunsFastestThenRowsThenFrames)
{
    // 8 voxels of 10 mm: the block fills exactly voxel x = 1, y = 2, z = 3.
    const Scan scan({block(Tissue::Bone, 200, {{-30, -20, -10}, {-20, -10, 0}})}, 8, 1);
    const Bytes bytes = sampledFrames(scan, 0, 8, 8, 1);
    ASSERT_EQ(bytes.size(), 512U);
    const auto brightest = std::max_element(bytes.begin(), bytes.end());
    EXPECT_EQ(brightest - bytes.begin(), 1 + 2 * 8 + 3 * 64);
    EXPECT_NEAR(*brightest, 200, 6);
}

TEST(Scan, aHalfFilledVoxelGetsHalfTheDensity)
{
    const Scan scan({block(Tissue::Bone, 200, {{-35, -40, -40}, {40, 40, 40}})}, 8, 1);
    std::vector<float> frame(64);
    scan.frame(4, frame.data());
    EXPECT_NEAR(frame[4 * 8 + 0], 100, 6);
    EXPECT_NEAR(frame[4 * 8 + 1], 200, 6);
}

TEST(Scan, laterSoftTissuePaintsOverAndBoneLiesOnTop)
{
    const Box all{{-40, -40, -40}, {40, 40, 40}};
    const Scan scan({block(Tissue::Bone, 150, {{-40, -40, -40}, {0, 40, 40}}), block(Tissue::Soft, 100, all),
                     block(Tissue::Soft, 40, all)},
                    8, 1);
    std::vector<float> frame(64);
    scan.frame(4, frame.data());
    EXPECT_NEAR(frame[4 * 8 + 1], 150, 6);
    EXPECT_NEAR(frame[4 * 8 + 6], 40, 6);
}

TEST(Scan, bytesAreTheSameOnEveryMachine)
{
    const Scan scan({{Tissue::Bone, 200, {Capsule{{-20, -10, 0}, {15, 20, 5}, 9, 5}}, {}, 0, 0}}, 16, 3);
    EXPECT_EQ(fnv1a(sampledFrames(scan, 0, 16, 8, 1)), 8604131750819044430ULL);
}

TEST(Scan, bytesDoNotDependOnTheNumberOfThreads)
{
    EXPECT_EQ(mouse(48, 1), mouse(48, 4));
}

TEST(Scan, framesComeOutAloneAsInARow)
{
    const Scan scan(mouseOnBed(), 24, 1);
    const Bytes all = sampledFrames(scan, 0, 24, 8, 2), part = sampledFrames(scan, 10, 3, 8, 2);
    EXPECT_TRUE(std::equal(part.begin(), part.end(), all.begin() + 10 * 24 * 24));
}

TEST(Scan, theSeedChangesTheNoiseOnly)
{
    const Bytes a = mouse(32, 2, 1), b = mouse(32, 2, 2);
    EXPECT_NE(a, b);
    int largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        largest = std::max(largest, std::abs(a[i] - b[i]));
    EXPECT_LE(largest, 12);
}

TEST(Scan, sixteenBitsAreTheSameScanSixteenTimesAsFine)
{
    const Scan scan(mouseOnBed(), 32, 1);
    const Bytes fine = sampledFrames(scan, 0, 32, 16, 2), coarse = sampledFrames(scan, 0, 32, 8, 2);
    ASSERT_EQ(fine.size(), 2 * coarse.size());
    for (std::size_t i = 0; i < coarse.size(); ++i) {
        const int sample = fine[2 * i] | fine[2 * i + 1] << 8;
        ASSERT_NEAR(sample / 16.0, coarse[i], 0.54) << "voxel " << i;
    }
}

TEST(Mouse, hasAirSoftTissueAndBone)
{
    const auto counts = histogram(mouse(64));
    constexpr double all = 64.0 * 64 * 64;
    EXPECT_GT(countBetween(counts, 0, 6) / all, 0.5);
    EXPECT_GT(countBetween(counts, 28, 54) / all, 0.03);
    EXPECT_GT(countBetween(counts, 150, 255) / all, 0.001);
    EXPECT_EQ(countBetween(counts, 254, 255), 0) << "nothing as dense as metal";
}

TEST(Mouse, softTissueAndBedStayBelowTheThreshold)
{
    std::vector<Solid> soft = scannerBed();
    for (const Solid& solid : softTissue())
        soft.push_back(solid);
    const Bytes bytes = sampledFrames(Scan(soft, 64, 1), 0, 64, 8, 2);
    EXPECT_LT(*std::max_element(bytes.begin(), bytes.end()), 55);
}

TEST(Mouse, liesProneWithItsHeadUpAndItsTailToTheRight)
{
    constexpr int n = 128;
    const Bytes bytes = mouse(n);
    EXPECT_GT(at(bytes, n, {0, 19.4, 4.0}), 120) << "back of the skull";
    EXPECT_NEAR(at(bytes, n, {0, 23.4, 2.3}), 46, 6) << "brain in a hollow skull";
    EXPECT_GT(at(bytes, n, {0, 0, 5.2}), 60) << "spine towards the back";
    EXPECT_LT(at(bytes, n, {4.3, 2.0, 0.2}), 16) << "lung";
    EXPECT_LT(at(bytes, n, {0, 0, -17}), 8) << "air under the bed";
    EXPECT_NEAR(at(bytes, n, {0, 0, -14.6}), 34, 6) << "bed below the belly";
    EXPECT_LT(at(bytes, n, {0, 0, 30}), 8) << "air above the back";
    int right = 0, left = 0;
    for (int z = 0; z < n; ++z)
        for (int y = 0; y < n; ++y)
            for (int x = 0; x < n * 3 / 16; ++x) {
                const std::size_t row = (static_cast<std::size_t>(z) * n + y) * n;
                left += bytes[row + x] > 100;
                right += bytes[row + n - 1 - x] > 100;
            }
    EXPECT_EQ(left, 0);
    EXPECT_GT(right, 100) << "the tail";
}

TEST(Mouse, eyeSocketsAreOpen)
{
    constexpr int n = 128;
    const Bytes bytes = mouse(n);
    EXPECT_LT(at(bytes, n, {4.6, 28.7, 2.5}), 60);
    EXPECT_LT(at(bytes, n, {-4.6, 28.7, 2.5}), 60);
}
