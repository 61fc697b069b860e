#include "slices/CVolumeSliceLayout.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "render/CGLVolume.h"
#include "slices/CHVMultiVolumeSliceView.h"

#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr double kLeastRange = 0.1;  // mm, kept between the two ends
constexpr int kSpacingLabelWidth = 70;
constexpr int kThicknessLabelWidth = 75;

template <class Widget, class Change>
void quietly(Widget* widget, Change change)
{
    const QSignalBlocker blocker(widget);
    change(*widget);
}

}  // namespace

CVolumeSliceLayout::CVolumeSliceLayout(QWidget* parent, const char* name, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setupUi(this);
    setObjectName(QString::fromLatin1(name));
    m_pSpacingLbl->setFixedWidth(kSpacingLabelWidth);
    m_pPositionControls->hide();
    connectControls();
}

CVolumeSliceLayout::~CVolumeSliceLayout()
{
    delete m_view;  // before the controls that it may still call
}

CHVMultiVolumeSliceView* CVolumeSliceLayout::view() const
{
    return m_view;
}

void CVolumeSliceLayout::connectControls()
{
    connect(m_pThickSliceGBox, SIGNAL(toggled(bool)), this, SLOT(onClickThickSliceCB()));
    connect(m_pLightingRB, SIGNAL(toggled(bool)), this, SLOT(onLightingToggled(bool)));
    connect(m_pMIPRB, SIGNAL(toggled(bool)), this, SLOT(onMIPToggled(bool)));
    connect(m_pOrientationCB, SIGNAL(currentIndexChanged(int)), this, SLOT(onSliceViewComboboxChanged(int)));
    connect(m_pMinSpinBox, SIGNAL(valueChanged(double)), this, SLOT(onChangeMinSpinBox(double)));
    connect(m_pMaxSpinBox, SIGNAL(valueChanged(double)), this, SLOT(onChangeMaxSpinBox(double)));
    connect(m_pSpanSlider, SIGNAL(lowerValueChanged(int)), this, SLOT(onChangeLowerSpan(int)));
    connect(m_pSpanSlider, SIGNAL(upperValueChanged(int)), this, SLOT(onChangeUpperSpan(int)));
    connect(m_pSpacingSpinBox, SIGNAL(valueChanged(double)), this, SLOT(onSliceSpacingChanged(double)));
    connect(m_pPositionSlider, SIGNAL(valueChanged(int)), this, SLOT(onVolumeSliceViewerSliderChange(int)));
    connect(m_pPositionSpinBox, SIGNAL(valueChanged(double)), this, SLOT(onChangePositionSpinBox(double)));
    connect(m_pZoomInTB, SIGNAL(clicked()), this, SLOT(onClickZoomIn()));
    connect(m_pZoomOutTB, SIGNAL(clicked()), this, SLOT(onClickZoomOut()));
    connect(m_pZoomResetTB, SIGNAL(clicked()), this, SLOT(onClickZoomReset()));
    connect(m_pSingleViewTB, SIGNAL(clicked()), this, SLOT(onDoubleClickSingleSlice()));
    connect(m_pExportTB, SIGNAL(clicked()), this, SLOT(exportGraphics()));
    connect(m_pClosePB, SIGNAL(clicked()), this, SLOT(onClickClose()));
}

void CVolumeSliceLayout::bindSequenceWindow(CHVSSequenceWindow* window)
{
    if (!window) return;
    C3DSGManager* graph = window->getWindow3DSGManager();
    if (!m_view) {
        m_view = new CHVMultiVolumeSliceView(m_pScrollArea, graph, QStringLiteral("CHVMultiVolumeSliceView"),
                                             window->get3DScene());
        m_view->setMargin(1);
        m_pScrollArea->setWidget(m_view);
        connect(m_view, SIGNAL(signalDoubleMouseButtonClicked()), this, SLOT(onDoubleClickSingleSlice()));
    }
    auto* node = graph ? dynamic_cast<CGLVolume*>(graph->getNode(QStringLiteral("GLVolume"))) : nullptr;
    if (node) updateFromVolume(node);
}

void CVolumeSliceLayout::setOrientationText(QString text)
{
    const int index = m_pOrientationCB->findText(text, Qt::MatchFixedString);
    if (index < 0) return;
    quietly(m_pOrientationCB, [&](QComboBox& combo) { combo.setCurrentIndex(index); });
    updateOrientation();
}

