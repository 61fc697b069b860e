#include "ToolHelpers.h"

using namespace viz_test;

namespace {

struct CropToolTest : ToolTest
{
    void SetUp() override
    {
        ToolTest::SetUp();
        scene.showCroppingTool(true, "GLVolume");
    }
    /// Expects `value` on one axis of the listed corners, and 0 everywhere else, in the view and in the
    /// volume.
    void expectOffsets(int axis, double value, const std::vector<int>& corners)
    {
        const sCropBoxOffset held = scene.getCroppingBoxOffset();
        ASSERT_EQ(volume->crop.size(), 8U);
        for (int k = 0; k < 8; ++k) {
            const bool moved = std::find(corners.begin(), corners.end(), k) != corners.end();
            for (int a = 0; a < 3; ++a) {
                const double expected = moved && a == axis ? value : 0.0;
                EXPECT_NEAR(held.m_offset[k][a], expected, 1e-9) << "corner " << k << " axis " << a;
                EXPECT_NEAR(volume->crop[static_cast<std::size_t>(k)][a], expected, 1e-9);
            }
        }
    }
};

TEST_F(CropToolTest, IsTheCurrentToolOfTypeOneAndTurnsTheCropOn)
{
    ASSERT_NE(scene.getCurrentTool(), nullptr);
    EXPECT_EQ(scene.getCurrentTool()->getToolType(), 1);
    EXPECT_TRUE(volume->cropEnabled);
    scene.showTransformTool(false, QString());
    EXPECT_NE(scene.getCurrentTool(), nullptr);
    scene.showCroppingTool(false, QString());
    EXPECT_EQ(scene.getCurrentTool(), nullptr);
    EXPECT_TRUE(volume->cropEnabled) << "what is cropped stays so";
}

TEST_F(CropToolTest, OneToolTakesThePlaceOfTheOther)
{
    scene.showTransformTool(true, "GLVolume");
    drag({424, 224}, {374, 224});
    EXPECT_TRUE(volume->crop.empty());
    scene.showCroppingTool(true, "GLVolume");
    control.reset();
    drag({424, 224}, {374, 224});
    EXPECT_FALSE(volume->crop.empty());
}

TEST_F(CropToolTest, FacesMoveAlongTheirAxes)
{
    drag({424, 224}, {374, 240});  // 2.5 of 10 mm inwards
    expectOffsets(0, -0.25, {1, 2, 5, 6});
    Vec3f zero[8];
    scene.setCroppingBoxOffset(zero);
    drag({24, 224}, {64, 224});
    expectOffsets(0, -0.2, {0, 3, 4, 7});
    scene.setCroppingBoxOffset(zero);
    drag({224, 24}, {224, 54});
    expectOffsets(1, -0.15, {2, 3, 6, 7});
    scene.setCroppingBoxOffset(zero);
    drag({224, 424}, {224, 394});
    expectOffsets(1, -0.15, {0, 1, 4, 5});
}

TEST_F(CropToolTest, OnZTheSignIsTurned)
{
    control.setPreset(hvscene::ViewPreset::Side);  // +z is on the left
    drag({24, 224}, {74, 224});
    expectOffsets(2, 0.25, {4, 5, 6, 7});
    Vec3f zero[8];
    scene.setCroppingBoxOffset(zero);
    drag({424, 224}, {384, 224});
    expectOffsets(2, 0.2, {0, 1, 2, 3});
}

TEST_F(CropToolTest, TheFrontFaceSeenEndOnGoesAwayWhenPulledDown)
{
    drag({224, 224}, {224, 264});
    expectOffsets(2, 0.2, {4, 5, 6, 7});
}

TEST_F(CropToolTest, FacesStayInTheBoxAndApart)
{
    drag({424, 224}, {447, 224});
    expectOffsets(0, 0.0, {});
    drag({424, 224}, {2, 224});
    // A hundredth of 20 mm from the other face: at -9.8 mm.
    expectOffsets(0, -1.98, {1, 2, 5, 6});
}

TEST_F(CropToolTest, TheVolumeIsCutWhileTheMouseMovesAndToldWhenItEnds)
{
    press(424, 224);
    EXPECT_TRUE(volume->crop.empty());
    move(404, 224);
    expectOffsets(0, -0.1, {1, 2, 5, 6});
    EXPECT_TRUE(CHVProcess::isFast3DRenderingMode());
    EXPECT_TRUE(volume->cropNotes.empty());
    move(384, 224);
    expectOffsets(0, -0.2, {1, 2, 5, 6});
    release(384, 224);
    EXPECT_EQ(volume->cropNotes, std::vector<bool>({true}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !CHVProcess::isFast3DRenderingMode(); }));
    click(384, 224);
    EXPECT_EQ(volume->cropNotes.size(), 1U) << "a click changes nothing";
}

