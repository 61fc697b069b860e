#pragma once

#include <QVector>

/// The entries of a colour table that are worth a control point each: where it begins, bends and ends.
/// Entries are compared as vectors of red, green and blue, by the cosine of the angle between them.
///
/// The table is gone through three times: entries of one hue give way to the first that differs, and runs of
/// equal entries to their middle; neighbours that look alike are merged; faint steps of brightness go.
///
/// @param table    bytes of R, G, B, A for each entry
/// @param entries  number of entries; none gives no keys
/// @return ascending indices; the last one is entries - 1
QVector<int> keyIndices(const unsigned char* table, int entries);
