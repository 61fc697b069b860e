#pragma once

#include "transfer/logic/ControlPoints.h"

#include <QColor>
#include <QSize>
#include <QVector>
#include <QtCore/QPair>
#include <optional>

/// Stops of a gradient: position from 0 (left) to 1 (right), and colour with its opacity as alpha. The same
/// type as the stops of Qt's gradients.
using TransferStops = QVector<QPair<double, QColor>>;

/// The stops that a chain of control points stands for on a widget of `size` pixels.
///
/// The points are taken in the order of their x, the colours as they stand in the list; where colours are
/// missing the last one counts, and white where there is none. Coordinates are truncated to whole pixels. A
/// point in the very column in which the next one stands exactly is left out; one in the same column as the
/// point before moves one column to the right. Alpha is the height above the bottom edge as a share of the
/// widget's height, times `maxOpacity` (0 to 255), truncated.
///
/// Nothing when a point stands right of the widget or the widget has no area: who has a gradient keeps it.
std::optional<TransferStops> stopsOfPoints(const QPolygonF& points, const QVector<QRgb>& colors,
                                           const QSize& size, float maxOpacity);

/// The control points that stand for `stops` on a widget of `size` pixels: x from the position, y from the
/// alpha (255 at the top), colours as they are, alpha included. The first point is locked to the left edge
/// and the last to the right one. y is in single precision.
ControlPoints pointsOfStops(const TransferStops& stops, const QSize& size);

/// True when the stops run from right to left.
bool runBackwards(const TransferStops& stops);

/// The pixel column from which entry `entry` (0 to 255) of a colour table is taken, on a picture of `width`
/// pixels: entry (width - 1) / 255, rounded.
int tableColumn(int entry, int width);
