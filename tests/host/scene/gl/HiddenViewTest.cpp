#include "SceneHelpers.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"

#include <gtest/gtest.h>

using viz_test::ColouredBox;
using viz_test::RecordingServices;

TEST(HiddenView, RefreshDrawsWhereNoWindowIsEverShown)
{
    RecordingServices host;
    C3DSGManager manager;
    C3DScene scene(&manager);
    auto* box = new ColouredBox("box");
    ASSERT_TRUE(manager.addChild(manager.getRootNode(), box));
    scene.addToScene(box);
    scene.refresh();
    EXPECT_EQ(box->frames, 0) << "it waits until it is shown";
    ViewControl::setHiddenFrameSize(QSize(40, 30));
    scene.refresh();
    scene.refresh();
    ViewControl::setHiddenFrameSize(QSize());
    EXPECT_EQ(box->frames, 2);
    scene.refresh();
    EXPECT_EQ(box->frames, 2);
}
