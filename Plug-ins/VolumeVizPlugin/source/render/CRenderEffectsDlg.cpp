#include "render/CRenderEffectsDlg.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DVolume.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "render/CGLVolume.h"
#include "render/logic/EffectSliders.h"

#include <QSignalBlocker>

#include <utility>

namespace {

void place(QSlider* slider, int value)
{
    const QSignalBlocker quiet(slider);
    slider->setValue(value);
}

void check(QCheckBox* box, bool checked)
{
    const QSignalBlocker quiet(box);
    box->setChecked(checked);
}

}  // namespace

CRenderEffectsDlg::CRenderEffectsDlg(QWidget* palette, const char* name,
                                     std::function<CHVSSequenceDataset*()> sequence, Qt::WindowFlags flags)
    : QDialog(palette, flags | Qt::WindowCloseButtonHint)
    , m_sequence(std::move(sequence))
{
    setupUi(this);
    setObjectName(QLatin1String(name));
    setModal(true);
    setFixedSize(size());
    m_pMedianFilterDenoiseCheckBox->hide();
    connectControls();
}

void CRenderEffectsDlg::connectControls()
{
    connect(m_pAmbientSlider, SIGNAL(valueChanged(int)), this, SLOT(onAmbientIntensitySliderReleased(int)));
    connect(m_pDiffuseSlider, SIGNAL(valueChanged(int)), this, SLOT(onDiffuseIntensitySliderReleased(int)));
    connect(m_pSpecularSlider, SIGNAL(valueChanged(int)), this, SLOT(onSpecularIntensitySliderReleased(int)));
    connect(m_pShininessSlider, SIGNAL(valueChanged(int)), this, SLOT(onSpecularShinessSliderReleased(int)));
    connect(m_pEmissionSlider, SIGNAL(valueChanged(int)), this,
            SLOT(onEmissionCompensationIntensitySlider(int)));
    connect(m_pDefaultSettingsPushButton, SIGNAL(clicked()), this, SLOT(onClickDefaultSettingsPushButton()));
    connect(m_pHighContrastModePushButton, SIGNAL(clicked()), this,
            SLOT(onClickHighContrastModePushButton()));
    connect(m_pDenoiseGradientCheckBox, SIGNAL(toggled(bool)), this, SLOT(onDenoiseGradientToggled(bool)));
    connect(m_pMedianFilterDenoiseCheckBox, SIGNAL(toggled(bool)), this,
            SLOT(onMedianFilterDenoiseToggled(bool)));
    connect(m_pOpticalDepthRenderPassCheckBox, SIGNAL(clicked(bool)), this,
            SLOT(onOpticalDepthRenderPassCheckBoxToggled(bool)));
    connect(m_pQualityThresholdSlider, SIGNAL(valueChanged(int)), this,
            SLOT(onQualityRenderingThresholdSliderReleased(int)));
    connect(m_pQualityPerformanceResetPushButton, SIGNAL(clicked()), this,
            SLOT(onClickQualityPerormanceResetPushButton()));
    connect(m_pDonePB, SIGNAL(clicked()), this, SLOT(onClickDonePB()));
}

CRenderEffectsDlg::Target CRenderEffectsDlg::target() const
{
    Target found;
    CHVSSequenceDataset* sequence = m_sequence ? m_sequence() : nullptr;
    CHVSSequenceWindow* window = sequence ? CHVSSequenceWindow::getSequenceWindow(sequence) : nullptr;
    C3DSGManager* graph = window ? window->getWindow3DSGManager() : nullptr;
    if (graph) found = {window, window->get3DScene(), graph};
    return found;
}

CGLVolume* CRenderEffectsDlg::node() const
{
    C3DSGManager* graph = target().graph;
    return graph ? qobject_cast<CGLVolume*>(graph->getNode(QStringLiteral("GLVolume"))) : nullptr;
}

void CRenderEffectsDlg::repaintScene() const
{
    if (C3DScene* scene = target().scene) scene->refresh();
}

void CRenderEffectsDlg::updateControls()
{
    m_pMedianFilterDenoiseCheckBox->hide();
    const CGLVolume* volume = node();
    if (!volume) return;
    const effect_sliders::Light light{effect_sliders::ofIntensity(volume->getAmbientIntensity()),
                                      effect_sliders::ofIntensity(volume->getDiffuseIntensity()),
                                      effect_sliders::ofIntensity(volume->getSpecularIntensity()),
                                      effect_sliders::ofShininess(volume->getShininess()),
                                      effect_sliders::ofEmission(volume->getEmissionCompensation())};
    place(m_pAmbientSlider, light.ambient);
    m_pAmbientLabel->setText(effect_sliders::ambientLabel(light.ambient));
    place(m_pDiffuseSlider, light.diffuse);
    m_pDiffuseLabel->setText(effect_sliders::diffuseLabel(light.diffuse));
    place(m_pSpecularSlider, light.highlight);
    m_pSpecularLabel->setText(effect_sliders::highlightLabel(light.highlight));
    place(m_pShininessSlider, light.shininess);
    m_pShininessLabel->setText(effect_sliders::shininessLabel(light.shininess));
    place(m_pEmissionSlider, light.emission);
    m_pEmissionLabel->setText(effect_sliders::emissionLabel(light.emission));

    place(m_pQualityThresholdSlider, effect_sliders::ofThreshold(volume->getQualityRenderingThreshold()));
    check(m_pMedianFilterDenoiseCheckBox, volume->isMedianFilterDenoise());
    check(m_pDenoiseGradientCheckBox, volume->isFilterDenoiseGradient());
    // The performance shader has no filter.
    m_pDenoiseGradientCheckBox->setEnabled(!volume->isRenderInBestPerformance());
}

