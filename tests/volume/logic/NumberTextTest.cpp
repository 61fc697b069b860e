#include "volume/logic/NumberText.h"

#include <gtest/gtest.h>

#include <clocale>

namespace {

TEST(NumberText, DecimalAtTheStart)
{
    EXPECT_EQ(viz::leadingDecimal("0.5"), 0.5F);
    EXPECT_EQ(viz::leadingDecimal(" \t+2.5e1 mm"), 25.0F);
    EXPECT_EQ(viz::leadingDecimal("-3"), -3.0F);
    EXPECT_EQ(viz::leadingDecimal("7abc"), 7.0F);
    EXPECT_EQ(viz::leadingDecimal(".25"), 0.25F);
}

TEST(NumberText, NoDecimal)
{
    for (const char* text : {"", " ", "text", "+", "+-1", "++1", "-", "nan", "NaN", "inf", "-inf", "1e99"})
        EXPECT_FALSE(viz::leadingDecimal(text)) << text;
}

TEST(NumberText, CommaEndsADecimalInEveryLocale)
{
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* locale : {"C", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
        std::setlocale(LC_NUMERIC, locale);
        EXPECT_EQ(viz::leadingDecimal("0.5"), 0.5F) << locale;
        EXPECT_EQ(viz::leadingDecimal("1,5"), 1.0F) << locale;
    }
    std::setlocale(LC_NUMERIC, before.c_str());
}

TEST(NumberText, WholeNumbers)
{
    EXPECT_EQ(viz::leadingInteger(" 512 "), 512);
    EXPECT_EQ(viz::leadingInteger("-1024"), -1024);
    EXPECT_EQ(viz::leadingInteger("+4294967295"), 4294967295);
    EXPECT_EQ(viz::leadingInteger("12.9"), 12);
    for (const char* text : {"", "x", "99999999999999999999", "nan"})
        EXPECT_FALSE(viz::leadingInteger(text)) << text;
}

}  // namespace
