#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/results/CHVSResultsTabControl.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvparser/CPLSection.h"
#include "hvparser/CPLSequenceInfo.h"
#include "hvutils/CHVSPalettePixmapView.h"
#include "plugin/PaletteTarget.h"
#include "plugin/WidgetSync.h"
#include "plugin/logic/SourceLimits.h"
#include "plugin/logic/UnitRanges.h"
#include "render/CGLVolume.h"

#include <QButtonGroup>

#include <optional>

namespace {

void check(QAbstractButton* button, bool checked)
{
    quietly(button, [&](QAbstractButton& quiet) { quiet.setChecked(checked); });
}

void enableAndCheck(QAbstractButton* button, bool enabled, bool checked)
{
    enableControl(button, enabled);
    check(button, checked);
}

std::optional<float> numberOf(const CPLSection& section, const QString& key)
{
    float value = 0.0F;
    if (section.getValue(key, &value) != 0) return std::nullopt;
    return value;
}

void select(QComboBox* combo, int index)
{
    quietly(combo, [&](QComboBox& quiet) { quiet.setCurrentIndex(index); });
}

void showColorTable(CHVSPalettePixmapView* bar, int table, bool reverse)
{
    bar->setPaletteCT(CHVVolumeVizPalette::getColorTableType(table), 0.0f, 1.0f);
    bar->setPaletteCTReverse(reverse);
}

}  // namespace

void CHVVolumeVizPalette::updatePaletteControls(SVolVizControls* record)
{
    if (!record) return;
    updateVolumeState(*record);
    updateResultsTab(*record);
    rebuildUnitList(*record);
    updateSliceTab(*record);
    if (!updateVolumeTab(*record)) return;
    updateVolumeHistogram();
    updateTransferFnWidget(record);
}

/// What can be used at all depends on whether there is a volume.
void CHVVolumeVizPalette::updateVolumeState(const SVolVizControls& record)
{
    const bool loaded = record.bVolumeLoaded;
    enableControl(m_pVolumeButtonGroup, loaded);
    quietly(m_pVolumeButtonGroup, [&](QGroupBox& box) { box.setChecked(loaded && record.bEnabled); });
    enableAndCheck(m_pTransformToolBtn, loaded, loaded && record.bTransformTool);
    enableControl(m_pTransformResetBtn, loaded && record.bTransformResetEnabled);
    enableControl(m_pFiducialRegistrationButton, loaded && record.bFiducialEnabled);
    enableControl(m_pCropResetBtn, loaded);
    enableAndCheck(m_pCroptoolButton, loaded, loaded && record.bCropTool);
    enableControl(m_pVolumeInfoDialogButton, loaded);
    enableControl(m_pSliceColorTable, loaded);
    enableAndCheck(m_pSliceReverseColorMapCheck, loaded, loaded && record.bSliceReverseInitial);
    enableControl(m_pReverseColorMapCheck, loaded);
    if (loaded) check(m_pReverseColorMapCheck, record.bVolumeColorTableReverse);
    QWidget* const withVolume[] = {
        m_pSliceOpacitySlider,       m_pSliceOpacitySpinBox, m_pApplyColorBarScalingCB, m_pSliceUseColorTable,
        m_pSliceUseTransferFunction, m_pSliceViewerGBox,     m_pOpacitySlider};
    for (QWidget* control : withVolume)
        enableControl(control, loaded);
    if (loaded) quietly(m_pOpacitySlider, [&](QSlider& slider) { slider.setValue(record.nOpacitySlider); });
    const bool ct = m_pSequenceDataset && m_pSequenceDataset->isCTSequence(false);
    enableControl(m_pExtract2DImageFromVolume, loaded && ct);
}

void CHVVolumeVizPalette::updateResultsTab(const SVolVizControls& record)
{
    const bool loaded = record.bVolumeLoaded;
    m_mapVolumeInfo = loaded ? record.volumeInfo : QMap<QString, QString>();
    m_pResultsTabControl->setResultModifiedFlag(loaded && record.bModified);
    m_pResultsTabControl->updateSavedResultsForSelSeqId(m_strSequenceID);
    m_strFileList = loaded ? record.fileList : QStringList();
}

