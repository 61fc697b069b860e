#include "SceneHelpers.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/values/unitquaternion.h"

#include <gtest/gtest.h>

#include <QOpenGLContext>
#include <QSignalSpy>

using namespace viz_test;

namespace {

TEST(SceneGraphTest, RootComesWithTheFirstScene)
{
    C3DSGManager manager;
    EXPECT_EQ(manager.getRootNode(), nullptr);
    EXPECT_EQ(manager.getNode("GLVolume"), nullptr);
    {
        C3DScene scene(&manager);
        EXPECT_NE(manager.getRootNode(), nullptr);
    }
    C3DSGNode* root = manager.getRootNode();
    EXPECT_NE(root, nullptr) << "the graph outlives its scene";
    C3DScene again(&manager);
    EXPECT_EQ(manager.getRootNode(), root);
}

TEST(SceneGraphTest, NodesAreFoundByNameAtAnyDepth)
{
    C3DSGManager manager;
    C3DScene scene(&manager);
    auto* a = new C3DSGNode("a");
    auto* b = new C3DObject("GLVolume");
    EXPECT_TRUE(manager.addChild(manager.getRootNode(), a));
    EXPECT_TRUE(manager.addChild(a, b));
    EXPECT_EQ(manager.getNode("GLVolume"), b);
    EXPECT_EQ(manager.getNode("glvolume"), nullptr);
    delete b;
    EXPECT_EQ(manager.getNode("GLVolume"), nullptr);
}

TEST(SceneGraphTest, AddChildRefusesWhatItCantOwn)
{
    C3DSGManager manager;
    C3DSGManager other;
    C3DScene scene(&manager);
    C3DScene otherScene(&other);
    C3DSGNode* root = manager.getRootNode();
    C3DSGNode loose("loose");
    EXPECT_FALSE(manager.addChild(nullptr, &loose));
    EXPECT_FALSE(manager.addChild(root, nullptr));
    EXPECT_FALSE(manager.addChild(other.getRootNode(), &loose));
    EXPECT_FALSE(manager.addChild(&loose, root));
    auto* child = new C3DSGNode("child");
    ASSERT_TRUE(manager.addChild(root, child));
    EXPECT_FALSE(manager.addChild(root, child)) << "in the graph already";
    EXPECT_FALSE(manager.addChild(child, child));
    EXPECT_FALSE(other.addChild(other.getRootNode(), child)) << "owned by another graph";
    C3DSGNode twin("child");
    EXPECT_FALSE(manager.addChild(root, &twin)) << "the name is taken";
    EXPECT_EQ(loose.parent(), nullptr);
    EXPECT_EQ(twin.parent(), nullptr);
}

TEST(SceneGraphTest, TransformedObjectNameIsSignalledOnlyByInform)
{
    C3DSGManager manager;
    QSignalSpy spy(&manager, &C3DSGManager::transformObjectChanged);
    EXPECT_TRUE(manager.getTransformedObjectName().isEmpty());
    manager.setTransformObjectName("GLVolume");
    EXPECT_EQ(manager.getTransformedObjectName(), "GLVolume");
    EXPECT_EQ(spy.count(), 0);
    manager.informTransformObjectChanged("Volume Crop");
    EXPECT_EQ(manager.getTransformedObjectName(), "Volume Crop");
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(0).toString(), "Volume Crop");
}

TEST(SceneGraphTest, NodesDieWithAContextCurrentWhileTheSceneLives)
{
    auto manager = std::make_unique<C3DSGManager>();
    C3DScene scene(manager.get());
    scene.resize(64, 64);
    scene.grabFramebuffer();
    scene.doneCurrent();
    QOpenGLContext* current = nullptr;
    auto* box = new ColouredBox("box");
    box->onDestroy = [&] { current = QOpenGLContext::currentContext(); };
    manager->addChild(manager->getRootNode(), box);
    ASSERT_EQ(QOpenGLContext::currentContext(), nullptr);
    manager.reset();
    EXPECT_EQ(current, scene.context());
    EXPECT_EQ(QOpenGLContext::currentContext(), nullptr);
    // The scene goes on without its graph.
    EXPECT_FALSE(scene.grabFramebuffer().isNull());
    scene.updateScene();
    scene.addToScene(nullptr);
}

TEST(SceneGraphTest, NodesDieWithASharingContextCurrentAfterTheScene)
{
    auto manager = std::make_unique<C3DSGManager>();
    GLuint texture = 0;
    bool wasTexture = false;
    auto* box = new ColouredBox("box");
    {
        C3DScene scene(manager.get());
        scene.resize(64, 64);
        manager->addChild(manager->getRootNode(), box);
        scene.addToScene(box);
        box->onRender = [&] {
            if (texture) return;
            glGenTextures(1, &texture);
            glBindTexture(GL_TEXTURE_2D, texture);
        };
        scene.grabFramebuffer();
    }
    ASSERT_NE(texture, 0u);
    box->onDestroy = [&] {
        ASSERT_NE(QOpenGLContext::currentContext(), nullptr);
        wasTexture = glIsTexture(texture);
        glDeleteTextures(1, &texture);
    };
    manager.reset();
    EXPECT_TRUE(wasTexture);
    EXPECT_EQ(QOpenGLContext::currentContext(), nullptr);
}

TEST(SceneGraphTest, ShowAndTransformationAreKeptAndSignalled)
{
    C3DObject object("o");
    EXPECT_EQ(object.getName(), "o");
    EXPECT_FALSE(object.isTransform());
    EXPECT_TRUE(object.isValid());
    EXPECT_TRUE(object.isDisplayed());
    EXPECT_FALSE(object.isCropEnabled());
    QSignalSpy shown(&object, &C3DObject::visibilityChanged);
    object.show(true);
    EXPECT_EQ(shown.count(), 0);
    object.show(false);
    EXPECT_FALSE(object.isDisplayed());
    EXPECT_EQ(shown.count(), 1);

    QSignalSpy moved(&object, &C3DObject::transformationChanged);
    matrix m;
    m(0, 3) = 7.0;
    object.setTransformation(m);
    EXPECT_EQ(object.getTransformation()(0, 3), 7.0);
    EXPECT_EQ(moved.count(), 1);
    object.setTransformationChanged(false, false);
    EXPECT_EQ(moved.count(), 1);
    object.setTransformationChanged(false, true);
    ASSERT_EQ(moved.count(), 2);
    EXPECT_FALSE(moved.at(1).at(0).toBool());
}

TEST(SceneGraphTest, TransformedBoxSurroundsTheTurnedCorners)
{
    ColouredBox box("box", 10, 20, 30);
    matrix m = unitquaternion(3.14159265358979323846 / 2, Z_AXIS).getRotMatrix();
    m(0, 3) = 5.0;
    box.setTransformation(m);
    Coord3d min;
    Coord3d max;
    box.getTransformedBBox(min, max);
    EXPECT_NEAR(min.x, -15.0, 1e-9);
    EXPECT_NEAR(max.x, 25.0, 1e-9);
    EXPECT_NEAR(min.y, -10.0, 1e-9);
    EXPECT_NEAR(max.y, 10.0, 1e-9);
    EXPECT_NEAR(min.z, -30.0, 1e-9);
    EXPECT_NEAR(max.z, 30.0, 1e-9);
    const Coord3d centre = box.getCenter();
    EXPECT_EQ(centre.x, 0.0);
    EXPECT_EQ(centre.y, 0.0);
    EXPECT_EQ(centre.z, 0.0);
}

}  // namespace
