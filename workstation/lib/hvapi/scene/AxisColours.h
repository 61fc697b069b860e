#pragma once

#include <QColor>

namespace hvscene {

/// The colour of an axis (0 to 2 for x to z), the same wherever the axis shows.
inline QColor axisColour(int axis)
{
    static constexpr QRgb colours[3] = {0xfff27066, 0xff84d372, 0xff66a9fa};
    return QColor(colours[axis]);
}

}  // namespace hvscene
