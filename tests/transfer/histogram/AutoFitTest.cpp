#include "transfer/logic/AutoFit.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

HistogramBins drawn(std::initializer_list<std::pair<int, double>> corners)
{
    // Straight lines between corners.
    HistogramBins bins{};
    auto from = corners.begin();
    for (auto to = from + 1; to != corners.end(); from = to++)
        for (int i = from->first; i <= to->first; ++i)
            bins[static_cast<std::size_t>(i)] =
                from->second + (to->second - from->second) * (i - from->first) / (to->first - from->first);
    return bins;
}

QPolygonF pointsAt(const QVector<QPointF>& points)
{
    return QPolygonF(points);
}

const QRgb red = qRgb(200, 0, 0);
const QRgb blue = qRgb(0, 0, 101);

ControlPoints ramp()
{
    ControlPoints chain;
    chain.points = pointsAt({{0, 185}, {290, 0}});
    chain.colors = {red, blue};
    chain.locks = {LockToLeft, LockToRight};
    return chain;
}

AirEnd airAt(int low, int high)
{
    return {true, low, static_cast<double>(low), static_cast<double>(high)};
}

}  // namespace

TEST(EndOfAir, IsTheFirstRiseBehindTheHighestPeak)
{
    // Air peaks at 12, falls to 40, tissue rises from there to 90, which is lower than air.
    const AirEnd air = endOfAir(drawn({{0, 10}, {12, 1000}, {40, 5}, {90, 600}, {254, 0}}));
    EXPECT_TRUE(air.found);
    EXPECT_EQ(air.bin, 40);
    EXPECT_EQ(air.low, 40.0);
    EXPECT_EQ(air.high, 41.0);
}

TEST(EndOfAir, PeaksInFrontOfTheHighestDoNotCount)
{
    const AirEnd air = endOfAir(drawn({{0, 500}, {20, 0}, {100, 900}, {150, 3}, {160, 40}, {254, 0}}));
    EXPECT_EQ(air.bin, 150);
}

TEST(EndOfAir, OfEqualPeaksTheFirstCounts)
{
    HistogramBins bins{};
    bins[10] = bins[20] = 7.0;
    const AirEnd air = endOfAir(bins);
    EXPECT_TRUE(air.found);
    EXPECT_EQ(air.bin, 19);  // the last empty bin in front of the second peak
}

TEST(EndOfAir, APlainBehindThePeakIsNoRise)
{
    HistogramBins bins{};
    bins.fill(3.0);
    bins[5] = 9.0;
    const AirEnd air = endOfAir(bins);
    EXPECT_FALSE(air.found);
    EXPECT_EQ(air.bin, 5);
    EXPECT_EQ(air.low, 15.0);
    EXPECT_EQ(air.high, 25.0);
}

TEST(EndOfAir, AHistogramThatNeverRisesHasItsStepTenBinsBehindThePeak)
{
    const AirEnd air = endOfAir(drawn({{0, 0}, {254, 100}}));
    EXPECT_FALSE(air.found);
    EXPECT_EQ(air.bin, 254);
    EXPECT_EQ(air.low, 264.0);
    EXPECT_EQ(air.high, 274.0);
}

TEST(EndOfAir, AnEmptyOrMeaninglessHistogramHasItsPeakAtZero)
{
    HistogramBins bins{};
    EXPECT_EQ(endOfAir(bins).bin, 0);
    EXPECT_FALSE(endOfAir(bins).found);
    bins.fill(std::nan(""));
    EXPECT_EQ(endOfAir(bins).bin, 0);
    EXPECT_FALSE(endOfAir(bins).found);
}

TEST(SourceValueOfBin, IsRoundedFromTheRangesBeginning)
{
    EXPECT_EQ(sourceValueOfBin(40, 0, 255), 40.0);
    EXPECT_EQ(sourceValueOfBin(40, -1000, 3095), -358.0);  // 40 * 4095 / 255 = 642.35
    EXPECT_EQ(sourceValueOfBin(51, 100, 65535), 13187.0);  // 51 * 65435 / 255 = 13087
    EXPECT_EQ(sourceValueOfBin(0, 7, 7), 7.0);
}

