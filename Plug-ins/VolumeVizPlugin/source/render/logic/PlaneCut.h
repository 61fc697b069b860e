#pragma once

#include "render/logic/VolumeVertex.h"

/// A plane through the box cuts three to six of its edges. A cut is described for each edge of the sequence
/// by `lambda`, the place along the edge: 0 at its first corner, 1 at its second, other values outside.
struct PlaneCut
{
    enum class Ends
    {
        FirstOnly,  ///< 0 <= lambda < 1 counts as on the edge
        Both        ///< 0 <= lambda <= 1
    };

    VolumeVertex start[12];      ///< first corner of each edge of the sequence
    VolumeVertex direction[12];  ///< second corner less the first

    /// Lays the edges out in the order of a row of `s_edgeSequence`.
    PlaneCut(const VolumeVertex (&vertices)[8], const VolumeEdge (&edges)[12],
             const int (&sequence)[12]) noexcept;

    /// The six corners of the cut polygon, in order around it. A polygon of fewer corners repeats points.
    ///
    /// Each corner is taken from the first edge of its list that the plane lies on, the last edge of a list
    /// without a test. False, and no polygon, when the first corner finds no edge. Where single precision
    /// puts the plane outside every edge of a later list, just before one edge and just behind the next, the
    /// joint of the two stands in for the untested point, which could lie far outside the box.
    bool corners(const float (&lambda)[12], Ends ends, VolumeVertex (&polygon)[6]) const noexcept;
};

/// Index of the vertex farthest along `direction`, by dot product with w; the first of equals.
int farthestVertex(const VolumeVertex (&vertices)[8], const VolumeVertex& direction) noexcept;