/// The best unit on offer is the selected one.
void CHVVolumeVizPalette::rebuildUnitList(const SVolVizControls& record)
{
    UnitFacts facts;
    facts.volumeMin = record.dVolumeMin;
    facts.volumeMax = record.dVolumeMax;
    CPLSequenceInfo* info = m_pSequenceDataset ? m_pSequenceDataset->getSequenceInfo() : nullptr;
    const QString section = QStringLiteral("CT Acquisition Parameters");
    if (info && info->isSectionPresent(section)) {
        const CPLSection& acquisition = *(*info)[section];
        facts.reconstructedMin = numberOf(acquisition, QStringLiteral("Reconstructed Volume Min"));
        facts.reconstructedMax = numberOf(acquisition, QStringLiteral("Reconstructed Volume Max"));
        facts.air = numberOf(acquisition, QStringLiteral("Hounsfield Calibration Air"));
        facts.water = numberOf(acquisition, QStringLiteral("Hounsfield Calibration Water"));
    }
    const UnitRanges ranges = unitRanges(facts);
    if (m_pSequenceDataset) m_fUnitConversion = ranges.conversion;
    quietly(m_pMinMaxUnitCB, [&](QComboBox& combo) {
        combo.clear();
        combo.addItems(ranges.units());
        combo.setCurrentIndex(combo.count() - 1);
    });
    onMinMaxUnitCBIndexChanged(m_pMinMaxUnitCB->currentText());
    onShownUnitChanged(m_pMinMaxUnitCB->currentText());
}

/// The views of the host show values in the palette's unit as well.
void CHVVolumeVizPalette::onShownUnitChanged(QString unit)
{
    CGLVolume* node = PaletteTarget::of(m_pSequenceDataset).node;
    const auto range = rangeIn(unit, m_fUnitConversion);
    if (!node || !range) return;
    node->setProperty("valueUnit", unit);
    node->setProperty("valueAtLowest", static_cast<double>(range->front()));
    node->setProperty("valueAtHighest", static_cast<double>(range->back()));
}

bool CHVVolumeVizPalette::updateVolumeTab(const SVolVizControls& record)
{
    const QString id = m_strSequenceID;
    m_pLogarithmicHistogramCheckBox->setChecked(record.bLogHistogram);
    check(m_pMIPCheckBox, record.bMIP);
    check(m_pLightingCheckBox, record.bLighting);
    enableControl(m_pRenderEffectsDlgButton, record.bLighting);
    // Not quietly: their slots bring the setting to the node.
    const bool bestQuality = record.bBestQuality;
    m_pMedianFilterDenoiseCheckBox->setChecked(record.bMedianFilterDenoise);
    m_pBestRenderQualityCheckBox->setChecked(bestQuality);
    if (m_strSequenceID != id || !recordOf(id)) return false;
    // A box that stands right already runs no slot, and the slot without a volume ends before it.
    if (const CGLVolume* node = target().node)
        enableControl(m_pMedianFilterDenoiseCheckBox, !node->isRenderInBestPerformance());
    enableControl(m_pMIPCheckBox, record.bMIPEnabled);
    enableControl(m_pLightingCheckBox, record.bLightingEnabled);
    select(m_pColorTableCombo, record.nVolumeColorTable);
    showColorTable(m_pVolumePaletteView, record.nVolumeColorTable, record.bVolumeColorTableReverse);
    quietly(m_pLODSlider, [&](QSlider& slider) { slider.setValue(record.nLevelOfDetail); });
    return true;
}

void CHVVolumeVizPalette::updateSliceTab(const SVolVizControls& record)
{
    const SourceLimits limits{record.dVolumeMin, record.dVolumeMax};
    const int low = truncatedToInt(limits.min);
    const int high = truncatedToInt(limits.max);
    const double min = sourceValue(record.nSliceMin, limits);
    const double max = sourceValue(record.nSliceMax, limits);
    const auto showEnd = [&](QSlider* slider, QDoubleSpinBox* box, double value) {
        quietly(box, [&](QDoubleSpinBox& quiet) {
            quiet.setRange(limits.min, limits.max);
            quiet.setValue(value);
        });
        quietly(slider, [&](QSlider& quiet) {
            quiet.setRange(low, high);
            quiet.setValue(truncatedToInt(value));
        });
    };
    showEnd(m_pSliceMinIntensitySlider, m_pSliceMinIntensitySpinBox, min);
    showEnd(m_pSliceMaxIntensitySlider, m_pSliceMaxIntensitySpinBox, max);

    quietly(m_pSliceOpacitySlider, [&](QSlider& slider) {
        slider.setRange(record.nSliceOpacityMin, record.nSliceOpacityMax);
        slider.setValue(record.nSliceOpacity);
    });
    quietly(m_pSliceOpacitySpinBox, [&](QSpinBox& box) {
        box.setRange(record.nSliceOpacityMin, record.nSliceOpacityMax);
        box.setValue(record.nSliceOpacity);
    });
    select(m_pSliceColorTable, record.nSliceColorTable);
    showColorTable(m_pSlicePaletteView, record.nSliceColorTable, record.bSliceColorTableReverse);

    const bool byTransferFunction = record.nSliceColorSource != 0;
    quietly(m_pSliceColorButtonGroup, [&](QButtonGroup&) {
        (byTransferFunction ? m_pSliceUseTransferFunction : m_pSliceUseColorTable)->setChecked(true);
    });
    enableControl(m_pSliceColorTableGroupBox, !byTransferFunction);
    check(m_pSliceReverseColorMapCheck, record.bSliceColorTableReverse);
}
