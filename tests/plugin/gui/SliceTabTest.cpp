#include "gui/PluginBench.h"

#include "hvapi/results/CHVSResultsTabControl.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "render/CGLVolume.h"
#include "slices/CHVMultiVolumeSliceView.h"
#include "slices/CVolumeSliceLayout.h"

#include <QMdiSubWindow>
#include <QtTest>

namespace {

/// A sequence with a volume of 20 x 20 x 6 voxels, its values from 10 to 109, and the palette on screen.
struct SliceTabTest : PluginBench
{
    SliceTabTest()
    {
        sequence = openCurrent("slices");
        EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("volume.raw")}, -1, -1));
        palette->resize(palette->sizeHint());
        palette->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(palette));
        palette->VolumeVizTabWidget->setCurrentWidget(palette->sliceTab);
        palette->setResultsModifiedForSequence(false);
    }

    CHVMultiVolumeSliceView* preview() const
    {
        return palette->m_pSliceViewerFrame->findChild<CHVMultiVolumeSliceView*>("SliceView");
    }
    CVolumeSliceLayout* layoutDialog() const { return windowOf(sequence)->findChild<CVolumeSliceLayout*>(); }
    bool isModified() { return record("slices").bModified; }

    CHVSSequenceDataset* sequence = nullptr;
};

TEST_F(SliceTabTest, ALoadMakesTheViewerInTheMiddleOfTheVolume)
{
    ASSERT_NE(preview(), nullptr);
    EXPECT_TRUE(preview()->isSingleView());
    EXPECT_EQ(preview()->tileCount(), 1);
    EXPECT_EQ(preview()->orientation(), AxisZ) << "the text of the combo box wins: Coronal";
    EXPECT_NEAR(preview()->singlePosition(), 0.0F, 1e-3);
    EXPECT_TRUE(palette->m_pSliceViewerPositionLabel->text().startsWith("Position:"));
}

TEST_F(SliceTabTest, SliderAndOrientationMoveTheViewer)
{
    Coord3d min;
    Coord3d max;
    nodeOf(sequence)->getBBox(min, max);
    palette->m_pSliceViewerSlider->setValue(10000);
    EXPECT_FLOAT_EQ(preview()->singlePosition(), static_cast<float>(max.z));
    EXPECT_EQ(palette->m_pSliceViewerPositionLabel->text(),
              QString("Position:%1").arg(static_cast<double>(static_cast<float>(max.z)), 0, 'g'));
    palette->m_pSliceOrientation->setCurrentIndex(2);
    EXPECT_EQ(preview()->orientation(), AxisX);
    EXPECT_FLOAT_EQ(preview()->singlePosition(), static_cast<float>(max.x));
    palette->m_pSliceViewerSlider->setValue(0);
    EXPECT_FLOAT_EQ(preview()->singlePosition(), static_cast<float>(min.x));
}

TEST_F(SliceTabTest, OpacityHasTwoFacesAndReachesRecordAndNode)
{
    palette->m_pSliceOpacitySlider->setValue(40);
    EXPECT_EQ(palette->m_pSliceOpacitySpinBox->value(), 40);
    EXPECT_EQ(record("slices").nSliceOpacity, 40);
    palette->m_pSliceOpacitySpinBox->setValue(70);
    EXPECT_EQ(palette->m_pSliceOpacitySlider->value(), 70);
    EXPECT_EQ(record("slices").nSliceOpacity, 70);
}

TEST_F(SliceTabTest, EachEndOfTheScaleLimitsTheOther)
{
    palette->m_pSliceMinIntensitySpinBox->setValue(30.0);
    EXPECT_EQ(palette->m_pSliceMinIntensitySlider->value(), 30);
    EXPECT_EQ(record("slices").nSliceMin, 30);
    EXPECT_EQ(palette->m_pSliceMaxIntensitySlider->minimum(), 30);
    EXPECT_DOUBLE_EQ(palette->m_pSliceMaxIntensitySpinBox->minimum(), 30.0);
    EXPECT_DOUBLE_EQ(palette->m_pSliceMinIntensitySpinBox->value(), 30.0);
    palette->m_pSliceMaxIntensitySlider->setValue(80);
    EXPECT_EQ(record("slices").nSliceMax, 80);
    EXPECT_EQ(palette->m_pSliceMinIntensitySlider->maximum(), 80);
    EXPECT_DOUBLE_EQ(palette->m_pSliceMinIntensitySpinBox->maximum(), 80.0);
    EXPECT_TRUE(isModified());
}

