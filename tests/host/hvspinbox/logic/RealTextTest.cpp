#include "logic/RealText.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <limits>

using hvspinbox::mayBecomeReal;
using hvspinbox::realOf;
using hvspinbox::realText;
using hvspinbox::stepFor;

namespace {

QLocale const plain = QLocale::c();

TEST(RealText, HasTheFewestDigitsThatComeBackAsTheNumber)
{
    EXPECT_EQ(realText(0.1, plain), "0.1");
    EXPECT_EQ(realText(250.0, plain), "250");
    EXPECT_EQ(realText(-1.5e-9, plain), "-1.5e-09");
    for (double const value : {1.0 / 3.0, 6.02214076e23, 1e-300, -0.0001, 123456.789,
                               std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()})
        EXPECT_EQ(realOf(realText(value, plain), plain), value) << realText(value, plain).toStdString();
}

TEST(RealText, TakesEitherNotationAndTheLocalesPoint)
{
    EXPECT_EQ(realOf("1500", plain), 1500.0);
    EXPECT_EQ(realOf("1.5e3", plain), 1500.0);
    EXPECT_EQ(realOf(" 1.5E+3 ", plain), 1500.0);
    QLocale const german(QLocale::German);
    EXPECT_EQ(realText(0.5, german), "0,5");
    EXPECT_EQ(realOf("0,5", german), 0.5);
}

TEST(RealText, WhatIsNoNumberIsNone)
{
    for (char const* text : {"", "-", "e", "1e", "nan", "inf", "1e999", "12 apples"})
        EXPECT_FALSE(realOf(text, plain)) << text;
}

TEST(RealText, ABegunNumberMayBecomeOne)
{
    for (char const* text : {"", "-", "+", "1", "1.", ".", "1e", "1e-", "-1.5E+"})
        EXPECT_TRUE(mayBecomeReal(text, plain)) << text;
    for (char const* text : {"x", "1x", "1e5.", "--", "nan"})
        EXPECT_FALSE(mayBecomeReal(text, plain)) << text;
}

TEST(RealText, TheStepIsATenthOfTheMagnitude)
{
    EXPECT_DOUBLE_EQ(stepFor(250.0), 10.0);
    EXPECT_DOUBLE_EQ(stepFor(-0.03), 0.001);
    EXPECT_DOUBLE_EQ(stepFor(1.0), 0.1);
    EXPECT_DOUBLE_EQ(stepFor(0.0), 0.1);
    EXPECT_DOUBLE_EQ(stepFor(std::numeric_limits<double>::infinity()), 0.1);
}

}  // namespace
