#pragma once

#include <QSizeF>

class QPainter;

/// Draws the axes of a histogram over a widget of `size` pixels: values from `min` to `max` along the bottom,
/// with lines across the widget at the major ticks, and 0 to `yMax` along the left edge. Nothing for a range
/// without extent. Labels that would not be readable are left out.
void paintHistogramAxes(QPainter& painter, const QSizeF& size, double min, double max, double yMax);
