#include "logic/Span.h"

#include <gtest/gtest.h>

#include <limits>

using hvspinbox::Span;
using hvspinbox::SpanHandle;

namespace {

TEST(Span, AHandleSetPastTheOtherPushesIt)
{
    Span span{1, 100, 20, 40};
    span.push(SpanHandle::Lower, 60);
    EXPECT_EQ(span, (Span{1, 100, 60, 60}));
    span.push(SpanHandle::Upper, 30);
    EXPECT_EQ(span, (Span{1, 100, 30, 30}));
}

TEST(Span, ValuesStayInTheRange)
{
    Span span{1, 100, 20, 40};
    span.push(SpanHandle::Lower, -5);
    span.push(SpanHandle::Upper, 500);
    EXPECT_EQ(span, (Span{1, 100, 1, 100}));
    span.setRange(10, 50);
    EXPECT_EQ(span, (Span{10, 50, 10, 50}));
    span.setRange(60, 70);
    EXPECT_EQ(span, (Span{60, 70, 60, 60})) << "both values were below";
    span.setRange(5, 1);
    EXPECT_EQ(span, (Span{5, 5, 5, 5})) << "a range upside down is one value";
}

TEST(Span, StepsEndAtTheOtherHandle)
{
    Span span{1, 100, 20, 40};
    span.step(SpanHandle::Lower, 50);
    EXPECT_EQ(span.lower, 40);
    EXPECT_EQ(span.upper, 40);
    span.step(SpanHandle::Upper, -10);
    EXPECT_EQ(span.upper, 40);
    span.step(SpanHandle::Lower, -1000);
    EXPECT_EQ(span.lower, 1);
    span.step(SpanHandle::Upper, 1000);
    EXPECT_EQ(span.upper, 100);
}

TEST(Span, StepsAtTheEndOfAllNumbersDoNotWrap)
{
    Span span{std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 0,
              std::numeric_limits<int>::max()};
    span.step(SpanHandle::Upper, 10);
    EXPECT_EQ(span.upper, std::numeric_limits<int>::max());
    span.step(SpanHandle::Lower, std::numeric_limits<int>::min());
    EXPECT_EQ(span.lower, std::numeric_limits<int>::min());
    EXPECT_EQ(span.nearest(std::numeric_limits<int>::max()), SpanHandle::Upper);
}

TEST(Span, ATouchMeansTheNearerHandle)
{
    Span const span{1, 100, 20, 40};
    EXPECT_EQ(span.nearest(5), SpanHandle::Lower);
    EXPECT_EQ(span.nearest(29), SpanHandle::Lower);
    EXPECT_EQ(span.nearest(31), SpanHandle::Upper);
    EXPECT_EQ(span.nearest(99), SpanHandle::Upper);
}

TEST(Span, OfTwoHandlesAtOnePlaceTheOneThatCanGoIsMeant)
{
    EXPECT_EQ((Span{1, 100, 1, 1}).nearest(1), SpanHandle::Upper);
    EXPECT_EQ((Span{1, 100, 100, 100}).nearest(100), SpanHandle::Lower);
    EXPECT_EQ((Span{1, 100, 50, 50}).nearest(49), SpanHandle::Lower);
    EXPECT_EQ((Span{1, 100, 50, 50}).nearest(51), SpanHandle::Upper);
}

}  // namespace
