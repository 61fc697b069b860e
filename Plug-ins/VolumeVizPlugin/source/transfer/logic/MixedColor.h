#pragma once

#include <QRgb>

/// The colour at `t` of the way from `from` (0) to `to` (1): each channel is from + t (to - from) in single
/// precision, truncated, and kept within 0 to 255. Alpha is 255.
QRgb mixedColor(QRgb from, QRgb to, float t);
