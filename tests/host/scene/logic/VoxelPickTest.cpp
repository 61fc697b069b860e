#include "lib/hvapi/scene/logic/VoxelPick.h"

#include <gtest/gtest.h>

#include <vector>

using namespace hvscene;

namespace {

/// 4 x 3 x 5 voxels of 1 x 2 x 3 mm around the origin; voxels from 100 on are solid.
struct VoxelPickTest : testing::Test
{
    VoxelPickTest()
        : voxels(4 * 3 * 5, 0)
    {
        field.voxels = voxels.data();
        field.counts[0] = 4;
        field.counts[1] = 3;
        field.counts[2] = 5;
        field.first = {-2, -3, -7.5};
        field.last = {2, 3, 7.5};
        field.kept.add({-2, -3, -7.5});
        field.kept.add({2, 3, 7.5});
        for (int v = 100; v < 256; ++v)
            field.solid[v] = true;
    }
    void set(int x, int y, int z, unsigned char value = 200)
    {
        voxels[static_cast<std::size_t>((z * 3 + y) * 4 + x)] = value;
    }
    static void expectHit(const std::optional<VoxelHit>& hit, int x, int y, int z, double distance)
    {
        ASSERT_TRUE(hit.has_value());
        EXPECT_EQ(hit->voxel[0], x);
        EXPECT_EQ(hit->voxel[1], y);
        EXPECT_EQ(hit->voxel[2], z);
        EXPECT_NEAR(hit->distance, distance, 1e-9);
    }

    std::vector<unsigned char> voxels;
    VoxelField field;
};

TEST_F(VoxelPickTest, TheFirstSolidVoxelStopsTheSightAtItsFace)
{
    set(1, 2, 3);
    set(1, 2, 1);
    set(1, 2, 4, 99);
    // Along -z at the middle of column (1, 2): voxel 3 reaches up to z = 4.5.
    expectHit(firstSolidVoxel(field, {{-0.5, 2, 20}, {0, 0, -1}}), 1, 2, 3, 15.5);
    // The other way voxel 1 comes first, from z = -4.5 on.
    const auto hit = firstSolidVoxel(field, {{-0.5, 2, -20}, {0, 0, 1}});
    expectHit(hit, 1, 2, 1, 15.5);
    EXPECT_NEAR(hit->point.z, -4.5, 1e-9);
    EXPECT_NEAR(hit->point.x, -0.5, 1e-9);
}

TEST_F(VoxelPickTest, EveryVoxelIsHitAlongEveryAxis)
{
    for (int z = 0; z < 5; ++z) {
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < 4; ++x) {
                set(x, y, z);
                const Vec3 c{-1.5 + x, -2.0 + 2 * y, -6.0 + 3 * z};
                expectHit(firstSolidVoxel(field, {{-50, c.y, c.z}, {1, 0, 0}}), x, y, z, c.x - 0.5 + 50);
                expectHit(firstSolidVoxel(field, {{c.x, 50, c.z}, {0, -1, 0}}), x, y, z, 50 - c.y - 1);
                expectHit(firstSolidVoxel(field, {{c.x, c.y, -50}, {0, 0, 1}}), x, y, z, c.z - 1.5 + 50);
                set(x, y, z, 0);
            }
        }
    }
}

TEST_F(VoxelPickTest, ASlantedRayPassesFromVoxelToVoxelWithoutSkipping)
{
    // Every voxel solid but those it enters last: compare with a walk in small steps.
    const Ray ray{{-9, -7.3, -20}, normalized({0.55, 0.45, 1.3})};
    for (int skip = 0; skip < 8; ++skip) {
        std::fill(voxels.begin(), voxels.end(), static_cast<unsigned char>(200));
        std::optional<VoxelHit> hit;
        for (int k = 0; k <= skip; ++k) {
            hit = firstSolidVoxel(field, ray);
            if (!hit) break;
            if (k < skip) set(hit->voxel[0], hit->voxel[1], hit->voxel[2], 0);
        }
        if (!hit) break;
        int found[3] = {-1, -1, -1};
        for (double t = 0.0; t < 60.0; t += 1e-4) {
            const Vec3 p = ray.origin + ray.direction * t;
            const int x = static_cast<int>(std::floor(p.x + 2));
            const int y = static_cast<int>(std::floor((p.y + 3) / 2));
            const int z = static_cast<int>(std::floor((p.z + 7.5) / 3));
            if (x < 0 || x > 3 || y < 0 || y > 2 || z < 0 || z > 4) continue;
            if (voxels[static_cast<std::size_t>((z * 3 + y) * 4 + x)] < 100) continue;
            EXPECT_NEAR(hit->distance, t, 2e-4);
            found[0] = x;
            found[1] = y;
            found[2] = z;
            break;
        }
        EXPECT_EQ(hit->voxel[0], found[0]) << skip;
        EXPECT_EQ(hit->voxel[1], found[1]) << skip;
        EXPECT_EQ(hit->voxel[2], found[2]) << skip;
    }
}

