#include "transfer/logic/AutoFit.h"

#include "transfer/logic/MixedColor.h"

#include <cmath>

AirEnd endOfAir(const HistogramBins& histogram)
{
    std::size_t peak = 0;
    for (std::size_t i = 1; i < histogram.size(); ++i)
        if (histogram[i] > histogram[peak]) peak = i;
    AirEnd air;
    air.bin = static_cast<int>(peak);
    for (std::size_t i = peak; i + 1 < histogram.size() && !air.found; ++i) {
        if (histogram[i + 1] > histogram[i]) {
            air.found = true;
            air.bin = static_cast<int>(i);
        }
    }
    air.low = air.found ? air.bin : air.bin + 10;
    air.high = air.found ? air.bin + 1 : air.bin + 20;
    return air;
}

double sourceValueOfBin(int bin, double min, double max)
{
    const float offset = static_cast<float>(bin) * static_cast<float>(max - min) / 255.0F;
    return min + std::trunc(static_cast<double>(offset) + 0.5);
}

namespace {

constexpr QRgb white = 0xffffffff;

void append(ControlPoints& chain, const QPointF& point, QRgb color, PointLock lock)
{
    chain.points.append(point);
    chain.colors.append(color);
    chain.locks.append(lock);
}

bool staysBeside(const AirEnd& air, const QPointF& point, PointLock lock)
{
    if (lock == LockToBottom || lock == LockToTop) return false;
    return lock != NoLock || point.x() < air.low - 1.0 || point.x() > air.high + 1.0;
}

}  // namespace

ControlPoints chainWithStep(const ControlPoints& chain, const AirEnd& air, double height)
{
    ControlPoints fitted;
    bool hasStep = false;
    for (int i = 0; i < chain.points.size(); ++i) {
        const QPointF point = chain.points[i];
        const PointLock lock = lockOf(chain, i);
        if (!staysBeside(air, point, lock)) continue;
        const QRgb color = chain.colors.value(i, white);
        if (!hasStep && point.x() > air.low) {
            const QRgb before = fitted.colors.isEmpty() ? color : fitted.colors.last();
            const QRgb between = mixedColor(before, color, 0.5F);
            append(fitted, {air.low, height}, between, LockToBottom);
            append(fitted, {air.high, 0.0}, between, LockToTop);
            hasStep = true;
        }
        append(fitted, point, color, lock);
    }
    return fitted;
}
