#include "transfer/logic/ControlPoints.h"

#include "transfer/logic/MixedColor.h"

#include "transfer/Polygon.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const QRectF area(0, 0, 200, 100);
constexpr QRgb red = 0xffff0000U;
constexpr QRgb green = 0xff00ff00U;
constexpr QRgb blue = 0xff0000ffU;
constexpr QRgb white = 0xffffffffU;
constexpr QRgb black = 0xff000000U;

QVector<PointLock> freeLocks(int count)
{
    return QVector<PointLock>(count, NoLock);
}

/// Edge, free point, edge.
ControlPoints plain()
{
    ControlPoints chain;
    chain.points = polygon({{0, 100}, {80, 60}, {200, 0}});
    chain.colors = {red, green, blue};
    chain.locks = {LockToLeft, NoLock, LockToRight};
    return chain;
}

/// Edge, free point, step at 100, free point, edge.
ControlPoints withStep()
{
    ControlPoints chain;
    chain.points = polygon({{0, 100}, {50, 60}, {100, 100}, {101, 0}, {150, 20}, {200, 0}});
    chain.colors = {red, green, blue, blue, white, black};
    chain.locks = {LockToLeft, NoLock, LockToBottom, LockToTop, NoLock, LockToRight};
    return chain;
}

void expectSame(const ControlPoints& a, const ControlPoints& b)
{
    EXPECT_EQ(a.points, b.points);
    EXPECT_EQ(a.colors, b.colors);
    EXPECT_EQ(a.locks, b.locks);
}

}  // namespace

TEST(MarkerRect, IsCentredOnThePoint)
{
    EXPECT_EQ(markerRect(plain(), 1, QSizeF(11, 11)), QRectF(74.5, 54.5, 11, 11));
}

TEST(MarkerRect, IsFourPixelsLargerAtTheEnds)
{
    EXPECT_EQ(markerRect(plain(), 0, QSizeF(11, 11)), QRectF(-7.5, 92.5, 15, 15));
    EXPECT_EQ(markerRect(plain(), 2, QSizeF(11, 11)), QRectF(192.5, -7.5, 15, 15));
    ControlPoints one;
    one.points = polygon({{20, 20}});
    EXPECT_EQ(markerRect(one, 0, QSizeF(11, 11)), QRectF(12.5, 12.5, 15, 15));
}

TEST(MarkerRect, IsEmptyOutsideTheChain)
{
    for (const int index : {-1, 3})
        EXPECT_TRUE(markerRect(plain(), index, QSizeF(11, 11)).isEmpty()) << index;
    EXPECT_TRUE(markerRect(ControlPoints(), 0, QSizeF(11, 11)).isEmpty());
}

TEST(BoundPoint, AFreePointIsClampedToTheBounds)
{
    EXPECT_EQ(boundPoint({-5, 130}, area, NoLock), QPointF(0, 100));
    EXPECT_EQ(boundPoint({250, -1}, area, NoLock), QPointF(200, 0));
    EXPECT_EQ(boundPoint({33.25, 44.5}, area, NoLock), QPointF(33.25, 44.5));
}

TEST(BoundPoint, LocksPinOneCoordinateAndClampTheOther)
{
    EXPECT_EQ(boundPoint({30, 130}, area, LockToLeft), QPointF(0, 100));
    EXPECT_EQ(boundPoint({30, 40}, area, LockToRight), QPointF(200, 40));
    EXPECT_EQ(boundPoint({-30, 40}, area, LockToTop), QPointF(0, 0));
    EXPECT_EQ(boundPoint({230, 40}, area, LockToBottom), QPointF(200, 100));
}

TEST(BoundPoint, OfTwoOppositeLocksLeftAndTopWin)
{
    EXPECT_EQ(boundPoint({30, 40}, area, PointLock(LockToLeft | LockToRight)), QPointF(0, 40));
    EXPECT_EQ(boundPoint({30, 40}, area, PointLock(LockToTop | LockToBottom)), QPointF(30, 0));
    EXPECT_EQ(boundPoint({30, 40}, area, PointLock(LockToRight | LockToBottom)), QPointF(200, 100));
}

TEST(BoundPoint, NoNumberGoesToTheLeftOrTopEdge)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(boundPoint({nan, nan}, area, NoLock), QPointF(0, 0));
}