void CVolumeSliceLayout::updateFromVolume(CGLVolume* node)
{
    if (!node) return;
    node->getBBox(m_box.min, m_box.max);
    setAxisRange(m_box.min.z, m_box.max.z);
    onChangeMaxSpinBox(m_pMaxSpinBox->value());
    onChangeMinSpinBox(m_pMinSpinBox->value());
    const float spacing = startSpacing(m_pMinSpinBox->value(), m_pMaxSpinBox->value());
    quietly(m_pSpacingSpinBox, [&](QDoubleSpinBox& box) { box.setValue(spacing); });
    updateTotal();
    updateOrientation();
}

/// The two ends and their limits, without a word to anybody.
void CVolumeSliceLayout::setAxisRange(double min, double max)
{
    quietly(m_pMinSpinBox, [&](QDoubleSpinBox& box) {
        box.setRange(min, max - kLeastRange);
        box.setValue(min);
    });
    quietly(m_pMaxSpinBox, [&](QDoubleSpinBox& box) {
        box.setRange(min + kLeastRange, max);
        box.setValue(max);
    });
    quietly(m_pSpanSlider, [&](QSpanSlider& slider) {
        slider.setLowerValue(slider.minimum());
        slider.setUpperValue(slider.maximum());
    });
    // The form's limits hold for small volumes; a larger one must be reached as a whole.
    quietly(m_pPositionSpinBox,
            [&](QDoubleSpinBox& box) { box.setRange(std::min(-99.0, min), std::max(99.99, max)); });
}

void CVolumeSliceLayout::onSliceViewComboboxChanged(int)
{
    updateOrientation();
}

void CVolumeSliceLayout::updateOrientation()
{
    const auto orientation = sliceOrientationOf(m_pOrientationCB->currentText());
    if (!orientation || !m_view) return;
    m_view->setOrientation(*orientation);
    const SliceExtent range = m_box.along(*orientation);
    setAxisRange(range.low, range.high);
    updateSlices();
    if (m_view->isSingleView()) onChangePositionSpinBox(m_pPositionSpinBox->value());
}

void CVolumeSliceLayout::updateTotal()
{
    const int total = totalSlices(m_pMinSpinBox->value(), m_pMaxSpinBox->value(), m_pSpacingSpinBox->value());
    m_pTotalSlicesLbl->setText(QStringLiteral("Total Slices: %1").arg(total));
}

void CVolumeSliceLayout::updateSlices()
{
    updateTotal();
    if (!m_view) return;
    m_view->setSliceRange(static_cast<float>(m_pMinSpinBox->value()),
                          static_cast<float>(m_pMaxSpinBox->value()), m_pSpacingSpinBox->value());
    m_view->update();
}

// Range

SliderRange CVolumeSliceLayout::spanRange() const
{
    return {m_pSpanSlider->minimum(), m_pSpanSlider->maximum()};
}

int CVolumeSliceLayout::spanPosition(double value) const
{
    return sliderPosition(value, m_pMinSpinBox->minimum(), m_pMaxSpinBox->maximum(), spanRange());
}

float CVolumeSliceLayout::spanValue(int position) const
{
    return sliderValue(position, m_pMinSpinBox->minimum(), m_pMaxSpinBox->maximum(), spanRange());
}

void CVolumeSliceLayout::onChangeMinSpinBox(double value)
{
    quietly(m_pSpanSlider, [&](QSpanSlider& slider) { slider.setLowerValue(spanPosition(value)); });
    quietly(m_pMaxSpinBox, [&](QDoubleSpinBox& box) { box.setMinimum(value); });
    updateSlices();
}

void CVolumeSliceLayout::onChangeMaxSpinBox(double value)
{
    quietly(m_pSpanSlider, [&](QSpanSlider& slider) { slider.setUpperValue(spanPosition(value)); });
    quietly(m_pMinSpinBox, [&](QDoubleSpinBox& box) { box.setMaximum(value); });
    updateSlices();
}

void CVolumeSliceLayout::onChangeLowerSpan(int value)
{
    const double low = spanValue(value);
    quietly(m_pMinSpinBox, [&](QDoubleSpinBox& box) {
        box.setMaximum(std::max(box.maximum(), low));  // a handle pushes the other one along
        box.setValue(low);
    });
    quietly(m_pMaxSpinBox, [&](QDoubleSpinBox& box) { box.setMinimum(m_pMinSpinBox->value()); });
    updateSlices();
}

