#include "lib/hvapi/scene/logic/Hounsfield.h"

#include <algorithm>
#include <cmath>

namespace hvscene {

namespace {

constexpr double highest = 65535.0;

int toStored(double value)
{
    return static_cast<int>(std::floor(std::clamp(value, 0.0, highest) + 0.5));
}

}  // namespace

std::optional<StoredHounsfield> storedHounsfield(int hounsfield, const CtCalibration& c)
{
    const bool finite = std::isfinite(c.volumeMin) && std::isfinite(c.volumeMax) && std::isfinite(c.air) &&
                        std::isfinite(c.water);
    const double length = c.volumeMax - c.volumeMin;
    if (!finite || !(length > 0.0) || !std::isfinite(length) || !(c.water > c.air)) return std::nullopt;
    const auto stored = [&](double absorption) { return (absorption - c.volumeMin) / length * highest; };
    const double value = stored(c.water + hounsfield * (c.water - c.air) / 1000.0);
    if (!std::isfinite(value)) return std::nullopt;
    return StoredHounsfield{value, toStored(value), toStored(stored(c.air)), toStored(stored(c.water))};
}

}  // namespace hvscene