TEST(BoundPoint, AWidgetOfNoneOrOnePixelTakesEveryPoint)
{
    EXPECT_EQ(boundPoint({30, 40}, QRectF(), NoLock), QPointF(0, 0));
    EXPECT_EQ(boundPoint({30, 40}, QRectF(0, 0, 1, 1), NoLock), QPointF(1, 1));
}

TEST(SetPoints, BoundsThemTakesTheLocksAwayAndLeavesTheColours)
{
    ControlPoints chain = plain();
    chain.current = 1;
    setPoints(chain, polygon({{-9, 10}, {10, 400}}), area);
    EXPECT_EQ(chain.points, polygon({{0, 10}, {10, 100}}));
    EXPECT_EQ(chain.locks, freeLocks(2));
    EXPECT_EQ(chain.colors, QVector<QRgb>({red, green, blue}));
    EXPECT_EQ(chain.current, -1) << "the dragged point is gone";
    setPoints(chain, QPolygonF(), area);
    EXPECT_TRUE(chain.points.isEmpty());
    EXPECT_TRUE(chain.locks.isEmpty());
}

TEST(ScalePoints, KeepsColoursLocksAndTheDraggedPoint)
{
    ControlPoints chain = withStep();
    chain.current = 4;
    scalePoints(chain, 0.5, 2.0, QRectF(0, 0, 100, 200));
    EXPECT_EQ(chain.points, polygon({{0, 200}, {25, 120}, {50, 200}, {50.5, 0}, {75, 40}, {100, 0}}));
    EXPECT_EQ(chain.locks, withStep().locks);
    EXPECT_EQ(chain.colors, withStep().colors);
    EXPECT_EQ(chain.current, 4);
}

TEST(MovePoint, AFreePointGoesWhereItIsTold)
{
    ControlPoints chain = plain();
    EXPECT_TRUE(movePoint(chain, 1, {120, 30}, area));
    EXPECT_EQ(chain.points, polygon({{0, 100}, {120, 30}, {200, 0}}));
    EXPECT_TRUE(movePoint(chain, 1, {120, 170}, area));
    EXPECT_EQ(chain.points.at(1), QPointF(120, 100));
}

TEST(MovePoint, AFreePointAtAnEndStays)
{
    ControlPoints chain = plain();
    chain.locks = freeLocks(3);
    const ControlPoints before = chain;
    EXPECT_FALSE(movePoint(chain, 0, {10, 50}, area));
    EXPECT_FALSE(movePoint(chain, 2, {190, 50}, area));
    expectSame(chain, before);
    ControlPoints one;
    one.points = polygon({{20, 20}});
    EXPECT_FALSE(movePoint(one, 0, {30, 30}, area));
}

TEST(MovePoint, AnEndPointChangesOnlyItsHeight)
{
    ControlPoints chain = plain();
    EXPECT_TRUE(movePoint(chain, 0, {90, 25}, area));
    EXPECT_TRUE(movePoint(chain, 2, {90, 35}, area));
    EXPECT_EQ(chain.points, polygon({{0, 25}, {80, 60}, {200, 35}}));
}

TEST(MovePoint, AFreePointKeepsThreePixelsFromAnEdgePoint)
{
    ControlPoints chain = plain();
    for (const double x : {197.0, 199.0, 200.0, 3.0, 1.0, -4.0}) {
        EXPECT_FALSE(movePoint(chain, 1, {x, 50}, area)) << x;
        expectSame(chain, plain());
    }
    EXPECT_TRUE(movePoint(chain, 1, {196.9, 50}, area));
    EXPECT_TRUE(movePoint(chain, 1, {3.1, 50}, area));
    EXPECT_EQ(chain.points.at(1), QPointF(3.1, 50));
}

TEST(MovePoint, AFreePointKeepsThreePixelsFromAStep)
{
    ControlPoints chain = withStep();
    EXPECT_FALSE(movePoint(chain, 1, {97, 50}, area));
    EXPECT_FALSE(movePoint(chain, 1, {140, 50}, area)) << "nor beyond it";
    EXPECT_FALSE(movePoint(chain, 4, {104, 50}, area));
    expectSame(chain, withStep());
    EXPECT_TRUE(movePoint(chain, 1, {96, 50}, area));
    EXPECT_TRUE(movePoint(chain, 4, {105, 50}, area));
}

