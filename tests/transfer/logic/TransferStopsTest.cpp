#include "transfer/logic/TransferStops.h"

#include "transfer/Polygon.h"

#include <gtest/gtest.h>

namespace {

const QSize size(200, 100);
const QVector<QRgb> colors{0xffff0000U, 0xff00ff00U, 0xff0000ffU, 0xffffffffU};

/// Columns (position times the width) of the stops.
QVector<double> columns(std::initializer_list<QPointF> points)
{
    const auto stops = stopsOfPoints(polygon(points), colors, size, 255.0F);
    EXPECT_TRUE(stops.has_value());
    QVector<double> found;
    for (const auto& stop : stops.value_or(TransferStops()))
        found.append(stop.first * size.width());
    return found;
}

QColor colored(int r, int g, int b, int a)
{
    return QColor(r, g, b, a);
}

}  // namespace

TEST(StopsOfPoints, TwoEndPointsAreAPlainGradient)
{
    const auto stops = stopsOfPoints(polygon({{0, 100}, {200, 0}}), colors, size, 255.0F);
    ASSERT_TRUE(stops);
    EXPECT_EQ(*stops, TransferStops({{0.0, colored(255, 0, 0, 0)}, {1.0, colored(0, 255, 0, 255)}}));
}

TEST(StopsOfPoints, CoordinatesAreTruncated)
{
    const auto stops =
        stopsOfPoints(polygon({{0.9, 99.9}, {50.7, 50.9}, {199.9, 0.9}}), colors, size, 255.0F);
    ASSERT_TRUE(stops);
    // Alpha: 1 of 100 is 2.55, half is 127.5.
    EXPECT_EQ(*stops, TransferStops({{0.0, colored(255, 0, 0, 2)},
                                     {0.25, colored(0, 255, 0, 127)},
                                     {0.995, colored(0, 0, 255, 255)}}));
}

TEST(StopsOfPoints, TheFirstOfTwoAtTheNextOnesExactPlaceIsLeftOut)
{
    EXPECT_EQ(columns({{0, 0}, {50.5, 10}, {50, 90}, {200, 0}}).size(), 4) << "sorted: 50, then 50.5";
    const auto stops = stopsOfPoints(polygon({{0, 0}, {50, 10}, {50, 90}, {200, 0}}), colors, size, 255.0F);
    ASSERT_TRUE(stops);
    ASSERT_EQ(stops->size(), 3);
    EXPECT_EQ(stops->at(1).second, colored(0, 0, 255, 25)) << "the second of the two";
}

TEST(StopsOfPoints, ASecondPointInTheSameColumnMovesOneToTheRight)
{
    EXPECT_EQ(columns({{0, 0}, {50.2, 10}, {50.7, 90}, {200, 0}}), QVector<double>({0, 50, 51, 200}));
    EXPECT_EQ(columns({{0, 0}, {50.0, 10}, {50.7, 90}, {200, 0}}), QVector<double>({0, 50, 51, 200}));
}

TEST(StopsOfPoints, TheColumnOfThePointBeforeCountsBeforeItMoved)
{
    EXPECT_EQ(columns({{50.1, 0}, {50.2, 10}, {50.3, 90}, {200, 0}}), QVector<double>({50, 51, 51, 200}));
    EXPECT_EQ(columns({{0, 0}, {50, 10}, {50, 90}, {200, 0}}), QVector<double>({0, 51, 200}))
        << "also of one that was left out";
}

TEST(StopsOfPoints, APointRightOfTheWidgetEndsTheRun)
{
    EXPECT_FALSE(stopsOfPoints(polygon({{0, 0}, {201, 0}}), colors, size, 255.0F));
    EXPECT_EQ(columns({{0, 0}, {200.9, 0}}), QVector<double>({0, 200})) << "truncated first";
}

TEST(StopsOfPoints, PointsAreSortedAndColoursAreNot)
{
    const auto stops = stopsOfPoints(polygon({{200, 0}, {0, 0}}), colors, size, 255.0F);
    ASSERT_TRUE(stops);
    EXPECT_EQ(stops->at(0), qMakePair(0.0, colored(255, 0, 0, 255)));
    EXPECT_EQ(stops->at(1), qMakePair(1.0, colored(0, 255, 0, 255)));
}

TEST(StopsOfPoints, AlphaIsScaledByTheMaximumOpacity)
{
    const auto stops = stopsOfPoints(polygon({{0, 0}, {100, 50}, {200, 100}}), colors, size, 127.5F);
    ASSERT_TRUE(stops);
    EXPECT_EQ(stops->at(0).second.alpha(), 127);
    EXPECT_EQ(stops->at(1).second.alpha(), 63);
    EXPECT_EQ(stops->at(2).second.alpha(), 0);
}

TEST(StopsOfPoints, TheStoredAlphaOfAColourTakesNoPart)
{
    const auto stops = stopsOfPoints(polygon({{0, 0}}), {0x11223344U}, size, 255.0F);
    ASSERT_TRUE(stops);
    EXPECT_EQ(stops->at(0).second, colored(0x22, 0x33, 0x44, 255));
}

