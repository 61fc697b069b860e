#include "ViewFixture.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DSlice.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "hvutils/CHVProcess.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <vector>

using namespace viz_test;
using hvscene::ViewPreset;

namespace {

TEST_F(ViewTest, PresetsShowTheFacesTheyName)
{
    addBox();
    control.setPreset(ViewPreset::Front);
    EXPECT_EQ(middleOf(grab()), QColor(0, 0, 240)) << "from +z";
    control.setPreset(ViewPreset::Side);
    EXPECT_EQ(middleOf(grab()), QColor(240, 0, 0)) << "from +x";
    control.setPreset(ViewPreset::Top);
    EXPECT_EQ(middleOf(grab()), QColor(0, 240, 0)) << "from +y";
    control.setPreset(ViewPreset::Iso);
    const QImage iso = grab();
    // Above the middle the top face, to the left of it the front face (+z), to the right the side (+x).
    EXPECT_EQ(iso.pixelColor(48, 30), QColor(0, 240, 0));
    EXPECT_EQ(iso.pixelColor(38, 60), QColor(0, 0, 240));
    EXPECT_EQ(iso.pixelColor(72, 56), QColor(240, 0, 0));
}

TEST_F(ViewTest, YIsUpInTheFrontView)
{
    ColouredBox* box = addBox(10, 10, 10);
    matrix m;
    m(1, 3) = 5.0;
    auto* low = new ColouredBox("low", 10, 10, 1);
    manager.addChild(manager.getRootNode(), low);
    scene.addToScene(low);
    // A thin dark plate shifted down by 20 mm; the scene spans y from -30 to 15.
    matrix down;
    down(1, 3) = -20.0;
    low->setTransformation(down);
    box->setTransformation(m);
    scene.updateScene();
    control.setPreset(ViewPreset::Side);
    const QImage image = grab();
    // From +x the plate is 2 mm wide around z = 0, below; the box 20 mm wide, above.
    EXPECT_EQ(image.pixelColor(48, 20), QColor(240, 0, 0));
    EXPECT_EQ(image.pixelColor(48 + 12, 20), QColor(240, 0, 0));
    EXPECT_EQ(image.pixelColor(48, 80), QColor(240, 0, 0));
    EXPECT_NE(image.pixelColor(48 + 12, 80), QColor(240, 0, 0));
}

TEST_F(ViewTest, TheSceneIsFittedToTheWindow)
{
    addBox(10, 10, 10);
    const QImage image = grab();
    // 20 mm in a window of 20 * 1.12 mm and 96 pixels: the box covers pixels 5.1 to 90.9.
    EXPECT_EQ(image.pixelColor(7, 48), QColor(0, 0, 240));
    EXPECT_EQ(image.pixelColor(89, 48), QColor(0, 0, 240));
    EXPECT_NE(image.pixelColor(3, 48), QColor(0, 0, 240));
    EXPECT_NE(image.pixelColor(93, 48), QColor(0, 0, 240));
}

TEST_F(ViewTest, OnlyObjectsAddedToTheSceneAreDrawnAndOnlyOnce)
{
    auto* box = new ColouredBox("box");
    manager.addChild(manager.getRootNode(), box);
    grab();
    EXPECT_EQ(box->frames, 0);
    scene.addToScene(box);
    scene.addToScene(box);
    box->frames = 0;
    grab();
    EXPECT_EQ(box->frames, 1);
    box->show(false);
    grab();
    EXPECT_EQ(box->frames, 1);
    box->show(true);
    delete box;
    EXPECT_FALSE(grab().isNull());
}

TEST_F(ViewTest, EverySceneOfAGraphDrawsItsObjects)
{
    addBox();
    C3DScene second(&manager);
    second.resize(96, 96);
    EXPECT_EQ(middleOf(second.grabFramebuffer()), QColor(0, 0, 240));
}

TEST_F(ViewTest, BackgroundIsDarkBelowAndLighterAbove)
{
    const QImage image = grab();
    EXPECT_LT(image.pixelColor(48, 90).lightness(), image.pixelColor(48, 5).lightness());
    EXPECT_LT(image.pixelColor(48, 5).lightness(), 70);
    EXPECT_EQ(image.pixelColor(48, 48).alpha(), 255);
}

TEST_F(ViewTest, AFragmentAtTheFarValueDrawsOnAClearedBuffer)
{
    auto* box = addBox();
    GLint function = 0;
    GLboolean depthTest = GL_FALSE;
    box->onRender = [&] {
        glGetIntegerv(GL_DEPTH_FUNC, &function);
        depthTest = glIsEnabled(GL_DEPTH_TEST);
        glDepthRange(1.0, 1.0);
    };
    EXPECT_EQ(middleOf(grab()), QColor(0, 0, 240));
    EXPECT_EQ(function, GL_LEQUAL);
    EXPECT_TRUE(depthTest);
    EXPECT_EQ(middleOf(grab()), QColor(0, 0, 240));
}

TEST_F(ViewTest, ANodeCantSpoilTheNextOneOrTheNextFrame)
{
    auto* rude = new ColouredBox("rude", 2, 2, 2);
    manager.addChild(manager.getRootNode(), rude);
    scene.addToScene(rude);
    auto* box = addBox();
    rude->onRender = [] {
        glEnable(GL_BLEND);
        glBlendFunc(GL_ZERO, GL_ONE);
        glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
        glDepthFunc(GL_NEVER);
        glEnable(GL_TEXTURE_3D);
        glEnable(GL_LIGHTING);
        glEnable(GL_CLIP_PLANE3);
        glViewport(0, 0, 1, 1);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
        glTranslated(100, 0, 0);
    };
    GLint depth = 0;
    box->onRender = [&] { glGetIntegerv(GL_ATTRIB_STACK_DEPTH, &depth); };
    EXPECT_EQ(middleOf(grab()), QColor(0, 0, 240));
    EXPECT_EQ(middleOf(grab()), QColor(0, 0, 240));
    EXPECT_LE(depth, 4) << "the node needs some of the 16 levels itself";
}

TEST_F(ViewTest, AFrameLeavesTheStateOfTheContext)
{
    addBox();
    grab();
    scene.makeCurrent();
    struct State
    {
        std::vector<GLint> values;
        std::vector<double> matrices;
        bool operator==(const State& o) const { return values == o.values && matrices == o.matrices; }
    };
    const auto read = [] {
        State s;
        for (GLenum name :
             {GL_DEPTH_FUNC, GL_BLEND, GL_DEPTH_TEST, GL_DEPTH_WRITEMASK, GL_CURRENT_PROGRAM, GL_LINE_SMOOTH,
              GL_ACTIVE_TEXTURE, GL_ATTRIB_STACK_DEPTH, GL_CLIENT_ATTRIB_STACK_DEPTH, GL_LIGHTING,
              GL_MODELVIEW_STACK_DEPTH, GL_PROJECTION_STACK_DEPTH, GL_UNPACK_ALIGNMENT, GL_MATRIX_MODE,
              GL_BLEND_SRC, GL_BLEND_DST, GL_TEXTURE_2D, GL_SCISSOR_TEST}) {
            GLint v = 0;
            glGetIntegerv(name, &v);
            s.values.push_back(v);
        }
        GLint four[4];
        glGetIntegerv(GL_VIEWPORT, four);
        s.values.insert(s.values.end(), four, four + 4);
        s.matrices.resize(32);
        glGetDoublev(GL_PROJECTION_MATRIX, s.matrices.data());
        glGetDoublev(GL_MODELVIEW_MATRIX, s.matrices.data() + 16);
        return s;
    };
    glDepthFunc(GL_GREATER);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ZERO);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 2);
    const State before = read();
    EXPECT_FALSE(control.picture(QSize(300, 300)).isNull());
    scene.makeCurrent();
    EXPECT_TRUE(read() == before);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(ViewTest, ANewBoxIsTakenIntoViewByUpdateScene)
{
    ColouredBox* box = addBox();
    grab();
    // The user zooms in; another object makes the scene larger.
    QWheelEvent wheel(QPointF(48, 48), scene.mapToGlobal(QPointF(48, 48).toPoint()), QPoint(), QPoint(0, 600),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&scene, &wheel);
    EXPECT_EQ(grab().pixelColor(1, 48), QColor(0, 0, 240));
    auto* wide = new ColouredBox("wide", 40, 1, 1);
    manager.addChild(manager.getRootNode(), wide);
    scene.addToScene(wide);
    EXPECT_EQ(grab().pixelColor(1, 30), QColor(0, 0, 240)) << "the user's place stays";
    scene.updateScene();
    const QImage image = grab();
    EXPECT_NE(image.pixelColor(1, 30), QColor(0, 0, 240));
    EXPECT_EQ(image.pixelColor(10, 48), QColor(0, 0, 240)) << "the bar from edge to edge";
    EXPECT_EQ(box->getName(), "box");
}

