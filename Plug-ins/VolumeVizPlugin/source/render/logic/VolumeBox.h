#pragma once

#include "hvapi/values/Coord3d.h"
#include "hvapi/values/Vec3f.h"
#include "hvapi/values/_tagAxis_Orientation.h"
#include "render/logic/VolumeVertex.h"

#include <array>

/// The box of the volume: its corners, its edges, and the order in which a plane meets them.
///
/// Corners are numbered around the face of low z, then in the same way around the face of high z:
/// (x0,y0,z0), (x1,y0,z0), (x1,y1,z0), (x0,y1,z0), and 4 to 7 above them.

/// The eight corners, with w = 1 and texture coordinates 0 or 1 along each axis.
///
/// The two ends of an axis are -|min| and |max|, both times the orientation's sign: a flipped axis moves the
/// corners and leaves the texture coordinates, which mirrors the picture. The signs of min and max themselves
/// do not count.
void placeVolumeVertices(const Coord3d& min, const Coord3d& max, const _tagAxis_Orientation& orientation,
                         VolumeVertex (&vertices)[8]) noexcept;

/// The twelve edges: around the low face, from it to the high face, around the high face.
void listVolumeEdges(VolumeEdge (&edges)[12]) noexcept;

/// For each corner taken as the start, the edges in the order in which a plane that moves away from it meets
/// them. Entries 0 to 3, 4 to 7 and 8 to 11 are three ways to the opposite corner: entries 0, 1 and 3 of each
/// group follow one another, entry 2 is the branch off their first joint.
extern const int s_edgeSequence[8][12];

/// The corners of the plain box from min to max, numbered as above.
std::array<Vec3f, 8> boxCorners(const Coord3d& min, const Coord3d& max);
