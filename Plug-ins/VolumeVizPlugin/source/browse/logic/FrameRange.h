#pragma once

/// The frames of a data set that are to be loaded, counted from 1. A data set of two frames or more keeps two
/// of them at least; one of a single frame has just that.
struct FrameRange
{
    int first = 1;
    int last = 1;
    int count = 1;  ///< frames that there are

    static FrameRange whole(int frames);

    /// The range with both ends as near to the wanted ones as it goes; where they meet or cross, the first
    /// one gives way.
    static FrameRange of(int first, int last, int frames);

    /// The same for two handles of which one was moved, and maybe pushed the other: that one gives way.
    FrameRange movedTo(int lower, int upper) const;

    // How far each end may go while the other stays.
    int firstMinimum() const { return 1; }
    int firstMaximum() const;
    int lastMinimum() const;
    int lastMaximum() const { return count; }

    bool operator==(const FrameRange& other) const
    {
        return first == other.first && last == other.last && count == other.count;
    }
};

/// The frame that playing shows after `frame`: the next one, and the first one after the last.
int nextFrame(int frame, int first, int last);