TEST_F(ViewTest, CropOffsetsGoToTheVolumesAndStay)
{
    struct Cropped : C3DVolumeData
    {
        Cropped()
            : C3DVolumeData("GLVolume")
        {}
        void setCropBoxOffset(Vec3f* offsets) override
        {
            received.assign(offsets, offsets + 8);
            offsets[0].set(99, 99, 99);
        }
        std::vector<Vec3f> received;
    };
    auto* volume = new Cropped;
    manager.addChild(manager.getRootNode(), volume);
    EXPECT_EQ(scene.getCroppingBoxOffset().m_offset[7].z(), 0.0);
    Vec3f offsets[8];
    offsets[0].set(0.1, 0.2, 0.3);
    offsets[7].set(-0.5, 0.0, 0.25);
    scene.setCroppingBoxOffset(offsets);
    ASSERT_EQ(volume->received.size(), 8u);
    EXPECT_EQ(volume->received[0].y(), 0.2);
    EXPECT_EQ(volume->received[7].z(), 0.25);
    EXPECT_EQ(scene.getCroppingBoxOffset().m_offset[0].x(), 0.1);
    EXPECT_EQ(scene.getCroppingBoxOffset().m_offset[7].x(), -0.5);
    scene.setCroppingBoxOffset(nullptr);
    EXPECT_EQ(scene.getCroppingBoxOffset().m_offset[7].x(), -0.5);
    C3DScene second(&manager);
    EXPECT_EQ(second.getCroppingBoxOffset().m_offset[7].x(), -0.5) << "the crop belongs to the graph";
}

