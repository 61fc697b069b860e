#include "ToolHelpers.h"

using namespace viz_test;

namespace {

struct SliceDragTest : ToolTest
{
    void show(C3DScene::slice_view view)
    {
        scene.get3DSliceView(view)->show(true);
        grab();
    }
    double position(C3DScene::slice_view view) { return scene.get3DSliceView(view)->getPosition(); }
};

TEST_F(SliceDragTest, PlanesAreDrawnByTheVolumesSlicePassInTheScene)
{
    scene.getYZslice()->setPosition(3.0);
    show(C3DScene::YZ_VIEW);
    ASSERT_FALSE(volume->slices.empty());
    EXPECT_EQ(volume->slices.back(), std::vector<double>({1, 0, 0, 3}));
    EXPECT_TRUE(volume->preparedForSlices) << "in the very first frame";
    EXPECT_NE(volume->sliceId, ~0U);
    volume->slices.clear();
    scene.getYZslice()->show(false);
    show(C3DScene::XZ_VIEW);
    ASSERT_FALSE(volume->slices.empty());
    EXPECT_EQ(volume->slices.back(), std::vector<double>({0, 1, 0, 0}));
}

TEST_F(SliceDragTest, FramesAreDraggedAlongTheNormal)
{
    show(C3DScene::YZ_VIEW);
    QSignalSpy moved(scene.getYZslice(), &C3DSlice::sliceChanged);
    drag({224, 350}, {264, 300});
    EXPECT_NEAR(position(C3DScene::YZ_VIEW), 2.0, 1e-9);
    EXPECT_EQ(moved.size(), 2);
    grab();
    drag({264, 100}, {224, 100});
    EXPECT_NEAR(position(C3DScene::YZ_VIEW), 0.0, 1e-9);
}

TEST_F(SliceDragTest, KnobsAreDraggedToo)
{
    show(C3DScene::XZ_VIEW);
    drag({424, 228}, {424, 208});
    EXPECT_NEAR(position(C3DScene::XZ_VIEW), 1.0, 1e-9);
}

TEST_F(SliceDragTest, APlaneThatIsLookedOntoComesNearerWhenPulledUp)
{
    show(C3DScene::XY_VIEW);
    drag({24, 100}, {24, 60});
    EXPECT_NEAR(position(C3DScene::XY_VIEW), 2.0, 1e-9);
}

TEST_F(SliceDragTest, PlanesStayInTheScene)
{
    show(C3DScene::YZ_VIEW);
    press(224, 350);
    move(447, 350);
    EXPECT_NEAR(position(C3DScene::YZ_VIEW), 10.0, 1e-9);
    move(1, 350);
    EXPECT_NEAR(position(C3DScene::YZ_VIEW), -10.0, 1e-9);
    escape();
    EXPECT_NEAR(position(C3DScene::YZ_VIEW), 0.0, 1e-9);
}

TEST_F(SliceDragTest, HiddenPlanesAreNotDragged)
{
    show(C3DScene::YZ_VIEW);
    scene.getYZslice()->show(false);
    QSignalSpy camera(&scene, &C3DView::cameraChanged);
    drag({224, 350}, {264, 350});
    EXPECT_EQ(position(C3DScene::YZ_VIEW), 0.0);
    EXPECT_GT(camera.size(), 0);
}

TEST_F(SliceDragTest, AToolComesBeforeThePlanes)
{
    show(C3DScene::XZ_VIEW);
    scene.showTransformTool(true, "GLVolume");
    drag({280, 224}, {300, 204});
    EXPECT_EQ(position(C3DScene::XZ_VIEW), 0.0);
    expectMatrix(placement(), {1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    control.reset();
    drag({400, 224}, {400, 204});
    EXPECT_NEAR(position(C3DScene::XZ_VIEW), 1.0, 0.2);
}

TEST_F(SliceDragTest, TheMouseSeesWhatItCouldDrag)
{
    show(C3DScene::YZ_VIEW);
    EXPECT_TRUE(scene.hasMouseTracking());
    hover(224, 350);
    EXPECT_EQ(scene.cursor().shape(), Qt::OpenHandCursor);
    hover(300, 350);
    EXPECT_EQ(scene.cursor().shape(), Qt::ArrowCursor);
    scene.getYZslice()->show(false);
    hover(224, 350);
    EXPECT_EQ(scene.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(SliceDragTest, FramesFollowAVolumeThatIsMoved)
{
    show(C3DScene::XZ_VIEW);
    matrix shift;
    shift(1, 3) = 30.0;
    volume->setTransformation(shift);
    grab();
    EXPECT_EQ(position(C3DScene::XZ_VIEW), 20.0) << "back into the scene's box";
}

}  // namespace