TEST(MovePoint, OnlyTheFacingSideKeepsDistance)
{
    // An upper point to the right and a lower one to the left do not hold a free point off.
    ControlPoints chain = plain();
    chain.locks = {LockToBottom, NoLock, LockToTop};
    EXPECT_TRUE(movePoint(chain, 1, {199, 50}, area));
    EXPECT_TRUE(movePoint(chain, 1, {1, 50}, area));
}

TEST(MovePoint, APlaceThatANeighbourHasIsRefused)
{
    ControlPoints chain = plain();
    chain.points = polygon({{0, 100}, {50, 50}, {80, 60}, {200, 0}});
    chain.locks = {LockToLeft, NoLock, NoLock, LockToRight};
    chain.colors = {red, green, blue, white};
    EXPECT_FALSE(movePoint(chain, 1, {80, 60}, area));
    EXPECT_FALSE(movePoint(chain, 2, {50, 50}, area));
    EXPECT_TRUE(movePoint(chain, 1, {80, 61}, area)) << "one coordinate may be the same";
}

TEST(MovePoint, TheUpperPointOfAStepFollowsTheLowerOne)
{
    ControlPoints chain = withStep();
    EXPECT_TRUE(movePoint(chain, 2, {120, 33}, area));
    EXPECT_EQ(chain.points.at(2), QPointF(120, 100));
    EXPECT_EQ(chain.points.at(3), QPointF(121, 0));
}

TEST(MovePoint, TheLowerPointOfAStepFollowsTheUpperOne)
{
    ControlPoints chain = withStep();
    EXPECT_TRUE(movePoint(chain, 3, {120, 33}, area));
    EXPECT_EQ(chain.points.at(2), QPointF(119, 100));
    EXPECT_EQ(chain.points.at(3), QPointF(120, 0));
}

TEST(MovePoint, AStepKeepsThreePixelsFromItsNeighbours)
{
    ControlPoints chain = withStep();
    EXPECT_FALSE(movePoint(chain, 2, {53, 0}, area));
    EXPECT_FALSE(movePoint(chain, 2, {147, 0}, area));
    EXPECT_FALSE(movePoint(chain, 3, {53, 0}, area));
    EXPECT_FALSE(movePoint(chain, 3, {147, 0}, area));
    expectSame(chain, withStep());
    EXPECT_TRUE(movePoint(chain, 2, {54, 0}, area));
    EXPECT_TRUE(movePoint(chain, 2, {146, 0}, area));
    EXPECT_TRUE(movePoint(chain, 3, {54, 0}, area));
    EXPECT_TRUE(movePoint(chain, 3, {146, 0}, area));
}

TEST(MovePoint, AStepWithoutNeighboursStaysInTheBounds)
{
    ControlPoints chain;
    chain.points = polygon({{100, 100}, {101, 0}});
    chain.locks = {LockToBottom, LockToTop};
    EXPECT_TRUE(movePoint(chain, 0, {500, 0}, area));
    EXPECT_EQ(chain.points, polygon({{200, 100}, {200, 0}}));
    EXPECT_TRUE(movePoint(chain, 1, {-500, 0}, area));
    EXPECT_EQ(chain.points, polygon({{0, 100}, {0, 0}}));
}

TEST(MovePoint, HalfAStepMovesAlone)
{
    ControlPoints chain = plain();
    chain.locks = {LockToLeft, LockToBottom, LockToRight};
    EXPECT_TRUE(movePoint(chain, 1, {90, 10}, area));
    EXPECT_EQ(chain.points, polygon({{0, 100}, {90, 100}, {200, 0}}));
    chain.locks = {LockToLeft, LockToTop, LockToRight};
    EXPECT_TRUE(movePoint(chain, 1, {95, 10}, area));
    EXPECT_EQ(chain.points, polygon({{0, 100}, {95, 0}, {200, 0}}));
}

TEST(MovePoint, OtherLocksKnowNoDistance)
{
    ControlPoints chain = plain();
    chain.locks[1] = PointLock(LockToLeft | LockToBottom);
    EXPECT_TRUE(movePoint(chain, 1, {120, 30}, area));
    EXPECT_EQ(chain.points.at(1), QPointF(0, 100));
}

