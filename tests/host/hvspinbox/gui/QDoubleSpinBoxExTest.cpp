#include "hvspinbox/QDoubleSpinBoxEx.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class RealBox : public testing::Test
{
protected:
    void SetUp() override
    {
        box.setRange(-1e30, 1e30);
        box.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
        box.activateWindow();
        box.setFocus();
    }

    void type(QString const& text)
    {
        box.selectAll();
        QTest::keyClicks(&box, text);
        QTest::keyClick(&box, Qt::Key_Return);
    }

    QString shown() const { return box.findChild<QLineEdit*>()->text(); }

    QDoubleSpinBoxEx box;
};

TEST_F(RealBox, ShowsSmallAndLargeNumbersWhole)
{
    box.setValue(1.25e-12);
    EXPECT_EQ(shown(), "1.25e-12");
    EXPECT_EQ(box.value(), 1.25e-12);
    box.setValue(0.1);
    EXPECT_EQ(shown(), "0.1");
}

TEST_F(RealBox, TakesEitherNotation)
{
    type("2.5e-7");
    EXPECT_EQ(box.value(), 2.5e-7);
    type("-300");
    EXPECT_EQ(box.value(), -300.0);
}

TEST_F(RealBox, WhatIsNoNumberCannotBeTyped)
{
    type("12x3");
    EXPECT_EQ(box.value(), 123.0);
    type("1e");
    EXPECT_EQ(box.value(), 1.0) << "what was whole last, before the exponent was begun";
}

TEST_F(RealBox, PrefixAndSuffixStayOutside)
{
    box.setPrefix("= ");
    box.setSuffix(" mm");
    box.setValue(0.004);
    EXPECT_EQ(shown(), "= 0.004 mm");
    type("= 7e-3 mm");
    EXPECT_EQ(box.value(), 0.007);
}

TEST_F(RealBox, TheStepFollowsTheMagnitude)
{
    box.setValue(250.0);
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_DOUBLE_EQ(box.value(), 260.0);
    box.setValue(3e-6);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_DOUBLE_EQ(box.value(), 2.9e-6);
}

TEST_F(RealBox, ALookChangesNothing)
{
    double const third = 1.0 / 3.0;
    box.setValue(third);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.value(), third);
}

}  // namespace
