#pragma once

#include "lib/hvapi/scene/logic/ViewProjection.h"

#include <vector>

namespace hvscene {

/// A part of the manipulator that moves and turns an object along the axes of the scene.
struct TransformHandle
{
    enum Kind
    {
        None,
        Move,  ///< the arrow of an axis
        Turn   ///< the ring about an axis
    };

    Kind kind = None;
    int axis = 0;  ///< 0 to 2 for x to z

    bool operator==(const TransformHandle& o) const
    {
        return kind == o.kind && (kind == None || axis == o.axis);
    }
    bool operator!=(const TransformHandle& o) const { return !(*this == o); }
};

/// The unit vector of an axis, 0 to 2 for x to z.
Vec3 axisVector(int axis);

/// Where the manipulator's parts lie in the picture. Its size on screen is always the same; `scale` is the
/// number of pixels of a line.
class TransformHandles
{
public:
    /// `center` is a point of the scene.
    TransformHandles(const ViewProjection& view, Vec3 center, double scale);

    Vec3 center() const { return m_center; }
    /// In millimetres.
    double ringRadius() const;
    /// Ends of an arrow in the scene.
    Vec3 arrowStart(int axis) const;
    Vec3 arrowEnd(int axis) const;
    /// An arrow seen end on is a dot that can't be followed: it is neither drawn nor picked.
    bool isArrowShown(int axis) const;
    /// A point of the ring in the scene; the angle runs right-handed about the axis from the next one.
    Vec3 ringPoint(int axis, double angle) const;
    /// True for the half of a ring that faces the viewer, and for all of one that is looked onto.
    bool isInFront(Vec3 ringPoint) const;

    /// What lies under the mouse: arrows before rings, of several the nearest; only the front of a ring
    /// counts.
    TransformHandle pick(Pixel mouse) const;
    /// The point in front on the ring that is nearest to the mouse.
    Vec3 grip(int axis, Pixel mouse) const;

    static constexpr int ringSteps = 120;

private:
    double ringDistance(int axis, Pixel mouse, Vec3* nearest) const;

    const ViewProjection& m_view;
    Vec3 m_center;
    double m_scale;
};

}  // namespace hvscene
