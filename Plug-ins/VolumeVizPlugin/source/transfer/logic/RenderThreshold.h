#pragma once

#include <QPolygonF>

/// The voxel value from which a surface is solid, as the steepest rise of the opacity curve tells: x of the
/// first point that stands less than 3 pixels right of the one before and more than 150 above or below it
/// (distances truncated), times 255 / 233, truncated. The factor takes the axis as 233 pixels wide, however
/// wide the widget is. -1 when there is no such point.
int renderThreshold(const QPolygonF& points);
