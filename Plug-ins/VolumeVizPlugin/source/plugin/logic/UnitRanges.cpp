#include "plugin/logic/UnitRanges.h"

#include <cmath>

namespace {

bool finite(float low, float high)
{
    return std::isfinite(low) && std::isfinite(high);
}

}  // namespace

std::optional<float> asShown(float value)
{
    bool ok = false;
    const float shown = QStringLiteral("%1").arg(static_cast<double>(value), 0, 'g', -1).toFloat(&ok);
    if (!ok) return {};
    return shown;
}

QStringList UnitRanges::units() const
{
    QStringList units(QStringLiteral("Counts"));
    if (hasAbsorption) units.append(QStringLiteral("Absorption"));
    if (hasHounsfield) units.append(QStringLiteral("Hounsfield"));
    return units;
}

UnitRanges unitRanges(const UnitFacts& facts)
{
    UnitRanges ranges;
    std::array<float, 6>& c = ranges.conversion;
    c[0] = static_cast<float>(facts.volumeMin);
    c[1] = static_cast<float>(facts.volumeMax);
    if (!facts.reconstructedMin || !facts.reconstructedMax) return ranges;

    const float a = *facts.reconstructedMin;
    const float b = *facts.reconstructedMax;
    const float scale = b > a ? (b - a) / c[1] : 1.0F;
    const float low = a + c[0] * scale;
    const float high = a + c[1] * scale;
    if (!finite(low, high)) return ranges;
    ranges.hasAbsorption = true;
    c[2] = low;
    c[3] = high;
    if (!facts.air || !facts.water) return ranges;

    const float span = *facts.water - *facts.air;
    const float lowHounsfield = 1000.0F * (low - *facts.water) / span;
    const float highHounsfield = 1000.0F * (high - *facts.water) / span;
    if (!finite(lowHounsfield, highHounsfield)) return ranges;
    ranges.hasHounsfield = true;
    c[4] = lowHounsfield;
    c[5] = highHounsfield;
    return ranges;
}