void CVolumeSliceLayout::onChangeUpperSpan(int value)
{
    const double high = spanValue(value);
    quietly(m_pMaxSpinBox, [&](QDoubleSpinBox& box) {
        box.setMinimum(std::min(box.minimum(), high));
        box.setValue(high);
    });
    quietly(m_pMinSpinBox, [&](QDoubleSpinBox& box) { box.setMaximum(m_pMaxSpinBox->value()); });
    updateSlices();
}

void CVolumeSliceLayout::onSliceSpacingChanged(double)
{
    updateSlices();
    m_pTotalSlicesLbl->setText(m_pTotalSlicesLbl->text() + QLatin1Char(' '));
}

// Slabs

void CVolumeSliceLayout::onClickThickSliceCB()
{
    const bool thick = m_pThickSliceGBox->isChecked();
    m_pSpacingLbl->setText(thick ? QStringLiteral("Slice Thickness:") : QStringLiteral("Slice Spacing:"));
    m_pSpacingLbl->setFixedWidth(thick ? kThicknessLabelWidth : kSpacingLabelWidth);
    if (m_view) m_view->setThickSliceMode(thick);
    if (thick) {
        onMIPToggled(m_pMIPRB->isChecked());
        onLightingToggled(m_pLightingRB->isChecked());
    } else if (m_view) {
        m_view->update();
    }
    updateOrientation();
}

void CVolumeSliceLayout::onMIPToggled(bool bVal)
{
    if (!bVal || !m_view) return;
    m_view->setMIP(true);
    m_view->setLighting(false);
    m_view->update();
}

void CVolumeSliceLayout::onLightingToggled(bool bVal)
{
    if (!bVal || !m_view) return;
    m_view->setLighting(true);
    m_view->setMIP(false);
    m_view->update();
}

// One slice

void CVolumeSliceLayout::onDoubleClickSingleSlice()
{
    if (!m_view) return;
    m_view->setUpdatesEnabled(false);
    if (m_view->isSingleView()) {
        m_view->setSingleViewMode(false);
        m_view->restoreZoom();
        showModeOfView();
    } else {
        const double position = m_view->hasSelection() ? m_view->selectedPosition() : 0.0;
        m_view->setShowLabel(true);
        m_view->setSingleViewMode(true);
        m_view->restoreZoom();
        showModeOfView();
        quietly(m_pPositionSpinBox, [&](QDoubleSpinBox& box) { box.setValue(position); });
        onChangePositionSpinBox(position);
    }
    m_view->setUpdatesEnabled(true);
}

void CVolumeSliceLayout::showModeOfView()
{
    const bool single = m_view->isSingleView();
    m_pPositionControls->setVisible(single);
    m_pRangeControls->setVisible(!single);
    m_pSingleViewTB->setIcon(QIcon(single ? QStringLiteral(":/resource/switchToMultiView.xpm")
                                          : QStringLiteral(":/resource/switchToSingleView.xpm")));
    const QString tip =
        single ? QStringLiteral("Switch to Multi View") : QStringLiteral("Switch to Single View");
    m_pSingleViewTB->setToolTip(tip);
    m_pSingleViewTB->setAccessibleName(tip);
}

void CVolumeSliceLayout::onVolumeSliceViewerSliderChange(int nValue)
{
    const double share = static_cast<double>(nValue - m_pPositionSlider->minimum()) /
                         (m_pPositionSlider->maximum() - m_pPositionSlider->minimum());
    const double low = m_pMinSpinBox->value();
    const double position = share * (m_pMaxSpinBox->value() - low) + low;
    quietly(m_pPositionSpinBox, [&](QDoubleSpinBox& box) { box.setValue(position); });
    if (!m_view) return;
    m_view->setSinglePosition(static_cast<float>(position));
    m_view->update();
}

void CVolumeSliceLayout::onChangePositionSpinBox(double value)
{
    const SliderRange slider{m_pPositionSlider->minimum(), m_pPositionSlider->maximum()};
    const int place = sliderPosition(value, m_pMinSpinBox->value(), m_pMaxSpinBox->value(), slider);
    quietly(m_pPositionSlider, [&](QSlider& quiet) { quiet.setValue(place); });
    if (!m_view) return;
    m_view->setSinglePosition(static_cast<float>(value));
    m_view->update();
}

// Zoom, window

void CVolumeSliceLayout::onClickZoomIn()
{
    if (m_view) m_view->zoomIn();
}

void CVolumeSliceLayout::onClickZoomOut()
{
    if (m_view) m_view->zoomOut();
}

void CVolumeSliceLayout::onClickZoomReset()
{
    if (m_view) m_view->resetZoom();
}

void CVolumeSliceLayout::onClickClose()
{
    close();
}
