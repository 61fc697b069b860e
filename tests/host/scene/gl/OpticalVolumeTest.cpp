#include "SceneHelpers.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DVolume.h"
#include "hvimage/CILPalette.h"
#include "lib/hvapi/scene/C3DVolumePrivate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace viz_test;
using hvscene::OpticalVoxels;
using hvscene::ViewPreset;

namespace {

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

/// A scene of 20 mm around the origin in 120 pixels from the front, a blue plate across z in its middle, and
/// three optical voxels: one of 4 mm in front of the plate on the left, a like one behind it on the right,
/// and a dim one in front of it above.
struct OpticalVolumeTest : testing::Test
{
    void SetUp() override
    {
        scene.resize(120, 120);
        control.showAxes(false);
        control.showScaleBar(false);
        control.showBoundingBox(false);
        optical = new C3DVolume(hvscene::opticalVolumeName);
        ASSERT_TRUE(manager.addChild(manager.getRootNode(), optical));
        // Before the plate, as it happens when a sequence is opened and a volume is loaded into it.
        scene.addToScene(optical);
        plate = new ColouredBox("plate", 10.0, 10.0, 1.0);
        ASSERT_TRUE(manager.addChild(manager.getRootNode(), plate));
        scene.addToScene(plate);
        OpticalVoxels voxels;
        voxels.voxels = {{{-5.0, 0.0, 4.0}, {4.0, 4.0, 4.0}, 100.0f},
                         {{5.0, 0.0, -4.0}, {4.0, 4.0, 4.0}, 100.0f},
                         {{0.0, 6.0, 4.0}, {4.0, 4.0, 4.0}, 20.0f},
                         {{0.0, -6.0, 4.0}, {4.0, 4.0, 4.0}, 60.0f}};
        optical->hostSide().setVoxels(voxels);
        scene.updateScene();
        control.setPreset(ViewPreset::Front);
    }
    /// The pixel of a place of the plane z = 0: the scene is 20 mm wide and fills 1 / 1.12 of the window.
    static QPoint at(double x, double y)
    {
        const double perMm = 120.0 / (20.0 * 1.12);
        return {static_cast<int>(60.0 + x * perMm), static_cast<int>(60.0 - y * perMm)};
    }
    QColor seen(double x, double y) { return scene.grabFramebuffer().pixelColor(at(x, y)); }
    static QColor colourOf(double share)
    {
        CILPalette palette(eColorTableRainbow);
        const unsigned char* entry =
            palette.getColorTableBuffer() + 4 * static_cast<int>(share * 255.0 + 0.5);
        return {entry[0], entry[1], entry[2]};
    }
    static bool isLike(const QColor& a, const QColor& b)
    {
        return std::abs(a.red() - b.red()) < 4 && std::abs(a.green() - b.green()) < 4 &&
               std::abs(a.blue() - b.blue()) < 4;
    }

