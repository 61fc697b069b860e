#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVSPalettePixmapView.h"
#include "plugin/PaletteTarget.h"
#include "plugin/PluginLog.h"
#include "plugin/SceneRefresh.h"
#include "plugin/WidgetSync.h"
#include "plugin/logic/SourceLimits.h"
#include "render/CGLVolume.h"
#include "slices/CHVMultiVolumeSliceView.h"
#include "slices/CVolumeSliceLayout.h"

#include <QButtonGroup>

namespace {

constexpr QSize kLayoutSize(800, 575);

}  // namespace

void CHVVolumeVizPalette::connectSliceControls()
{
    connect(m_pSliceColorButtonGroup, SIGNAL(buttonClicked(int)), this,
            SLOT(onSliceColorTableOptionChanged(int)));
    connect(m_pSliceColorTable, SIGNAL(currentIndexChanged(int)), this,
            SLOT(onSelChangeSliceColorTableCombo(int)));
    connect(m_pSliceReverseColorMapCheck, SIGNAL(clicked()), this,
            SLOT(onClickSliceColorTableReverseCheckBox()));
    connect(m_pSliceOpacitySlider, SIGNAL(valueChanged(int)), this, SLOT(onSliceOpacitySliderChanged(int)));
    connect(m_pSliceOpacitySpinBox, SIGNAL(valueChanged(int)), this, SLOT(onSliceOpacitySliderChanged(int)));
    connect(m_pSliceMinIntensitySlider, SIGNAL(valueChanged(int)), this,
            SLOT(onChangeSliceMinIntensitySliderValue(int)));
    connect(m_pSliceMinIntensitySpinBox, SIGNAL(valueChanged(double)), this,
            SLOT(onChangeSliceMinIntensitySpinBoxValue(double)));
    connect(m_pSliceMaxIntensitySlider, SIGNAL(valueChanged(int)), this,
            SLOT(onChangeSliceMaxInstensitySliderValue(int)));
    connect(m_pSliceMaxIntensitySpinBox, SIGNAL(valueChanged(double)), this,
            SLOT(onChangeSliceMaxIntensitySpinBoxValue(double)));
    connect(m_pSliceViewerSlider, SIGNAL(valueChanged(int)), this,
            SLOT(onVolumeSliceViewerSliderChange(int)));
    connect(m_pSliceOrientation, SIGNAL(currentIndexChanged(int)), this,
            SLOT(onVolumeSliceOrientationChange(int)));
    connect(m_pExpandSliceView, SIGNAL(clicked()), this, SLOT(onClickSliceLayoutWindowTB()));
    connect(VolumeVizTabWidget, SIGNAL(currentChanged(int)), this, SLOT(onVolumeVizTabChanged(int)));
}

// Colours

void CHVVolumeVizPalette::redrawSlices(const PaletteTarget& now)
{
    SceneRefresh::slicesRecoloured(now.scene, now.node);
    updateSliceView();
}

void CHVVolumeVizPalette::updateSliceView()
{
    if (m_pSliceView) m_pSliceView->update();
}

bool CHVVolumeVizPalette::slicesUseTransferFunction() const
{
    return m_pSliceUseTransferFunction->isChecked();
}

void CHVVolumeVizPalette::onSliceOpacitySliderChanged(int nValue)
{
    quietly(m_pSliceOpacitySlider, [&](QSlider& slider) { slider.setValue(nValue); });
    quietly(m_pSliceOpacitySpinBox, [&](QSpinBox& box) { box.setValue(nValue); });
    const PaletteTarget now = target();
    if (!now.record || !now.node) return;
    now.record->nSliceOpacity = nValue;
    now.node->setSliceOpacity(static_cast<float>(nValue / 100.0));
    redrawSlices(now);
}

void CHVVolumeVizPalette::markSliceEdit()
{
    const QObject* by = sender();
    if (qobject_cast<const QAbstractSlider*>(by) || by == m_pAutoFitToolButton)
        setResultsModifiedForSequence(true);
}