TEST_F(ViewTest, PictureHasItsOwnSizeAndIsOpaque)
{
    addBox(10, 5, 5);
    const QImage picture = control.picture(QSize(200, 100));
    ASSERT_EQ(picture.size(), QSize(200, 100));
    EXPECT_EQ(picture.pixelColor(100, 50), QColor(0, 0, 240));
    // 20 x 10 mm fill a window of 2 : 1 up to the margin.
    EXPECT_EQ(picture.pixelColor(14, 50), QColor(0, 0, 240));
    EXPECT_EQ(picture.pixelColor(100, 8), QColor(0, 0, 240));
    EXPECT_TRUE(control.picture(QSize(0, 10)).isNull());
    EXPECT_TRUE(control.picture(QSize(1000000, 10)).isNull());
    EXPECT_EQ(middleOf(grab()), QColor(0, 0, 240));
}

TEST_F(ViewTest, BoundingBoxOfAVolumeIsDrawnAndCanBeHidden)
{
    std::vector<unsigned char> voxels(8, 0);
    float extent[3] = {20, 20, 20};
    auto* volume = new C3DVolumeData("GLVolume");
    manager.addChild(manager.getRootNode(), volume);
    scene.addToScene(volume);
    ASSERT_TRUE(volume->loadVolume(voxels.data(), 2, 2, 2, 1, 0, extent));
    scene.updateScene();
    const QImage with = grab();
    control.showBoundingBox(false);
    EXPECT_FALSE(control.isBoundingBoxShown());
    const QImage without = grab();
    // The left edge of the box: 48 - 10 / 11.2 * 48 = 5.1.
    int lighter = 0;
    for (int x = 3; x <= 7; ++x)
        lighter =
            std::max(lighter, with.pixelColor(x, 48).lightness() - without.pixelColor(x, 48).lightness());
    EXPECT_GT(lighter, 20);
    EXPECT_EQ(with.pixelColor(20, 48), without.pixelColor(20, 48));
}

