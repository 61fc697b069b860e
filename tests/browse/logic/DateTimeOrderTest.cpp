#include "browse/logic/DateTimeOrder.h"

#include <gtest/gtest.h>

TEST(DateTimeFormat, hasAsManyLettersAsTheTextHasDigits)
{
    EXPECT_EQ(getDateTimeFormat({"1/2/2024", ""}).date, "M/d/yyyy");
    EXPECT_EQ(getDateTimeFormat({"01/02/24", ""}).date, "MM/dd/yy");
    EXPECT_EQ(getDateTimeFormat({"10/2/2024", ""}).date, "MM/d/yyyy");
    EXPECT_EQ(getDateTimeFormat({"1/12/24", ""}).date, "M/dd/yy");
    EXPECT_EQ(getDateTimeFormat({"", "9:05:00"}).time, "h:mm:ss");
    EXPECT_EQ(getDateTimeFormat({"", "19:5:7"}).time, "hh:m:s");
    EXPECT_EQ(getDateTimeFormat({"", "09:5:07"}).time, "hh:m:ss");
}

TEST(DateTimeFormat, isEmptyForAnotherNumberOfParts)
{
    for (const char* const date : {"", "1/2", "1/2/3/4", "2024-01-02"})
        EXPECT_EQ(getDateTimeFormat({date, ""}).date, "") << date;
    for (const char* const time : {"", "12:30", "12:30:10:5", "noon"})
        EXPECT_EQ(getDateTimeFormat({"", time}).time, "") << time;
}

TEST(DateTimeTexts, areTheFirstTwoPartsBetweenBlanks)
{
    EXPECT_EQ(dateTimeTexts("  1/2/2024  10:00:00 PM").date, "1/2/2024");
    EXPECT_EQ(dateTimeTexts("  1/2/2024  10:00:00 PM").time, "10:00:00");
    EXPECT_EQ(dateTimeTexts("1/2/2024").time, "");
}

TEST(IsEarlier, comparesDaysBeforeSeconds)
{
    EXPECT_TRUE(isEarlier("9/30/2023 23:00:00", "10/1/2023 01:00:00"));
    EXPECT_FALSE(isEarlier("10/1/2023 01:00:00", "9/30/2023 23:00:00"));
    EXPECT_TRUE(isEarlier("1/2/2024 9:00:00", "01/02/2024 10:00:00"));
    EXPECT_FALSE(isEarlier("1/2/2024 10:00:00", "01/02/2024 9:00:00"));
    EXPECT_TRUE(isEarlier("1/2/2024 9:00:00", "1/2/2024 9:00:01"));
    EXPECT_FALSE(isEarlier("1/2/2024 9:00:00", "1/2/2024 9:00:00"));
}

TEST(IsEarlier, aDateWithoutATimeIsMidnight)
{
    EXPECT_TRUE(isEarlier("1/2/2024", "1/2/2024 0:00:01"));
    EXPECT_FALSE(isEarlier("1/2/2024 0:00:00", "1/2/2024"));
}

TEST(IsEarlier, anEmptyTextIsNotLess)
{
    EXPECT_FALSE(isEarlier("", "1/2/2024 9:00:00"));
    EXPECT_FALSE(isEarlier("1/2/2024 9:00:00", ""));
    EXPECT_FALSE(isEarlier("  ", "1/2/2024 9:00:00"));
}

TEST(IsEarlier, whatIsNoDateIsNotLess)
{
    EXPECT_FALSE(isEarlier("yesterday", "1/2/2024 9:00:00"));
    EXPECT_FALSE(isEarlier("1/2/2024 9:00:00", "yesterday"));
    EXPECT_FALSE(isEarlier("13/40/2024 9:00:00", "1/2/2024 9:00:00"));
}
