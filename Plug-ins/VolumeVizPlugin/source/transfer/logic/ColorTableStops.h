#pragma once

#include "transfer/logic/TransferStops.h"

#include <QPolygonF>
#include <QRgb>
#include <QSize>
#include <QVector>

/// The entries of a host's colour table: bytes of R, G, B, A each, or null with 0 entries.
struct ColorTableView
{
    const unsigned char* bytes = nullptr;
    int entries = 0;
};

/// A ramp through the colours of a table: a stop for each of its key indices, opacity growing from the left
/// to the right. A stop stands at index / entries in single precision with the index as alpha, at most 255;
/// the last entry has 255. Reversed the colours run from right to left, the opacity still from left to right.
/// No stops for a table without entries.
TransferStops stopsOfColorTable(const ColorTableView& table, bool reversed);

/// The colours that points on a widget of `size` pixels get from a table: that of the entry (x / width)
/// (entries - 1), single precision, truncated, counted from the other end when reversed. Alpha is (y /
/// height) 255, truncated. Points outside the widget get the nearest entry; a table without entries gives no
/// colours.
QVector<QRgb> colorsOfPoints(const QPolygonF& points, const QSize& size, const ColorTableView& table,
                             bool reversed);
