#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/results/CHVSResultsTabControl.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "plugin/PaletteTarget.h"
#include "render/CGLVolume.h"
#include "transfer/CColorTableWidget.h"
#include "transfer/CHistogramViewer.h"
#include "transfer/CTransferFunction1DWidget.h"

#include <memory>

namespace {

/// Opacity at the top of the widget for a position of the slider: 255 at its end.
float maxOpacityOf(int value, const QSlider& slider)
{
    return static_cast<float>(value * (255.0 / slider.maximum()));
}

void showPoints(CTransferFunction1DWidget& widget, const QPolygonF& points, const QVector<QRgb>& colors,
                const QVector<PointLock>& locks)
{
    widget.hoverPoints()->setPoints(points, colors);
    widget.hoverPoints()->setLocks(locks);
    widget.hoverPoints()->setSortType(HoverPoints::XSort);
    widget.pointsUpdated();
}

int sidesOf(const QLayout& layout)
{
    const QMargins margins = layout.contentsMargins();
    return margins.left() + margins.right();
}

}  // namespace

CTransferFunction1DWidget* CHVVolumeVizPalette::transferFunctionWidget() const
{
    return m_pTransferFunctionWidget;
}

void CHVVolumeVizPalette::createTransferFunction()
{
    constexpr int height = 185;
    auto* layout = new QVBoxLayout(m_pTransferFnGroup);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    m_pTransferFunctionWidget =
        new CTransferFunction1DWidget(CTransferFunction1DWidget::colorAndAlpha, m_pTransferFnGroup);
    m_pTransferFunctionWidget->setFixedHeight(height);
    m_pTransferFunctionWidget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_pTransferFunctionWidget->setEnabled(false);
    // Its pixels count before it is first shown: a volume may be loaded into a palette that never was.
    m_pTransferFunctionWidget->resize(
        sizeHint().width() - sidesOf(*volumeTabLayout) - sidesOf(*volumeGroupLayout), height);
    auto* strip = new CColorTableWidget(m_pTransferFnGroup);
    m_pTransferFunctionWidget->setColorTableWidget(strip);
    layout->addWidget(m_pTransferFunctionWidget);
    layout->addWidget(strip);
    m_pTransferFnGroup->setFixedHeight(height + strip->sizeHint().height());
    connect(m_pTransferFunctionWidget, SIGNAL(colorsChanged()), this, SLOT(onTransferFunctionChanged()));
    connect(m_pTransferFunctionWidget, SIGNAL(pointsScaled(double, double)), this,
            SLOT(onTransferPointsScaled(double, double)));
}

void CHVVolumeVizPalette::onTransferFunctionChanged()
{
    const bool byUser = qobject_cast<CTransferFunction1DWidget*>(sender()) != nullptr;
    const PaletteTarget now = target();
    if (!m_pTransferFunctionWidget || !now.record || !now.window || !now.window->getWindow3DSGManager() ||
        !now.node)
        return;
    const QString id = m_strSequenceID;
    const std::unique_ptr<unsigned char[]> table(m_pTransferFunctionWidget->makeColorTable());
    now.node->setVolumeColorTable(table.get());
    if (now.scene) now.scene->refresh();
    // A frame may tell the user of a driver's failure, and the sequence may go meanwhile.
    if (m_strSequenceID != id || !recordOf(id)) return;
    if (slicesUseTransferFunction()) onSliceColorTableOptionChanged(1);
    if (byUser && !m_pResultsTabControl->getResultModifiedFlag()) {
        now.record->bModified = true;
        showAsModified();
    }
    const HoverPoints& editor = *m_pTransferFunctionWidget->hoverPoints();
    now.record->transferPoints = editor.points();
    now.record->transferColors = editor.colors();
    now.record->transferLocks = editor.locks();
}

void CHVVolumeVizPalette::onOpacitySliderReleased()
{
    const PaletteTarget now = target();
    if (!m_pTransferFunctionWidget || !now.record || !now.sequence) return;
    const int value = m_pOpacitySlider->value();
    now.record->nOpacitySlider = value;
    m_pTransferFunctionWidget->setMaxOpacity(maxOpacityOf(value, *m_pOpacitySlider));
    m_pTransferFunctionWidget->pointsUpdated();
    onTransferFunctionChanged();
}

void CHVVolumeVizPalette::onHistogramYAxisMaxValueChanged(double value)
{
    label->setText(QStringLiteral("%1 <b> Opacity </b>").arg(value, 0, 'g'));
    if (!m_pTransferFunctionWidget) return;
    m_pTransferFunctionWidget->onYAxisMaxValueChanged(value);
    if (SVolVizControls* record = target().record) record->fHistogramYAxisMax = static_cast<float>(value);
    m_pTransferFunctionWidget->update();
}

void CHVVolumeVizPalette::onSignalUpdateTransferFunction(const QPolygonF& points, const QVector<QRgb>& colors,
                                                         const QVector<HoverPoints::LockType>& locks)
{
    if (!m_pTransferFunctionWidget) return;
    showPoints(*m_pTransferFunctionWidget, points, colors, locks);
    onTransferFunctionChanged();
}

void CHVVolumeVizPalette::updateTransferFnWidget(SVolVizControls* pVolVizControls)
{
    if (!m_pTransferFunctionWidget || !pVolVizControls) return;
    m_pTransferFunctionWidget->setEnabled(pVolVizControls->bEnabled);
    m_pTransferFunctionWidget->followSize();  // which the record's points follow, too
    // The opacity of another sequence must not get into this one's table.
    m_pTransferFunctionWidget->setMaxOpacity(
        maxOpacityOf(pVolVizControls->nOpacitySlider, *m_pOpacitySlider));
    showPoints(*m_pTransferFunctionWidget, pVolVizControls->transferPoints, pVolVizControls->transferColors,
               pVolVizControls->transferLocks);
    if (m_pHistogramViewer)
        m_pHistogramViewer->setYAxisMax(static_cast<double>(pVolVizControls->fHistogramYAxisMax));
}

/// Records keep their points in the pixels of the widget, so those of every sequence follow its size.
void CHVVolumeVizPalette::onTransferPointsScaled(double xScale, double yScale)
{
    for (SVolVizControls& record : m_mapVolVizControls)
        for (QPointF& point : record.transferPoints)
            point = {point.x() * xScale, point.y() * yScale};
}
