#include "transfer/logic/HistogramLine.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

QVector<QPointF> lineOf(const std::vector<double>& values, double min, double max)
{
    return histogramLine(values.data(), static_cast<int>(values.size()), min, max, QSize(200, 100));
}

}  // namespace

TEST(HistogramLine, RunsFromTheLowestToTheHighestValue)
{
    EXPECT_EQ(lineOf({2, 12, 7, 2}, 2, 12),
              QVector<QPointF>({{0, 99.5}, {50, -0.5}, {100, 49.5}, {150, 99.5}}));
}

TEST(HistogramLine, EqualValuesShowNone)
{
    EXPECT_TRUE(lineOf({4, 4, 4}, 4, 4).isEmpty());
    EXPECT_TRUE(lineOf({}, 0, 0).isEmpty());
}

TEST(HistogramLine, NoNumbersStandWithTheLowest)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(lineOf({nan, 10}, 0, 10), QVector<QPointF>({{0, 99.5}, {100, -0.5}}));
    EXPECT_TRUE(lineOf({nan, nan}, nan, nan).isEmpty());
    EXPECT_TRUE(
        lineOf({0, std::numeric_limits<double>::infinity()}, 0, std::numeric_limits<double>::infinity())
            .isEmpty());
}