void CRenderEffectsDlg::onAmbientIntensitySliderReleased(int value)
{
    place(m_pAmbientSlider, value);
    m_pAmbientLabel->setText(effect_sliders::ambientLabel(value));
    onLightingSettingsUpdated();
}

void CRenderEffectsDlg::onDiffuseIntensitySliderReleased(int value)
{
    place(m_pDiffuseSlider, value);
    m_pDiffuseLabel->setText(effect_sliders::diffuseLabel(value));
    onLightingSettingsUpdated();
}

void CRenderEffectsDlg::onSpecularIntensitySliderReleased(int value)
{
    place(m_pSpecularSlider, value);
    m_pSpecularLabel->setText(effect_sliders::highlightLabel(value));
    onLightingSettingsUpdated();
}

void CRenderEffectsDlg::onSpecularShinessSliderReleased(int value)
{
    place(m_pShininessSlider, value);
    m_pShininessLabel->setText(effect_sliders::shininessLabel(value));
    onLightingSettingsUpdated();
}

void CRenderEffectsDlg::onEmissionCompensationIntensitySlider(int value)
{
    place(m_pEmissionSlider, value);
    m_pEmissionLabel->setText(effect_sliders::emissionLabel(value));
    onLightingSettingsUpdated();
}

void CRenderEffectsDlg::onLightingSettingsUpdated()
{
    CGLVolume* volume = node();
    if (!volume) return;
    volume->setLightIntensity(effect_sliders::intensityAt(m_pAmbientSlider->value()),
                              effect_sliders::intensityAt(m_pDiffuseSlider->value()),
                              effect_sliders::intensityAt(m_pSpecularSlider->value()));
    volume->setShininess(effect_sliders::shininessAt(m_pShininessSlider->value()));
    volume->setEmissionCompensation(effect_sliders::emissionAt(m_pEmissionSlider->value()));
    repaintScene();
}

void CRenderEffectsDlg::onClickDefaultSettingsPushButton()
{
    constexpr effect_sliders::Light light = effect_sliders::defaultLight;
    m_pAmbientSlider->setValue(light.ambient);
    m_pDiffuseSlider->setValue(light.diffuse);
    m_pSpecularSlider->setValue(light.highlight);
    m_pShininessSlider->setValue(light.shininess);
    m_pEmissionSlider->setValue(light.emission);
}

void CRenderEffectsDlg::onClickHighContrastModePushButton()
{
    constexpr effect_sliders::Light light = effect_sliders::highContrastLight;
    m_pAmbientSlider->setValue(light.ambient);
    m_pDiffuseSlider->setValue(light.diffuse);
    m_pSpecularSlider->setValue(light.highlight);
    m_pShininessSlider->setValue(light.shininess);
    m_pEmissionSlider->setValue(light.emission);
}

void CRenderEffectsDlg::onDenoiseGradientToggled(bool bVal)
{
    CGLVolume* volume = node();
    if (!volume) return;
    volume->setFilterDenoiseGradient(bVal);
    emit filterDenoiseGradientChanged(bVal);
    repaintScene();
}

void CRenderEffectsDlg::onMedianFilterDenoiseToggled(bool bVal)
{
    CGLVolume* volume = node();
    if (!volume) return;
    volume->setMedianFilterDenoise(bVal);
    repaintScene();
}

void CRenderEffectsDlg::onOpticalDepthRenderPassCheckBoxToggled(bool bVal)
{
    const Target now = target();
    C3DVolume* optical = now.graph ? now.graph->get3DVolume() : nullptr;
    if (!optical) return;
    optical->setThreshold(bVal ? optical->getDefaultThreshold() : optical->getAttribMinValue());
    optical->setUIEnableMultiPassRenderWithDepthTest(bVal);
    repaintScene();
}

void CRenderEffectsDlg::onQualityRenderingThresholdSliderReleased(int value)
{
    if (CGLVolume* volume = node()) volume->setQualityRenderingThreshold(effect_sliders::thresholdAt(value));
}

void CRenderEffectsDlg::onClickQualityPerormanceResetPushButton()
{
    CGLVolume* volume = node();
    if (!volume) return;
    const float limit = volume->getDefaultQualityRenderingThreshold();
    place(m_pQualityThresholdSlider, effect_sliders::ofThreshold(limit));
    volume->setQualityRenderingThreshold(limit);
}

void CRenderEffectsDlg::onClickDonePB()
{
    accept();
}
