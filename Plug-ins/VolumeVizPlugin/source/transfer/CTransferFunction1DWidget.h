#pragma once

#include "transfer/HoverPoints.h"
#include "transfer/logic/TransferStops.h"

#include <QImage>
#include <QLinearGradient>
#include <QPointF>
#include <QPointer>
#include <QVector>
#include <QWidget>

class CColorTableWidget;

/// Shows the histogram of a volume and lets the user edit the transfer function over it: x is the voxel's
/// intensity, y its opacity (opaque at the top), and the points carry the colours. The chain of control
/// points becomes a gradient, the gradient a picture of the widget's size, and the picture a table of 256
/// entries for the volume.
class CTransferFunction1DWidget : public QWidget
{
    Q_OBJECT

public:
    /// The type of gradient with colour and opacity; a widget of any other type has no gradient.
    static constexpr int colorAndAlpha = 4;

    explicit CTransferFunction1DWidget(int type, QWidget* parent = nullptr);
    ~CTransferFunction1DWidget() override;

    HoverPoints* hoverPoints() const { return m_hoverPoints; }
    /// The strip that shows the gradient; it stays its owner's.
    void setColorTableWidget(CColorTableWidget* widget);

    /// Enables widget and editor.
    void setEnabled(bool enabled);

    /// Makes the gradient of these stops and shows it. Stops outside 0 to 1 are left out; without any stop
    /// the gradient is Qt's own, from black to white.
    void setGradientStops(const TransferStops& stops);
    /// Replaces the control points by those that stand for the stops.
    void setTransferStops(const TransferStops& stops);

    /// A new table of 256 entries R, G, B, A from the second row of the gradient's picture, colours as they
    /// are stored there: multiplied with their opacity. The caller deletes it with delete[]. Of the
    /// last picture while the widget has no area; all zero where there never was one.
    unsigned char* makeColorTable();

    /// Opacity at the top edge, 0 to 255; values outside are ignored.
    float maxOpacity() const { return m_maxOpacity; }
    void setMaxOpacity(float opacity);

    /// Shows `count` values as a line from the lowest (bottom) to the highest (top); nothing for null. Equal
    /// values show none.
    void setHistogram(const double* values, int count);
    /// The line of the histogram, in pixels.
    QVector<QPointF> histogramPoints() const { return m_histogramPoints; }
    void setHistogramPoints(const QVector<QPointF>& points);

    /// The values at the left and the right end of the x axis, and whether axes are drawn.
    void setAxisRange(float min, float max);
    void setShowAxes(bool show);

    /// Brings points and histogram to the widget's present size from the sizes that they were made for. A
    /// visible widget does so by itself with each new size, a hidden one when it is shown.
    void followSize();

    QSize sizeHint() const override;

public slots:
    /// The control points were replaced or edited: the gradient follows.
    void pointsUpdated();
    /// Vertical zoom of the histogram: the share of its height that fills the widget, above 0.
    void onYAxisMaxValueChanged(double val);

signals:
    /// The user has ended an edit.
    void colorsChanged();
    /// All points have followed the widget's size, by these factors.
    void pointsScaled(double xScale, double yScale);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// Paints the gradient anew where the widget has another size than its picture.
    void refreshImage();
    void paintGradient();
    void paintHistogram(QPainter& painter) const;

    QPointer<CColorTableWidget> m_colorTableWidget;
    const int m_type;
    QImage m_image;
    HoverPoints* m_hoverPoints;
    QLinearGradient m_gradient;
    QVector<QPointF> m_histogramPoints;
    float m_axisMin = 0.0F;
    float m_axisMax = 0.0F;
    bool m_showAxes = false;
    double m_yAxisMax = 1.0;
    float m_maxOpacity = 255.0F;

    QSize m_histogramSize;  ///< size of the widget that the histogram is in pixels of
};
