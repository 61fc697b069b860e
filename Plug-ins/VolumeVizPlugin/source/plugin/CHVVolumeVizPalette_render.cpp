#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DVolume.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVUtilityFns.h"
#include "plugin/PaletteTarget.h"
#include "plugin/PluginLog.h"
#include "plugin/RenderMeter.h"
#include "plugin/WidgetSync.h"
#include "plugin/logic/RenderProfile.h"
#include "render/CGLVolume.h"
#include "render/CRenderEffectsDlg.h"

#include <QCursor>
#include <QMessageBox>

#include <algorithm>
#include <utility>

namespace {

void refresh(const PaletteTarget& target)
{
    if (target.scene) target.scene->refresh();
}

/// What a measurement changes of a node and gives back.
class HeaviestState
{
public:
    HeaviestState(CGLVolume& node, int density)
        : m_node(node)
        , m_levelOfDetail(node.m_nLevelOfDetail)
        , m_lighting(node.getLighting() != 0.0F)
        , m_median(node.isMedianFilterDenoise())
    {
        setLevelOfDetail(density);
        node.setRenderInBestPerformance(false);
        node.setFilterDenoiseGradient(true);
        node.setMedianFilterDenoise(true);
        node.setLighting(true);
    }
    ~HeaviestState()
    {
        setLevelOfDetail(m_levelOfDetail);
        m_node.setLighting(m_lighting);
        m_node.setMedianFilterDenoise(m_median);
    }
    HeaviestState(const HeaviestState&) = delete;
    HeaviestState& operator=(const HeaviestState&) = delete;

private:
    void setLevelOfDetail(int density)
    {
        m_node.m_nLevelOfDetail = density;
        m_node.setLevelOfDetail(density);
    }

    CGLVolume& m_node;
    int m_levelOfDetail;
    bool m_lighting;
    bool m_median;
};

}  // namespace

void CHVVolumeVizPalette::setRenderMeter(std::unique_ptr<RenderMeter> meter)
{
    if (meter) m_pRenderMeter = std::move(meter);
}

void CHVVolumeVizPalette::onMIPToggled(bool bVal)
{
    const PaletteTarget now = target();
    if (!now.record) return;
    now.record->bMIP = m_pMIPCheckBox->isChecked();
    if (bVal) m_pLightingCheckBox->setChecked(false);
    now.record->bLightingEnabled = !bVal;
    enableControl(m_pLightingCheckBox, !bVal);
    if (!now.window || !now.node) return;
    now.node->setMIP(bVal);
    refresh(now);
}

void CHVVolumeVizPalette::onLightingToggled(bool bVal)
{
    const PaletteTarget now = target();
    if (!now.record) return;
    now.record->bLighting = m_pLightingCheckBox->isChecked();
    enableControl(m_pRenderEffectsDlgButton, now.record->bLighting);
    if (bVal) m_pMIPCheckBox->setChecked(false);
    now.record->bMIPEnabled = !bVal;
    enableControl(m_pMIPCheckBox, !bVal);
    if (!now.window || !now.node) return;
    now.node->setLighting(bVal);
    refresh(now);
}

void CHVVolumeVizPalette::onMedianFilterDenoiseToggled(bool bVal)
{
    const PaletteTarget now = target();
    if (!now.record) return;
    now.record->bMedianFilterDenoise = m_pMedianFilterDenoiseCheckBox->isChecked();
    if (!now.window || !now.node) return;
    now.node->setMedianFilterDenoise(bVal);
    refresh(now);
}

void CHVVolumeVizPalette::onFilterDenoiseGradientChanged(bool bVal)
{
    if (SVolVizControls* record = target().record) record->bFilterDenoiseGradient = bVal;
}

void CHVVolumeVizPalette::onBestRenderQualityCheckBoxToggled(bool bVal)
{
    const PaletteTarget now = target();
    if (!now.record) return;
    now.record->bBestQuality = m_pBestRenderQualityCheckBox->isChecked();
    if (!now.window || !now.node) return;
    if (bVal)
        enterQualityMode();
    else
        leaveQualityMode();
}

