#include "ToolHelpers.h"

using namespace viz_test;

namespace {

struct TransformToolTest : ToolTest
{
    void SetUp() override
    {
        ToolTest::SetUp();
        scene.showTransformTool(true, "GLVolume");
    }
};

TEST_F(TransformToolTest, IsTheCurrentToolOfTypeOneWhileItIsShown)
{
    ASSERT_NE(scene.getCurrentTool(), nullptr);
    EXPECT_EQ(scene.getCurrentTool()->getToolType(), 1);
    scene.showCroppingTool(false, QString());
    EXPECT_NE(scene.getCurrentTool(), nullptr) << "another tool is left, not this one";
    scene.showTransformTool(false, QString());
    EXPECT_EQ(scene.getCurrentTool(), nullptr);
}

TEST_F(TransformToolTest, NeedsAnObjectOfThatName)
{
    scene.showTransformTool(false, QString());
    scene.showTransformTool(true, "Nobody");
    EXPECT_EQ(scene.getCurrentTool(), nullptr);
    scene.showTransformTool(true, "Root");
    EXPECT_EQ(scene.getCurrentTool(), nullptr) << "a node without a place in space";
}

TEST_F(TransformToolTest, ArrowsMoveAlongTheirAxes)
{
    drag({280, 224}, {320, 230});  // 40 pixels of 0.05 mm; those across don't count
    expectMatrix(placement(), {1, 0, 0, 2, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    volume->setTransformation(matrix());
    scene.updateScene();
    drag({224, 170}, {224, 110});
    expectMatrix(placement(), {1, 0, 0, 0, 0, 1, 0, 3, 0, 0, 1, 0, 0, 0, 0, 1});
    volume->setTransformation(matrix());
    control.setPreset(hvscene::ViewPreset::Side);  // z goes to the left
    drag({170, 224}, {150, 224});
    expectMatrix(placement(), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 1, 0, 0, 0, 1});
}

TEST_F(TransformToolTest, RingsTurnAboutTheMiddleOfTheObject)
{
    // From 45 over 90 to 135 degrees of the ring about z.
    press(279, 169);
    move(224, 169);
    move(169, 169);
    release(169, 169);
    expectMatrix(placement(), {0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
}

TEST_F(TransformToolTest, APlacedObjectIsTurnedWhereItIs)
{
    matrix shift;
    shift(0, 3) = 4.0;
    shift(1, 3) = -1.0;
    volume->setTransformation(shift);
    scene.updateScene();
    press(279, 169);
    move(224, 169);
    move(169, 169);
    release(169, 169);
    expectMatrix(placement(), {0, -1, 0, 4, 1, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 1});
}

TEST_F(TransformToolTest, MovesOfATurnedObjectAreAlongTheAxesOfTheScene)
{
    const double quarter[16] = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    volume->setTransformation(matrix(quarter, matrix::COLUMN_MAJOR));
    scene.updateScene();
    drag({280, 224}, {300, 224});
    expectMatrix(placement(), {0, -1, 0, 1, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
}

TEST_F(TransformToolTest, SeveralTurnsAddUpInOneDrag)
{
    press(279, 169);
    for (int step = 1; step <= 8; ++step) {
        const int angle = (1 + 2 * step) % 8;  // quarter turns
        move(angle == 1 || angle == 7 ? 279 : 169, angle == 1 || angle == 3 ? 169 : 279);
    }
    move(224, 169);
    release(224, 169);
    const double c = std::sqrt(0.5);
    expectMatrix(placement(), {c, -c, 0, 0, c, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
}

TEST_F(TransformToolTest, ListenersHearOfEveryStepAndOfTheEnd)
{
    QSignalSpy steps(volume, &C3DObject::transformationChanged);
    QSignalSpy moved(volume, &RecordingVolume::onSignalTransformationChanged);
    press(280, 224);
    EXPECT_EQ(steps.size(), 0);
    move(290, 224);
    EXPECT_EQ(steps.size(), 1);
    move(300, 224);
    EXPECT_EQ(steps.size(), 2);
    EXPECT_EQ(moved.size(), 0);
    release(300, 224);
    EXPECT_EQ(steps.size(), 3);
    ASSERT_EQ(moved.size(), 1);
    EXPECT_EQ(moved.at(0).at(0).toBool(), true);
}

TEST_F(TransformToolTest, AClickChangesAndTellsNothing)
{
    QSignalSpy moved(volume, &RecordingVolume::onSignalTransformationChanged);
    const int notes = volume->transformNotes;
    click(280, 224);
    EXPECT_EQ(moved.size(), 0);
    EXPECT_EQ(volume->transformNotes, notes);
    expectMatrix(placement(), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
}

TEST_F(TransformToolTest, ThePictureStaysWhileTheObjectMoves)
{
    drag({280, 224}, {320, 224});
    grab();
    // The object's middle is 40 pixels to the right now, and so are its handles.
    drag({320, 224}, {340, 224});
    expectMatrix(placement(), {1, 0, 0, 3, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    volume->setTransformation(matrix());
    scene.updateTransformTool();
    scene.updateScene();
    grab();
    drag({280, 224}, {300, 224});
    expectMatrix(placement(), {1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
}

TEST_F(TransformToolTest, EscapeTakesTheDragBack)
{
    QSignalSpy moved(volume, &RecordingVolume::onSignalTransformationChanged);
    press(280, 224);
    move(330, 224);
    escape();
    expectMatrix(placement(), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    move(350, 224);
    release(350, 224);
    expectMatrix(placement(), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    EXPECT_EQ(moved.size(), 0);
    EXPECT_NE(scene.getCurrentTool(), nullptr);
}

TEST_F(TransformToolTest, BesideTheHandlesTheMouseIsTheCameras)
{
    QSignalSpy camera(&scene, &C3DView::cameraChanged);
    drag({400, 400}, {360, 380});
    EXPECT_GT(camera.size(), 0);
    expectMatrix(placement(), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    camera.clear();
    control.reset();
    camera.clear();
    drag({280, 224}, {300, 224});
    EXPECT_EQ(camera.size(), 0) << "nor does the camera turn with a handle";
}

TEST_F(TransformToolTest, HandlesKeepTheirSizeWhenTheViewIsZoomed)
{
    grab();
    QWheelEvent wheel(QPointF(224, 224), scene.mapToGlobal(QPointF(224, 224).toPoint()), QPoint(),
                      QPoint(0, 600), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&scene, &wheel);
    hover(224 + 100, 224);
    EXPECT_EQ(scene.cursor().shape(), Qt::OpenHandCursor);
    hover(224 + 114, 224);
    EXPECT_NE(scene.cursor().shape(), Qt::OpenHandCursor);
}

TEST_F(TransformToolTest, TheHandleUnderTheMouseLightsUp)
{
    volume->show(false);
    const QColor plain = grab().pixelColor(224 + 50, 224);
    EXPECT_NEAR(plain.red(), 0xf2, 8);
    EXPECT_NEAR(plain.green(), 0x70, 12);
    EXPECT_NEAR(plain.blue(), 0x66, 12);
    hover(224 + 50, 224);
    const QColor lit = grab().pixelColor(224 + 50, 224);
    EXPECT_GT(lit.green(), plain.green() + 8);
    hover(400, 400);
    EXPECT_EQ(grab().pixelColor(224 + 50, 224), plain);
}

TEST_F(TransformToolTest, ALightOnAHandleDrawsTheSceneNoSecondTime)
{
    auto* box = new ColouredBox("box", 9.9, 9.9, 9.9);
    manager.addChild(manager.getRootNode(), box);
    scene.addToScene(box);
    const QImage plain = grab();
    const int frames = box->frames;
    hover(224 + 50, 224);
    const QImage lit = grab();
    EXPECT_EQ(box->frames, frames);
    EXPECT_NE(lit, plain);
    EXPECT_EQ(grab(), lit);
    EXPECT_EQ(box->frames, frames + 1) << "a frame that nobody asked for is a whole one";
    // Somebody asks for a frame of the scene before and after the handle lights up.
    hover(400, 400);
    scene.update();
    EXPECT_EQ(grab(), plain);
    EXPECT_EQ(box->frames, frames + 2);
    box->show(false);
    hover(224 + 50, 224);
    EXPECT_NE(grab().pixelColor(200, 260), QColor(0, 0, 240)) << "what was changed shows";
    hover(400, 400);
    EXPECT_FALSE(control.picture(QSize(100, 100)).isNull());
    scene.resize(300, 448);
    EXPECT_EQ(grab().width(), 300) << "a copy of another size is of no use";
}

TEST_F(TransformToolTest, HandlesLieOverTheScene)
{
    auto* box = new ColouredBox("box", 9.9, 9.9, 9.9);
    manager.addChild(manager.getRootNode(), box);
    scene.addToScene(box);
    const QImage image = grab();
    EXPECT_EQ(image.pixelColor(200, 260), QColor(0, 0, 240)) << "the box";
    EXPECT_GT(image.pixelColor(224 + 50, 224).red(), 200) << "the arrow along x";
    EXPECT_GT(image.pixelColor(224, 224 - 50).green(), 180) << "the arrow along y";
    EXPECT_GT(image.pixelColor(224, 224).lightness(), 200) << "the middle";
    scene.showTransformTool(false, QString());
    EXPECT_EQ(grab().pixelColor(224 + 50, 224), QColor(0, 0, 240));
}

TEST_F(TransformToolTest, EndsWithItsObject)
{
    press(280, 224);
    move(300, 224);
    delete volume;
    move(310, 224);
    release(310, 224);
    hover(280, 224);
    EXPECT_EQ(scene.getCurrentTool(), nullptr);
    EXPECT_FALSE(grab().isNull());
}

TEST_F(TransformToolTest, AListenerMayLeaveTheToolWhenTheDragEnds)
{
    QObject::connect(volume, &RecordingVolume::onSignalTransformationChanged, &scene,
                     [this] { scene.showTransformTool(false, QString()); });
    drag({280, 224}, {300, 224});
    EXPECT_EQ(scene.getCurrentTool(), nullptr);
    expectMatrix(placement(), {1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
}

TEST_F(TransformToolTest, ADragIsDrawnInTheFastMode)
{
    press(280, 224);
    EXPECT_FALSE(CHVProcess::isFast3DRenderingMode());
    move(300, 224);
    EXPECT_TRUE(CHVProcess::isFast3DRenderingMode());
    release(300, 224);
    EXPECT_TRUE(CHVProcess::isFast3DRenderingMode()) << "until the mouse has rested";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !CHVProcess::isFast3DRenderingMode(); }));
    press(300, 224);
    move(310, 224);
    scene.showTransformTool(false, QString());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !CHVProcess::isFast3DRenderingMode(); }));
}

TEST_F(TransformToolTest, AReleaseThatWentElsewhereEndsTheDrag)
{
    press(280, 224);
    move(300, 224);
    hover(380, 224);
    expectMatrix(placement(), {1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !CHVProcess::isFast3DRenderingMode(); }));
}

TEST_F(TransformToolTest, OtherButtonsAndModifiersAreNotTheTools)
{
    send(QEvent::MouseButtonPress, {280, 224}, Qt::LeftButton, Qt::LeftButton, Qt::ShiftModifier);
    move(320, 224);
    release(320, 224);
    send(QEvent::MouseButtonPress, {280, 224}, Qt::MiddleButton, Qt::MiddleButton);
    send(QEvent::MouseMove, {320, 224}, Qt::NoButton, Qt::MiddleButton);
    send(QEvent::MouseButtonRelease, {320, 224}, Qt::MiddleButton, Qt::NoButton);
    expectMatrix(placement(), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    press(280, 224);
    send(QEvent::MouseButtonPress, {280, 224}, Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    move(300, 224);
    release(300, 224);
}

TEST_F(TransformToolTest, DrawingItLeavesTheStateOfTheContext)
{
    scene.doMeasureVoxels(false);
    for (auto* slice : {scene.getYZslice().data(), scene.getXZslice().data(), scene.getXYslice().data()})
        slice->show(true);
    hover(224 + 50, 224);
    grab();
    scene.makeCurrent();
    glDepthFunc(GL_GREATER);
    glLineWidth(3.0f);
    EXPECT_FALSE(control.picture(QSize(300, 300)).isNull());
    scene.makeCurrent();
    GLint depth = 0;
    glGetIntegerv(GL_DEPTH_FUNC, &depth);
    EXPECT_EQ(depth, GL_GREATER);
    GLfloat width = 0;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_EQ(width, 3.0f);
    GLint stack = 0;
    glGetIntegerv(GL_ATTRIB_STACK_DEPTH, &stack);
    EXPECT_EQ(stack, 0);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

}  // namespace
