#pragma once

#include "hvapi/values/Coord3d.h"
#include "render/logic/PlaneCut.h"

/// The cut of the box with the plane ax + by + cz = d, `plane` holding a, b, c, d in millimetres.
///
/// `vertices` are the corners of the box where they are drawn, `min` and `max` its extent in the same space.
/// The polygon has six corners in order around it, some of them equal when it has fewer. A plane that touches
/// a face exactly still gives a polygon. False when the plane misses the box.
bool slicePolygon(const VolumeVertex (&vertices)[8], const VolumeEdge (&edges)[12], const Coord3d& min,
                  const Coord3d& max, const double (&plane)[4], VolumeVertex (&polygon)[6]) noexcept;
