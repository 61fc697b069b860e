#include "gui/PluginBench.h"
#include "gui/SetMeter.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "lib/hvapi/scene/C3DVolumePrivate.h"
#include "render/CGLVolume.h"
#include "render/CRenderEffectsDlg.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

namespace {

/// The dialog over the volume of the current sequence.
class RenderEffects : public PluginBench
{
protected:
    void SetUp() override
    {
        sequence = openCurrent("S1");
        ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("a.raw")}, -1, -1));
        node = nodeOf(sequence);
        scene = sceneOf(sequence);
    }

    CRenderEffectsDlg* open()
    {
        modal.expect([](QWidget*) {});
        palette->m_pRenderEffectsDlgButton->click();
        auto* dialog = palette->findChild<CRenderEffectsDlg*>("Render Effects");
        EXPECT_NE(dialog, nullptr);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog));
        QTest::qWait(20);  // the watcher of modal windows sees it
        return dialog;
    }

    CHVSSequenceDataset* sequence = nullptr;
    CGLVolume* node = nullptr;
    C3DScene* scene = nullptr;
};

}  // namespace

TEST_F(RenderEffects, HasItsFormAndWords)
{
    CRenderEffectsDlg* dialog = open();
    EXPECT_EQ(dialog->windowTitle(), QString("Rendering Effects"));
    EXPECT_EQ(dialog->size(), QSize(471, 341));
    EXPECT_EQ(dialog->minimumSize(), dialog->maximumSize());
    EXPECT_TRUE(dialog->isModal());
    EXPECT_EQ(dialog->parentWidget(), palette);
    EXPECT_TRUE(dialog->windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_TRUE(dialog->windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_EQ(dialog->m_pLightingGroup->title(), QString("Lighting Settings"));
    EXPECT_EQ(dialog->m_pRenderingGroup->title(), QString("Rendering Settings"));
    EXPECT_EQ(dialog->m_pPreferenceGroup->title(), QString("Preference"));
    EXPECT_EQ(dialog->m_pDefaultSettingsPushButton->text(), QString("Restore Defaults"));
    EXPECT_EQ(dialog->m_pHighContrastModePushButton->text(), QString("High Contrast Mode"));
    EXPECT_EQ(dialog->m_pQualityLabel->text(), QString("Quality  "));
    EXPECT_EQ(dialog->m_pPerformanceLabel->text(), QString("Performance"));
    EXPECT_EQ(dialog->m_pQualityPerformanceResetPushButton->text(), QString("Default"));
    EXPECT_EQ(dialog->m_pDonePB->text(), QString("Done"));
    EXPECT_EQ(dialog->m_pDenoiseGradientCheckBox->text(), QString("Smooth"));
    EXPECT_EQ(dialog->m_pDenoiseGradientCheckBox->toolTip(),
              QString("<b>Gradient Illumination:</b><br>Enable/Disable realtime filter based surface smooth "
                      "process.</br>"));
    EXPECT_EQ(dialog->m_pMedianFilterDenoiseCheckBox->toolTip(),
              QString("<b>Gradient Illumination:</b><br>Enable/Disable realtime filter based denoise "
                      "process.</br>"));
    EXPECT_EQ(dialog->m_pOpticalDepthRenderPassCheckBox->toolTip(),
              QString("<b>VLOT/WLOT Depth Rendering:</b><br>Enable/Disable depth comparison between CT and "
                      "VLOT/WLOT voxels along direction perpendicular to screen.</br>"));
    EXPECT_TRUE(dialog->m_pOpticalDepthRenderPassCheckBox->isChecked());
    EXPECT_FALSE(dialog->m_pMedianFilterDenoiseCheckBox->isVisible());
}

TEST_F(RenderEffects, ItsSlidersHaveTheirRangesAndTicks)
{
    CRenderEffectsDlg* dialog = open();
    for (QSlider* slider : {dialog->m_pAmbientSlider, dialog->m_pDiffuseSlider, dialog->m_pSpecularSlider,
                            dialog->m_pShininessSlider, dialog->m_pEmissionSlider}) {
        EXPECT_EQ(slider->minimum(), slider == dialog->m_pShininessSlider ? 1 : 0);
        EXPECT_EQ(slider->maximum(), 10);
        EXPECT_EQ(slider->singleStep(), 1);
        EXPECT_FALSE(slider->hasTracking());
        EXPECT_EQ(slider->tickPosition(), QSlider::TicksBelow);
        EXPECT_EQ(slider->tickInterval(), 1);
    }
    EXPECT_EQ(dialog->m_pEmissionSlider->pageStep(), 1);
    EXPECT_EQ(dialog->m_pQualityThresholdSlider->minimum(), 1);
    EXPECT_EQ(dialog->m_pQualityThresholdSlider->maximum(), 10);
    EXPECT_EQ(dialog->m_pQualityThresholdSlider->pageStep(), 1);
    EXPECT_EQ(dialog->m_pQualityThresholdSlider->tickInterval(), 1);
}

TEST_F(RenderEffects, EveryTextFits)
{
    qApp->setStyleSheet("QMenuBar { padding: 2px; }");  // a host may have one
    CRenderEffectsDlg* dialog = open();
    node->setLightIntensity(1.0F, 1.0F, 1.0F);
    node->setShininess(10.0F);
    node->setEmissionCompensation(0.1F);
    dialog->updateControls();
    QCoreApplication::processEvents();
    const auto widgets = dialog->findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const bool text = widget->inherits("QLabel") || widget->inherits("QAbstractButton");
        if (!text || !widget->isVisible()) continue;
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << widget->objectName().toStdString();
        EXPECT_TRUE(dialog->rect().contains(QRect(widget->mapTo(dialog, QPoint(0, 0)), widget->size())))
            << widget->objectName().toStdString();
    }
    qApp->setStyleSheet(QString());
}

TEST_F(RenderEffects, OpensWithTheValuesOfTheNode)
{
    node->setLightIntensity(0.25F, 0.9F, 0.0F);
    node->setShininess(9.0F);
    node->setEmissionCompensation(0.02F);
    node->setQualityRenderingThreshold(0.05F);
    node->setFilterDenoiseGradient(false);
    CRenderEffectsDlg* dialog = open();
    EXPECT_EQ(dialog->m_pAmbientSlider->value(), 3);
    EXPECT_EQ(dialog->m_pAmbientLabel->text(), QString("Ambient Intensity: 30%\t"));
    EXPECT_EQ(dialog->m_pDiffuseSlider->value(), 9);
    EXPECT_EQ(dialog->m_pDiffuseLabel->text(), QString("Diffuse Intensity: 90%\t"));
    EXPECT_EQ(dialog->m_pSpecularSlider->value(), 0);
    EXPECT_EQ(dialog->m_pSpecularLabel->text(), QString("Highlight Intensity: 0%"));
    EXPECT_EQ(dialog->m_pShininessSlider->value(), 9);
    EXPECT_EQ(dialog->m_pShininessLabel->text(), QString("Highlight Shininess: 9 "));
    EXPECT_EQ(dialog->m_pEmissionSlider->value(), 2);
    EXPECT_EQ(dialog->m_pEmissionLabel->text(), QString("Emission  Intensity: 2 "));
    EXPECT_EQ(dialog->m_pQualityThresholdSlider->value(), 4);
    EXPECT_FALSE(dialog->m_pDenoiseGradientCheckBox->isChecked());
    EXPECT_TRUE(dialog->m_pDenoiseGradientCheckBox->isEnabled());
    EXPECT_EQ(node->getAmbientIntensity(), 0.25F) << "showing changes nothing";
    dialog->accept();
    QTest::qWait(20);

    node->setLightIntensity(0.2F, 0.8F, 0.3F);
    node->setFilterDenoiseGradient(true);
    EXPECT_EQ(open(), dialog) << "it is built once";
    EXPECT_EQ(dialog->m_pDiffuseSlider->value(), 8);
    EXPECT_TRUE(dialog->m_pDenoiseGradientCheckBox->isChecked());
}

TEST_F(RenderEffects, WithoutANodeItShowsTheValuesOfTheForm)
{
    openCurrent("S2");
    modal.expect([](QWidget*) {});
    palette->onClickRenderEffectsDlgButton();
    auto* dialog = palette->findChild<CRenderEffectsDlg*>("Render Effects");
    ASSERT_NE(dialog, nullptr);
    QTest::qWait(20);
    EXPECT_EQ(dialog->m_pAmbientSlider->value(), 2);
    EXPECT_EQ(dialog->m_pDiffuseSlider->value(), 10);
    EXPECT_EQ(dialog->m_pSpecularSlider->value(), 5);
    EXPECT_EQ(dialog->m_pShininessSlider->value(), 5);
    EXPECT_EQ(dialog->m_pEmissionSlider->value(), 4);
    EXPECT_FALSE(dialog->m_pDenoiseGradientCheckBox->isChecked());
    dialog->m_pHighContrastModePushButton->click();
    dialog->m_pDenoiseGradientCheckBox->click();
    dialog->m_pOpticalDepthRenderPassCheckBox->click();
    dialog->m_pQualityThresholdSlider->setValue(5);
    dialog->m_pQualityPerformanceResetPushButton->click();
    palette->onSequenceChanged(nullptr);
    dialog->m_pDefaultSettingsPushButton->click();
    EXPECT_EQ(node->getDiffuseIntensity(), 0.8F) << "that of the other sequence";
    EXPECT_TRUE(host.logged(2).isEmpty());
    EXPECT_TRUE(host.logged(3).isEmpty());
}

TEST_F(RenderEffects, EachSliderOfTheLightReachesTheNodeWithItsLabel)
{
    CRenderEffectsDlg* dialog = open();
    dialog->m_pAmbientSlider->setValue(5);
    EXPECT_EQ(node->getAmbientIntensity(), 0.5F);
    EXPECT_EQ(dialog->m_pAmbientLabel->text(), QString("Ambient Intensity: 50%\t"));
    dialog->m_pDiffuseSlider->setValue(1);
    EXPECT_NEAR(node->getDiffuseIntensity(), 0.1F, 1e-6);
    EXPECT_EQ(dialog->m_pDiffuseLabel->text(), QString("Diffuse Intensity: 10%\t"));
    dialog->m_pSpecularSlider->setValue(10);
    EXPECT_EQ(node->getSpecularIntensity(), 1.0F);
    EXPECT_EQ(dialog->m_pSpecularLabel->text(), QString("Highlight Intensity: 100%"));
    dialog->m_pShininessSlider->setValue(2);
    EXPECT_EQ(node->getShininess(), 2.0F);
    EXPECT_EQ(dialog->m_pShininessLabel->text(), QString("Highlight Shininess: 2 "));
    dialog->m_pEmissionSlider->setValue(10);
    EXPECT_EQ(node->getEmissionCompensation(), 0.1F);
    EXPECT_EQ(dialog->m_pEmissionLabel->text(), QString("Emission  Intensity: 10 "));
    EXPECT_EQ(node->getAmbientIntensity(), 0.5F) << "the others stay";
}

TEST_F(RenderEffects, ASliderSpeaksWhenItIsReleased)
{
    CRenderEffectsDlg* dialog = open();
    QSlider* slider = dialog->m_pAmbientSlider;
    slider->setSliderDown(true);
    slider->setSliderPosition(7);
    EXPECT_EQ(node->getAmbientIntensity(), 0.2F);
    slider->setSliderDown(false);
    EXPECT_NEAR(node->getAmbientIntensity(), 0.7F, 1e-6);
}

TEST_F(RenderEffects, DefaultsAndHighContrastAreTheirFiveValues)
{
    CRenderEffectsDlg* dialog = open();
    dialog->m_pQualityThresholdSlider->setValue(7);
    dialog->m_pDenoiseGradientCheckBox->setChecked(false);
    dialog->m_pOpticalDepthRenderPassCheckBox->setChecked(false);
    dialog->m_pAmbientSlider->setValue(9);
    dialog->m_pHighContrastModePushButton->click();
    EXPECT_EQ(node->getAmbientIntensity(), 0.2F);
    EXPECT_EQ(node->getDiffuseIntensity(), 1.0F);
    EXPECT_EQ(node->getSpecularIntensity(), 0.5F);
    EXPECT_EQ(node->getShininess(), 6.0F);
    EXPECT_EQ(node->getEmissionCompensation(), 0.04F);
    EXPECT_EQ(dialog->m_pDiffuseLabel->text(), QString("Diffuse Intensity: 100%\t"));
    dialog->m_pDefaultSettingsPushButton->click();
    EXPECT_EQ(node->getAmbientIntensity(), 0.2F);
    EXPECT_EQ(node->getDiffuseIntensity(), 0.8F);
    EXPECT_NEAR(node->getSpecularIntensity(), 0.3F, 1e-6);
    EXPECT_EQ(node->getShininess(), 6.0F);
    EXPECT_EQ(node->getEmissionCompensation(), 0.06F);
    EXPECT_FALSE(dialog->m_pDenoiseGradientCheckBox->isChecked()) << "boxes and limit are left alone";
    EXPECT_FALSE(dialog->m_pOpticalDepthRenderPassCheckBox->isChecked());
    EXPECT_EQ(dialog->m_pQualityThresholdSlider->value(), 7);
}

TEST_F(RenderEffects, SmoothingReachesNodeAndRecord)
{
    CRenderEffectsDlg* dialog = open();
    EXPECT_TRUE(dialog->m_pDenoiseGradientCheckBox->isChecked());
    dialog->m_pDenoiseGradientCheckBox->click();
    EXPECT_FALSE(node->isFilterDenoiseGradient());
    EXPECT_FALSE(record("S1").bFilterDenoiseGradient);
    dialog->m_pDenoiseGradientCheckBox->click();
    EXPECT_TRUE(node->isFilterDenoiseGradient());
    EXPECT_TRUE(record("S1").bFilterDenoiseGradient);
    dialog->onMedianFilterDenoiseToggled(true);
    EXPECT_TRUE(node->isMedianFilterDenoise());
}

TEST_F(RenderEffects, ThereIsNothingToSmoothInPerformanceMode)
{
    palette->m_pBestRenderQualityCheckBox->click();
    CRenderEffectsDlg* dialog = open();
    EXPECT_FALSE(dialog->m_pDenoiseGradientCheckBox->isEnabled());
    EXPECT_FALSE(dialog->m_pDenoiseGradientCheckBox->isChecked());
}

TEST_F(RenderEffects, TheLimitIsForTheNextMeasurement)
{
    CRenderEffectsDlg* dialog = open();
    EXPECT_EQ(dialog->m_pQualityThresholdSlider->value(), 2);
    dialog->m_pQualityThresholdSlider->setValue(1);
    EXPECT_EQ(node->getQualityRenderingThreshold(), 0.2F);
    dialog->m_pQualityThresholdSlider->setValue(10);
    EXPECT_EQ(node->getQualityRenderingThreshold(), 0.02F);
    dialog->m_pQualityPerformanceResetPushButton->click();
    EXPECT_EQ(dialog->m_pQualityThresholdSlider->value(), 2);
    EXPECT_EQ(node->getQualityRenderingThreshold(), node->getDefaultQualityRenderingThreshold());
}

TEST_F(RenderEffects, DepthRenderComparesTheOpticalVoxels)
{
    hvscene::OpticalVoxels voxels;
    for (int i = 0; i <= 4; ++i)
        voxels.voxels.push_back({{1.0 * i, 0.0, 0.0}, {1.0, 1.0, 1.0}, 10.0F + 20.0F * i});
    auto* optical = new C3DVolume(hvscene::opticalVolumeName);
    optical->hostSide().setVoxels(voxels);
    ASSERT_TRUE(sequence->get3DSGManager()->addChild(sequence->get3DSGManager()->getRootNode(), optical));
    CRenderEffectsDlg* dialog = open();
    dialog->m_pOpticalDepthRenderPassCheckBox->click();
    EXPECT_EQ(optical->hostSide().threshold(), 10.0F) << "the lowest value";
    EXPECT_FALSE(optical->hostSide().comparesDepth());
    dialog->m_pOpticalDepthRenderPassCheckBox->click();
    EXPECT_EQ(optical->hostSide().threshold(), optical->getDefaultThreshold());
    EXPECT_TRUE(optical->hostSide().comparesDepth());
}

TEST_F(RenderEffects, DoneAccepts)
{
    CRenderEffectsDlg* dialog = open();
    QSignalSpy accepted(dialog, &QDialog::accepted);
    QTest::mouseClick(dialog->m_pDonePB, Qt::LeftButton);
    EXPECT_EQ(accepted.count(), 1);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(RenderEffects, ASequenceThatGoesUnderTheDialogLeavesItWithoutEffect)
{
    CRenderEffectsDlg* dialog = open();
    close(sequence);
    dialog->m_pHighContrastModePushButton->click();
    dialog->m_pDenoiseGradientCheckBox->click();
    EXPECT_EQ(dialog->m_pDiffuseSlider->value(), 10);
}
