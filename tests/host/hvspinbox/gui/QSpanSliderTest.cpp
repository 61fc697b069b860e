#include "hvspinbox/QSpanSlider.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTouchDevice>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

class SpanSlider : public testing::Test
{
protected:
    void SetUp() override
    {
        auto* row = new QHBoxLayout(&window);
        before = new QLineEdit;
        slider = new QSpanSlider(Qt::Horizontal);
        after = new QLineEdit;
        for (QWidget* widget :
             {static_cast<QWidget*>(before), static_cast<QWidget*>(slider), static_cast<QWidget*>(after)})
            row->addWidget(widget);
        slider->setMinimumWidth(420);
        slider->setRange(1, 100);
        slider->setLowerValue(20);
        slider->setUpperValue(80);
        slider->setPageStep(10);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QAccessibleInterface* access() const { return QAccessible::queryAccessibleInterface(slider); }

    /// Middle of a handle (0 lower, 1 upper), as an assistive program finds it.
    QPoint middle(int handle) const
    {
        return slider->mapFromGlobal(access()->child(handle)->rect().center());
    }

    void turnWheel(QPoint const& at, int notches, Qt::KeyboardModifiers keys = Qt::NoModifier) const
    {
        QWheelEvent event(at, slider->mapToGlobal(at), QPoint(), QPoint(0, 120 * notches), Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(slider, &event);
        EXPECT_TRUE(event.isAccepted());
    }

    void drag(QPoint const& from, QPoint const& to) const
    {
        QTest::mousePress(slider, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, slider->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(slider, &move);
        QTest::mouseRelease(slider, Qt::LeftButton, {}, to);
    }

    QWidget window;
    QLineEdit* before = nullptr;
    QSpanSlider* slider = nullptr;
    QLineEdit* after = nullptr;
};

TEST_F(SpanSlider, TellsAChangeOnce)
{
    QSignalSpy span(slider, SIGNAL(spanChanged(int, int)));
    QSignalSpy lower(slider, &QSpanSlider::lowerValueChanged);
    QSignalSpy upper(slider, &QSpanSlider::upperValueChanged);
    slider->setLowerValue(90);
    ASSERT_EQ(span.size(), 1);
    EXPECT_EQ(span[0], (QList<QVariant>{90, 90}));
    EXPECT_EQ(lower.size(), 1);
    EXPECT_EQ(upper.size(), 1);
    slider->setLowerValue(90);
    EXPECT_EQ(span.size(), 1);
}

TEST_F(SpanSlider, ANewRangeKeepsBothValuesInside)
{
    QSignalSpy span(slider, &QSpanSlider::spanChanged);
    slider->setRange(30, 60);
    EXPECT_EQ(slider->lowerValue(), 30);
    EXPECT_EQ(slider->upperValue(), 60);
    EXPECT_EQ(span.size(), 1);
    slider->setRange(1, 1);
    EXPECT_EQ(slider->lowerValue(), 1);
    EXPECT_EQ(slider->upperValue(), 1);
}

TEST_F(SpanSlider, TheMouseDragsTheHandleThatItTakes)
{
    drag(middle(0), middle(0) + QPoint(60, 0));
    EXPECT_GT(slider->lowerValue(), 30);
    EXPECT_EQ(slider->upperValue(), 80);
    int const lower = slider->lowerValue();
    drag(middle(1), QPoint(slider->width() - 1, middle(1).y()));
    EXPECT_EQ(slider->lowerValue(), lower);
    EXPECT_EQ(slider->upperValue(), 100);
}

TEST_F(SpanSlider, AHandleTakenAtItsEdgeDoesNotJump)
{
    QRect const handle = access()->child(0)->rect();
    QPoint const edge = slider->mapFromGlobal(QPoint(handle.right() - 1, handle.center().y()));
    drag(edge, edge);
    EXPECT_EQ(slider->lowerValue(), 20);
}

TEST_F(SpanSlider, ADragPastTheOtherHandlePushesIt)
{
    drag(middle(1), QPoint(0, middle(1).y()));
    EXPECT_EQ(slider->lowerValue(), 1);
    EXPECT_EQ(slider->upperValue(), 1);
}

TEST_F(SpanSlider, AClickBesideTheHandlesBringsTheNearerOne)
{
    QPoint const between = (middle(0) * 2 + middle(1)) / 3;
    QTest::mouseClick(slider, Qt::LeftButton, {}, between);
    EXPECT_NEAR(slider->lowerValue(), 40, 2);
    EXPECT_EQ(slider->upperValue(), 80);
}

TEST_F(SpanSlider, OnlyTheLeftButtonCounts)
{
    QTest::mouseClick(slider, Qt::RightButton, {}, QPoint(2, 5));
    EXPECT_EQ(slider->lowerValue(), 20);
}

TEST_F(SpanSlider, TheWheelMovesTheHandleBelowIt)
{
    turnWheel(middle(0), 3);
    EXPECT_EQ(slider->lowerValue(), 23);
    turnWheel(middle(1), -1, Qt::ControlModifier);
    EXPECT_EQ(slider->upperValue(), 70);
    EXPECT_EQ(slider->lowerValue(), 23);
}

TEST_F(SpanSlider, KeysMoveTheActiveHandleAndTabGoesToTheOther)
{
    before->setFocus();
    QTest::keyClick(before, Qt::Key_Tab);
    ASSERT_TRUE(slider->hasFocus());
    QTest::keyClick(slider, Qt::Key_Right);
    QTest::keyClick(slider, Qt::Key_Up);
    QTest::keyClick(slider, Qt::Key_PageUp);
    QTest::keyClick(slider, Qt::Key_Left);
    EXPECT_EQ(slider->lowerValue(), 31);
    QTest::keyClick(slider, Qt::Key_Tab);
    ASSERT_TRUE(slider->hasFocus());
    QTest::keyClick(slider, Qt::Key_PageDown);
    QTest::keyClick(slider, Qt::Key_Down);
    EXPECT_EQ(slider->upperValue(), 69);
    EXPECT_EQ(slider->lowerValue(), 31);
    QTest::keyClick(slider, Qt::Key_Home);
    EXPECT_EQ(slider->upperValue(), 31) << "the other handle is the end of its way";
    QTest::keyClick(slider, Qt::Key_End);
    EXPECT_EQ(slider->upperValue(), 100);
    QTest::keyClick(slider, Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    QTest::keyClick(after, Qt::Key_Backtab);
    ASSERT_TRUE(slider->hasFocus());
    QTest::keyClick(slider, Qt::Key_Left);
    EXPECT_EQ(slider->upperValue(), 99) << "backwards it begins with the upper one";
}

TEST_F(SpanSlider, OtherKeysGoOnToTheWindow)
{
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(slider, &escape);
    EXPECT_FALSE(escape.isAccepted());
}

TEST_F(SpanSlider, TwoFingersMoveBothHandles)
{
    QTouchDevice* device = QTest::createTouchDevice();
    QPoint const lower = middle(0);
    QPoint const upper = middle(1);
    QTest::touchEvent(slider, device).press(1, lower, slider).press(2, upper, slider);
    QTest::touchEvent(slider, device)
        .move(1, lower + QPoint(40, 0), slider)
        .move(2, upper - QPoint(40, 0), slider);
    QTest::touchEvent(slider, device)
        .release(1, lower + QPoint(40, 0), slider)
        .release(2, upper - QPoint(40, 0), slider);
    EXPECT_GT(slider->lowerValue(), 25);
    EXPECT_LT(slider->upperValue(), 75);
    EXPECT_LT(slider->lowerValue(), slider->upperValue());
    EXPECT_FALSE(slider->isSliderDown());
}

TEST_F(SpanSlider, BothHandlesAreNamedSlidersToAssistivePrograms)
{
    slider->setAccessibleName("Frames");
    ASSERT_TRUE(access());
    EXPECT_EQ(access()->role(), QAccessible::Grouping);
    ASSERT_EQ(access()->childCount(), 2);
    QString const names[] = {"Frames: Lower value", "Frames: Upper value"};
    int const values[] = {20, 80};
    for (int i = 0; i < 2; ++i) {
        QAccessibleInterface* handle = access()->child(i);
        ASSERT_TRUE(handle);
        EXPECT_EQ(handle->role(), QAccessible::Slider);
        EXPECT_EQ(handle->text(QAccessible::Name), names[i]);
        EXPECT_EQ(access()->indexOfChild(handle), i);
        EXPECT_EQ(handle->parent()->object(), slider);
        ASSERT_TRUE(handle->valueInterface());
        EXPECT_EQ(handle->valueInterface()->currentValue().toInt(), values[i]);
        EXPECT_EQ(handle->valueInterface()->minimumValue().toInt(), 1);
        EXPECT_EQ(handle->valueInterface()->maximumValue().toInt(), 100);
        EXPECT_FALSE(handle->rect().isEmpty());
    }
    access()->child(1)->valueInterface()->setCurrentValue(55);
    EXPECT_EQ(slider->upperValue(), 55);
}

TEST_F(SpanSlider, TheSpanIsPaintedBetweenTheHandles)
{
    QImage const picture = slider->grab().toImage();
    QColor const span = slider->palette().color(QPalette::Highlight);
    QPoint const inside = (middle(0) + middle(1)) / 2;
    EXPECT_EQ(picture.pixelColor(inside), span);
    EXPECT_NE(picture.pixelColor(QPoint((middle(0).x()) / 2, inside.y())), span);
    slider->setEnabled(false);
    EXPECT_NE(slider->grab().toImage().pixelColor(inside), span);
}

TEST_F(SpanSlider, StandingItGrowsUpwards)
{
    QSpanSlider standing;
    EXPECT_EQ(standing.orientation(), Qt::Vertical);
    standing.resize(30, 300);
    standing.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&standing));
    QAccessibleInterface* both = QAccessible::queryAccessibleInterface(&standing);
    EXPECT_GT(both->child(0)->rect().top(), both->child(1)->rect().top());
}

}  // namespace