TEST(StopsOfPoints, HeightsOutsideTheWidgetAreOpaqueOrClear)
{
    const auto stops = stopsOfPoints(polygon({{0, -40}, {100, 140}}), colors, size, 255.0F);
    ASSERT_TRUE(stops);
    EXPECT_EQ(stops->at(0).second.alpha(), 255);
    EXPECT_EQ(stops->at(1).second.alpha(), 0);
}

TEST(StopsOfPoints, MissingColoursAreTheLastOneOrWhite)
{
    const QPolygonF points({{0, 0}, {100, 0}, {200, 0}});
    auto stops = stopsOfPoints(points, {0xffff0000U, 0xff00ff00U}, size, 255.0F);
    ASSERT_TRUE(stops);
    EXPECT_EQ(stops->at(2).second, colored(0, 255, 0, 255));
    stops = stopsOfPoints(points, {}, size, 255.0F);
    ASSERT_TRUE(stops);
    EXPECT_EQ(stops->at(2).second, colored(255, 255, 255, 255));
}

TEST(StopsOfPoints, EmptyAndSinglePointChains)
{
    auto stops = stopsOfPoints(QPolygonF(), colors, size, 255.0F);
    ASSERT_TRUE(stops);
    EXPECT_TRUE(stops->isEmpty());
    stops = stopsOfPoints(polygon({{20, 50}}), colors, size, 255.0F);
    ASSERT_TRUE(stops);
    EXPECT_EQ(*stops, TransferStops({{0.1, colored(255, 0, 0, 127)}}));
}

TEST(StopsOfPoints, AWidgetWithoutAnAreaHasNone)
{
    for (const QSize none : {QSize(0, 100), QSize(200, 0), QSize(0, 0)})
        EXPECT_FALSE(stopsOfPoints(polygon({{0, 0}}), colors, none, 255.0F));
    const auto stops = stopsOfPoints(polygon({{0, 1}, {1, 0}}), colors, QSize(1, 1), 255.0F);
    ASSERT_TRUE(stops);
    EXPECT_EQ(stops->last(), qMakePair(1.0, colored(0, 255, 0, 255)));
}

TEST(PointsOfStops, StandAtPositionAndAlpha)
{
    const TransferStops stops{
        {0.0, colored(1, 2, 3, 0)}, {0.25, colored(4, 5, 6, 51)}, {0.5, colored(7, 8, 9, 255)}};
    const ControlPoints chain = pointsOfStops(stops, size);
    EXPECT_EQ(chain.points, polygon({{0, 100}, {50, double(204.0F / 255.0F * 100.0F)}, {100, 0}}));
    EXPECT_EQ(chain.colors, QVector<QRgb>({qRgba(1, 2, 3, 0), qRgba(4, 5, 6, 51), qRgba(7, 8, 9, 255)}));
    EXPECT_EQ(chain.locks, QVector<PointLock>({LockToLeft, NoLock, LockToRight}));
}

TEST(PointsOfStops, NoneAndOne)
{
    EXPECT_TRUE(pointsOfStops({}, size).points.isEmpty());
    const ControlPoints one = pointsOfStops({{0.5, colored(1, 2, 3, 255)}}, size);
    EXPECT_EQ(one.points, polygon({{100, 0}}));
    EXPECT_EQ(one.locks, QVector<PointLock>({LockToRight})) << "the last lock that is given";
}

TEST(RunBackwards, WhenTheFirstStandsRightOfTheLast)
{
    const QColor any;
    EXPECT_FALSE(runBackwards({}));
    EXPECT_FALSE(runBackwards({{0.5, any}}));
    EXPECT_FALSE(runBackwards({{0.0, any}, {0.9, any}, {0.5, any}}));
    EXPECT_TRUE(runBackwards({{0.6, any}, {0.9, any}, {0.5, any}}));
}

TEST(TableColumn, RunsOverTheWholeWidth)
{
    EXPECT_EQ(tableColumn(0, 290), 0);
    EXPECT_EQ(tableColumn(255, 290), 289);
    // 1 * 289 / 255 = 1.133, 3 * 289 / 255 = 3.4, 4 * 289 / 255 = 4.53.
    EXPECT_EQ(tableColumn(1, 290), 1);
    EXPECT_EQ(tableColumn(3, 290), 3);
    EXPECT_EQ(tableColumn(4, 290), 5);
    for (int i = 0; i < 256; ++i)
        EXPECT_EQ(tableColumn(i, 256), i);
    // 127 * 99 / 255 = 49.3, 128 * 99 / 255 = 49.7.
    EXPECT_EQ(tableColumn(127, 100), 49);
    EXPECT_EQ(tableColumn(128, 100), 50);
    for (const int entry : {0, 100, 255})
        EXPECT_EQ(tableColumn(entry, 1), 0);
}
