#pragma once

namespace hvspinbox {

enum class SpanHandle
{
    Lower,
    Upper
};

// A part of a range of whole numbers; minimum <= lower <= upper <= maximum.
struct Span
{
    int minimum = 0;
    int maximum = 99;
    int lower = 0;
    int upper = 99;

    // Moves a handle, within the range; the other one gives way.
    void push(SpanHandle handle, int value);
    // Moves a handle by `steps`, up to the other one at most.
    void step(SpanHandle handle, long long steps);
    // Takes another range, with both values brought into it. A maximum below the minimum counts as it.
    void setRange(int newMinimum, int newMaximum);

    int value(SpanHandle handle) const { return handle == SpanHandle::Lower ? lower : upper; }
    // How far keys may move a handle.
    int lowest(SpanHandle handle) const { return handle == SpanHandle::Lower ? minimum : lower; }
    int highest(SpanHandle handle) const { return handle == SpanHandle::Lower ? upper : maximum; }

    // The handle that a touch between or beside them means, at the place of `value`: the nearer one; of two
    // at one place the one that can go in the direction of the touch.
    SpanHandle nearest(int value) const;

    bool operator==(Span const& other) const
    {
        return minimum == other.minimum && maximum == other.maximum && lower == other.lower &&
               upper == other.upper;
    }
};

}  // namespace hvspinbox