TEST_F(SliceTabTest, BothEndsOfTheScaleReachThePicture)
{
    const QImage whole = preview()->grabFramebuffer();
    palette->m_pSliceMaxIntensitySlider->setValue(80);
    const QImage brighter = preview()->grabFramebuffer();
    EXPECT_NE(brighter, whole);
    palette->m_pSliceMinIntensitySlider->setValue(40);
    EXPECT_NE(preview()->grabFramebuffer(), brighter);
}

TEST_F(SliceTabTest, ShowingARecordMarksNothing)
{
    CHVSSequenceDataset* other = openCurrent("other");
    ASSERT_NE(other, nullptr);
    plugin.onSignalSequenceChanged(sequence);
    EXPECT_FALSE(isModified());
}

TEST_F(SliceTabTest, ColoursComeFromTheTableOrFromTheTransferFunction)
{
    QTest::mouseClick(palette->m_pSliceUseTransferFunction, Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(record("slices").nSliceColorSource, 1);
    EXPECT_FALSE(palette->m_pSliceColorTable->isEnabled());
    QTest::mouseClick(palette->m_pSliceUseColorTable, Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(record("slices").nSliceColorSource, 0);
    EXPECT_TRUE(palette->m_pSliceColorTable->isEnabled());
}

TEST_F(SliceTabTest, AnEditOfTheTransferFunctionReachesSlicesThatUseIt)
{
    palette->m_pSliceUseTransferFunction->setChecked(true);  // no click: the record has not heard of it
    ASSERT_EQ(record("slices").nSliceColorSource, 0);
    palette->onTransferFunctionChanged();
    EXPECT_EQ(record("slices").nSliceColorSource, 1);
    palette->m_pSliceReverseColorMapCheck->setChecked(true);  // told by a click alone
    ASSERT_FALSE(record("slices").bSliceColorTableReverse);
    palette->m_pReverseColorMapCheck->click();
    EXPECT_TRUE(record("slices").bSliceColorTableReverse);
}

TEST_F(SliceTabTest, NewVoxelsAreDrawnAndAMissingWindowIsSaid)
{
    palette->onVolumeDataChanged();
    EXPECT_TRUE(preview());
    close(sequence);
    palette->onVolumeDataChanged();
    EXPECT_TRUE(host.logged(3).contains("Invalid sequence window handle to proceed."));
}

TEST_F(SliceTabTest, TableAndReverseReachRecordAndPicture)
{
    const QImage before = preview()->grabFramebuffer();
    palette->m_pSliceColorTable->setCurrentIndex(3);
    EXPECT_EQ(record("slices").nSliceColorTable, 3);
    EXPECT_TRUE(isModified());
    const QImage table = preview()->grabFramebuffer();
    EXPECT_NE(table, before);
    palette->m_pSliceReverseColorMapCheck->click();
    EXPECT_TRUE(record("slices").bSliceColorTableReverse);
    EXPECT_NE(preview()->grabFramebuffer(), table);
}

TEST_F(SliceTabTest, WithTheTransferFunctionTheSlidersOpacityDoesNotShow)
{
    const QImage opaque = preview()->grabFramebuffer();
    palette->m_pSliceOpacitySlider->setValue(60);
    EXPECT_NE(preview()->grabFramebuffer(), opaque) << "with the colour table it shows";
    palette->m_pSliceUseTransferFunction->click();
    const QImage before = preview()->grabFramebuffer();
    palette->m_pSliceOpacitySlider->setValue(30);
    EXPECT_EQ(preview()->grabFramebuffer(), before);
}

TEST_F(SliceTabTest, AutoFitSetsTheLowEnd)
{
    palette->m_pSliceMinIntensitySlider->setValue(palette->m_pSliceMinIntensitySlider->minimum());
    palette->setResultsModifiedForSequence(false);
    palette->VolumeVizTabWidget->setCurrentWidget(palette->volumeTab);
    QTest::mouseClick(palette->m_pAutoFitToolButton, Qt::LeftButton);
    EXPECT_EQ(record("slices").nSliceMin, palette->m_pSliceMinIntensitySpinBox->value());
    EXPECT_TRUE(isModified());
}

TEST_F(SliceTabTest, TheCropBoxIsFollowed)
{
    Vec3f offsets[8];
    for (int corner : {0, 3, 4, 7})
        offsets[corner].set(-0.5, 0.0, 0.0);
    sceneOf(sequence)->setCroppingBoxOffset(offsets);
    nodeOf(sequence)->notifyCropEquationsChanged(true);
    Coord3d min;
    Coord3d max;
    nodeOf(sequence)->getBBox(min, max);
    EXPECT_NEAR(preview()->tile(0)->window.left, min.x / 2.0, 1e-6);
    palette->onCropReset();
    EXPECT_NEAR(preview()->tile(0)->window.left, min.x, 1e-6);
}

TEST_F(SliceTabTest, TheFirstVisitOfTheTabMakesTheViewer)
{
    openCurrent("other");
    plugin.onSignalSequenceChanged(sequence);
    EXPECT_EQ(preview(), nullptr) << "another sequence drops it";
    palette->VolumeVizTabWidget->setCurrentWidget(palette->sliceTab);
    ASSERT_NE(preview(), nullptr);
    EXPECT_EQ(preview()->tileCount(), 1);
}

TEST_F(SliceTabTest, TheButtonAndADoubleClickOpenTheLayout)
{
    palette->m_pSliceOrientation->setCurrentIndex(1);
    modal.expect([](QWidget* window) {
        auto* dialog = qobject_cast<CVolumeSliceLayout*>(window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(dialog->isModal());
        EXPECT_EQ(dialog->objectName(), "Volume Slice Layout");
        EXPECT_EQ(dialog->m_pOrientationCB->currentText(), "Transaxial");
        EXPECT_GT(dialog->view()->tileCount(), 1);
        dialog->close();
    });
    QTest::mouseClick(palette->m_pExpandSliceView, Qt::LeftButton);
    QTest::qWait(200);
    ASSERT_NE(layoutDialog(), nullptr);
    EXPECT_FALSE(layoutDialog()->isVisible());

    QTest::mouseDClick(preview(), Qt::LeftButton);
    EXPECT_TRUE(layoutDialog()->isVisible());
    layoutDialog()->close();
}

TEST_F(SliceTabTest, TheHostsRequestOpensTheLayout)
{
    plugin.onToolPalettePluginStatusModified(ETOOLPALETTE_SHOW_SLICE_LAYOUT);
    ASSERT_NE(layoutDialog(), nullptr);
    EXPECT_TRUE(layoutDialog()->isVisible());
    layoutDialog()->close();
}

TEST_F(SliceTabTest, TheLayoutGoesWithItsSequence)
{
    palette->onClickSliceLayoutWindowTB();
    QPointer<CVolumeSliceLayout> dialog = layoutDialog();
    ASSERT_TRUE(dialog);
    dialog->close();
    CHVSSequenceDataset* other = openCurrent("other");
    ASSERT_NE(other, nullptr);
    EXPECT_FALSE(dialog);
    plugin.onSignalSequenceChanged(sequence);
    palette->onClickSliceLayoutWindowTB();
    dialog = layoutDialog();
    ASSERT_TRUE(dialog);
    dialog->close();
    close(sequence);
    EXPECT_FALSE(dialog);
    palette->onClickSliceLayoutWindowTB();
    palette->onVolumeSliceViewerSliderChange(0);
    palette->onSliceOpacitySliderChanged(10);
}

}  // namespace