void CHVVolumeVizPalette::onChangeSliceMinIntensitySliderValue(int nValue)
{
    markSliceEdit();
    const PaletteTarget now = target();
    if (now.record && now.node) {
        now.record->nSliceMin = nValue;
        const SourceLimits limits{now.record->dVolumeMin, now.record->dVolumeMax};
        now.node->setSliceMin(static_cast<float>(sourceValue(nValue, limits)));
        redrawSlices(now);
    }
    quietly(m_pSliceMaxIntensitySlider, [&](QSlider& slider) { slider.setMinimum(nValue); });
    quietly(m_pSliceMaxIntensitySpinBox, [&](QDoubleSpinBox& box) { box.setMinimum(nValue); });
    quietly(m_pSliceMinIntensitySpinBox, [&](QDoubleSpinBox& box) { box.setValue(nValue); });
}

void CHVVolumeVizPalette::onChangeSliceMaxInstensitySliderValue(int nValue)
{
    markSliceEdit();
    const PaletteTarget now = target();
    if (now.record && now.node) {
        now.record->nSliceMax = nValue;
        const SourceLimits limits{now.record->dVolumeMin, now.record->dVolumeMax};
        now.node->setSliceMax(static_cast<float>(sourceValue(nValue, limits)));
        redrawSlices(now);
    }
    quietly(m_pSliceMinIntensitySlider, [&](QSlider& slider) { slider.setMaximum(nValue); });
    quietly(m_pSliceMinIntensitySpinBox, [&](QDoubleSpinBox& box) { box.setMaximum(nValue); });
    quietly(m_pSliceMaxIntensitySpinBox, [&](QDoubleSpinBox& box) { box.setValue(nValue); });
}

void CHVVolumeVizPalette::onChangeSliceMinIntensitySpinBoxValue(double fValue)
{
    m_pSliceMinIntensitySlider->setValue(truncatedToInt(fValue));
}

void CHVVolumeVizPalette::onChangeSliceMaxIntensitySpinBoxValue(double fValue)
{
    m_pSliceMaxIntensitySlider->setValue(truncatedToInt(fValue));
}

void CHVVolumeVizPalette::onSliceColorTableOptionChanged(int id)
{
    const PaletteTarget now = target();
    if (!now.record) return;
    now.record->nSliceColorSource = id;
    enableControl(m_pSliceColorTableGroupBox, id == 0);
    enableControl(m_pSliceColorTable, id == 0);
    if (!now.node) return;
    now.node->setSliceUseTransferFunction(id != 0);
    if (id != 0)
        redrawSlices(now);
    else
        updateSliceColorMap();
}

void CHVVolumeVizPalette::onSelChangeSliceColorTableCombo(int index)
{
    SVolVizControls* record = target().record;
    if (!record) return;
    record->nSliceColorTable = index;
    setResultsModifiedForSequence(true);
    updateSliceColorMap();
}

void CHVVolumeVizPalette::onClickSliceColorTableReverseCheckBox()
{
    SVolVizControls* record = target().record;
    if (!record) return;
    record->bSliceColorTableReverse = m_pSliceReverseColorMapCheck->isChecked();
    updateSliceColorMap();
}

void CHVVolumeVizPalette::updateSliceColorMap()
{
    const PaletteTarget now = target();
    if (!now.record) return;
    const HVS_COLORTABLE_TYPES type = getColorTableType(m_pSliceColorTable->currentIndex());
    const bool reversed = now.record->bSliceColorTableReverse;
    if (now.node) {
        now.node->setSliceColorTable(type, reversed, false);
        redrawSlices(now);
    }
    m_pSlicePaletteView->setPaletteCT(type, 0.0F, 1.0F);
    m_pSlicePaletteView->setPaletteCTReverse(reversed);
}

// The slice viewer of the Slice tab

void CHVVolumeVizPalette::createSliceView(const PaletteTarget& now)
{
    if (!now.window || !now.scene || !now.graph || m_pSliceView) return;
    m_pSliceView =
        new CHVMultiVolumeSliceView(m_pSliceViewerFrame, now.graph, QStringLiteral("SliceView"), now.scene);
    connect(m_pSliceView, SIGNAL(signalDoubleMouseButtonClicked()), this, SLOT(onClickSliceLayoutWindowTB()));
    m_pSliceView->setMargin(1);
    m_pSliceView->setSingleViewMode(true);
    m_pSliceView->setOrientation(AxisY);
    onVolumeSliceViewerSliderChange(0);
    m_pSliceViewLayout->addWidget(m_pSliceView, 1, 0, 1, 1);
}