TEST_F(CropToolTest, HandlesFollowTheCropBox)
{
    drag({424, 224}, {384, 224});
    hover(424, 224);
    EXPECT_NE(scene.cursor().shape(), Qt::OpenHandCursor);
    hover(384, 224);
    EXPECT_EQ(scene.cursor().shape(), Qt::OpenHandCursor);
    // The handles of the faces beside it are in the middle of what is left.
    hover(204, 24);
    EXPECT_EQ(scene.cursor().shape(), Qt::OpenHandCursor);
    Vec3f zero[8];
    scene.setCroppingBoxOffset(zero);
    scene.updateCroppingTool();
    hover(424, 224);
    EXPECT_EQ(scene.cursor().shape(), Qt::OpenHandCursor);
}

TEST_F(CropToolTest, EscapeTakesTheDragBack)
{
    drag({424, 224}, {404, 224});
    press(404, 224);
    move(300, 224);
    escape();
    expectOffsets(0, -0.1, {1, 2, 5, 6});
    release(300, 224);
    EXPECT_EQ(volume->cropNotes.size(), 1U);
}

TEST_F(CropToolTest, ATurnedVolumeIsCutAlongItsOwnAxes)
{
    const double quarter[16] = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    volume->setTransformation(matrix(quarter, matrix::COLUMN_MAJOR));
    drag({224, 24}, {224, 64});  // its x points up
    expectOffsets(0, -0.2, {1, 2, 5, 6});
}

TEST_F(CropToolTest, AScaledVolumeIsCutWhereTheMouseIs)
{
    matrix twice;
    for (int k = 0; k < 3; ++k)
        twice(k, k) = 2.0;
    volume->setTransformation(twice);
    scene.updateScene();  // a pixel is 0.1 mm now
    drag({424, 224}, {384, 224});
    expectOffsets(0, -0.2, {1, 2, 5, 6});
}

TEST_F(CropToolTest, TheBoxFromEightCorners)
{
    const double lows[3] = {-8, -10, -6};
    const double highs[3] = {10, 5, 9};
    Vec3f corners[8];
    for (int k = 0; k < 8; ++k)
        corners[k].set(k % 4 == 1 || k % 4 == 2 ? highs[0] : lows[0], k % 4 >= 2 ? highs[1] : lows[1],
                       k >= 4 ? highs[2] : lows[2]);
    scene.setCroppingBBox(corners);
    const sCropBoxOffset o = scene.getCroppingBoxOffset();
    // Half a box is 10 mm; inwards is negative on x and y, and positive on z.
    EXPECT_NEAR(o.m_offset[0].x(), -0.2, 1e-12);
    EXPECT_NEAR(o.m_offset[0].y(), 0.0, 1e-12);
    EXPECT_NEAR(o.m_offset[0].z(), 0.4, 1e-12);
    EXPECT_NEAR(o.m_offset[6].x(), 0.0, 1e-12);
    EXPECT_NEAR(o.m_offset[6].y(), -0.5, 1e-12);
    EXPECT_NEAR(o.m_offset[6].z(), 0.1, 1e-12);
    ASSERT_EQ(volume->crop.size(), 8U);
    EXPECT_NEAR(volume->crop[6].y(), -0.5, 1e-12);
    scene.setCroppingBBox(nullptr);
    EXPECT_NEAR(scene.getCroppingBoxOffset().m_offset[6].y(), -0.5, 1e-12);
}

TEST_F(CropToolTest, EndsWithItsObject)
{
    press(424, 224);
    delete volume;
    move(404, 224);
    release(404, 224);
    EXPECT_EQ(scene.getCurrentTool(), nullptr);
    EXPECT_FALSE(grab().isNull());
    Vec3f corners[8];
    scene.setCroppingBBox(corners);
    EXPECT_EQ(scene.getCroppingBoxOffset().m_offset[0].x(), 0.0) << "there is no volume to crop";
}

TEST_F(CropToolTest, EdgesAndHandlesAreDrawnOverTheScene)
{
    volume->show(false);
    const QImage image = grab();
    const auto bright = [&](int x, int y) { return image.pixelColor(x, y).lightness() > 110; };
    const auto brightNear = [&](int x, int y) {
        return bright(x, y) || bright(x - 1, y) || bright(x, y - 1);
    };
    EXPECT_TRUE(brightNear(100, 24));
    EXPECT_TRUE(brightNear(100, 424));
    EXPECT_TRUE(brightNear(24, 100));
    EXPECT_TRUE(brightNear(424, 100));
    EXPECT_GT(image.pixelColor(424, 224).red(), 200) << "x";
    EXPECT_GT(image.pixelColor(224, 24).green(), 180) << "y";
    EXPECT_GT(image.pixelColor(224, 224).blue(), 200) << "z";
    EXPECT_LT(image.pixelColor(120, 120).lightness(), 70);
}

}  // namespace
