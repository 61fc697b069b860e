#include "logic/Span.h"

#include <algorithm>
#include <cstdlib>

namespace hvspinbox {

void Span::push(SpanHandle handle, int value)
{
    int const inRange = std::clamp(value, minimum, maximum);
    if (handle == SpanHandle::Lower) {
        lower = inRange;
        upper = std::max(upper, lower);
    } else {
        upper = inRange;
        lower = std::min(lower, upper);
    }
}

void Span::step(SpanHandle handle, long long steps)
{
    long long const wanted = static_cast<long long>(value(handle)) + steps;
    push(handle, static_cast<int>(std::clamp<long long>(wanted, lowest(handle), highest(handle))));
}

void Span::setRange(int newMinimum, int newMaximum)
{
    minimum = newMinimum;
    maximum = std::max(newMinimum, newMaximum);
    lower = std::clamp(lower, minimum, maximum);
    upper = std::clamp(upper, minimum, maximum);
}

SpanHandle Span::nearest(int value) const
{
    if (lower == upper) {
        if (lower == minimum && upper != maximum) return SpanHandle::Upper;
        if (upper == maximum && lower != minimum) return SpanHandle::Lower;
        return value < lower ? SpanHandle::Lower : SpanHandle::Upper;
    }
    long long const below = std::llabs(static_cast<long long>(value) - lower);
    long long const above = std::llabs(static_cast<long long>(value) - upper);
    return below <= above ? SpanHandle::Lower : SpanHandle::Upper;
}

}  // namespace hvspinbox
