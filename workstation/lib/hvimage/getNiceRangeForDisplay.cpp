#include "hvimage/getNiceRangeForDisplay.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace {

struct Step
{
    int mantissa;  // 1, 2 or 5
    int exponent;

    double value() const { return mantissa * std::pow(10.0, exponent); }

    Step next() const
    {
        if (mantissa == 1) return {2, exponent};
        if (mantissa == 2) return {5, exponent};
        return {1, exponent + 1};
    }

    int parts() const { return mantissa == 2 ? 4 : 5; }
};

// A whole number of steps, to within what division of binary fractions leaves.
constexpr double sameMultiple = 1e-9;

// In steps from 0.
double firstMultipleAbove(double minimum, double step)
{
    double const first = std::ceil(minimum / step - sameMultiple);
    return first * step - minimum > step * sameMultiple ? first : first + 1.0;
}

double lastMultiple(double maximum, double step)
{
    return std::floor(maximum / step + sameMultiple);
}

int longestLabel(double first, double last, double step)
{
    int longest = 0;
    for (double multiple = first; multiple <= last; multiple += 1.0)
        longest = std::max(longest, QString::number(multiple * step, 'g', 6).size());
    return longest;
}

// Six digits cannot tell apart what is closer than a unit of the sixth.
double finestStep(double minimum, double maximum)
{
    double const largest = std::max(std::abs(minimum), std::abs(maximum));
    return std::pow(10.0, std::floor(std::log10(largest)) - 5.0);
}

// Largest value that goes into `step` the given number of times and not less, rounding included.
double partOf(double step, int parts)
{
    double part = step / parts;
    while (std::trunc(step / part) < parts)
        part = std::nextafter(part, 0.0);
    return part;
}

}  // namespace

void getNiceRangeForDisplay(double minimum, double maximum, int maxTicks, tagHVSDisplayRange* range)
{
    if (!range) return;
    *range = tagHVSDisplayRange();
    double const span = maximum - minimum;
    // Below the normal numbers there are not enough digits for a division.
    if (!std::isfinite(span) || !(span > 1e-290) || maxTicks < 1) return;

    double const room = 2.0 * maxTicks / span;  // digits for a unit of the axis
    double const finest =
        std::max(span / maxTicks / 10.0, finestStep(minimum, maximum) * (1.0 - sameMultiple));
    for (Step step{1, static_cast<int>(std::floor(std::log10(finest)))};; step = step.next()) {
        double const size = step.value();
        if (size < finest) continue;
        double const first = firstMultipleAbove(minimum, size);
        double const last = lastMultiple(maximum, size);
        double const ticks = last - first + 1.0;
        if (ticks > maxTicks) continue;
        // One label has nothing beside it, and a coarser step would leave none.
        if (ticks > 1.0 && size * room < longestLabel(first, last, size) + 1) continue;
        if (ticks < 1.0) return;
        range->nMajorTicks = static_cast<int>(ticks);
        range->dMinorStep = partOf(size, step.parts());
        range->dFirstMajorTick = first * size;
        range->dMajorStep = size;
        range->dMajorFraction = (range->dFirstMajorTick - minimum) / span;
        return;
    }
}
