#pragma once

#include "SceneHelpers.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

namespace viz_test {

struct ViewTest : testing::Test
{
    void SetUp() override { scene.resize(96, 96); }

    ColouredBox* addBox(double halfX = 10.0, double halfY = 10.0, double halfZ = 10.0)
    {
        auto* box = new ColouredBox("box", halfX, halfY, halfZ);
        EXPECT_TRUE(manager.addChild(manager.getRootNode(), box));
        scene.addToScene(box);
        return box;
    }
    QImage grab() { return scene.grabFramebuffer(); }

    RecordingServices host;
    C3DSGManager manager;
    C3DScene scene{&manager};
    ViewControl control{scene};
};

/// The same, with a window on screen.
struct ShownViewTest : ViewTest
{
    void SetUp() override
    {
        ViewTest::SetUp();
        box = addBox(10, 10, 30);
        scene.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&scene));
        QApplication::processEvents();
        scene.refresh();
    }
    void move(QPoint to, Qt::MouseButtons buttons)
    {
        QMouseEvent event(QEvent::MouseMove, to, scene.mapToGlobal(to), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(&scene, &event);
    }

    ColouredBox* box = nullptr;
};

}  // namespace viz_test