TEST_F(ViewTest, AxesAndScaleBarStandInTheLowerCornersOfALargeView)
{
    addBox()->show(false);
    const QSize size(400, 300);
    const QImage with = control.picture(size);
    control.showAxes(false);
    const QImage noAxes = control.picture(size);
    control.showScaleBar(false);
    const QImage plain = control.picture(size);
    int axes = 0;
    int bar = 0;
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x) {
            if (with.pixel(x, y) != noAxes.pixel(x, y)) {
                ++axes;
                EXPECT_LT(x, 110);
                EXPECT_GT(y, 190);
            }
            if (noAxes.pixel(x, y) != plain.pixel(x, y)) {
                ++bar;
                EXPECT_GT(x, 300);
                EXPECT_GT(y, 240);
            }
        }
    }
    EXPECT_GT(axes, 300);
    EXPECT_GT(bar, 80);
    // In the front view x (red) points right and y (green) up from the middle of the triad at (6 + 46, 294 -
    // 46).
    const QColor right = with.pixelColor(52 + 16, 248);
    EXPECT_GT(right.red(), right.green() + 40);
    const QColor up = with.pixelColor(52, 248 - 16);
    EXPECT_GT(up.green(), up.red() + 40);
}

TEST_F(ViewTest, SlicesAreHiddenAtFirstAndLieInsideTheScene)
{
    addBox(10, 20, 30);
    EXPECT_EQ(scene.getYZslice()->getAxis(), 0);
    EXPECT_EQ(scene.getXZslice()->getAxis(), 1);
    EXPECT_EQ(scene.getXYslice()->getAxis(), 2);
    EXPECT_EQ(scene.get3DSliceView(C3DScene::XY_VIEW), scene.getXYslice());
    EXPECT_TRUE(scene.get3DSliceView(C3DScene::ALL_VIEWS).isNull());
    EXPECT_FALSE(scene.getXYslice()->isDisplayed());
    scene.getXYslice()->setPosition(500.0);
    EXPECT_EQ(scene.getXYslice()->getPosition(), 500.0);
    scene.createSliceDisplayLists();
    EXPECT_EQ(scene.getXYslice()->getPosition(), 30.0);
}

TEST_F(ViewTest, AMarkedSliceIsTakenAnew)
{
    ColouredBox* box = addBox(10, 10, 10);
    C3DSlice* slice = scene.getXYslice();
    slice->setPosition(10.0);
    scene.createSliceDisplayLists();
    matrix m;
    m(2, 3) = -15.0;  // z now runs from -25 to -5
    box->setTransformation(m);
    scene.createSliceDisplayLists();
    EXPECT_EQ(slice->getPosition(), 10.0) << "nobody has marked it";
    scene.setSliceDirty(box, C3DScene::YZ_VIEW, true);
    scene.createSliceDisplayLists();
    EXPECT_EQ(slice->getPosition(), 10.0) << "another one is marked";
    scene.setSliceDirty(nullptr, C3DScene::ALL_VIEWS, true);
    scene.refreshSliceViews();
    EXPECT_EQ(slice->getPosition(), 10.0);
    scene.setSliceDirty(box, C3DScene::ALL_VIEWS, true);
    scene.refreshSliceViews();
    EXPECT_EQ(slice->getPosition(), -5.0);
}

