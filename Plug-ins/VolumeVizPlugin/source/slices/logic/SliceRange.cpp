#include "slices/logic/SliceRange.h"

#include <algorithm>
#include <cmath>

namespace {

bool isRange(double min, double max, double spacing)
{
    return std::isfinite(min) && std::isfinite(max) && std::isfinite(spacing) && spacing > 0.0;
}

}  // namespace

std::vector<double> slicePositions(float start, float end, double spacing)
{
    std::vector<double> positions;
    if (!isRange(start, end, spacing)) return positions;
    float position = start;
    while (position <= end && positions.size() < kMostSlices) {
        positions.push_back(position);
        const float next = static_cast<float>(position + spacing);
        if (next == position) break;  // a spacing that single precision does not see
        position = next;
    }
    return positions;
}

int totalSlices(double min, double max, double spacing)
{
    if (!isRange(min, max, spacing)) return 0;
    return static_cast<int>(std::clamp((max - min + spacing) / spacing, 0.0, double(kMostSlices)));
}

float startSpacing(double min, double max)
{
    return static_cast<float>(max - min) / 20.0F;
}

int sliderPosition(double value, double low, double high, const SliderRange& slider)
{
    const double share = (value - low) / (high - low);
    if (!std::isfinite(share)) return slider.minimum;
    const double range = static_cast<double>(slider.maximum) - slider.minimum;
    return static_cast<int>(std::clamp(share * range, -2147483648.0, 2147483647.0));
}

float sliderValue(int position, double low, double high, const SliderRange& slider)
{
    if (slider.maximum == slider.minimum) return static_cast<float>(low);
    const float share =
        static_cast<float>(position - slider.minimum) / static_cast<float>(slider.maximum - slider.minimum);
    return share * static_cast<float>(high - low) + static_cast<float>(low);
}
