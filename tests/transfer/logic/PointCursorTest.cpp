#include "transfer/logic/PointCursor.h"

#include "transfer/Polygon.h"

#include <gtest/gtest.h>

namespace {

const QSizeF marker(11, 11);

ControlPoints chain()
{
    ControlPoints chain;
    chain.points = polygon({{0, 100}, {50, 60}, {100, 100}, {101, 0}, {150, 20}, {200, 0}});
    chain.locks = {LockToLeft, NoLock, LockToBottom, LockToTop, PointLock(LockToLeft | LockToTop),
                   LockToRight};
    return chain;
}

}  // namespace

TEST(PointCursor, ShowsWhatADragWouldDo)
{
    EXPECT_EQ(pointCursor(chain(), marker, {2, 98}), Qt::SizeVerCursor);
    EXPECT_EQ(pointCursor(chain(), marker, {198, 3}), Qt::SizeVerCursor);
    EXPECT_EQ(pointCursor(chain(), marker, {52, 58}), Qt::PointingHandCursor);
    EXPECT_EQ(pointCursor(chain(), marker, {97, 98}), Qt::SizeHorCursor);
    EXPECT_EQ(pointCursor(chain(), marker, {103, 3}), Qt::SizeHorCursor);
    EXPECT_EQ(pointCursor(chain(), marker, {150, 20}), Qt::ArrowCursor) << "a lock of two edges";
}

TEST(PointCursor, TheEdgeOfAStepIsASplitter)
{
    EXPECT_EQ(pointCursor(chain(), marker, {100, 50}), Qt::SplitHCursor);
    EXPECT_EQ(pointCursor(chain(), marker, {101, 50}), Qt::SplitHCursor);
    EXPECT_EQ(pointCursor(chain(), marker, {102, 50}), Qt::PointingHandCursor);
    EXPECT_EQ(pointCursor(chain(), marker, {50, 20}), Qt::PointingHandCursor) << "a free point has no edge";
}

TEST(PointCursor, TheSplitterWinsAtOnce)
{
    // In the column of the lower point, over the marker of the upper one.
    EXPECT_EQ(pointCursor(chain(), marker, {100, 2}), Qt::SplitHCursor);
}

TEST(PointCursor, FreeSpaceAndNoPointsAreAHand)
{
    EXPECT_EQ(pointCursor(chain(), marker, {75, 10}), Qt::PointingHandCursor);
    EXPECT_EQ(pointCursor({}, marker, {75, 10}), Qt::PointingHandCursor);
}

TEST(PointCursor, ThePixelOfTheMouseCounts)
{
    // The marker of the free point covers 44.5 to 55.5.
    ControlPoints one;
    one.points = polygon({{50, 60}});
    one.locks = {LockToLeft};
    EXPECT_EQ(pointCursor(one, marker, {44, 60}), Qt::SizeVerCursor);
    EXPECT_EQ(pointCursor(one, marker, {43, 60}), Qt::PointingHandCursor);
    EXPECT_EQ(pointCursor(one, marker, {55, 60}), Qt::SizeVerCursor);
    EXPECT_EQ(pointCursor(one, marker, {56, 60}), Qt::PointingHandCursor);
}