void CHVVolumeVizPalette::dropSliceViews()
{
    delete m_pSliceLayoutDialog;
    if (!m_pSliceView) return;
    m_pSliceViewLayout->removeWidget(m_pSliceView);
    delete m_pSliceView;
}

void CHVVolumeVizPalette::onVolumeSliceViewerSliderChange(int)
{
    const PaletteTarget now = target();
    const auto orientation = sliceOrientationOf(m_pSliceOrientation->currentText());
    if (!m_pSliceView || !now.node || !orientation) return;
    m_pSliceView->setOrientation(*orientation);
    SliceBox box;
    now.node->getBBox(box.min, box.max);
    const SliceExtent range = box.along(*orientation);
    const QSlider& slider = *m_pSliceViewerSlider;
    const double share =
        static_cast<double>(slider.value() - slider.minimum()) / (slider.maximum() - slider.minimum());
    const auto position = static_cast<float>(share * (range.high - range.low) + range.low);
    if (m_pSliceView->tileCount() == 0) m_pSliceView->setSingleSlice(position);
    m_pSliceView->setSinglePosition(position);
    m_pSliceViewerPositionLabel->setText(
        QStringLiteral("Position:%1").arg(static_cast<double>(position), 0, 'g'));
    m_pSliceView->update();
}

void CHVVolumeVizPalette::onVolumeSliceOrientationChange(int)
{
    const auto orientation = sliceOrientationOf(m_pSliceOrientation->currentText());
    if (!m_pSliceView || !orientation || !target().node) return;
    m_pSliceView->setOrientation(*orientation);
    m_pSliceView->setSingleSlice(0.0F);
    onVolumeSliceViewerSliderChange(m_pSliceViewerSlider->value());
}

void CHVVolumeVizPalette::onVolumeVizTabChanged(int)
{
    if (!m_pSequenceDataset || !is3DCVSupported() || VolumeVizTabWidget->currentWidget() != sliceTab) return;
    if (!validateSequence(m_pSequenceDataset) || m_pSliceView) return;
    createSliceView(target());
    onVolumeSliceViewerSliderChange(0);
}

void CHVVolumeVizPalette::onCroppingEquationChanged(bool)
{
    if (m_pSliceView) onVolumeSliceOrientationChange(-1);
}

void CHVVolumeVizPalette::onVolumeDataChanged()
{
    const PaletteTarget now = target();
    if (!now.window)
        logMessage(CHVSLog::eError, QStringLiteral("Invalid sequence window handle to proceed."));
    if (!now.window || !now.node) return;
    SceneRefresh::voxelsChanged(now.scene, now.node);
    updateSliceView();
}

void CHVVolumeVizPalette::onClickSliceLayoutWindowTB()
{
    CHVSSequenceWindow* window = target().window;
    if (!window) return;
    if (!m_pSliceLayoutDialog) {
        m_pSliceLayoutDialog =
            new CVolumeSliceLayout(window, "Volume Slice Layout", Qt::Dialog | Qt::WindowMaximizeButtonHint);
        m_pSliceLayoutDialog->setWindowFlags(m_pSliceLayoutDialog->windowFlags() | Qt::WindowCloseButtonHint);
    }
    centreOnScreen(*m_pSliceLayoutDialog, *this);
    m_pSliceLayoutDialog->bindSequenceWindow(window);
    m_pSliceLayoutDialog->setOrientationText(m_pSliceOrientation->currentText());
    m_pSliceLayoutDialog->setModal(true);
    const bool wasMaximised = m_pSliceLayoutDialog->isMaximized();
    m_pSliceLayoutDialog->showNormal();
    if (wasMaximised) m_pSliceLayoutDialog->resize(kLayoutSize);
}
