#pragma once

#include "lib/hvapi/scene/logic/ViewProjection.h"

namespace hvscene {

/// Share of an axis's length that shows in the picture below which it counts as seen end on.
constexpr double endOnShare = 0.2;

/// 0 for an axis seen end on, 1 for one that lies in the picture. `axis` has the length 1.
double shownShare(const ViewProjection& view, Vec3 axis);

/// Millimetres by which a mouse that moved from `from` to `to` drags something along `axis` (length 1): the
/// point stays under the mouse as far as the axis lets it. Of an axis that is seen end on nothing can be
/// followed; there a pixel up is a pixel's length towards the viewer.
double dragAlongAxis(const ViewProjection& view, Vec3 axis, Pixel from, Pixel to);

/// Angle in radians, -pi to pi, by which the mouse turns something about the axis through `center` with the
/// direction `normal` (length 1), right-handed, when it moves from `from` to `to` having taken hold at
/// `grip`, a point of the scene on the ring. Looking onto the ring the mouse leads the grip about the centre;
/// seen edge on it pulls along the tangent at the grip.
double turnAboutAxis(const ViewProjection& view, Vec3 center, Vec3 normal, Vec3 grip, Pixel from, Pixel to);

}  // namespace hvscene