TEST(MovePoint, OutsideTheChainNothingMoves)
{
    ControlPoints chain = plain();
    for (const int index : {-1, 3, 1000})
        EXPECT_FALSE(movePoint(chain, index, {10, 10}, area)) << index;
    expectSame(chain, plain());
    ControlPoints empty;
    EXPECT_FALSE(movePoint(empty, 0, {10, 10}, area));
}

TEST(RemovePoint, TakesAFreePointWithItsColourAndLock)
{
    ControlPoints chain = plain();
    EXPECT_TRUE(removePoint(chain, 1));
    EXPECT_EQ(chain.points, polygon({{0, 100}, {200, 0}}));
    EXPECT_EQ(chain.colors, QVector<QRgb>({red, blue}));
    EXPECT_EQ(chain.locks, QVector<PointLock>({LockToLeft, LockToRight}));
}

TEST(RemovePoint, LeavesEdgePointsAndUnknownLocks)
{
    for (const int lock : {1, 2, 3, 5, 9, 12, 15}) {
        ControlPoints chain = plain();
        chain.locks[1] = PointLock(lock);
        const ControlPoints before = chain;
        EXPECT_FALSE(removePoint(chain, 1)) << lock;
        expectSame(chain, before);
    }
}

TEST(RemovePoint, TakesBothPointsOfAStepFromEitherOne)
{
    for (const int index : {2, 3}) {
        ControlPoints chain = withStep();
        EXPECT_TRUE(removePoint(chain, index));
        EXPECT_EQ(chain.points, polygon({{0, 100}, {50, 60}, {150, 20}, {200, 0}}));
        EXPECT_EQ(chain.colors, QVector<QRgb>({red, green, white, black}));
        EXPECT_EQ(chain.locks, QVector<PointLock>({LockToLeft, NoLock, NoLock, LockToRight}));
    }
}

TEST(RemovePoint, HalfAStepTakesNoEdgePointAlong)
{
    ControlPoints chain = plain();
    chain.locks = {LockToLeft, LockToBottom, LockToRight};
    EXPECT_TRUE(removePoint(chain, 1));
    EXPECT_EQ(chain.locks, QVector<PointLock>({LockToLeft, LockToRight}));
    chain = plain();
    chain.locks = {LockToLeft, LockToTop, LockToRight};
    EXPECT_TRUE(removePoint(chain, 1));
    EXPECT_EQ(chain.points, polygon({{0, 100}, {200, 0}}));
    ControlPoints last;
    last.points = polygon({{10, 100}});
    last.locks = {LockToBottom};
    EXPECT_TRUE(removePoint(last, 0));
    EXPECT_TRUE(last.points.isEmpty());
}

TEST(RemovePoint, EndsADrag)
{
    ControlPoints chain = plain();
    chain.current = 1;
    removePoint(chain, 1);
    EXPECT_EQ(chain.current, -1);
}

TEST(RemovePoint, ShorterListsLoseWhatTheyHave)
{
    ControlPoints chain = plain();
    chain.colors = {red};
    chain.locks = {};
    EXPECT_TRUE(removePoint(chain, 1));
    EXPECT_EQ(chain.points.size(), 2);
    EXPECT_EQ(chain.colors, QVector<QRgb>({red}));
    EXPECT_FALSE(removePoint(chain, 7));
}

TEST(InsertPoint, StandsInFrontOfTheFirstWithALargerX)
{
    ControlPoints chain = plain();
    EXPECT_TRUE(insertPoint(chain, {140, 12}, XSort));
    EXPECT_EQ(chain.points, polygon({{0, 100}, {80, 60}, {140, 12}, {200, 0}}));
    EXPECT_EQ(chain.locks, QVector<PointLock>({LockToLeft, NoLock, NoLock, LockToRight}));
    EXPECT_EQ(chain.current, 2);
}

TEST(InsertPoint, ItsColourIsMixedByTheDistanceAndTruncated)
{
    ControlPoints chain = plain();
    chain.colors = {qRgba(10, 200, 0, 7), qRgba(21, 0, 255, 9), blue};
    ASSERT_TRUE(insertPoint(chain, {20, 12}, XSort));
    // A quarter of the way: 10 + 2.75, 200 - 50, 63.75.
    EXPECT_EQ(chain.colors.at(1), qRgba(12, 150, 63, 255));
}

