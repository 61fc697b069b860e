// What the plug-in's volume looks like while the mouse turns the 3D view, and after it.

#include "WorkstationFixture.h"

#include <QMouseEvent>

namespace {

class FastModeTest : public WorkstationFixture
{
protected:
    void SetUp() override
    {
        WorkstationFixture::SetUp();
        ASSERT_EQ(m_window->openVolume({rawFile("cube.raw", true)}), MainWindow::OpenResult::Loaded);
        // Thin matter: half as many slices are another picture.
        unsigned char table[1024] = {};
        for (int value = 100; value < 256; ++value)
            for (int channel = 0; channel < 4; ++channel)
                table[4 * value + channel] = channel == 3 ? 40 : 230;
        volume()->setVolumeColorTable(table);
        scene = m_window->activeScene();
        middle = scene->rect().center();
    }
    void moveTo(QPoint place) const
    {
        QMouseEvent event(QEvent::MouseMove, place, scene->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(scene, &event);
    }
    /// A frame of full detail from where the camera is now.
    QImage fullFrame() const { return ViewControl(*scene).picture(scene->size()); }

    C3DScene* scene = nullptr;
    QPoint middle;
};

TEST_F(FastModeTest, ADragIsDrawnWithHalfTheSlicesAndAllOfThemFollow)
{
    QTest::mousePress(scene, Qt::LeftButton, Qt::NoModifier, middle);
    moveTo(middle + QPoint(15, 10));
    moveTo(middle + QPoint(30, 20));
    const QImage dragged = scene->grabFramebuffer();
    const QImage full = fullFrame();
    ASSERT_EQ(dragged.size(), full.size());
    EXPECT_NE(dragged.convertToFormat(QImage::Format_RGB32), full);
    QTest::mouseRelease(scene, Qt::LeftButton, Qt::NoModifier, middle + QPoint(30, 20));
    EXPECT_NE(scene->grabFramebuffer().convertToFormat(QImage::Format_RGB32), full) << "the mouse may go on";
    QTest::qWait(400);
    EXPECT_EQ(scene->grabFramebuffer().convertToFormat(QImage::Format_RGB32), full);
}

}  // namespace
