#include "volume/logic/HistogramLimits.h"

#include "volume/logic/SampleHistogram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace {

using testing::Pair;

using Bins = std::vector<std::uint32_t>;

std::pair<unsigned, unsigned> limits(const Bins& bins, double lowPercent, double highPercent, double spread)
{
    unsigned low = 12345;
    unsigned high = 54321;
    const auto count = static_cast<unsigned>(bins.size());
    EXPECT_EQ(viz::findHistogramLimits(count, bins.data(), lowPercent, highPercent, spread, low, high), 0);
    return {low, high};
}

// The lower limit ends at the last bin, the upper one at bin 1: the width 1 - 65534 + 1 is an unsigned
// number, and the margin covers all bins.
TEST(HistogramLimits, EmptyHistogramGivesAllBins)
{
    EXPECT_THAT(limits(Bins(65535, 0), 0.0, 0.15, 35.0), Pair(0U, 65534U));
}

TEST(HistogramLimits, FirstAndLastFilledBinWithTheNarrowestMargin)
{
    Bins bins(100, 0);
    bins[20] = 5;
    bins[60] = 5;
    // margin: truncation of 1.0 + 0
    EXPECT_THAT(limits(bins, 0.0, 0.0, 0.0), Pair(19U, 61U));
}

TEST(HistogramLimits, MarginOfTheSpread)
{
    Bins bins(100, 0);
    bins[40] = 1;
    bins[52] = 1;
    // 1 + 13 * 35 / (2 * 65) = 4.5
    EXPECT_THAT(limits(bins, 0.0, 0.0, 35.0), Pair(36U, 56U));
}

TEST(HistogramLimits, SharesOfTheSamplesLieOutside)
{
    Bins bins(1000, 0);
    bins[100] = 20;
    bins[500] = 960;
    bins[900] = 20;
    // 20 of 1000 are 2 percent: not below the sum so far, so the walk goes on to bin 500
    EXPECT_THAT(limits(bins, 2.0, 2.0, 0.0), Pair(499U, 501U));
    EXPECT_THAT(limits(bins, 1.9, 1.9, 0.0), Pair(99U, 901U));
}

TEST(HistogramLimits, StayInsideTheBins)
{
    EXPECT_THAT(limits({1, 0, 0, 1}, 0.0, 0.0, 99.0), Pair(0U, 3U));
}

TEST(HistogramLimits, AllInTheFirstBin)
{
    // the walk downward never looks at bin 0: upper limit 1, margin 1 + 2 * 35 / 130
    EXPECT_THAT(limits({7, 0, 0, 0, 0, 0}, 0.0, 0.15, 35.0), Pair(0U, 2U));
}

TEST(HistogramLimits, CountsBeyond32Bits)
{
    Bins bins(10, 0);
    bins[2] = bins[4] = bins[6] = 4000000000U;
    EXPECT_THAT(limits(bins, 0.0, 0.0, 0.0), Pair(1U, 7U));
    EXPECT_THAT(limits(bins, 40.0, 40.0, 0.0), Pair(3U, 5U));
}

TEST(HistogramLimits, RefusesWhatIsOutOfRange)
{
    const Bins bins(10, 1);
    unsigned low = 1;
    unsigned high = 2;
    const auto refused = [&](unsigned count, double lowPercent, double highPercent, double spread) {
        return viz::findHistogramLimits(count, bins.data(), lowPercent, highPercent, spread, low, high);
    };
    EXPECT_EQ(refused(3, 0, 0, 0), 1);
    EXPECT_EQ(refused(10, 49.1, 0, 0), 1);
    EXPECT_EQ(refused(10, 0, 49.1, 0), 1);
    EXPECT_EQ(refused(10, 0, 0, 99.1), 1);
    EXPECT_EQ(low, 1U);
    EXPECT_EQ(high, 2U);
    EXPECT_EQ(refused(4, 49.0, 49.0, 99.0), 0);
}

TEST(UpperClip, TheHistogramDecidesWithoutACalibration)
{
    EXPECT_EQ(viz::upperClip(500, 0, 0, 4000), 500);
    EXPECT_EQ(viz::upperClip(500, 900, 1, 4000), 500);
    EXPECT_EQ(viz::upperClip(500, 0, 1000, 4000), 500);
    EXPECT_EQ(viz::upperClip(65534, 0, 0, 4000), 65534);
}

TEST(UpperClip, DenserTissueRaisesTheLimitUpToTheHighestValue)
{
    EXPECT_EQ(viz::upperClip(500, 900, 2, 4000), 900);
    EXPECT_EQ(viz::upperClip(500, 900, 2, 800), 800);
    EXPECT_EQ(viz::upperClip(500, 500, 2, 4000), 500);
    EXPECT_EQ(viz::upperClip(500, 300, 2, 4000), 500);
}

TEST(SampleHistogram, CountsSamplesOfBothWidths)
{
    viz::SampleHistogram histogram;
    const std::vector<std::uint8_t> narrow{0, 255, 255};
    const std::vector<std::uint16_t> wide{255, 255, 65535, 65535, 7};
    histogram.add(narrow.data(), narrow.size());
    histogram.add(wide.data(), wide.size());
    histogram.add(wide.data(), 0);
    const Bins bins = histogram.bins();
    ASSERT_EQ(bins.size(), 65536U);
    EXPECT_EQ(bins[0], 1U);
    EXPECT_EQ(bins[7], 1U);
    EXPECT_EQ(bins[255], 4U);
    EXPECT_EQ(bins[65535], 2U);
    EXPECT_EQ(std::accumulate(bins.begin(), bins.end(), 0U), 8U);
}

}  // namespace
