#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvimage/CILHistogram.h"
#include "hvimage/CILImage.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVProcess.h"
#include "hvutils/CHVUtilityFns.h"
#include "hvutils/adjustExpValue.h"
#include "plugin/PaletteTarget.h"
#include "plugin/PluginLog.h"
#include "plugin/WidgetSync.h"
#include "render/CGLVolume.h"
#include "transfer/CHistogramViewer.h"
#include "transfer/CTransferFunction1DWidget.h"
#include "transfer/logic/HistogramBins.h"

#include <QCursor>

namespace {

/// Tells the user that the histogram is being made, within a long process: that of the caller, or its own.
class HistogramProcess
{
public:
    HistogramProcess()
        : m_own(!CHVProcess::isProcessInProgress(eProcessAny))
    {
        if (m_own) CHVProcess::startLongProcess(0, eProcessGeneral, true, QStringLiteral("Aborting..."));
        CHVProcess::setProcessMessage(QStringLiteral("Computing volume histogram..."), nullptr);
        CHVUtilityFns::setCursor(QCursor(Qt::WaitCursor));
    }

    ~HistogramProcess()
    {
        if (m_own) CHVProcess::endLongProcess(eProcessGeneral);
        CHVUtilityFns::restoreCursor();
    }

    HistogramProcess(const HistogramProcess&) = delete;
    HistogramProcess& operator=(const HistogramProcess&) = delete;

private:
    const bool m_own;
};

/// Counts the voxels into `bins`; false when they can't be had.
bool countVoxels(CGLVolume& node, HistogramBins& bins)
{
    CILImage row;
    const long count = long(node.getWidth()) * node.getHeight() * node.getDepth();
    if (!row.initWithData(eTypeUInt8, count, 1, node.getVolumeData())) return false;
    row.RefreshImageStats();
    CILHistogram histogram;
    histogram.setImageMax(row.getMax());
    histogram.setImageMin(row.getMin());
    histogram.setMaxBins(bins.size());
    return row.Histogram(histogram) && histogram.getData(eTypeDouble, bins.data());
}

}  // namespace

void CHVVolumeVizPalette::updateVolumeHistogram()
{
    const PaletteTarget now = target();
    if (!now.sequence || !now.graph || !now.record) return;
    if (!now.node || !now.node->isValid()) {
        // Without a volume what is stored is shown as it is, whatever the check box says.
        const HistogramBins& stored = now.record->histogram;
        if (m_pTransferFunctionWidget)
            m_pTransferFunctionWidget->setHistogram(stored.data(), static_cast<int>(stored.size()));
        return;
    }
    if (m_bHistogramDirty && !computeHistogram()) return;
    showHistogram();
}

bool CHVVolumeVizPalette::computeHistogram()
{
    const HistogramProcess process;
    // The message may have been shown, and the sequence may have gone with the events of that.
    const PaletteTarget now = target();
    if (!now.node || !now.record) return false;
    if (!countVoxels(*now.node, now.record->histogram)) {
        logMessage(CHVSLog::eError,
                   QStringLiteral("Very low memory encountered - unable to calculate histogram."));
        return false;
    }
    m_bHistogramDirty = false;
    if (now.record->bAutoFit) onClickAutoFitTB();
    return true;
}

void CHVVolumeVizPalette::showHistogram()
{
    const SVolVizControls* record = target().record;
    if (!record || !m_pTransferFunctionWidget) return;
    const HistogramBins shown = record->bLogHistogram ? logarithms(record->histogram) : record->histogram;
    m_pTransferFunctionWidget->setHistogram(shown.data(), static_cast<int>(shown.size()));
}

void CHVVolumeVizPalette::onLogarithmicHistogramCheckBox(bool logarithmic)
{
    if (SVolVizControls* record = target().record) record->bLogHistogram = logarithmic;
    updateVolumeHistogram();
}

void CHVVolumeVizPalette::onMinMaxUnitCBIndexChanged(QString strUnit)
{
    RangeTexts texts = rangeTexts({m_fUnitConversion}, strUnit);
    adjustExpValue(texts.min);
    adjustExpValue(texts.max);
    m_pHistogramMinLabel->setText(texts.min);
    m_pHistogramMaxLabel->setText(texts.max);
    if (SVolVizControls* record = target().record) record->strUnit = strUnit;
}

void CHVVolumeVizPalette::onSignalupdateLogHistogramStatus(Qt::CheckState state)
{
    m_pLogarithmicHistogramCheckBox->setCheckState(state);
}

void CHVVolumeVizPalette::onSignalUpdateMinMaxUnitCB(QString strUnit)
{
    m_pMinMaxUnitCB->setCurrentIndex(m_pMinMaxUnitCB->findText(strUnit));
}

void CHVVolumeVizPalette::createHistogramViewer()
{
    m_pHistogramViewer = new CHistogramViewer(this);
    m_pHistogramViewer->transferWidget()->setMinimumSize(m_pTransferFunctionWidget->size());
    int width = 0;
    int height = 0;
    CHVPreference::getWindowsPreferredSize(width, height, true);
    m_pHistogramViewer->resize(width, height);
    centreOnScreen(*m_pHistogramViewer, *this);

    connect(m_pHistogramViewer,
            SIGNAL(updateTransferFunction(QPolygonF, QVector<QRgb>, QVector<HoverPoints::LockType>)), this,
            SLOT(onSignalUpdateTransferFunction(QPolygonF, QVector<QRgb>, QVector<HoverPoints::LockType>)));
    connect(m_pHistogramViewer, SIGNAL(updateLogHistogramStatus(Qt::CheckState)), this,
            SLOT(onSignalupdateLogHistogramStatus(Qt::CheckState)));
    connect(m_pHistogramViewer, SIGNAL(updateMinMaxUnitCB(QString)), this,
            SLOT(onSignalUpdateMinMaxUnitCB(QString)));
    connect(m_pHistogramViewer->m_pYAxisMaxSpinBox, SIGNAL(valueChanged(double)), this,
            SLOT(onHistogramYAxisMaxValueChanged(double)));
}

void CHVVolumeVizPalette::onClickHistogramWindowTB()
{
    const SVolVizControls* record = target().record;
    if (!record || !m_pTransferFunctionWidget) return;
    if (!m_pHistogramViewer) createHistogramViewer();
    CHistogramViewer& viewer = *m_pHistogramViewer;
    const CTransferFunction1DWidget& own = *m_pTransferFunctionWidget;

    viewer.show();
    viewer.transferWidget()->setMaxOpacity(own.maxOpacity());
    viewer.setReferenceSize(own.size());
    viewer.setTransferFunction(own.hoverPoints()->points(), own.hoverPoints()->colors(),
                               own.hoverPoints()->locks());
    viewer.setHistogram(record->histogram, own.histogramPoints());
    viewer.setYAxisMax(static_cast<double>(record->fHistogramYAxisMax));
    QStringList units;
    for (int i = 0; i < m_pMinMaxUnitCB->count(); ++i)
        units.append(m_pMinMaxUnitCB->itemText(i));
    viewer.setUnits({m_fUnitConversion}, units, m_pMinMaxUnitCB->currentText());
    viewer.setLogarithmic(m_pLogarithmicHistogramCheckBox->isChecked());
}

/// What it shows is another sequence's from now on.
void CHVVolumeVizPalette::closeHistogramViewer()
{
    if (m_pHistogramViewer) m_pHistogramViewer->reject();
}
