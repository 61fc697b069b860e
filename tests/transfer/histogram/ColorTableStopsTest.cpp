#include "transfer/logic/ColorTableStops.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<unsigned char> greys(int entries)
{
    std::vector<unsigned char> bytes;
    for (int i = 0; i < entries; ++i) {
        const auto value = static_cast<unsigned char>(i * 255 / std::max(1, entries - 1));
        bytes.insert(bytes.end(), {value, value, value, 255});
    }
    return bytes;
}

ColorTableView viewOf(const std::vector<unsigned char>& bytes)
{
    return {bytes.data(), static_cast<int>(bytes.size() / 4)};
}

QVector<QRgb> colorsAt(const QVector<QPointF>& points, const QSize& size, const ColorTableView& table,
                       bool reversed)
{
    return colorsOfPoints(QPolygonF(points), size, table, reversed);
}

}  // namespace

TEST(ColorTableStops, GreysAreARampFromClearBlackToFullWhite)
{
    const auto table = greys(256);
    const TransferStops stops = stopsOfColorTable(viewOf(table), false);
    ASSERT_EQ(stops.size(), 2);
    EXPECT_EQ(stops[0].first, 0.0);
    EXPECT_EQ(stops[0].second, QColor(0, 0, 0, 0));
    EXPECT_EQ(stops[1].first, 255.0 / 256.0);
    EXPECT_EQ(stops[1].second, QColor(255, 255, 255, 255));
}

TEST(ColorTableStops, ReversedColoursStillGrowOpaqueToTheRight)
{
    const auto table = greys(256);
    const TransferStops stops = stopsOfColorTable(viewOf(table), true);
    ASSERT_EQ(stops.size(), 2);
    EXPECT_EQ(stops[0].first, 0.0);
    EXPECT_EQ(stops[0].second, QColor(255, 255, 255, 0));
    EXPECT_EQ(stops[1].first, 255.0 / 256.0);
    EXPECT_EQ(stops[1].second, QColor(0, 0, 0, 255));
}

TEST(ColorTableStops, AlphaIsTheIndexAndNeverMoreThan255)
{
    // Two hues that meet in the middle: keys at 0, 300 and 511 whatever the reduction does in between.
    std::vector<unsigned char> bytes;
    for (int i = 0; i < 512; ++i) {
        const bool red = i < 300;
        bytes.insert(bytes.end(), {static_cast<unsigned char>(red ? 255 : 0),
                                   static_cast<unsigned char>(red ? 0 : 255), 0, 255});
    }
    for (const bool reversed : {false, true})
        for (const auto& stop : stopsOfColorTable(viewOf(bytes), reversed)) {
            const int place = static_cast<int>(stop.first * 512.0);
            EXPECT_EQ(stop.second.alpha(), std::min(place, 255)) << place;
        }
}

TEST(ColorTableStops, PositionsAreSinglePrecision)
{
    const auto table = greys(3);
    const TransferStops stops = stopsOfColorTable(viewOf(table), false);
    ASSERT_FALSE(stops.isEmpty());
    EXPECT_EQ(stops.last().first, static_cast<double>(2.0F / 3.0F));
    EXPECT_EQ(stops.last().second.alpha(), 255) << "the last entry is opaque, however short the table";
    EXPECT_EQ(stopsOfColorTable(viewOf(table), true).last().second.alpha(), 255);
}

TEST(ColorTableStops, NoTableHasNoStopsAndNoColours)
{
    EXPECT_TRUE(stopsOfColorTable({}, false).isEmpty());
    EXPECT_TRUE(stopsOfColorTable({}, true).isEmpty());
    EXPECT_TRUE(colorsAt({{1, 1}}, {10, 10}, {}, false).isEmpty());
}

TEST(ColorsOfPoints, AreTheEntriesUnderThePoints)
{
    const auto table = greys(256);
    // 100 / 200 of 255 is 127.5, truncated; 50 / 100 of 255 the same for alpha.
    const QVector<QRgb> colors = colorsAt({{0, 0}, {100, 50}, {200, 100}}, {200, 100}, viewOf(table), false);
    EXPECT_EQ(colors,
              (QVector<QRgb>{qRgba(0, 0, 0, 0), qRgba(127, 127, 127, 127), qRgba(255, 255, 255, 255)}));
}

TEST(ColorsOfPoints, ReverseMirrorsTheIndexAndNotThePoints)
{
    const auto table = greys(256);
    const QVector<QRgb> colors = colorsAt({{0, 0}, {100, 0}, {200, 0}}, {200, 100}, viewOf(table), true);
    EXPECT_EQ(colors, (QVector<QRgb>{qRgba(255, 255, 255, 0), qRgba(128, 128, 128, 0), qRgba(0, 0, 0, 0)}));
}

TEST(ColorsOfPoints, PointsOutsideGetTheNearestEntry)
{
    const auto table = greys(2);
    const QVector<QRgb> colors =
        colorsAt({{-5, -5}, {500, 500}, {qQNaN(), qQNaN()}}, {200, 100}, viewOf(table), false);
    EXPECT_EQ(colors, (QVector<QRgb>{qRgba(0, 0, 0, 0), qRgba(255, 255, 255, 255), qRgba(0, 0, 0, 0)}));
    EXPECT_EQ(colorsAt({{5, 5}}, {0, 0}, viewOf(table), false).size(), 1);
}