TEST(InsertPoint, IsNotBounded)
{
    ControlPoints chain = plain();
    EXPECT_TRUE(insertPoint(chain, {20, 140}, XSort));
    EXPECT_EQ(chain.points.at(1), QPointF(20, 140));
    EXPECT_TRUE(movePoint(chain, 1, {21, 140}, area));
    EXPECT_EQ(chain.points.at(1), QPointF(21, 100)) << "the first move bounds it";
}

TEST(InsertPoint, KeepsThreePixelsFromBothNeighboursOfALock)
{
    ControlPoints chain = plain();
    for (const double x : {1.0, 3.0, 77.0, 79.0, 80.0, 82.0, 83.0, 197.0, 199.0}) {
        EXPECT_FALSE(insertPoint(chain, {x, 20}, XSort)) << x;
        expectSame(chain, plain());
        EXPECT_EQ(chain.current, -1);
    }
    for (const double x : {4.0, 76.0, 84.0, 196.0}) {
        ControlPoints other = plain();
        EXPECT_TRUE(insertPoint(other, {x, 20}, XSort)) << x;
    }
}

TEST(InsertPoint, FreeNeighboursNeedNoDistance)
{
    ControlPoints chain;
    chain.points = polygon({{0, 100}, {50, 60}, {60, 60}, {200, 0}});
    chain.colors = {red, green, blue, white};
    chain.locks = {LockToLeft, NoLock, NoLock, LockToRight};
    EXPECT_TRUE(insertPoint(chain, {51, 20}, XSort));
    EXPECT_EQ(chain.points.at(2), QPointF(51, 20));
}

TEST(InsertPoint, BesideAStepItTakesHoldOfTheStep)
{
    ControlPoints chain = withStep();
    EXPECT_FALSE(insertPoint(chain, {100, 50}, XSort));
    EXPECT_EQ(chain.current, 2) << "the lower point";
    expectSame(chain, withStep());
    EXPECT_FALSE(insertPoint(chain, {103, 50}, XSort));
    EXPECT_EQ(chain.current, 3) << "the upper point";
    chain.current = -1;
    EXPECT_FALSE(insertPoint(chain, {98, 50}, XSort));
    EXPECT_EQ(chain.current, -1) << "the point before is a free one";
}

TEST(InsertPoint, BehindAllTakesTheLastColour)
{
    ControlPoints chain = plain();
    chain.locks = freeLocks(3);
    chain.points.last() = QPointF(150, 0);
    EXPECT_TRUE(insertPoint(chain, {180, 20}, XSort));
    EXPECT_EQ(chain.points.last(), QPointF(180, 20));
    EXPECT_EQ(chain.colors.last(), blue);
    EXPECT_EQ(chain.locks.size(), 4);
}

TEST(InsertPoint, WithoutColoursItIsWhite)
{
    ControlPoints chain = plain();
    chain.locks = freeLocks(3);
    chain.points.last() = QPointF(150, 0);
    chain.colors.clear();
    EXPECT_TRUE(insertPoint(chain, {180, 20}, XSort));
    EXPECT_EQ(chain.colors, QVector<QRgb>({white}));
    chain.colors.clear();
    EXPECT_TRUE(insertPoint(chain, {20, 20}, XSort));
    EXPECT_EQ(chain.colors, QVector<QRgb>({white}));
}

TEST(InsertPoint, WithoutAnOrderItStandsFirst)
{
    ControlPoints chain = plain();
    chain.locks = freeLocks(3);
    EXPECT_TRUE(insertPoint(chain, {120, 20}, NoSort));
    EXPECT_EQ(chain.points.first(), QPointF(120, 20));
    EXPECT_EQ(chain.colors.first(), red);
    EXPECT_EQ(chain.current, 0);
}

TEST(InsertPoint, YSortGoesByY)
{
    ControlPoints chain;
    chain.points = polygon({{0, 10}, {50, 40}, {50, 90}});
    chain.colors = {red, green, blue};
    chain.locks = freeLocks(3);
    EXPECT_TRUE(insertPoint(chain, {50, 60}, YSort));
    EXPECT_EQ(chain.points.at(2), QPointF(50, 60));
    EXPECT_EQ(chain.colors.at(2), green) << "neighbours at one x: no share of the way";
}

