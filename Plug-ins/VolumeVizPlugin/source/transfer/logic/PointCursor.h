#pragma once

#include "transfer/logic/ControlPoints.h"

#include <QPoint>
#include <QtCore/qnamespace.h>

/// The mouse cursor over a chain of control points, which tells what a drag from `mouse` would do: up and
/// down for a point at an edge, sideways for a point of a step, the splitter on the vertical edge of a step,
/// a hand for a free point and for free space. `size` is that of a marker; here the ends are not larger.
Qt::CursorShape pointCursor(const ControlPoints& chain, const QSizeF& size, const QPoint& mouse);
