#include "transfer/logic/HistogramBins.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(Logarithms, AreDecadicAndZeroForEmptyBinsAndForOne)
{
    HistogramBins bins{};
    bins[1] = 1.0;
    bins[2] = 100.0;
    bins[3] = -5.0;
    bins[4] = std::nan("");
    const HistogramBins values = logarithms(bins);
    EXPECT_EQ(values[0], 0.0);
    EXPECT_EQ(values[1], 0.0);
    EXPECT_EQ(values[2], 2.0);
    EXPECT_EQ(values[3], 0.0);
    EXPECT_EQ(values[4], 0.0);
}
