// Optical voxels of a sequence on disk beside the plug-in's volume, seen in the workstation's 3D view.

#include "WorkstationFixture.h"

#include "hvapi/scene/C3DVolume.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "support/DiskSequence.h"
#include "support/MouseMove.h"

#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QToolButton>

namespace {

/// A CT sequence with the cube of bone (20 mm in a volume of 40 mm) and boxes of light of 4 mm: before the
/// cube, behind it, in its middle, in the air beside it, and a dim one before the air.
class OpticalVoxelsTest : public WorkstationFixture
{
protected:
    void SetUp() override
    {
        WorkstationFixture::SetUp();
        folder = m_folder.filePath("mouse");
        const QByteArray calibration = "[Sequence]\nFormat Version = 1\nSequence Type = CT\n"
                                       "[CT Acquisition Parameters]\n"
                                       "Reconstructed Volume Min = 0\nReconstructed Volume Max = 2\n"
                                       "Hounsfield Calibration Air = 0\nHounsfield Calibration Water = 1\n";
        ASSERT_TRUE(QDir().mkpath(folder + "/CT Data"));
        ASSERT_TRUE(disk_sequence::put(folder + "/SequenceInfo.txt", calibration));
        ASSERT_TRUE(QFile::rename(rawFile("cube.raw", true), folder + "/CT Data/cube.raw"));
    }
    bool open(const QByteArray& light)
    {
        if (!light.isEmpty() && !disk_sequence::put(folder + "/OpticalVoxels.txt", light)) return false;
        if (m_window->open({folder}) != MainWindow::OpenResult::Loaded || !volume()) return false;
        // Bone is opaque and everything else clear, whatever the palette's standard is.
        unsigned char table[1024] = {};
        for (int value = 100; value < 256; ++value)
            for (int channel = 0; channel < 4; ++channel)
                table[4 * value + channel] = channel == 3 ? 255 : 180;
        volume()->setVolumeColorTable(table);
        return true;
    }
    C3DVolume* optical() const
    {
        return m_window->workspace().activeSequence()->get3DSGManager()->get3DVolume();
    }
    /// Whether light is seen at a place of the scene, in mm, from the front.
    bool isLit(double x, double y) const
    {
        constexpr int pixels = 240;
        const QImage picture = frontPicture(QSize(pixels, pixels));
        const double perMm = pixels / (40.0 * 1.12);
        const QColor seen = picture.pixelColor(static_cast<int>(pixels / 2.0 + x * perMm),
                                               static_cast<int>(pixels / 2.0 - y * perMm));
        return seen.saturation() > 120 && seen.value() > 60;
    }
    /// Opens the dialog of the render effects, as a user does, and clicks at "Depth Render".
    void clickDepthRender()
    {
        auto* light = palette()->findChild<QCheckBox*>("m_pLightingCheckBox");
        ASSERT_TRUE(light);
        light->setChecked(true);
        auto* button = palette()->findChild<QToolButton*>("m_pRenderEffectsDlgButton");
        ASSERT_TRUE(button && button->isEnabled());
        button->click();
        QCheckBox* depth = nullptr;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            const QList<QCheckBox*> boxes = window->findChildren<QCheckBox*>();
            for (QCheckBox* box : boxes)
                if (box->text() == "Depth Render") depth = box;
        }
        ASSERT_TRUE(depth && depth->isVisible());
        depth->click();
        qobject_cast<QDialog*>(depth->window())->accept();
    }

    QString folder;
    const QByteArray voxels = "[Optical Voxels]\nFormat Version = 1\nCount = 5\nVoxel Size = 4 4 4\n"
                              "[Voxels]\nbefore = -6 0 14 100\nbehind = 6 0 -14 100\nwithin = 0 6 0 100\n"
                              "beside = 0 -14 0 100\ndim = 0 15 14 10\n";
};

TEST_F(OpticalVoxelsTest, LightBehindASurfaceIsHiddenAndLightBeforeItIsSeen)
{
    ASSERT_TRUE(open(voxels));
    EXPECT_TRUE(isLit(-6, 0)) << "before the cube";
    EXPECT_FALSE(isLit(6, 0)) << "behind it";
    EXPECT_FALSE(isLit(0, 6)) << "within it";
    EXPECT_TRUE(isLit(0, -14)) << "beside it";
    EXPECT_FALSE(isLit(0, 15)) << "below the threshold";
    volume()->show(false);
    EXPECT_TRUE(isLit(6, 0)) << "without the cube nothing hides it";
}

TEST_F(OpticalVoxelsTest, DepthRenderOfThePaletteSwitchesTheComparison)
{
    ASSERT_TRUE(open(voxels));
    ASSERT_NO_FATAL_FAILURE(clickDepthRender());
    for (const auto& place : {QPointF(-6, 0), QPointF(6, 0), QPointF(0, 6), QPointF(0, -14), QPointF(0, 15)})
        EXPECT_TRUE(isLit(place.x(), place.y())) << place.x() << ", " << place.y();
    ASSERT_NO_FATAL_FAILURE(clickDepthRender());
    EXPECT_TRUE(isLit(-6, 0));
    EXPECT_FALSE(isLit(6, 0));
    EXPECT_FALSE(isLit(0, 15));
}

TEST_F(OpticalVoxelsTest, MatterHidesLightFromATenthOfOpacityOn)
{
    ASSERT_TRUE(open(voxels));
    // The text for weak cards divides the opacity by three.
    const auto setOpacity = [this](unsigned char opacity) {
        unsigned char table[1024] = {};
        for (int value = 100; value < 256; ++value)
            table[4 * value + 3] = opacity;
        volume()->setVolumeColorTable(table);
    };
    setOpacity(20);
    EXPECT_TRUE(isLit(6, 0)) << "no surface";
    EXPECT_TRUE(isLit(0, 6));
    // Eight slices of black glass before the light would leave 41 percent of it; but they are a surface.
    setOpacity(80);
    EXPECT_FALSE(isLit(0, 6));
    EXPECT_TRUE(isLit(-6, 0));
}

TEST_F(OpticalVoxelsTest, ADamagedFileLeavesTheVolume)
{
    ASSERT_TRUE(open(voxels.left(voxels.size() - 20)));
    EXPECT_EQ(optical(), nullptr);
    EXPECT_TRUE(isCubeSeen());
    EXPECT_TRUE(m_services->lastComplaint().contains("OpticalVoxels.txt"));
    ASSERT_NO_FATAL_FAILURE(clickDepthRender());
    EXPECT_TRUE(isCubeSeen());
}

TEST_F(OpticalVoxelsTest, TheStatusBarTellsHounsfieldUnitsOfTheVoxelUnderTheMouse)
{
    ASSERT_TRUE(open({}));
    C3DScene* scene = m_window->activeScene();
    auto* label = m_window->findChild<QLabel*>("ReadoutLabel");
    ASSERT_TRUE(label);
    // The range 0 to 200 of the scan stands for absorptions 0 to 2; 255 is bone, 1000 HU, and 0 air, -1000
    // HU.
    int step = 0;
    const auto isTold = [&] {
        viz_test::moveMouse(scene, scene->rect().center() + QPoint(++step % 2, 0));
        return label->text().endsWith("voxel 255   |   1000 Hounsfield, in steps of 7.8");
    };
    EXPECT_TRUE(QTest::qWaitFor(isTold, 5000)) << label->text().toStdString();
    EXPECT_TRUE(label->text().contains("z 10.00 mm")) << label->text().toStdString();
}

}  // namespace
