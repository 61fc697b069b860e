#pragma once

#include "hvapi/values/Coord3d.h"
#include "hvapi/values/Vec3f.h"
#include "hvapi/values/matrix.h"
#include "slices/logic/SliceOrientation.h"

#include <optional>

/// Where a slice is looked at from, under a parallel projection. Lengths are millimetres.
///
/// | orientation | across the window | up the window | towards the viewer |
/// |---|---|---|---|
/// | x, "Sagittal" | z | y | -x |
/// | y, "Transaxial" | x | z | -y |
/// | z, "Coronal" | x | y | z |

/// The part of the volume that a tile shows, in the axes of the table above.
struct SliceWindow
{
    double left = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double top = 0.0;

    /// Lengths without sign.
    double width() const;
    double height() const;
    /// Width by height; 0 for a window without a height, or with a side that is not finite.
    double aspect() const;
};

/// A range along an axis, in millimetres.
struct SliceExtent
{
    double low = 0.0;
    double high = 0.0;
};

/// A box of the volume's own space, in millimetres.
struct SliceBox
{
    Coord3d min;
    Coord3d max;

    /// Its range along the axis that slices of an orientation are perpendicular to.
    SliceExtent along(SliceOrientation orientation) const;
};

/// The box between the two corners of the crop box that stand for all eight: the lowest and the highest one.
/// `lowest` and `highest` are their offsets as in `sCropBoxOffset`: shares of the way from the centre of
/// `box`, with the sign turned along z.
SliceBox croppedSliceBox(const SliceBox& box, const Vec3f& lowest, const Vec3f& highest);

struct SliceCamera
{
    SliceWindow window;
    double normal[3] = {0.0, 0.0, 1.0};      ///< a, b, c of the slice's plane
    float rotation[3] = {0.0F, 0.0F, 0.0F};  ///< of the eye about x, y, z, in degrees
    double translationZ = 0.0;               ///< of the scene; below 0: away from the eye
};

/// The camera for an orientation; nothing for a number that is none.
/// @param box      the whole box; gives the distance, three times its half diagonal
/// @param cropped  gives the window; an axis on which it is flat takes the whole box's range
std::optional<SliceCamera> sliceCamera(int orientation, const SliceBox& box, const SliceBox& cropped);

/// The far end of the view, whose near end is -1: 1000, or as much as a large scan at that distance needs.
double sliceViewFar(double translationZ);

/// What the scene is multiplied with when the eye is turned by `degrees` about x, then y, then z: the inverse
/// of that turn. It brings the axes of the volume to the window as the table above says.
matrix sliceSceneRotation(const float (&degrees)[3]);
