#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/results/CHVSResultsTabControl.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVSPalettePixmapView.h"
#include "plugin/PaletteTarget.h"
#include "plugin/logic/SourceLimits.h"
#include "render/CGLVolume.h"
#include "transfer/CTransferFunction1DWidget.h"
#include "transfer/logic/AutoFit.h"
#include "transfer/logic/ColorTableStops.h"

void CHVVolumeVizPalette::onSelChangeVolumeColorTableCombo(int index)
{
    const bool byUser = qobject_cast<QComboBox*>(sender()) != nullptr;
    SVolVizControls* record = target().record;
    if (!record) return;
    record->nVolumeColorTable = index;
    record->bModified = true;
    updateVolumeColorMap(false);
    if (byUser && !m_pResultsTabControl->getResultModifiedFlag()) showAsModified();
    if (slicesUseTransferFunction()) onSliceColorTableOptionChanged(1);
}

void CHVVolumeVizPalette::onClickVolumeColorTableReverseCheckBox()
{
    SVolVizControls* record = target().record;
    if (!record) return;
    record->bVolumeColorTableReverse = m_pReverseColorMapCheck->isChecked();
    updateVolumeColorMap(false);
    if (slicesUseTransferFunction()) onClickSliceColorTableReverseCheckBox();
}

// The tables of a volume have no logarithmic scale.
void CHVVolumeVizPalette::onClickVolumeColorTableLogrithmicScaleCheckBox() {}

void CHVVolumeVizPalette::onClickClearTransferFunction()
{
    const bool byUser = qobject_cast<QToolButton*>(sender()) != nullptr;
    updateVolumeColorMap(true);
    if (byUser && !m_pResultsTabControl->getResultModifiedFlag()) showAsModified();
}

void CHVVolumeVizPalette::updateVolumeColorMap(bool bRecalcTransferPoints)
{
    const PaletteTarget now = target();
    if (!now.sequence) return;
    const bool reversed = m_pReverseColorMapCheck->isChecked();
    m_pVolumePaletteView->setPaletteCT(getColorTableType(m_pColorTableCombo->currentIndex()), 0.0F, 1.0F);
    m_pVolumePaletteView->setPaletteCTReverse(reversed);
    m_pVolumePaletteView->update();
    const bool hasScene = now.window && now.graph && now.graph->getRootNode();
    if (!hasScene || !now.node || !m_pTransferFunctionWidget) return;

    CILPalette palette = m_pVolumePaletteView->getPalette();
    const ColorTableView table{palette.getColorTableBuffer(), palette.getMaxIndex()};
    if (bRecalcTransferPoints) {
        m_pTransferFunctionWidget->setTransferStops(stopsOfColorTable(table, reversed));
    } else {
        HoverPoints* editor = m_pTransferFunctionWidget->hoverPoints();
        editor->setColors(
            colorsOfPoints(editor->points(), m_pTransferFunctionWidget->size(), table, reversed));
        m_pTransferFunctionWidget->pointsUpdated();
        m_pTransferFunctionWidget->update();
        editor->firePointChange();
    }
    onTransferFunctionChanged();
}

void CHVVolumeVizPalette::onClickAutoFitTB()
{
    const PaletteTarget now = target();
    if (!now.sequence || !now.record || !m_pTransferFunctionWidget) return;
    HoverPoints* editor = m_pTransferFunctionWidget->hoverPoints();
    ControlPoints chain;
    chain.points = editor->points();
    chain.colors = editor->colors();
    chain.locks = editor->locks();
    const AirEnd air = endOfAir(now.record->histogram);
    if (now.node) {
        const SourceLimits limits = sourceLimits(now.node->getMin(), now.node->getMax());
        onChangeSliceMinIntensitySliderValue(
            truncatedToInt(sourceValueOfBin(air.bin, limits.min, limits.max)));
    }
    const ControlPoints fitted = chainWithStep(chain, air, m_pTransferFunctionWidget->height());
    if (fitted.points.isEmpty()) return;
    editor->setPoints(fitted.points, fitted.colors);
    editor->setLocks(fitted.locks);
    editor->setSortType(HoverPoints::XSort);
    m_pTransferFunctionWidget->pointsUpdated();
    m_pTransferFunctionWidget->update();
    editor->firePointChange();
    onTransferFunctionChanged();
}
