#include "plugin/WidgetSync.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QScreen>

namespace {

/// The controls that have their slots.
constexpr const char* wiredControls[] = {
    "m_pVolumeInfoDialogButton",
    "m_pVolumeButtonGroup",
    "m_pLODSlider",
    "m_pResetLODButton",
    "m_pTransformToolBtn",
    "m_pTransformResetBtn",
    "m_pCroptoolButton",
    "m_pCropResetBtn",
    "m_pBestRenderQualityCheckBox",
    "m_pLightingCheckBox",
    "m_pMedianFilterDenoiseCheckBox",
    "m_pMIPCheckBox",
    "m_pRenderEffectsDlgButton",
    "m_pOpacitySlider",
    "m_pColorTableCombo",
    "m_pReverseColorMapCheck",
    "m_pAutoFitToolButton",
    "m_pClearToolButton",
    "m_pHistogramWindowTB",
    "m_pMinMaxUnitCB",
    "m_pLogarithmicHistogramCheckBox",
    "m_pSliceUseColorTable",
    "m_pSliceUseTransferFunction",
    "m_pSliceColorTableGroupBox",
    "m_pSliceColorTable",
    "m_pSliceReverseColorMapCheck",
    "m_pSliceMinIntensitySlider",
    "m_pSliceMinIntensitySpinBox",
    "m_pSliceMaxIntensitySlider",
    "m_pSliceMaxIntensitySpinBox",
    "m_pSliceOpacitySlider",
    "m_pSliceOpacitySpinBox",
    "m_pSliceViewerGBox",
    "m_pSliceOrientation",
    "m_pSliceViewerSlider",
    "m_pExpandSliceView",
};

bool isControl(const QWidget* widget)
{
    if (!widget->objectName().startsWith(QLatin1String("m_p"))) return false;
    return qobject_cast<const QGroupBox*>(widget) || qobject_cast<const QAbstractButton*>(widget) ||
           qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractSlider*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget);
}

}  // namespace

void centreOnScreen(QWidget& window, const QWidget& reference)
{
    QRect place(QPoint(0, 0), window.size());
    place.moveCenter(reference.screen()->availableGeometry().center());
    window.move(place.topLeft());
}

bool isWired(const QString& controlName)
{
    for (const char* wired : wiredControls)
        if (controlName == QLatin1String(wired)) return true;
    return false;
}

void enableControl(QWidget* control, bool enabled)
{
    control->setEnabled(enabled && isWired(control->objectName()));
}

void disableUnwiredControls(QWidget* form)
{
    const QList<QWidget*> widgets = form->findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const QWidget* control = label ? label->buddy() : widget;
        if (control && isControl(control) && !isWired(control->objectName())) widget->setEnabled(false);
    }
}