void CHVVolumeVizPalette::enterQualityMode()
{
    const PaletteTarget before = target();
    const QPointer<CGLVolume> node(before.node);
    RenderProfile profile;
    profile.wasInPerformanceMode = node->isRenderInBestPerformance();
    profile.limit = qualityTimeLimit(node->getQualityRenderingThreshold(), profile.wasInPerformanceMode);
    const int density = evaluationDensity(node->getPreRenderVoxelRatio(), m_pLODSlider->maximum());
    const bool fast =
        evaluateRenderPerformance(before.window, before.node, density, profile.limit, &profile.partialTime);
    if (!fast && !wantsQualityAnyway()) {
        if (node && node == target().node) showAsPerformanceMode();
        return;
    }

    // The question kept the events running.
    const PaletteTarget now = target();
    if (!node || now.node != node || !now.record || !now.window) return;
    enableControl(m_pMedianFilterDenoiseCheckBox, true);
    if (!fast) {
        node->setRenderInBestPerformance(false);
        node->setFilterDenoiseGradient(true);
    }
    now.record->bFilterDenoiseGradient = true;
    m_pRenderMeter->startTimer();
    m_pRenderMeter->sleep(1);
    node->setShadersReady(false);
    refresh(now);
    m_pRenderMeter->finish(now.scene);
    profile.fullTime = m_pRenderMeter->readTimer();
    profile.isInPerformanceMode = node->isRenderInBestPerformance();
    logMessage(CHVSLog::eStatusLine, profileLine(profile));
}

void CHVVolumeVizPalette::leaveQualityMode()
{
    enableControl(m_pMedianFilterDenoiseCheckBox, false);
    m_pMedianFilterDenoiseCheckBox->setChecked(false);
    // The slot has painted a frame, which may tell of a driver's failure in a box, and anything may go there.
    const PaletteTarget now = target();
    if (!now.node || !now.record) return;
    now.node->setFilterDenoiseGradient(false);
    now.node->setMedianFilterDenoise(false);
    now.node->setRenderInBestPerformance(true);
    now.record->bFilterDenoiseGradient = false;
    now.node->setShadersReady(false);
    refresh(now);
}

/// The boxes after the answer No. Where the quality box was checked its slot follows, and leaves the mode.
void CHVVolumeVizPalette::showAsPerformanceMode()
{
    enableControl(m_pMedianFilterDenoiseCheckBox, false);
    m_pMedianFilterDenoiseCheckBox->setChecked(false);
    m_pBestRenderQualityCheckBox->setChecked(false);
    if (SVolVizControls* record = target().record) record->bFilterDenoiseGradient = false;
}

bool CHVVolumeVizPalette::wantsQualityAnyway()
{
    CHVUtilityFns::setCursor(
        QCursor(Qt::ArrowCursor));  // a load waits behind the question, the user does not
    const int answer = QMessageBox::warning(this, renderModeQuestionTitle(), renderModeQuestionText(),
                                            QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    CHVUtilityFns::restoreCursor();
    return answer == QMessageBox::Yes;
}

bool CHVVolumeVizPalette::evaluateRenderPerformance(CHVSSequenceWindow* window, CGLVolume* node, int density,
                                                    double limit, double* frameTime)
{
    if (!window || !node || !frameTime) return false;
    *frameTime = 0.0;
    C3DScene* scene = window->get3DScene();
    m_pRenderMeter->finish(scene);
    C3DSGManager* graph = window->getWindow3DSGManager();
    C3DVolume* optical = graph ? graph->get3DVolume() : nullptr;
    if (optical) {
        optical->setPreRenderEvaluationVoxelRatio(node->getPreRenderVoxelRatio());
        optical->setPreRenderEvaluationFlag(true);
        optical->setMultiPassRenderWithDepthTest(true);
    }
    {
        const HeaviestState state(*node, density);
        constexpr int rounds = 1;
        for (int round = 0; round < rounds; ++round) {
            m_pRenderMeter->startTimer();
            m_pRenderMeter->sleep(1);
            if (scene) scene->refresh();
            m_pRenderMeter->finish(scene);
            *frameTime = std::max(*frameTime, m_pRenderMeter->readTimer());
        }
    }
    if (optical) optical->setPreRenderEvaluationFlag(false);
    const bool fast = isWithinLimit(*frameTime, limit);
    node->setRenderInBestPerformance(!fast);
    node->setFilterDenoiseGradient(fast);
    return fast;
}

void CHVVolumeVizPalette::onClickRenderEffectsDlgButton()
{
    if (!m_pRenderEffectsDlg) {
        m_pRenderEffectsDlg = new CRenderEffectsDlg(
            this, "Render Effects", [this] { return m_pSequenceDataset.data(); },
            Qt::Dialog | Qt::WindowMaximizeButtonHint);
        connect(m_pRenderEffectsDlg, SIGNAL(filterDenoiseGradientChanged(bool)), this,
                SLOT(onFilterDenoiseGradientChanged(bool)));
    }
    centreOnScreen(*m_pRenderEffectsDlg, *this);
    m_pRenderEffectsDlg->show();
    m_pRenderEffectsDlg->updateControls();
}
