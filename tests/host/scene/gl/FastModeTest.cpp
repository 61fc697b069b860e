// When frames are drawn in the fast mode, and when the one of full detail follows.

#include "ViewFixture.h"

#include "hvutils/CHVProcess.h"

#include <QElapsedTimer>
#include <algorithm>
#include <memory>
#include <vector>

using namespace viz_test;

namespace {

/// The mode of each frame of a box, and when it was drawn.
struct FastFrames
{
    explicit FastFrames(ColouredBox& box)
    {
        clock.start();
        box.onRender = [this] {
            modes.push_back(CHVProcess::isFast3DRenderingMode());
            times.push_back(clock.elapsed());
        };
    }
    bool endsInFullDetail() const { return !modes.empty() && !modes.back(); }

    QElapsedTimer clock;
    std::vector<bool> modes;
    std::vector<qint64> times;
};

TEST_F(ShownViewTest, DraggingTurnsOnTheFastModeAndAFullFrameFollows)
{
    FastFrames frames(*box);
    QTest::mousePress(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    EXPECT_FALSE(CHVProcess::isFast3DRenderingMode()) << "a press alone moves nothing";
    move(QPoint(60, 48), Qt::LeftButton);
    EXPECT_TRUE(CHVProcess::isFast3DRenderingMode());
    QApplication::processEvents();
    ASSERT_FALSE(frames.modes.empty());
    EXPECT_TRUE(frames.modes.back());
    QTest::mouseRelease(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(60, 48));
    const qint64 released = frames.clock.elapsed();
    EXPECT_TRUE(CHVProcess::isFast3DRenderingMode()) << "the mouse may go on";
    EXPECT_TRUE(QTest::qWaitFor([&] { return frames.endsInFullDetail(); }));
    EXPECT_FALSE(CHVProcess::isFast3DRenderingMode());
    EXPECT_GE(frames.times.back() - released, 145) << "150 ms after the last event";
    const std::size_t count = frames.modes.size();
    QTest::qWait(200);
    EXPECT_EQ(frames.modes.size(), count) << "one frame of full detail is enough";
    box->onRender = nullptr;
}

TEST_F(ShownViewTest, AClickThatMovesNothingIsNoMotion)
{
    FastFrames frames(*box);
    QTest::mouseClick(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    EXPECT_FALSE(CHVProcess::isFast3DRenderingMode());
    QTest::qWait(200);
    EXPECT_TRUE(frames.modes.empty());
    box->onRender = nullptr;
}

TEST_F(ShownViewTest, AMouseThatRestsInADragSeesTheFullFrame)
{
    FastFrames frames(*box);
    QTest::mousePress(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    move(QPoint(60, 48), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return frames.endsInFullDetail(); }));
    move(QPoint(62, 48), Qt::LeftButton);
    EXPECT_TRUE(CHVProcess::isFast3DRenderingMode()) << "the drag goes on";
    QApplication::processEvents();
    EXPECT_TRUE(frames.modes.back());
    QTest::mouseRelease(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(62, 48));
    EXPECT_TRUE(QTest::qWaitFor([&] { return frames.endsInFullDetail(); }));
    box->onRender = nullptr;
}

TEST_F(ShownViewTest, SlowFramesOfADragAreAllFast)
{
    std::vector<bool> fast;
    box->onRender = [&] {
        fast.push_back(CHVProcess::isFast3DRenderingMode());
        if (fast.back()) QTest::qSleep(170);
    };
    QTest::mousePress(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    for (int x = 50; x < 58; x += 2) {
        move(QPoint(x, 48), Qt::LeftButton);
        // The next step of the mouse arrives a little after the frame.
        for (int k = 0; k < 4; ++k)
            QApplication::processEvents();
    }
    ASSERT_GE(fast.size(), 4U);
    EXPECT_EQ(std::count(fast.begin(), fast.end(), false), 0);
    QTest::mouseRelease(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(56, 48));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fast.back(); }));
    box->onRender = nullptr;
}

TEST_F(ShownViewTest, RefreshAfterADragIsOfFullDetail)
{
    FastFrames frames(*box);
    QTest::mousePress(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    move(QPoint(60, 48), Qt::LeftButton);
    scene.refresh();
    EXPECT_TRUE(frames.modes.back()) << "not within it";
    QTest::mouseRelease(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(60, 48));
    scene.refresh();
    EXPECT_FALSE(frames.modes.back());
    EXPECT_FALSE(CHVProcess::isFast3DRenderingMode());
    box->onRender = nullptr;
}

TEST_F(ShownViewTest, AViewThatComesToRestLeavesTheDragOfAnother)
{
    auto other = std::make_unique<C3DScene>(&manager);
    other->resize(64, 64);
    other->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(other.get()));
    QTest::mousePress(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    move(QPoint(60, 48), Qt::LeftButton);
    QTest::mouseRelease(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(60, 48));
    QTest::mousePress(other.get(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    for (int x = 22; x < 52; x += 2) {
        QMouseEvent event(QEvent::MouseMove, QPoint(x, 20), other->mapToGlobal(QPoint(x, 20)), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(other.get(), &event);
        EXPECT_TRUE(CHVProcess::isFast3DRenderingMode()) << x;
        QTest::qWait(20);
    }
    QTest::mouseRelease(other.get(), Qt::LeftButton, Qt::NoModifier, QPoint(50, 20));
    EXPECT_TRUE(QTest::qWaitFor([] { return !CHVProcess::isFast3DRenderingMode(); }));
}

TEST_F(ShownViewTest, TheFastModeEndsWhenTheReleaseIsLost)
{
    QTest::mousePress(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    move(QPoint(60, 48), Qt::LeftButton);
    EXPECT_TRUE(CHVProcess::isFast3DRenderingMode());
    move(QPoint(70, 48), Qt::NoButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !CHVProcess::isFast3DRenderingMode(); }));

    QTest::mousePress(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    move(QPoint(60, 48), Qt::LeftButton);
    scene.hide();
    EXPECT_FALSE(CHVProcess::isFast3DRenderingMode());
}

TEST_F(ShownViewTest, TheFastModeEndsWithTheView)
{
    auto* other = new C3DScene(&manager);
    other->resize(64, 64);
    other->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(other));
    QTest::mousePress(other, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QMouseEvent event(QEvent::MouseMove, QPoint(30, 30), other->mapToGlobal(QPoint(30, 30)), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(other, &event);
    EXPECT_TRUE(CHVProcess::isFast3DRenderingMode());
    QApplication::processEvents();
    delete other;
    EXPECT_FALSE(CHVProcess::isFast3DRenderingMode());
}

}  // namespace