TEST(InsertPoint, ShorterListsDoNoHarm)
{
    ControlPoints chain = plain();
    chain.colors = {red};
    chain.locks = {LockToLeft};
    EXPECT_TRUE(insertPoint(chain, {140, 12}, XSort));
    EXPECT_EQ(chain.points.size(), 4);
    EXPECT_EQ(chain.locks, QVector<PointLock>({LockToLeft, NoLock, NoLock, NoLock}));
    EXPECT_EQ(chain.colors, QVector<QRgb>({red, red}));
}

TEST(InsertPoint, AnEmptyChainTakesAPoint)
{
    ControlPoints chain;
    EXPECT_TRUE(insertPoint(chain, {140, 12}, XSort));
    EXPECT_EQ(chain.points, polygon({{140, 12}}));
    EXPECT_EQ(chain.colors, QVector<QRgb>({white}));
    EXPECT_EQ(chain.locks, freeLocks(1));
}

TEST(SortPoints, APointPastItsNeighbourKeepsColourAndLock)
{
    ControlPoints chain;
    chain.points = polygon({{0, 100}, {90, 10}, {60, 30}, {200, 0}});
    chain.colors = {red, green, blue, white};
    chain.locks = {LockToLeft, LockToTop, NoLock, LockToRight};
    chain.current = 1;
    sortPoints(chain, XSort);
    EXPECT_EQ(chain.points, polygon({{0, 100}, {60, 30}, {90, 10}, {200, 0}}));
    EXPECT_EQ(chain.colors, QVector<QRgb>({red, blue, green, white}));
    EXPECT_EQ(chain.locks, QVector<PointLock>({LockToLeft, NoLock, LockToTop, LockToRight}));
    EXPECT_EQ(chain.current, 2) << "the drag goes on";
}

TEST(SortPoints, ByYAndNotAtAll)
{
    ControlPoints chain = plain();
    sortPoints(chain, NoSort);
    expectSame(chain, plain());
    sortPoints(chain, YSort);
    EXPECT_EQ(chain.points, polygon({{200, 0}, {80, 60}, {0, 100}}));
    EXPECT_EQ(chain.colors, QVector<QRgb>({blue, green, red}));
    EXPECT_EQ(chain.locks, QVector<PointLock>({LockToRight, NoLock, LockToLeft}));
}

TEST(SortPoints, OfEqualPointsTheLaterColourAndLockWin)
{
    ControlPoints chain;
    chain.points = polygon({{0, 100}, {50, 50}, {50, 50}, {200, 0}});
    chain.colors = {red, green, blue, white};
    chain.locks = {LockToLeft, NoLock, LockToTop, LockToRight};
    sortPoints(chain, XSort);
    EXPECT_EQ(chain.colors.at(1), blue);
    EXPECT_EQ(chain.locks.at(1), LockToTop);
    // Nobody writes the second place: it keeps what it had.
    EXPECT_EQ(chain.colors.at(2), blue);
    EXPECT_EQ(chain.points.size(), 4);
}

TEST(SortPoints, ADraggedIndexOutsideTheChainStays)
{
    ControlPoints chain = plain();
    for (const int index : {-1, 9}) {
        chain.current = index;
        sortPoints(chain, XSort);
        EXPECT_EQ(chain.current, index);
    }
}

TEST(SortPoints, ShorterListsDoNoHarm)
{
    ControlPoints chain;
    chain.points = polygon({{90, 1}, {60, 2}, {30, 3}});
    chain.colors = {red};
    chain.locks = {LockToTop, LockToBottom};
    sortPoints(chain, XSort);
    EXPECT_EQ(chain.points, polygon({{30, 3}, {60, 2}, {90, 1}}));
    EXPECT_EQ(chain.colors, QVector<QRgb>({red}));
    EXPECT_EQ(chain.locks.size(), 2);
    ControlPoints empty;
    sortPoints(empty, XSort);
    EXPECT_TRUE(empty.points.isEmpty());
}

TEST(MixedColor, IsTruncatedAndOpaque)
{
    EXPECT_EQ(mixedColor(qRgba(0, 255, 3, 0), qRgba(255, 0, 4, 0), 0.5F), qRgba(127, 127, 3, 255));
    EXPECT_EQ(mixedColor(red, blue, 0.0F), red);
    EXPECT_EQ(mixedColor(red, blue, 1.0F), blue);
    EXPECT_EQ(mixedColor(red, blue, 2.0F), blue) << "kept within a byte";
}
