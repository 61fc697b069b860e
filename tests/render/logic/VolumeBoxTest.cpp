#include "render/logic/VolumeBox.h"

#include <gtest/gtest.h>

#include <set>

namespace {

int otherEnd(const VolumeEdge& edge, int corner)
{
    if (edge.first == corner) return edge.second;
    if (edge.second == corner) return edge.first;
    return -1;
}

TEST(VolumeVertex, ADefaultVertexIsZeroButForItsWhiteColour)
{
    const VolumeVertex vertex;
    for (double v : vertex.position)
        EXPECT_EQ(v, 0.0);
    for (double v : vertex.texture)
        EXPECT_EQ(v, 0.0);
    for (double v : vertex.color)
        EXPECT_EQ(v, 1.0);
}

TEST(VolumeVertex, ArithmeticRunsOverAllElevenNumbers)
{
    VolumeVertex a;
    VolumeVertex b;
    for (int i = 0; i < 4; ++i) {
        a.position[i] = 1.0 + i;
        b.position[i] = 10.0 * (1.0 + i);
        a.color[i] = 0.25;
        b.color[i] = 0.5;
    }
    for (int i = 0; i < 3; ++i) {
        a.texture[i] = 0.1;
        b.texture[i] = 0.5;
    }
    const VolumeVertex result = a + (b - a) * 2.0;
    for (int i = 0; i < 4; ++i)
        EXPECT_DOUBLE_EQ(result.position[i], 19.0 * (1.0 + i));
    for (double v : result.texture)
        EXPECT_DOUBLE_EQ(v, 0.9);
    for (double v : result.color)
        EXPECT_DOUBLE_EQ(v, 0.75);
}

TEST(VolumeVertex, TheDotProductCountsWButNeitherTextureNorColour)
{
    VolumeVertex a;
    VolumeVertex b;
    for (int i = 0; i < 4; ++i) {
        a.position[i] = 1.0 + i;
        b.position[i] = 2.0;
    }
    a.texture[0] = b.texture[0] = 100.0;
    EXPECT_DOUBLE_EQ(dot(a, b), 20.0);
}

TEST(VolumeBox, CornersRunAroundTheLowFaceAndThenTheHighOne)
{
    VolumeVertex v[8];
    placeVolumeVertices({-1, -2, -3}, {4, 5, 6}, {}, v);
    const double expected[8][3] = {{-1, -2, -3}, {4, -2, -3}, {4, 5, -3}, {-1, 5, -3},
                                   {-1, -2, 6},  {4, -2, 6},  {4, 5, 6},  {-1, 5, 6}};
    const double texture[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                  {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    for (int k = 0; k < 8; ++k) {
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(v[k].position[i], expected[k][i]) << "corner " << k;
            EXPECT_EQ(v[k].texture[i], texture[k][i]) << "corner " << k;
        }
        EXPECT_EQ(v[k].position[3], 1.0);
    }
}

TEST(VolumeBox, AFlippedAxisMovesTheCornersAndLeavesTheTextureCoordinates)
{
    VolumeVertex v[8];
    placeVolumeVertices({-1, -2, -3}, {4, 5, 6}, {1, -1, 1}, v);
    EXPECT_EQ(v[0].position[1], 2.0);
    EXPECT_EQ(v[0].texture[1], 0.0);
    EXPECT_EQ(v[2].position[1], -5.0);
    EXPECT_EQ(v[2].texture[1], 1.0);
    EXPECT_EQ(v[0].position[0], -1.0);
    EXPECT_EQ(v[4].position[2], 6.0);
}

TEST(VolumeBox, TheSignsOfTheBoxItselfDoNotCount)
{
    VolumeVertex v[8];
    placeVolumeVertices({2, -2, -2}, {4, -1, 2}, {}, v);
    EXPECT_EQ(v[0].position[0], -2.0);
    EXPECT_EQ(v[1].position[0], 4.0);
    EXPECT_EQ(v[2].position[1], 1.0);
}

TEST(VolumeBox, PlainCornersKeepTheBoxAsItIs)
{
    const auto c = boxCorners({2, 3, 4}, {5, 6, 7});
    EXPECT_EQ(c[0].x(), 2.0);
    EXPECT_EQ(c[1].x(), 5.0);
    EXPECT_EQ(c[2].y(), 6.0);
    EXPECT_EQ(c[3].x(), 2.0);
    EXPECT_EQ(c[6].z(), 7.0);
    EXPECT_EQ(c[7].y(), 6.0);
}

TEST(EdgeSequence, EachRowHoldsEachEdgeOnce)
{
    for (const auto& row : s_edgeSequence)
        EXPECT_EQ(std::set<int>(row, row + 12).size(), 12U);
}

TEST(EdgeSequence, EachGroupIsAPathFromTheCornerToTheOppositeOneWithABranchAtItsFirstJoint)
{
    VolumeEdge edges[12];
    listVolumeEdges(edges);
    const int opposite[8] = {6, 7, 4, 5, 2, 3, 0, 1};
    for (int corner = 0; corner < 8; ++corner) {
        for (int group = 0; group < 12; group += 4) {
            const auto& row = s_edgeSequence[corner];
            const int joint = otherEnd(edges[row[group]], corner);
            ASSERT_GE(joint, 0) << "row " << corner << " group " << group;
            const int second = otherEnd(edges[row[group + 1]], joint);
            ASSERT_GE(second, 0) << "row " << corner << " group " << group;
            EXPECT_EQ(otherEnd(edges[row[group + 3]], second), opposite[corner]) << "row " << corner;
            EXPECT_GE(otherEnd(edges[row[group + 2]], joint), 0) << "row " << corner << " group " << group;
        }
    }
}

}  // namespace
