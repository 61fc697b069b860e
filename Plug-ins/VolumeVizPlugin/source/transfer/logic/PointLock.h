#pragma once

/// Edges to which a control point of the transfer function is pinned: a bit set. The numbers go into files.
enum PointLock : int
{
    NoLock = 0,        ///< free point
    LockToLeft = 1,    ///< x pinned to the left edge
    LockToRight = 2,   ///< x pinned to the right edge
    LockToTop = 4,     ///< y pinned to the top edge: upper point of a step
    LockToBottom = 8,  ///< y pinned to the bottom edge: lower point of a step
};
