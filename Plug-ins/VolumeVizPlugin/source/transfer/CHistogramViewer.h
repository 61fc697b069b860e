#pragma once

#include "transfer/HoverPoints.h"
#include "transfer/logic/HistogramBins.h"
#include "transfer/logic/UnitTexts.h"
#include "ui_CHistogramViewer.h"

#include <QDialog>
#include <QPolygonF>
#include <QSize>
#include <QStringList>
#include <QVector>

class CColorTableWidget;
class CTransferFunction1DWidget;

/// The histogram in a window of its own, with axes in real units, and the transfer function over it. Whoever
/// opens it hands the transfer function over in the pixels of a widget of its own, and gets every edit back
/// in the same pixels.
class CHistogramViewer : public QDialog, public Ui::CHistogramViewer
{
    Q_OBJECT

public:
    explicit CHistogramViewer(QWidget* parent = nullptr);

    CTransferFunction1DWidget* transferWidget() const { return m_pTransferWidget; }

    /// Size of the widget in whose pixels points come and go; at least one pixel each way counts.
    void setReferenceSize(const QSize& size);
    /// Shows this transfer function; the points are in pixels of the reference size.
    void setTransferFunction(const QPolygonF& points, const QVector<QRgb>& colors,
                             const QVector<HoverPoints::LockType>& locks);
    /// The bins, from which the logarithmic view is made, and the line that is shown at first, in pixels of
    /// the reference size.
    void setHistogram(const HistogramBins& bins, const QVector<QPointF>& line);
    /// The state of the check box, without a signal.
    void setLogarithmic(bool logarithmic);
    void setYAxisMax(double value);
    /// The units on offer and the one to show. Emits updateMinMaxUnitCB.
    void setUnits(const SUnitRanges& ranges, const QStringList& units, const QString& current);

public slots:
    void onClickDonePB();
    /// The user has ended an edit: tells of it in pixels of the reference size.
    void onPointsCommitted();
    void onToggleLogHistogramCB(bool logarithmic);
    /// Shows the range in that unit, at the labels and along the axis.
    void onMinMaxUnitCBIndexChanged(QString strUnit);

signals:
    void updateTransferFunction(QPolygonF points, QVector<QRgb> colors, QVector<HoverPoints::LockType> locks);
    void updateLogHistogramStatus(Qt::CheckState state);
    void updateMinMaxUnitCB(QString strUnit);

private:
    /// Pixels of the viewer for one of the reference size.
    double xRatio() const;
    double yRatio() const;

    CTransferFunction1DWidget* m_pTransferWidget;
    CColorTableWidget* m_pColorTableWidget;
    QPolygonF m_points;  ///< the transfer function as last received, in pixels of the reference size
    QVector<QRgb> m_colors;
    QVector<HoverPoints::LockType> m_locks;
    SUnitRanges m_ranges;
    HistogramBins m_histogram{};
    int m_refWidth = 1;
    int m_refHeight = 1;
};
