#include "ToolHelpers.h"

#include "lib/hvapi/scene/C3DSGManagerPrivate.h"

#include <cmath>

using namespace viz_test;

namespace {

struct MeasureTest : ToolTest
{
    void SetUp() override
    {
        ToolTest::SetUp();
        scene.doMeasureVoxels(true);
    }
    double distance() { return measured.isEmpty() ? -1.0 : measured.last().at(0).toDouble(); }
    /// The left half solid all through, the right half only in its last layer, at z from -10 to -8 mm.
    void loadStep(unsigned char value)
    {
        std::vector<unsigned char> voxels(1000, 0);
        for (std::size_t k = 0; k < voxels.size(); ++k)
            if (k % 10 < 5 || k < 100) voxels[k] = value;
        float extent[3] = {20.0f, 20.0f, 20.0f};
        ASSERT_TRUE(volume->loadVolume(voxels.data(), 10, 10, 10, 255, 0, extent));
    }

    QSignalSpy measured{&scene, &C3DScene::distanceMeasured};
    QSignalSpy changed{&scene, &C3DScene::measuringChanged};
};

TEST_F(MeasureTest, TwoClicksGiveTheDistanceInMillimetres)
{
    click(124, 224);
    EXPECT_EQ(measured.size(), 0);
    click(324, 224);
    ASSERT_EQ(measured.size(), 1);
    EXPECT_NEAR(distance(), 10.0, 1e-9);
    click(224, 124);
    EXPECT_EQ(measured.size(), 1) << "the third point starts anew";
    click(224, 184);
    EXPECT_NEAR(distance(), 3.0, 1e-9);
}

TEST_F(MeasureTest, PointsLieOnTheFirstVoxelThatIsSeen)
{
    loadStep(200);
    click(124, 224);  // z = 10
    click(324, 224);  // z = -8
    EXPECT_NEAR(distance(), std::sqrt(10.0 * 10.0 + 18.0 * 18.0), 1e-9);
}

TEST_F(MeasureTest, VoxelsBelowTheThresholdOrWithoutColourAreNotSeen)
{
    loadStep(90);
    unsigned char table[1024];
    for (int v = 0; v < 256; ++v)
        for (int k = 0; k < 4; ++k)
            table[4 * v + k] = 255;
    volume->setVolumeColorTable(table);
    volume->setVolumeRenderThreshold(91);
    click(124, 224);
    click(224, 324);
    EXPECT_EQ(measured.size(), 0);
    volume->setVolumeRenderThreshold(90);
    click(124, 224);
    click(124, 324);
    EXPECT_NEAR(distance(), 5.0, 1e-9);
    table[4 * 90 + 3] = 25;
    volume->setVolumeColorTable(table);
    click(124, 224);
    click(124, 284);
    EXPECT_EQ(measured.size(), 1) << "the click beside everything counts for nothing";
}

TEST_F(MeasureTest, WhatIsCroppedAwayIsNotSeen)
{
    loadStep(200);
    Vec3f offsets[8];
    for (int k = 4; k < 8; ++k)
        offsets[k].set(0, 0, 1.0);  // the upper z face in the middle
    scene.setCroppingBoxOffset(offsets);
    volume->setCropEnabled(true);
    click(124, 224);
    click(324, 224);
    EXPECT_NEAR(distance(), std::sqrt(10.0 * 10.0 + 8.0 * 8.0), 1e-9);
    volume->setCropEnabled(false);
    click(124, 224);
    click(324, 224);
    EXPECT_NEAR(distance(), std::sqrt(10.0 * 10.0 + 18.0 * 18.0), 1e-9);
}

TEST_F(MeasureTest, TurnedAxesTurnTheVoxels)
{
    loadStep(200);
    volume->setAxisOrientation(true, false, false);
    click(324, 224);  // the solid half lies on the right now
    click(124, 224);
    EXPECT_NEAR(distance(), std::sqrt(10.0 * 10.0 + 18.0 * 18.0), 1e-9);
    click(324, 224);
    click(424 - 4, 224);
    EXPECT_NEAR(distance(), 4.8, 1e-9);
}

TEST_F(MeasureTest, APlacedVolumeIsMeasuredInTheScene)
{
    matrix twice;
    for (int k = 0; k < 3; ++k)
        twice(k, k) = 2.0;
    volume->setTransformation(twice);
    scene.updateScene();
    click(124, 224);
    click(324, 224);
    EXPECT_NEAR(distance(), 20.0, 1e-9);
}

TEST_F(MeasureTest, HiddenVolumesAreNotMeasured)
{
    volume->show(false);
    click(124, 224);
    click(324, 224);
    EXPECT_EQ(measured.size(), 0);
}

TEST_F(MeasureTest, SlicesStopTheSightWithinTheVolume)
{
    loadStep(200);
    scene.getXYslice()->show(true);
    scene.getXYslice()->setPosition(4.0);
    grab();
    click(124, 200);  // the volume's front, z = 10
    click(324, 200);  // the slice
    EXPECT_NEAR(distance(), std::sqrt(10.0 * 10.0 + 6.0 * 6.0), 1e-9);
}

TEST_F(MeasureTest, ADragTurnsTheCameraAndTakesNoPoint)
{
    QSignalSpy camera(&scene, &C3DView::cameraChanged);
    click(124, 224);
    press(324, 224);
    move(326, 224);
    EXPECT_EQ(camera.size(), 0) << "a hand is not that steady";
    move(360, 250);
    EXPECT_GT(camera.size(), 0);
    release(360, 250);
    EXPECT_EQ(measured.size(), 0);
    control.reset();
    press(324, 224);
    move(325, 224);
    release(325, 224);
    EXPECT_EQ(measured.size(), 1);
}

TEST_F(MeasureTest, TheSecondOfTwoQuickClicksIsAClickToo)
{
    QSignalSpy camera(&scene, &C3DView::cameraChanged);
    click(124, 224);
    send(QEvent::MouseButtonDblClick, {324, 224}, Qt::LeftButton, Qt::LeftButton);
    release(324, 224);
    EXPECT_NEAR(distance(), 10.0, 1e-9);
    EXPECT_EQ(camera.size(), 0);
    scene.doMeasureVoxels(false);
    send(QEvent::MouseButtonDblClick, {324, 224}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(camera.size(), 1) << "without the tool it takes the scene into view";
}

TEST_F(MeasureTest, LineAndLabelShowAndGo)
{
    const QImage before = grab();
    click(124, 224);
    click(324, 224);
    const QImage image = grab();
    const QColor line = image.pixelColor(224, 224);
    EXPECT_GT(line.red(), 200);
    EXPECT_GT(line.green(), 150);
    EXPECT_LT(line.blue(), 150);
    EXPECT_NE(image.copy(226, 180, 80, 36), before.copy(226, 180, 80, 36)) << "the label";
    scene.doMeasureVoxels(false);
    EXPECT_EQ(grab(), before);
    scene.doMeasureVoxels(true);
    EXPECT_EQ(grab(), before) << "a new start";
}

TEST_F(MeasureTest, ThePointUnderTheMouseShowsBeforeTheClick)
{
    const QImage before = grab();
    hover(150, 150);
    EXPECT_NE(grab(), before);
    hover(2, 2);
    EXPECT_EQ(grab(), before);
    EXPECT_EQ(scene.cursor().shape(), Qt::CrossCursor);
}

TEST_F(MeasureTest, EscapeTakesBackTheFirstPointAndThenLeaves)
{
    click(124, 224);
    escape();
    EXPECT_TRUE(scene.isMeasuring());
    click(324, 224);
    EXPECT_EQ(measured.size(), 0) << "a first point again";
    escape();
    escape();
    EXPECT_FALSE(scene.isMeasuring());
    EXPECT_EQ(changed.size(), 2);
    EXPECT_FALSE(changed.last().at(0).toBool());
    EXPECT_NE(scene.cursor().shape(), Qt::CrossCursor);
}

TEST_F(MeasureTest, MeasuringAndToolsExcludeOneAnother)
{
    EXPECT_EQ(scene.getCurrentTool(), nullptr) << "measuring is no tool of the family";
    scene.showTransformTool(true, "GLVolume");
    EXPECT_FALSE(scene.isMeasuring());
    EXPECT_NE(scene.getCurrentTool(), nullptr);
    scene.doMeasureVoxels(true);
    EXPECT_EQ(scene.getCurrentTool(), nullptr);
    EXPECT_TRUE(scene.isMeasuring());
    scene.showCroppingTool(true, "GLVolume");
    EXPECT_FALSE(scene.isMeasuring());
    changed.clear();
    scene.doMeasureVoxels(false);
    EXPECT_NE(scene.getCurrentTool(), nullptr) << "leaving what is not in use leaves nothing else";
    EXPECT_EQ(changed.size(), 0);
}

TEST_F(MeasureTest, APlacementThatIsNoneIsSurvived)
{
    click(124, 224);
    click(324, 224);
    matrix none;
    none(0, 3) = std::nan("");
    volume->setTransformation(none);
    EXPECT_FALSE(grab().isNull());
    click(124, 224);
    scene.showTransformTool(true, "GLVolume");
    hover(224, 224);
    EXPECT_FALSE(grab().isNull());
    scene.showCroppingTool(true, "GLVolume");
    drag({224, 224}, {230, 240});
    EXPECT_FALSE(grab().isNull());
}

TEST_F(MeasureTest, AVolumeThatGoesTakesItsPointsAlong)
{
    click(124, 224);
    delete volume;
    click(324, 224);
    hover(300, 200);
    EXPECT_EQ(measured.size(), 0);
    EXPECT_FALSE(grab().isNull());
}

TEST_F(ToolTest, HounsfieldUnitsNeedTheCalibrationOfTheSystem)
{
    float value = 1.0f;
    int stored = 1;
    int a = 1;
    int b = 1;
    scene.CTHUValueReverseToVoxelsConverter(3001, &value, &stored, &a, &b);
    EXPECT_EQ(value, 0.0f);
    EXPECT_EQ(stored, 0);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 0);
    // Ten thousand stored values a unit; air at 0.01, water at 1.01.
    manager.hostSide().calibration = [] {
        return std::make_optional(hvscene::CtCalibration{0.0, 6.5535, 0.01, 1.01});
    };
    scene.CTHUValueReverseToVoxelsConverter(3001, &value, &stored, &a, &b);
    EXPECT_NEAR(value, 40110.0f, 0.01f);
    EXPECT_EQ(stored, 40110);
    EXPECT_EQ(a, 100);
    EXPECT_EQ(b, 10100);
    scene.CTHUValueReverseToVoxelsConverter(3001, nullptr, nullptr, nullptr, nullptr);
}

}  // namespace