TEST(ChainWithStep, PutsTheStepIntoARamp)
{
    const ControlPoints fitted = chainWithStep(ramp(), airAt(40, 41), 185.0);
    EXPECT_EQ(fitted.points, pointsAt({{0, 185}, {40, 185}, {41, 0}, {290, 0}}));
    EXPECT_EQ(fitted.locks, (QVector<PointLock>{LockToLeft, LockToBottom, LockToTop, LockToRight}));
    // Half way from (200, 0, 0) to (0, 0, 101), truncated.
    const QRgb between = qRgb(100, 0, 50);
    EXPECT_EQ(fitted.colors, (QVector<QRgb>{red, between, between, blue}));
}

TEST(ChainWithStep, ReplacesTheOldStep)
{
    ControlPoints chain = chainWithStep(ramp(), airAt(100, 101), 185.0);
    chain = chainWithStep(chain, airAt(40, 41), 185.0);
    EXPECT_EQ(chain.points, pointsAt({{0, 185}, {40, 185}, {41, 0}, {290, 0}}));
}

TEST(ChainWithStep, FreePointsWithinAPixelOfTheStepGo)
{
    ControlPoints chain;
    for (const double x : {0.0, 38.9, 39.0, 40.5, 42.0, 42.1, 290.0}) {
        chain.points.append({x, 50});
        chain.colors.append(red);
        chain.locks.append(NoLock);
    }
    chain.locks.first() = LockToLeft;
    chain.locks.last() = LockToRight;
    const ControlPoints fitted = chainWithStep(chain, airAt(40, 41), 185.0);
    EXPECT_EQ(fitted.points, pointsAt({{0, 50}, {38.9, 50}, {40, 185}, {41, 0}, {42.1, 50}, {290, 50}}));
}

TEST(ChainWithStep, WithoutAValleyTheStepIsTenBinsWide)
{
    ControlPoints chain = ramp();
    for (const double x : {26.1, 26.0, 20.0}) {
        chain.points.insert(1, QPointF(x, 50));
        chain.colors.insert(1, red);
        chain.locks.insert(1, NoLock);
    }
    EXPECT_EQ(chainWithStep(chain, airAt(15, 25), 185.0).points,
              pointsAt({{0, 185}, {15, 185}, {25, 0}, {26.1, 50}, {290, 0}}));
}

TEST(ChainWithStep, EdgePointsStayUnderTheStep)
{
    const ControlPoints fitted = chainWithStep(ramp(), airAt(0, 1), 185.0);
    EXPECT_EQ(fitted.points, pointsAt({{0, 185}, {0, 185}, {1, 0}, {290, 0}}));
}

TEST(ChainWithStep, WithoutAPointToTheRightThereIsNoStep)
{
    const ControlPoints fitted = chainWithStep(ramp(), airAt(290, 291), 185.0);
    EXPECT_EQ(fitted.points, ramp().points);
    EXPECT_TRUE(chainWithStep({}, airAt(4, 5), 185.0).points.isEmpty());
}

TEST(ChainWithStep, TheFirstPointGivesItsOwnColourToAStepBeforeIt)
{
    ControlPoints chain;
    chain.points = pointsAt({{100, 20}});
    chain.colors = {blue};
    chain.locks = {NoLock};
    const ControlPoints fitted = chainWithStep(chain, airAt(40, 41), 185.0);
    EXPECT_EQ(fitted.colors, (QVector<QRgb>{blue, blue, blue}));
}

TEST(ChainWithStep, MissingLocksAreFreeAndMissingColoursWhite)
{
    ControlPoints chain;
    chain.points = pointsAt({{0, 185}, {40, 100}, {290, 0}});
    const ControlPoints fitted = chainWithStep(chain, airAt(40, 41), 185.0);
    EXPECT_EQ(fitted.points, pointsAt({{0, 185}, {40, 185}, {41, 0}, {290, 0}}));
    EXPECT_EQ(fitted.locks.size(), 4);
    EXPECT_EQ(fitted.colors, QVector<QRgb>(4, qRgb(255, 255, 255)));
}
