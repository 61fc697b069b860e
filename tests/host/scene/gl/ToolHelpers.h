#pragma once

#include "SceneHelpers.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DSlice.h"
#include "hvapi/scene/C3DToolBase.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "hvutils/CHVProcess.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <vector>

namespace viz_test {

/// A volume that records what a tool tells it. Its signal has the name that plug-ins' nodes have.
class RecordingVolume : public C3DVolumeData
{
    Q_OBJECT

public:
    RecordingVolume()
        : C3DVolumeData("GLVolume")
    {}
    void setCropBoxOffset(Vec3f* offsets) override { crop.assign(offsets, offsets + 8); }
    void setCropEnabled(bool on) override { cropEnabled = on; }
    bool isCropEnabled() override { return cropEnabled; }
    void notifyCropEquationsChanged(bool modified) override { cropNotes.push_back(modified); }
    void setTransformationChanged(bool changed, bool notify) override
    {
        ++transformNotes;
        C3DVolumeData::setTransformationChanged(changed, notify);
    }
    void renderNode(GLenum mode) override
    {
        prepared = true;
        C3DVolumeData::renderNode(mode);
    }
    void renderSlice(GLdouble* plane, GLuint id) override
    {
        preparedForSlices = prepared;
        slices.emplace_back(plane, plane + 4);
        sliceId = id;
    }

    std::vector<Vec3f> crop;
    bool cropEnabled = false;
    std::vector<bool> cropNotes;
    int transformNotes = 0;
    std::vector<std::vector<double>> slices;
    GLuint sliceId = ~0U;
    bool prepared = false;           ///< the scene has been at the node at all
    bool preparedForSlices = false;  ///< it had when the last slice was drawn

signals:
    void onSignalTransformationChanged(bool modified);
};

/// A scene of 448 by 448 pixels with a volume of 20 by 20 by 20 mm in 10 by 10 by 10 voxels around the
/// origin, seen from the front: a pixel is 0.05 mm, and the middle of the volume lies at pixel (224, 224).
struct ToolTest : testing::Test
{
    void SetUp() override
    {
        scene.resize(448, 448);
        volume = new RecordingVolume;
        std::vector<unsigned char> voxels(1000, 200);
        float extent[3] = {20.0f, 20.0f, 20.0f};
        ASSERT_TRUE(volume->loadVolume(voxels.data(), 10, 10, 10, 255, 0, extent));
        ASSERT_TRUE(manager.addChild(manager.getRootNode(), volume));
        scene.addToScene(volume);
        scene.updateScene();
        control.showAxes(false);
        control.showScaleBar(false);
        control.showBoundingBox(false);
    }

    void send(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QMouseEvent event(type, at, scene.mapToGlobal(at), button, buttons, modifiers);
        QApplication::sendEvent(&scene, &event);
    }
    void hover(int x, int y) { send(QEvent::MouseMove, {x, y}, Qt::NoButton, Qt::NoButton); }
    void press(int x, int y) { send(QEvent::MouseButtonPress, {x, y}, Qt::LeftButton, Qt::LeftButton); }
    void move(int x, int y) { send(QEvent::MouseMove, {x, y}, Qt::NoButton, Qt::LeftButton); }
    void release(int x, int y) { send(QEvent::MouseButtonRelease, {x, y}, Qt::LeftButton, Qt::NoButton); }
    /// In two steps, as a hand does it.
    void drag(QPoint from, QPoint to)
    {
        press(from.x(), from.y());
        move((from.x() + to.x()) / 2, (from.y() + to.y()) / 2);
        move(to.x(), to.y());
        release(to.x(), to.y());
    }
    void click(int x, int y)
    {
        press(x, y);
        release(x, y);
    }
    QImage grab() { return scene.grabFramebuffer(); }
    matrix placement() const { return volume->getTransformation(); }
    void escape()
    {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&scene, &event);
    }

    RecordingServices host;
    C3DSGManager manager;
    C3DScene scene{&manager};
    ViewControl control{scene};
    RecordingVolume* volume = nullptr;
};

inline void expectMatrix(const matrix& m, const std::vector<double>& rows)
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            EXPECT_NEAR(m(r, c), rows[static_cast<std::size_t>(4 * r + c)], 1e-9) << r << "," << c;
}

}  // namespace viz_test
