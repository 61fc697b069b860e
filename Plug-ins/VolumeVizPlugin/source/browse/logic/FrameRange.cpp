#include "browse/logic/FrameRange.h"

#include <algorithm>

FrameRange FrameRange::whole(int frames)
{
    return of(1, frames, frames);
}

FrameRange FrameRange::of(int first, int last, int frames)
{
    FrameRange range;
    range.count = std::max(1, frames);
    range.last = std::clamp(last, std::min(2, range.count), range.count);
    range.first = std::clamp(first, 1, range.firstMaximum());
    return range;
}

FrameRange FrameRange::movedTo(int lower, int upper) const
{
    const bool isLastMovedDown = upper < last;
    if (isLastMovedDown) return of(lower, upper, count);
    const int wanted = std::clamp(lower, 1, std::max(1, count - 1));
    return of(wanted, std::max(upper, wanted + 1), count);
}

int FrameRange::firstMaximum() const
{
    return std::max(1, last - 1);
}

int FrameRange::lastMinimum() const
{
    return std::min(first + 1, count);
}

int nextFrame(int frame, int first, int last)
{
    return frame >= last ? first : frame + 1;
}
