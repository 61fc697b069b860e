#include "transfer/logic/HistogramAxes.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

// 0 to 100, ticks every 20, on 500 x 200 pixels: a unit is 5 pixels.
const AxisRange fromZero = {5, 5.0, 20.0, 20.0, 0.2};
const QSizeF size(500, 200);

std::vector<double> placesOf(const QVector<QLineF>& ticks, double length)
{
    std::vector<double> places;
    for (const QLineF& tick : ticks)
        if (std::abs(tick.length() - length) < 1e-9) places.push_back(tick.x1());
    return places;
}

QStringList texts(const QVector<AxisLabel>& labels)
{
    QStringList list;
    for (const AxisLabel& label : labels)
        list.append(label.text);
    return list;
}

void expectNear(const std::vector<double>& places, const std::vector<double>& expected)
{
    ASSERT_EQ(places.size(), expected.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        EXPECT_NEAR(places[i], expected[i], 1e-6) << i;
}

}  // namespace

TEST(XAxis, TicksStandAtTheirValues)
{
    const AxisDrawing axis = xAxis(fromZero, 0.0, size);
    expectNear(placesOf(axis.ticks, 20.0), {100, 200, 300, 400, 500});
    expectNear(placesOf(axis.ticks, 10.0),
               {25, 50, 75, 125, 150, 175, 225, 250, 275, 325, 350, 375, 425, 450, 475});
    EXPECT_EQ(texts(axis.labels), (QStringList{"20", "40", "60", "80", "100"}));
    EXPECT_EQ(axis.labels[0].at, QPointF(102, 198));
    ASSERT_EQ(axis.grid.size(), 5);
    EXPECT_EQ(axis.grid[1], QLineF(200, 0, 200, 200));
    EXPECT_EQ(axis.ticks.last().p1(), QPointF(500, 200));
    EXPECT_EQ(axis.ticks.last().p2(), QPointF(500, 180));
}

TEST(XAxis, ABeginBetweenTwoTicksHasPartOfAStep)
{
    // -13 to 87: the first tick is 0, 65 pixels in; two minor ticks lie left of it.
    const AxisRange range = {5, 5.0, 0.0, 20.0, 0.13};
    const AxisDrawing axis = xAxis(range, -13.0, size);
    expectNear(placesOf(axis.ticks, 20.0), {65, 165, 265, 365, 465});
    expectNear(placesOf(axis.ticks, 10.0),
               {40, 15, 90, 115, 140, 190, 215, 240, 290, 315, 340, 390, 415, 440});
    EXPECT_EQ(texts(axis.labels), (QStringList{"0", "20", "40", "60", "80"}));
}

TEST(XAxis, AWholeStepLeftOfTheFirstTickIsLabelled)
{
    // The first tick is given one and a half steps in: the one before it is drawn as a major one.
    const AxisRange range = {3, 5.0, 30.0, 20.0, 0.3};
    const AxisDrawing axis = xAxis(range, 0.0, size);
    expectNear(placesOf(axis.ticks, 20.0), {50, 150, 250, 350});
    EXPECT_EQ(texts(axis.labels), (QStringList{"10", "30", "50", "70"}));
    EXPECT_NEAR(axis.labels[0].at.x(), 52, 1e-9);
}

TEST(XAxis, RoundingLeavesNoNoiseInALabel)
{
    // -0.3 + 3 * 0.1 is 5.6e-17.
    const AxisRange range = {7, 0.02, -0.3, 0.1, 0.05 / 0.7};
    EXPECT_EQ(texts(xAxis(range, -0.35, size).labels),
              (QStringList{"-0.3", "-0.2", "-0.1", "0", "0.1", "0.2", "0.3"}));
    EXPECT_EQ(axisLabel(0.30000000000000004, 0.1), "0.3");
    EXPECT_EQ(axisLabel(1e20, 1e19), "1e+20");
}

TEST(XAxis, WithoutTicksThereIsNothing)
{
    EXPECT_TRUE(xAxis({}, 0.0, size).ticks.isEmpty());
    EXPECT_TRUE(yAxis({}, size).ticks.isEmpty());
    EXPECT_TRUE(xAxis(fromZero, 20.0, size).labels.isEmpty());
    EXPECT_TRUE(xAxis(fromZero, std::nan(""), size).labels.isEmpty());
}

TEST(YAxis, GrowsFromTheBottom)
{
    // 0 to 1, ticks every 0.2, on 200 pixels: 40 pixels a step, four parts of 10.
    const AxisDrawing axis = yAxis({5, 0.05, 0.2, 0.2, 0.2}, size);
    EXPECT_EQ(texts(axis.labels), (QStringList{"0.2", "0.4", "0.6", "0.8", "1"}));
    EXPECT_EQ(axis.labels[0].at, QPointF(2, 158));
    EXPECT_TRUE(axis.grid.isEmpty());
    ASSERT_EQ(axis.ticks.size(), 20);
    EXPECT_EQ(axis.ticks[0], QLineF(0, 190, 10, 190));
    EXPECT_EQ(axis.ticks[3], QLineF(0, 160, 20, 160));
    EXPECT_EQ(axis.ticks[19], QLineF(0, 0, 20, 0));
}

TEST(ReadableLabels, KeepWhatHasRoom)
{
    const QVector<AxisLabel> labels = {{{2, 198}, "0"}, {{102, 198}, "10"}, {{202, 198}, "20"}};
    EXPECT_EQ(texts(readableLabels(labels, {8, 16, 16}, 12, size)), (QStringList{"0", "10", "20"}));
}

TEST(ReadableLabels, DropWhatTouchesTheOneBefore)
{
    const QVector<AxisLabel> labels = {{{2, 198}, "1000"}, {{32, 198}, "2000"}, {{62, 198}, "3000"}};
    EXPECT_EQ(texts(readableLabels(labels, {32, 32, 32}, 12, size)), (QStringList{"1000", "3000"}));
}

TEST(ReadableLabels, TheLastOneMovesToTheLeftOfItsTick)
{
    const QVector<AxisLabel> labels = {{{402, 198}, "80"}, {{502, 198}, "100"}};
    const QVector<AxisLabel> readable = readableLabels(labels, {16, 24}, 12, size);
    ASSERT_EQ(readable.size(), 2);
    EXPECT_EQ(readable[1].at, QPointF(474, 198));  // ends 2 pixels left of 500
    EXPECT_EQ(readableLabels(labels, {80, 80}, 12, size).size(), 1);
}

TEST(ReadableLabels, OneAboveTheTopEdgeIsDropped)
{
    const QVector<AxisLabel> labels = {{{2, 158}, "0.2"}, {{2, -2}, "1"}};
    EXPECT_EQ(texts(readableLabels(labels, {20, 8}, 12, size)), (QStringList{"0.2"}));
    EXPECT_TRUE(readableLabels(labels, {}, 12, size).isEmpty());
}
