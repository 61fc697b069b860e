#include "plugin/logic/SliceSync.h"

#include "plugin/logic/SourceLimits.h"

#include <cmath>

std::optional<int> sliderValueOf(const SlicePlace& place)
{
    const double ahead = place.axis == 2 ? 0.0 : 1.0;
    const double range = double(place.sliderMax) - double(place.sliderMin);
    const double value =
        place.sliderMin + (place.position + ahead - place.low) * range / (place.high - place.low);
    if (!std::isfinite(value)) return {};
    return truncatedToInt(value);
}
