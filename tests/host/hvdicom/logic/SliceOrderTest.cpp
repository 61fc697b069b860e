#include "lib/hvdicom/logic/SliceOrder.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace hvdicom;
using testing::ElementsAre;

namespace {

constexpr std::array<Vector, 2> axial = {{{1, 0, 0}, {0, 1, 0}}};
constexpr std::array<Vector, 2> coronal = {{{1, 0, 0}, {0, 0, -1}}};  // normal (0, 1, 0)

}  // namespace

TEST(SliceOrder, followsTheNormal)
{
    EXPECT_THAT(
        slicesByPosition({{Vector{0, 0, 5}, axial}, {Vector{0, 0, -1}, axial}, {Vector{0, 0, 2}, axial}}),
        ElementsAre(1, 2, 0));
    EXPECT_THAT(slicesByPosition({{Vector{0, 3, 0}, coronal}, {Vector{0, 1, 9}, coronal}}),
                ElementsAre(1, 0));
}

TEST(SliceOrder, takesTheFirstOrientationThereIs)
{
    EXPECT_THAT(
        slicesByPosition({{Vector{0, 2, 0}, {}}, {Vector{9, 1, 5}, coronal}, {Vector{0, 3, 1}, axial}}),
        ElementsAre(1, 0, 2));
}

TEST(SliceOrder, withoutAnOrientationFollowsTheLongestAxis)
{
    EXPECT_THAT(slicesByPosition({{Vector{5, 0, 1}, {}}, {Vector{1, 1, 0}, {}}, {Vector{3, 0, 0}, {}}}),
                ElementsAre(1, 2, 0));
}

TEST(SliceOrder, ignoresAnOrientationWithoutANormal)
{
    std::array<Vector, 2> const flat = {{{1, 0, 0}, {1, 0, 0}}};
    EXPECT_THAT(slicesByPosition({{Vector{0, 0, 5}, flat}, {Vector{0, 0, 1}, flat}}), ElementsAre(1, 0));
}

TEST(SliceOrder, keepsTheOrderOfEqualsAndPutsUnplacedLast)
{
    EXPECT_THAT(slicesByPosition({{{}, axial},
                                  {Vector{0, 0, 1}, axial},
                                  {Vector{0, 0, 1}, axial},
                                  {Vector{0, 0, NAN}, axial},
                                  {Vector{0, 0, 0}, axial}}),
                ElementsAre(4, 1, 2, 0, 3));
    EXPECT_TRUE(slicesByPosition({}).empty());
}
