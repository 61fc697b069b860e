#include "plugin/logic/UnitRanges.h"

#include <cmath>

std::optional<float> asShown(float value)
{
    bool ok = false;
    const float shown = QStringLiteral("%1").arg(static_cast<double>(value), 0, 'g', -1).toFloat(&ok);
    if (!ok) return {};
    return shown;
}

namespace {

bool finite(float low, float high)
{
    return std::isfinite(low) && std::isfinite(high);
}

std::optional<float> asShown(const std::optional<float>& value)
{
    return value ? ::asShown(*value) : std::nullopt;
}

}  // namespace

QStringList UnitRanges::units() const
{
    QStringList units(QStringLiteral("Counts"));
    if (hasAbsorption) units.append(QStringLiteral("Absorption"));
    if (hasHounsfield) units.append(QStringLiteral("Hounsfield"));
    return units;
}

std::optional<std::array<float, 2>> rangeIn(const QString& unit, const std::array<float, 6>& conversion)
{
    const int index = UnitRanges{{}, true, true}.units().indexOf(unit);
    if (index < 0) return {};
    const auto low = 2 * static_cast<std::size_t>(index);
    return std::array<float, 2>{conversion[low], conversion[low + 1]};
}

UnitRanges unitRanges(const UnitFacts& facts)
{
    UnitRanges ranges;
    std::array<float, 6>& c = ranges.conversion;
    c[0] = static_cast<float>(facts.volumeMin);
    c[1] = static_cast<float>(facts.volumeMax);
    const std::optional<float> reconstructedMin = asShown(facts.reconstructedMin);
    const std::optional<float> reconstructedMax = asShown(facts.reconstructedMax);
    if (!reconstructedMin || !reconstructedMax) return ranges;

    const float a = *reconstructedMin;
    const float b = *reconstructedMax;
    const float scale = b > a ? (b - a) / c[1] : 1.0F;
    const float low = a + c[0] * scale;
    const float high = a + c[1] * scale;
    if (!finite(low, high)) return ranges;
    ranges.hasAbsorption = true;
    c[2] = low;
    c[3] = high;
    const std::optional<float> air = asShown(facts.air);
    const std::optional<float> water = asShown(facts.water);
    if (!air || !water) return ranges;

    const float span = *water - *air;
    const float lowHounsfield = 1000.0F * (low - *water) / span;
    const float highHounsfield = 1000.0F * (high - *water) / span;
    if (!finite(lowHounsfield, highHounsfield)) return ranges;
    ranges.hasHounsfield = true;
    c[4] = lowHounsfield;
    c[5] = highHounsfield;
    return ranges;
}
