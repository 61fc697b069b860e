#include "volume/logic/SourceRange.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();

TEST(SourceRange, SignedValuesOrderAsSuch)
{
    viz::SourceRange range{-1000, 3000};
    range.widen({-1024, 2000});
    range.widen({0, 3071});
    EXPECT_EQ(range.lowest, -1024);
    EXPECT_EQ(range.highest, 3071);
    const viz::UnsignedRange patterns = range.patterns();
    EXPECT_EQ(patterns.lowest, 0xFFFFFC00U);
    EXPECT_EQ(patterns.highest, 3071U);
    EXPECT_EQ(viz::valueScale(patterns), 255.0F / 4095.0F);
}

TEST(SourceRange, ValuesOnBothSidesOfTwoTo31)
{
    viz::SourceRange range = viz::SourceRange::ofFrame(2147483000.0, 2147483647.0);
    range.widen(viz::SourceRange::ofFrame(5.0, 4294967295.0));
    EXPECT_EQ(range.patterns().lowest, 5U);
    EXPECT_EQ(range.patterns().highest, 4294967295U);
}

TEST(SourceRange, TruncatesStatistics)
{
    const viz::SourceRange range = viz::SourceRange::ofFrame(2.9, 7.9);
    EXPECT_EQ(range.lowest, 2);
    EXPECT_EQ(range.highest, 7);
}

TEST(SourceRange, EqualEndsMoveApart)
{
    EXPECT_EQ((viz::SourceRange{9, 9}.patterns().highest), 10U);
    EXPECT_EQ((viz::SourceRange{-1, -1}.patterns().highest), 0U);
}

TEST(SourceRange, ProductsStopAtTheLargestNumber)
{
    EXPECT_EQ(viz::saturatedProduct({65535, 65535, 1000000}), 4294836225000000U);
    EXPECT_EQ(viz::saturatedProduct({65535, 65535, 2147483647, 65535}), most);
    EXPECT_EQ(viz::saturatedProduct({most, most, 0}), 0U);
    EXPECT_EQ(viz::saturatedProduct({}), 1U);
}

}  // namespace
