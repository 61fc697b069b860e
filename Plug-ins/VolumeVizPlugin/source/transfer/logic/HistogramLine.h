#pragma once

#include <QPointF>
#include <QSize>
#include <QVector>

/// The line that shows `count` values on a widget of `size` pixels: value i at x = i (width / count), the
/// highest value half a pixel above the top edge and the lowest half a pixel above the bottom edge. A value
/// that is no number stands with the lowest. Empty when `min` is not below `max`.
QVector<QPointF> histogramLine(const double* values, int count, double min, double max, const QSize& size);
