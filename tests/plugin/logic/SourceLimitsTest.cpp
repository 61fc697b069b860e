#include "plugin/logic/SourceLimits.h"
#include "plugin/logic/Manufacturer.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();
const float notANumber = std::numeric_limits<float>::quiet_NaN();
const float infinity = std::numeric_limits<float>::infinity();

}  // namespace

TEST(SourceLimits, OrderedPatternsAreSignedNumbers)
{
    const SourceLimits limits = sourceLimits(-1000, 3000);
    EXPECT_EQ(limits.min, -1000.0);
    EXPECT_EQ(limits.max, 3000.0);
    EXPECT_EQ(sourceLimits(7, 7).max, 7.0);
}

TEST(SourceLimits, AMaximumBelowItsMinimumMakesBothUnsigned)
{
    const SourceLimits limits = sourceLimits(2147482624, -2147480549);
    EXPECT_EQ(limits.min, 2147482624.0);
    EXPECT_EQ(limits.max, 2147486747.0);
    EXPECT_EQ(sourceLimits(0, -1).max, 4294967295.0);
}

TEST(SourceLimits, APatternIsReadLikeTheLimits)
{
    EXPECT_EQ(sourceValue(-5, sourceLimits(-1000, 3000)), -5.0);
    EXPECT_EQ(sourceValue(-5, sourceLimits(0, -1)), 4294967291.0);
    EXPECT_EQ(sourceValue(12, sourceLimits(0, -1)), 12.0);
}

TEST(SourceLimits, TruncationStaysInRange)
{
    EXPECT_EQ(truncatedToInt(2.9), 2);
    EXPECT_EQ(truncatedToInt(-2.9), -2);
    EXPECT_EQ(truncatedToInt(4294967295.0), largest);
    EXPECT_EQ(truncatedToInt(-4294967295.0), lowest);
    EXPECT_EQ(truncatedToInt(std::nan("")), 0);
}

TEST(StackLength, ALengthStays)
{
    EXPECT_EQ(stackLength(10.0F, 4, 2.5F, 0.5F), 10.0F);
    EXPECT_EQ(stackLength(0.001F, 1, 2.5F, 0.5F), 0.001F);
}

TEST(StackLength, WithoutOneTheToldDistanceCountsForEachSlice)
{
    for (const float none : {notANumber, infinity, -infinity, 0.0F, -3.0F}) {
        EXPECT_EQ(stackLength(none, 1, 2.5F, 0.5F), 2.5F) << none;
        EXPECT_EQ(stackLength(none, 4, 2.5F, 0.5F), 10.0F) << none;
    }
}

TEST(StackLength, WithoutADistanceThePixelsCount)
{
    for (const float spacing : {0.0F, -1.0F, notANumber, infinity})
        EXPECT_EQ(stackLength(notANumber, 3, spacing, 0.5F), 1.5F) << spacing;
}

TEST(Manufacturer, ThreeMakersHaveNumbers)
{
    EXPECT_EQ(manufacturerNumber("RIGAKU Corp."), 1);
    EXPECT_EQ(manufacturerNumber("by brentis"), 2);
    EXPECT_EQ(manufacturerNumber("Qualden"), 3);
    EXPECT_EQ(manufacturerNumber("Somebody"), 0);
    EXPECT_EQ(manufacturerNumber(QString()), 0);
}

TEST(Manufacturer, TheLastMatchWins)
{
    EXPECT_EQ(manufacturerNumber("Brentis, once Rigaku"), 2);
    EXPECT_EQ(manufacturerNumber("Qualden Brentis Rigaku"), 3);
}

TEST(Manufacturer, OneMakerHasItsOwnRange)
{
    EXPECT_TRUE(isMakersOwn("BRENTIS imaging"));
    EXPECT_FALSE(isMakersOwn("Rigaku"));
    EXPECT_FALSE(isMakersOwn(QString()));
}
