#include "lib/hvapi/scene/logic/ScaleBar.h"

#include <cmath>

namespace hvscene {

double roundLength(double limit)
{
    if (!std::isfinite(limit) || !(limit > 0.0)) return 0.0;
    double power = std::pow(10.0, std::floor(std::log10(limit)));
    if (power > limit) power /= 10.0;  // the logarithm of a power of ten can come out a hair too large
    if (5.0 * power <= limit) return 5.0 * power;
    if (2.0 * power <= limit) return 2.0 * power;
    return power;
}

}  // namespace hvscene