TEST_F(ViewTest, AShownSliceCutsTheObjects)
{
    struct Sliced : ColouredBox
    {
        using ColouredBox::ColouredBox;
        void renderSlice(GLdouble* plane, GLuint id) override
        {
            planes.assign(plane, plane + 4);
            ids.push_back(id);
        }
        std::vector<double> planes;
        std::vector<GLuint> ids;
    };
    auto* box = new Sliced("box");
    manager.addChild(manager.getRootNode(), box);
    scene.addToScene(box);
    grab();
    EXPECT_TRUE(box->ids.empty());
    scene.getXZslice()->setPosition(4.0);
    scene.getXZslice()->show(true);
    grab();
    ASSERT_EQ(box->ids.size(), 1u);
    EXPECT_NE(box->ids[0], ~0u) << "in the space of the scene";
    EXPECT_EQ(box->planes, (std::vector<double>{0, 1, 0, 4}));
}

TEST_F(ViewTest, ThereIsNoToolAndRefreshingOneFindsNothing)
{
    EXPECT_EQ(scene.getCurrentTool(), nullptr);
    scene.updateTransformTool();
    scene.updateCroppingTool();
    scene.setCurrentCameraTool(static_cast<C3DView::CameraTool>(0));
    EXPECT_EQ(scene.getCurrentCameraTool(), C3DView::NoCameraTool);
}

TEST_F(ShownViewTest, RefreshPaintsBeforeItReturnsEveryTime)
{
    box->frames = 0;
    for (int i = 0; i < 10; ++i)
        scene.refresh();
    EXPECT_EQ(box->frames, 10);
}

TEST_F(ShownViewTest, RefreshOfAHiddenSceneWaitsForTheNextShow)
{
    scene.hide();
    box->frames = 0;
    scene.refresh();
    EXPECT_EQ(box->frames, 0);
    scene.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&scene));
    EXPECT_TRUE(QTest::qWaitFor([&] { return box->frames > 0; }));
}

TEST_F(ShownViewTest, RefreshInsideAFrameDoesNotNest)
{
    box->onRender = [this] { scene.refresh(); };
    box->frames = 0;
    scene.refresh();
    EXPECT_EQ(box->frames, 1);
    box->onRender = nullptr;
}

TEST_F(ShownViewTest, ADragByHalfTheWindowTurnsTheSceneAQuarter)
{
    EXPECT_EQ(middleOf(scene.grabFramebuffer()), QColor(0, 0, 240));
    QTest::mousePress(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    move(QPoint(96, 48), Qt::LeftButton);
    QTest::mouseRelease(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(96, 48));
    // The front went to the right: now -x faces the viewer.
    EXPECT_EQ(middleOf(scene.grabFramebuffer()), QColor(120, 0, 0));
}

TEST_F(ShownViewTest, MiddleButtonAndShiftPan)
{
    for (const bool shift : {false, true}) {
        control.reset();
        const auto button = shift ? Qt::LeftButton : Qt::MiddleButton;
        QTest::mousePress(&scene, button, shift ? Qt::ShiftModifier : Qt::NoModifier, QPoint(48, 48));
        move(QPoint(78, 48), button);
        QTest::mouseRelease(&scene, button, Qt::NoModifier, QPoint(78, 48));
        const QImage image = scene.grabFramebuffer();
        // The box spans 5 to 91 before, 35 to 96 after.
        EXPECT_NE(image.pixelColor(30, 48), QColor(0, 0, 240));
        EXPECT_EQ(image.pixelColor(40, 48), QColor(0, 0, 240));
        EXPECT_EQ(image.pixelColor(94, 48), QColor(0, 0, 240));
    }
}

TEST_F(ShownViewTest, CameraToolDecidesWhatTheLeftButtonDoes)
{
    scene.setCurrentCameraTool(C3DView::PanTool);
    QTest::mousePress(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    move(QPoint(78, 48), Qt::LeftButton);
    QTest::mouseRelease(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(78, 48));
    EXPECT_NE(scene.grabFramebuffer().pixelColor(30, 48), QColor(0, 0, 240));
    control.reset();
    scene.setCurrentCameraTool(C3DView::ZoomTool);
    QTest::mousePress(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    move(QPoint(48, 96), Qt::LeftButton);  // down: away
    QTest::mouseRelease(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 96));
    EXPECT_NE(scene.grabFramebuffer().pixelColor(15, 48), QColor(0, 0, 240));
    control.reset();
    scene.setCurrentCameraTool(C3DView::NoCameraTool);
}

TEST_F(ShownViewTest, WheelZoomsAboutTheMouseAndRestsInFullDetail)
{
    QWheelEvent wheel(QPointF(48, 48), scene.mapToGlobal(QPoint(48, 48)), QPoint(), QPoint(0, -480),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&scene, &wheel);
    EXPECT_TRUE(CHVProcess::isFast3DRenderingMode());
    const QImage image = scene.grabFramebuffer();
    EXPECT_NE(image.pixelColor(12, 48), QColor(0, 0, 240));
    EXPECT_EQ(middleOf(image), QColor(0, 0, 240));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !CHVProcess::isFast3DRenderingMode(); }));
}

