#include "gui/SliceLayoutBench.h"

#include <gmock/gmock.h>

namespace {

struct SliceLayoutTest : SliceLayoutBench
{};

TEST_F(SliceLayoutTest, StartsWithTwentySpacingsOfTheWholeRange)
{
    EXPECT_EQ(dialog->windowTitle(), "Volume Slice Viewer");
    EXPECT_EQ(dialog->m_pOrientationCB->currentText(), "Coronal");
    EXPECT_DOUBLE_EQ(dialog->m_pMinSpinBox->value(), -20.0);
    EXPECT_DOUBLE_EQ(dialog->m_pMinSpinBox->minimum(), -20.0);
    EXPECT_DOUBLE_EQ(dialog->m_pMinSpinBox->maximum(), 19.9);
    EXPECT_DOUBLE_EQ(dialog->m_pMaxSpinBox->minimum(), -19.9);
    EXPECT_DOUBLE_EQ(dialog->m_pMaxSpinBox->maximum(), 20.0);
    EXPECT_DOUBLE_EQ(dialog->m_pSpacingSpinBox->value(), 2.0);
    EXPECT_EQ(dialog->m_pTotalSlicesLbl->text(), "Total Slices: 21");
    EXPECT_EQ(dialog->view()->tileCount(), 21);
    EXPECT_TRUE(dialog->m_pPositionControls->isHidden());
    EXPECT_FALSE(dialog->m_pThickSliceGBox->isChecked());
    EXPECT_TRUE(dialog->m_pMIPRB->isChecked());
}

TEST_F(SliceLayoutTest, ABoxOfTenMillimetresHasASpacingOfHalfAMillimetre)
{
    Coord3d min(-5.0, -5.0, -5.0);
    Coord3d max(5.0, 5.0, 5.0);
    node->setBBox(min, max);
    dialog->updateFromVolume(node);
    EXPECT_DOUBLE_EQ(dialog->m_pSpacingSpinBox->value(), 0.5);
    EXPECT_EQ(dialog->m_pTotalSlicesLbl->text(), "Total Slices: 21");
}

TEST_F(SliceLayoutTest, TheOrientationTakesItsOwnRange)
{
    dialog->setOrientationText("sagittal");
    EXPECT_EQ(dialog->m_pOrientationCB->currentText(), "Sagittal");
    EXPECT_EQ(dialog->view()->orientation(), AxisX);
    EXPECT_DOUBLE_EQ(dialog->m_pMinSpinBox->value(), -10.0);
    EXPECT_DOUBLE_EQ(dialog->m_pMaxSpinBox->value(), 10.0);
    EXPECT_EQ(dialog->m_pTotalSlicesLbl->text(), "Total Slices: 11");

    show();
    QTest::keyClick(dialog->m_pOrientationCB, Qt::Key_Up);
    EXPECT_EQ(dialog->view()->orientation(), AxisY);
    EXPECT_DOUBLE_EQ(dialog->m_pMaxSpinBox->value(), 15.0);
    dialog->setOrientationText("Oblique");
    EXPECT_EQ(dialog->view()->orientation(), AxisY);
}

TEST_F(SliceLayoutTest, MaxCannotBeLoweredBelowMin)
{
    show();
    type(dialog->m_pMinSpinBox, "5");
    EXPECT_DOUBLE_EQ(dialog->m_pMaxSpinBox->minimum(), 5.0);
    type(dialog->m_pMaxSpinBox, "3");
    EXPECT_GE(dialog->m_pMaxSpinBox->value(), 5.0);
    type(dialog->m_pMaxSpinBox, "10");
    EXPECT_DOUBLE_EQ(dialog->m_pMinSpinBox->maximum(), 10.0);
    EXPECT_EQ(dialog->m_pTotalSlicesLbl->text(), "Total Slices: 3");
    EXPECT_EQ(dialog->view()->tileCount(), 3);
}

TEST_F(SliceLayoutTest, SpinBoxesAndSpanSliderAreTwoFacesOfOneValue)
{
    show();
    type(dialog->m_pMinSpinBox, "-10");
    EXPECT_EQ(dialog->m_pSpanSlider->lowerValue(), 2500);
    type(dialog->m_pMaxSpinBox, "10");
    EXPECT_EQ(dialog->m_pSpanSlider->upperValue(), 7500);

    dialog->setOrientationText("Coronal");  // whole range again
    EXPECT_EQ(dialog->m_pSpanSlider->lowerValue(), 0);
    EXPECT_EQ(dialog->m_pSpanSlider->upperValue(), 10000);
    dialog->m_pSpanSlider->setLowerValue(5000);
    EXPECT_NEAR(dialog->m_pMinSpinBox->value(), 0.0, 1e-6);
    EXPECT_NEAR(dialog->m_pMaxSpinBox->minimum(), 0.0, 1e-6);
    dialog->m_pSpanSlider->setUpperValue(7500);
    EXPECT_NEAR(dialog->m_pMaxSpinBox->value(), 10.0, 1e-6);
    EXPECT_NEAR(dialog->m_pMinSpinBox->maximum(), 10.0, 1e-6);
    EXPECT_EQ(dialog->view()->tileCount(), 6);
}

TEST_F(SliceLayoutTest, AHandleThatPushesTheOtherTakesBothBoxesAlong)
{
    dialog->m_pSpanSlider->setUpperValue(7500);
    dialog->m_pSpanSlider->setLowerValue(9000);
    EXPECT_NEAR(dialog->m_pMinSpinBox->value(), 16.0, 1e-6);
    EXPECT_NEAR(dialog->m_pMaxSpinBox->value(), 16.0, 1e-6);
    EXPECT_EQ(dialog->m_pSpanSlider->lowerValue(), 9000);
    dialog->m_pSpanSlider->setUpperValue(1000);
    EXPECT_NEAR(dialog->m_pMinSpinBox->value(), -16.0, 1e-6);
    EXPECT_NEAR(dialog->m_pMaxSpinBox->value(), -16.0, 1e-6);
    EXPECT_EQ(dialog->m_pSpanSlider->lowerValue(), 1000);
}

TEST_F(SliceLayoutTest, TheSpacingsLabelEndsWithABlank)
{
    show();
    type(dialog->m_pSpacingSpinBox, "4");
    EXPECT_EQ(dialog->m_pTotalSlicesLbl->text(), "Total Slices: 11 ");
    EXPECT_EQ(dialog->view()->tileCount(), 11);
    type(dialog->m_pSpacingSpinBox, "0");
    EXPECT_DOUBLE_EQ(dialog->m_pSpacingSpinBox->value(), 4.0);  // no spacing: refused
    EXPECT_DOUBLE_EQ(dialog->m_pSpacingSpinBox->minimum(), 0.01);
    EXPECT_DOUBLE_EQ(dialog->m_pSpacingSpinBox->maximum(), 99.99);
}

TEST_F(SliceLayoutTest, SlabsAreAsThickAsTheirDistance)
{
    show();
    QTest::mouseClick(dialog->m_pThickSliceGBox, Qt::LeftButton, {}, QPoint(12, 8));
    ASSERT_TRUE(dialog->m_pThickSliceGBox->isChecked());
    EXPECT_TRUE(dialog->view()->isThickSliceMode());
    EXPECT_EQ(dialog->m_pSpacingLbl->text(), "Slice Thickness:");
    EXPECT_EQ(dialog->m_pSpacingLbl->width(), 75);
    EXPECT_EQ(dialog->view()->tile(0)->thickness, 2.0);
    dialog->m_pLightingRB->click();
    EXPECT_FALSE(dialog->m_pMIPRB->isChecked());
    dialog->m_pThickSliceGBox->setChecked(false);
    EXPECT_FALSE(dialog->view()->isThickSliceMode());
    EXPECT_EQ(dialog->m_pSpacingLbl->text(), "Slice Spacing:");
    EXPECT_EQ(dialog->m_pSpacingLbl->width(), 70);
}

TEST_F(SliceLayoutTest, ADoubleClickOpensThatSliceAndReturnsWithTheRangeUnchanged)
{
    show();
    type(dialog->m_pMinSpinBox, "-10");
    type(dialog->m_pMaxSpinBox, "10");
    QTest::qWait(30);
    QTest::mouseDClick(dialog->view(), Qt::LeftButton, {}, middle(3));
    ASSERT_TRUE(dialog->view()->isSingleView());
    EXPECT_EQ(dialog->view()->singlePosition(), -4.0F);
    EXPECT_DOUBLE_EQ(dialog->m_pPositionSpinBox->value(), -4.0);
    EXPECT_EQ(dialog->m_pPositionSlider->value(), 3000);
    EXPECT_TRUE(dialog->m_pPositionControls->isVisible());
    EXPECT_FALSE(dialog->m_pRangeControls->isVisible());
    EXPECT_EQ(dialog->m_pSingleViewTB->toolTip(), "Switch to Multi View");

    QTest::mouseDClick(dialog->view(), Qt::LeftButton, {}, dialog->view()->rect().center());
    EXPECT_FALSE(dialog->view()->isSingleView());
    EXPECT_DOUBLE_EQ(dialog->m_pMinSpinBox->value(), -10.0);
    EXPECT_DOUBLE_EQ(dialog->m_pMaxSpinBox->value(), 10.0);
    EXPECT_EQ(dialog->view()->tileCount(), 11);
    EXPECT_FALSE(dialog->m_pPositionControls->isVisible());
    EXPECT_EQ(dialog->m_pSingleViewTB->toolTip(), "Switch to Single View");
}

TEST_F(SliceLayoutTest, TheButtonOpensTheSliceAtZeroWhenNoneIsSelected)
{
    show();
    QTest::mouseClick(dialog->m_pSingleViewTB, Qt::LeftButton);
    EXPECT_TRUE(dialog->view()->isSingleView());
    EXPECT_EQ(dialog->view()->singlePosition(), 0.0F);
}

TEST_F(SliceLayoutTest, ThePositionSliderMovesThroughTheRangeOfTheSpinBoxes)
{
    show();
    type(dialog->m_pMinSpinBox, "-10");
    type(dialog->m_pMaxSpinBox, "10");
    dialog->onDoubleClickSingleSlice();
    dialog->m_pPositionSlider->setValue(10000);
    EXPECT_EQ(dialog->view()->singlePosition(), 10.0F);
    EXPECT_DOUBLE_EQ(dialog->m_pPositionSpinBox->value(), 10.0);
    dialog->m_pPositionSlider->setValue(2500);
    EXPECT_EQ(dialog->view()->singlePosition(), -5.0F);
    type(dialog->m_pPositionSpinBox, "5");
    EXPECT_EQ(dialog->m_pPositionSlider->value(), 7500);
    EXPECT_EQ(dialog->view()->singlePosition(), 5.0F);
}

TEST_F(SliceLayoutTest, ZoomButtonsChangeTheViewsHeight)
{
    show();
    dialog->onDoubleClickSingleSlice();
    QTest::qWait(30);
    const int before = dialog->view()->height();
    QTest::mouseClick(dialog->m_pZoomInTB, Qt::LeftButton);
    QTest::qWait(30);
    EXPECT_EQ(dialog->view()->height(), static_cast<int>(before * 1.05));
    QTest::mouseClick(dialog->m_pZoomResetTB, Qt::LeftButton);
    QTest::qWait(30);
    EXPECT_EQ(dialog->view()->height(), before);
    QTest::mouseClick(dialog->m_pZoomOutTB, Qt::LeftButton);
    EXPECT_EQ(dialog->view()->minimumHeight(), static_cast<int>(before * 0.95));
}

TEST_F(SliceLayoutTest, EscapeInTheViewAndTheButtonCloseTheDialog)
{
    show();
    dialog->view()->setFocus();
    QTest::keyClick(dialog->view(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    show();
    QTest::mouseClick(dialog->m_pClosePB, Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(SliceLayoutTest, AnUnboundDialogIsHarmless)
{
    CVolumeSliceLayout lonely;
    lonely.bindSequenceWindow(nullptr);
    lonely.updateFromVolume(nullptr);
    lonely.setOrientationText("Sagittal");
    lonely.onDoubleClickSingleSlice();
    lonely.onClickZoomIn();
    lonely.onClickZoomOut();
    lonely.onClickZoomReset();
    lonely.onClickSelectView();
    lonely.onClickThickSliceCB();
    lonely.onVolumeSliceViewerSliderChange(10);
    lonely.onChangePositionSpinBox(1.0);
    lonely.onSliceSpacingChanged(1.0);
    EXPECT_FALSE(lonely.exportGraphics());
    EXPECT_EQ(lonely.view(), nullptr);
}

TEST_F(SliceLayoutTest, TheSequenceMayGoWhileTheDialogStays)
{
    show();
    dialog->setParent(nullptr);
    dialog->show();
    sequence.close();
    QTest::qWait(50);
    dialog->setOrientationText("Transaxial");
    QImage image;
    dialog->view()->grabImage(image);
    EXPECT_FALSE(image.isNull());
}

}  // namespace