    const QColor plateColour{0, 0, 240};
    const QColor bright = colourOf(1.0);
    RecordingServices host;
    C3DSGManager manager;
    C3DScene scene{&manager};
    ViewControl control{scene};
    C3DVolume* optical = nullptr;
    ColouredBox* plate = nullptr;
};

TEST_F(OpticalVolumeTest, TheGraphFindsItsOpticalVolume)
{
    EXPECT_EQ(manager.get3DVolume(), optical);
    EXPECT_EQ(manager.getNode("OpticalVolume"), optical);
    delete optical;
    EXPECT_EQ(manager.get3DVolume(), nullptr);
    EXPECT_FALSE(scene.grabFramebuffer().isNull());
    EXPECT_EQ(C3DSGManager().get3DVolume(), nullptr);
}

TEST_F(OpticalVolumeTest, VoxelsBeforeASurfaceAreSeenAndThoseBehindItAreHidden)
{
    EXPECT_TRUE(isLike(seen(-5, 0), bright)) << seen(-5, 0).name().toStdString();
    EXPECT_EQ(seen(5, 0), plateColour);
    EXPECT_EQ(seen(-2, 0), plateColour) << "beside the voxel, which ends 3 mm left of the middle";
}

TEST_F(OpticalVolumeTest, WithoutTheComparisonAllLieOverTheScene)
{
    optical->setUIEnableMultiPassRenderWithDepthTest(false);
    EXPECT_TRUE(isLike(seen(-5, 0), bright));
    EXPECT_TRUE(isLike(seen(5, 0), bright));
    // A measurement turns its own flag on, and leaves the user's wish alone.
    optical->setMultiPassRenderWithDepthTest(true);
    EXPECT_TRUE(isLike(seen(5, 0), bright));
    optical->setUIEnableMultiPassRenderWithDepthTest(true);
    EXPECT_EQ(seen(5, 0), plateColour);
    optical->setMultiPassRenderWithDepthTest(false);
    EXPECT_TRUE(isLike(seen(5, 0), bright));
}

TEST_F(OpticalVolumeTest, WithoutTheComparisonTheNearestVoxelIsStillTheOneThatIsSeen)
{
    OpticalVoxels voxels;
    voxels.voxels = {{{0.0, 0.0, 4.0}, {4.0, 4.0, 1.0}, 10.0f}, {{0.0, 0.0, -4.0}, {4.0, 4.0, 1.0}, 0.0f}};
    voxels.threshold = 0.0;
    optical->hostSide().setVoxels(voxels);
    optical->setUIEnableMultiPassRenderWithDepthTest(false);
    EXPECT_TRUE(isLike(seen(0, 0), bright));
}

TEST_F(OpticalVolumeTest, AHiddenPlateHidesNothing)
{
    plate->show(false);
    EXPECT_TRUE(isLike(seen(5, 0), bright));
    optical->show(false);
    EXPECT_FALSE(isLike(seen(5, 0), bright));
}

TEST_F(OpticalVolumeTest, TheThresholdStartsAtTheDefaultAndTakesDimVoxelsOut)
{
    EXPECT_EQ(optical->getAttribMinValue(), 20.0f);
    EXPECT_EQ(optical->getDefaultThreshold(), 40.0f);
    EXPECT_EQ(seen(0, 6), plateColour) << "20 is below 40";
    EXPECT_TRUE(isLike(seen(0, -6), colourOf(0.5)));
    optical->setThreshold(optical->getAttribMinValue());
    EXPECT_TRUE(isLike(seen(0, 6), colourOf(0.0)));
    optical->setThreshold(nan);
    EXPECT_TRUE(isLike(seen(0, 6), colourOf(0.0))) << "no number: no change";
    optical->setThreshold(std::numeric_limits<float>::infinity());
    EXPECT_EQ(seen(-5, 0), plateColour);
}

TEST_F(OpticalVolumeTest, TheEvaluationDrawsItsShareOnly)
{
    optical->setThreshold(0.0f);
    EXPECT_EQ(optical->hostSide().drawnCount(), 4U);
    optical->setPreRenderEvaluationVoxelRatio(0.5f);
    EXPECT_EQ(optical->hostSide().drawnCount(), 4U) << "not without the flag";
    optical->setPreRenderEvaluationFlag(true);
    EXPECT_EQ(optical->hostSide().drawnCount(), 2U);
    optical->setPreRenderEvaluationVoxelRatio(nan);
    EXPECT_EQ(optical->hostSide().drawnCount(), 2U);
    optical->setPreRenderEvaluationVoxelRatio(1.0f / 30.0f);
    EXPECT_EQ(optical->hostSide().drawnCount(), 1U);
    EXPECT_TRUE(isLike(seen(-5, 0), bright));
    EXPECT_EQ(seen(0, -6), plateColour);
    optical->setPreRenderEvaluationVoxelRatio(-2.0f);
    EXPECT_EQ(optical->hostSide().drawnCount(), 0U);
    EXPECT_EQ(seen(-5, 0), plateColour);
    optical->setPreRenderEvaluationFlag(false);
    EXPECT_TRUE(isLike(seen(0, -6), colourOf(0.5)));
}

TEST_F(OpticalVolumeTest, SidesAreShadedByHowTheyFaceTheViewer)
{
    plate->show(false);
    control.setPreset(ViewPreset::Iso);
    const QImage picture = scene.grabFramebuffer();
    int shades = 0;
    std::vector<QRgb> found;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor c = picture.pixelColor(x, y);
            const bool isRed = c.red() > 60 && c.red() > 2 * c.green() && c.red() > 2 * c.blue();
            if (isRed && std::find(found.begin(), found.end(), c.rgb()) == found.end()) {
                found.push_back(c.rgb());
                ++shades;
            }
        }
    EXPECT_EQ(shades, 3) << "top, front and right side";
}