TEST_F(VoxelPickTest, AnAxisThatIsTurnedRoundCountsFromItsOtherEnd)
{
    set(0, 1, 2);
    field.first.x = 2;
    field.last.x = -2;
    // Voxel 0 lies at x = 1 to 2 now.
    expectHit(firstSolidVoxel(field, {{10, 0, 0}, {-1, 0, 0}}), 0, 1, 2, 8.0);
    expectHit(firstSolidVoxel(field, {{-10, 0, 0}, {1, 0, 0}}), 0, 1, 2, 11.0);
}

TEST_F(VoxelPickTest, WhatIsCroppedAwayIsNotSeen)
{
    set(1, 1, 4);
    set(1, 1, 2);
    field.kept.max.z = 4.0;
    expectHit(firstSolidVoxel(field, {{-0.5, 0, 20}, {0, 0, -1}}), 1, 1, 2, 18.5);
    // A crop within a solid voxel: the sight meets the cut.
    field.kept.max.z = 0.5;
    expectHit(firstSolidVoxel(field, {{-0.5, 0, 20}, {0, 0, -1}}), 1, 1, 2, 19.5);
    field.kept.max.z = -2.0;
    EXPECT_FALSE(firstSolidVoxel(field, {{-0.5, 0, 20}, {0, 0, -1}}).has_value());
}

TEST_F(VoxelPickTest, NothingIsHitBesideOrWithoutVoxels)
{
    std::fill(voxels.begin(), voxels.end(), static_cast<unsigned char>(255));
    EXPECT_FALSE(firstSolidVoxel(field, {{2.1, 0, 20}, {0, 0, -1}}).has_value());
    EXPECT_FALSE(firstSolidVoxel(field, {{0, 0, 20}, {0, 0, 1}}).has_value()) << "behind the origin";
    EXPECT_FALSE(firstSolidVoxel(field, {{0, 0, 20}, {0, 0, 0}}).has_value());
    EXPECT_FALSE(firstSolidVoxel(field, {{std::nan(""), 0, 20}, {0, 0, -1}}).has_value());
    EXPECT_TRUE(firstSolidVoxel(field, {{2.0, 3.0, 20}, {0, 0, -1}}).has_value()) << "along an edge";
    field.counts[1] = 0;
    EXPECT_FALSE(firstSolidVoxel(field, {{0, 0, 20}, {0, 0, -1}}).has_value());
    field.counts[1] = 3;
    field.voxels = nullptr;
    EXPECT_FALSE(firstSolidVoxel(field, {{0, 0, 20}, {0, 0, -1}}).has_value());
}

TEST_F(VoxelPickTest, DistancesCountInLengthsOfTheDirection)
{
    set(1, 1, 2);
    expectHit(firstSolidVoxel(field, {{-0.5, 0, 21.5}, {0, 0, -2}}), 1, 1, 2, 10.0);
}

TEST(SolidVoxelsTest, ThresholdAndATenthOfOpacityDecide)
{
    unsigned char table[1024] = {};
    for (int v = 0; v < 256; ++v)
        table[4 * v + 3] = static_cast<unsigned char>(v < 120 ? 26 : v < 200 ? 25 : 255);
    bool solid[256];
    markSolid(table, 100, solid);
    EXPECT_FALSE(solid[99]);
    EXPECT_TRUE(solid[100]);
    EXPECT_TRUE(solid[119]);
    EXPECT_FALSE(solid[120]) << "25 of 255 is below a tenth";
    EXPECT_TRUE(solid[200]);
    EXPECT_TRUE(solid[255]);
}

}  // namespace
