#include "transfer/logic/MixedColor.h"

#include <cmath>

namespace {

int mixedChannel(int from, int to, float t)
{
    const float value = static_cast<float>(from) + t * static_cast<float>(to - from);
    if (!(value > 0.0F)) return 0;
    return value < 255.0F ? static_cast<int>(value) : 255;
}

}  // namespace

QRgb mixedColor(QRgb from, QRgb to, float t)
{
    return qRgb(mixedChannel(qRed(from), qRed(to), t), mixedChannel(qGreen(from), qGreen(to), t),
                mixedChannel(qBlue(from), qBlue(to), t));
}