TEST_F(OpticalVolumeTest, FromEverySideTheNearSideIsDrawn)
{
    plate->show(false);
    OpticalVoxels voxels;
    voxels.voxels = {{{0.0, 0.0, 0.0}, {8.0, 8.0, 8.0}, 1.0f}};
    optical->hostSide().setVoxels(voxels);
    scene.updateScene();
    for (const ViewPreset preset : {ViewPreset::Front, ViewPreset::Side, ViewPreset::Top}) {
        control.setPreset(preset);
        EXPECT_TRUE(isLike(seen(0, 0), bright)) << static_cast<int>(preset);
    }
    matrix mirrored;
    mirrored(0, 0) = -1.0;
    optical->setTransformation(mirrored);
    control.setPreset(ViewPreset::Side);
    EXPECT_TRUE(isLike(seen(0, 0), bright));
}

TEST_F(OpticalVolumeTest, AVoxelSmallerThanAPixelIsSeen)
{
    OpticalVoxels voxels;
    // A pixel is 0.187 mm.
    for (int k = 0; k < 7; ++k)
        voxels.voxels.push_back({{-6.0 + 2.03 * k, 5.0, 4.0}, {0.001, 0.001, 0.001}, 1.0f});
    optical->hostSide().setVoxels(voxels);
    const QImage picture = scene.grabFramebuffer();
    int seenVoxels = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y).red() > 50) ++seenVoxels;
    EXPECT_GE(seenVoxels, 7);
    EXPECT_LE(seenVoxels, 28);
}

TEST_F(OpticalVolumeTest, AFrameLeavesTheStateOfTheContext)
{
    scene.grabFramebuffer();
    scene.makeCurrent();
    while (glGetError() != GL_NO_ERROR) {
    }
    glClearColor(0.25f, 0.5f, 0.75f, 1.0f);
    glDepthFunc(GL_GREATER);
    glViewport(3, 4, 50, 60);
    scene.makeCurrent();
    optical->render(true, GL_RENDER);
    GLint function = 0;
    glGetIntegerv(GL_DEPTH_FUNC, &function);
    EXPECT_EQ(function, GL_GREATER);
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_FALSE(glIsEnabled(GL_VERTEX_ARRAY));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_ARRAY));
    GLfloat range[2] = {9, 9};
    glGetFloatv(GL_DEPTH_RANGE, range);
    EXPECT_EQ(range[1], 1.0f);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    scene.doneCurrent();
}

TEST_F(OpticalVolumeTest, AnEmptyOneDrawsNothingAndTakesNoRoom)
{
    C3DVolume empty("empty");
    EXPECT_FALSE(empty.isValid());
    EXPECT_EQ(empty.getDefaultThreshold(), 0.0f);
    EXPECT_EQ(empty.getAttribMinValue(), 0.0f);
    Coord3d min(1, 1, 1);
    Coord3d max(2, 2, 2);
    empty.getBBox(min, max);
    EXPECT_EQ(min.x, 0.0);
    EXPECT_EQ(max.z, 0.0);
    optical->hostSide().setVoxels(OpticalVoxels());
    EXPECT_EQ(seen(-5, 0), plateColour);
    EXPECT_EQ(optical->getDefaultThreshold(), 0.0f);
}

TEST_F(OpticalVolumeTest, ANewContextShowsTheSamePicture)
{
    const QImage before = scene.grabFramebuffer();
    {
        // A window of another parent gets a context of its own.
        QWidget other;
        scene.setParent(&other);
        other.resize(120, 120);
        EXPECT_EQ(scene.grabFramebuffer(), before);
        scene.setParent(nullptr);
    }
    EXPECT_EQ(scene.grabFramebuffer(), before);
}

}  // namespace
