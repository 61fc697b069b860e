#pragma once

#include <QLineF>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QVector>

/// Ticks of an axis as the host chooses them.
struct AxisRange
{
    int majorTicks = 0;
    double minorStep = 0.0;
    double firstMajor = 0.0;  ///< value of the first major tick, above the axis' minimum
    double majorStep = 0.0;
    double fraction = 0.0;  ///< place of the first major tick as a share of the axis
};

struct AxisLabel
{
    QPointF at;  ///< left end of the baseline
    QString text;
};

/// What is drawn of an axis, in the pixels of its widget.
struct AxisDrawing
{
    QVector<QLineF> ticks;  ///< minor ones 10 pixels long, major ones 20
    QVector<QLineF> grid;   ///< lines across the widget
    QVector<AxisLabel> labels;
};

/// The axis along the bottom edge, from `min` at the left. Ticks stand at the true places of their values,
/// also where the axis begins between two of them. Nothing for a range without ticks.
AxisDrawing xAxis(const AxisRange& range, double min, const QSizeF& size);

/// The axis along the left edge, from 0 at the bottom; it has no grid.
AxisDrawing yAxis(const AxisRange& range, const QSizeF& size);

/// Text of a value on an axis with the given distance of ticks: six digits at most, and 0 for what is left of
/// it by rounding.
QString axisLabel(double value, double step);

/// The labels that can be read: one that would end outside the widget goes to the left side of its tick, and
/// one that would touch another is left out.
///
/// @param widths   width of each label's text in pixels
/// @param height   of a line of text
QVector<AxisLabel> readableLabels(const QVector<AxisLabel>& labels, const QVector<double>& widths,
                                  double height, const QSizeF& size);