TEST_F(ShownViewTest, DoubleClickTakesTheSceneIntoView)
{
    QTest::mousePress(&scene, Qt::MiddleButton, Qt::NoModifier, QPoint(48, 48));
    move(QPoint(96, 96), Qt::MiddleButton);
    QTest::mouseRelease(&scene, Qt::MiddleButton, Qt::NoModifier, QPoint(96, 96));
    EXPECT_NE(scene.grabFramebuffer().pixelColor(7, 48), QColor(0, 0, 240));
    QTest::mouseDClick(&scene, Qt::LeftButton, Qt::NoModifier, QPoint(48, 48));
    EXPECT_EQ(scene.grabFramebuffer().pixelColor(7, 48), QColor(0, 0, 240));
}

TEST_F(ShownViewTest, ChangesOfANodeRepaintTheView)
{
    QApplication::processEvents();
    const auto paintsAfter = [this](const std::function<void()>& change) {
        box->frames = 0;
        change();
        QApplication::processEvents();
        return box->frames;
    };
    EXPECT_EQ(paintsAfter([] {}), 0);
    EXPECT_EQ(paintsAfter([this] { box->setTransformation(matrix()); }), 1);
    auto* volume = new C3DVolumeData("GLVolume");
    manager.addChild(manager.getRootNode(), volume);
    EXPECT_EQ(paintsAfter([&] { scene.addToScene(volume); }), 1);
    std::vector<unsigned char> voxels(1024, 100);
    float extent[3] = {1, 1, 1};
    EXPECT_EQ(paintsAfter([&] { volume->loadVolume(voxels.data(), 2, 2, 2, 1, 0, extent); }), 1);
    EXPECT_EQ(
        paintsAfter([&] { volume->loadVolumeNotUpdate3DView(voxels.data(), 2, 2, 2, 1, 0, extent, true); }),
        0);
    EXPECT_EQ(paintsAfter([&] { volume->setVolumeColorTable(voxels.data()); }), 1);
    EXPECT_EQ(paintsAfter([&] { volume->notifyCropEquationsChanged(true); }), 1);
    EXPECT_EQ(paintsAfter([&] { delete volume; }), 1);
}

TEST_F(ViewTest, FocusAndActivityCostNoFrame)
{
    ColouredBox* box = addBox();
    scene.setFocusPolicy(Qt::StrongFocus);
    scene.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&scene));
    QApplication::setActiveWindow(&scene);
    QTest::qWait(100);
    const int before = box->frames;
    EXPECT_GT(before, 0);
    scene.setFocus();
    scene.clearFocus();
    QEvent activity(QEvent::ActivationChange);
    QApplication::sendEvent(&scene, &activity);
    QTest::qWait(100);
    EXPECT_EQ(box->frames, before);
}

}  // namespace
