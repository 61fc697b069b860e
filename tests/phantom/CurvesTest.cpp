#include "phantom/Curves.h"

#include <gtest/gtest.h>

using namespace phantom;

TEST(Curves, evenlySpacedKeepsBothEndsAndEqualSteps)
{
    const Points points = evenlySpaced({{0, 0, 0}, {1, 0, 0}, {4, 0, 0}}, 5);
    ASSERT_EQ(points.size(), 5U);
    for (int i = 0; i < 5; ++i)
        EXPECT_NEAR(points[i].x, i, 1e-9);
}

TEST(Curves, directionsAreUnitVectorsAlongTheWay)
{
    const Points d = directions({{0, 0, 0}, {0, 2, 0}, {2, 2, 0}});
    ASSERT_EQ(d.size(), 3U);
    EXPECT_DOUBLE_EQ(d[0].y, 1.0);
    EXPECT_NEAR(d[1].x, d[1].y, 1e-12);
    EXPECT_DOUBLE_EQ(d[2].x, 1.0);
}

TEST(Curves, tubeTapersFromStretchToStretch)
{
    std::vector<Solid> solids;
    addTube(solids, Tissue::Bone, 200, {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}, 2, 1);
    ASSERT_EQ(solids.size(), 2U);
    const auto& second = std::get<Capsule>(solids[1].parts[0]);
    EXPECT_DOUBLE_EQ(second.ra, 1.5);
    EXPECT_DOUBLE_EQ(second.rb, 1.0);
}
