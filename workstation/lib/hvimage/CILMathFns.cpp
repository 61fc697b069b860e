#include "hvimage/CILMathFns.h"

#include <cmath>
#include <limits>

namespace {

double roundedValue(double value, eRoundingStyle style)
{
    double const below = std::floor(value);
    switch (style) {
    case eRoundDown:
        return below;
    case eRoundUp:
        return std::ceil(value);
    case eRoundNearest:
        break;
    }
    // Adding 0.5 first would carry the number just below 0.5 up to 1.
    return value - below >= 0.5 ? below + 1.0 : below;
}

}  // namespace

long CILMathFns::round(double value, eRoundingStyle style)
{
    if (std::isnan(value)) return 0;
    double const rounded = roundedValue(value, style);
    if (rounded >= 9223372036854775808.0) return std::numeric_limits<long>::max();
    if (rounded < -9223372036854775808.0) return std::numeric_limits<long>::min();
    return static_cast<long>(rounded);
}
