#pragma once

#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "lib/hvapi/scene/logic/ViewProjection.h"

#include <QPointer>

namespace hvscene {

/// What is seen at a place of a scene: the first voxel along the line of sight that reaches its volume's
/// render threshold with a colour of at least a tenth of full opacity, or a shown slice plane before that,
/// within the crop box. Through clearer matter the sight goes on.
struct PickedPoint
{
    QPointer<C3DVolumeData> volume;  ///< null when nothing is seen there
    Vec3 ownPlace;                   ///< in the volume's own space, mm
    Vec3 place;                      ///< in the scene
    int value = 0;                   ///< of the voxel, 0 to 255
};

/// `mouse` in the pixels of mouse events, as `view` has them. Needs no GL.
PickedPoint pickPoint(C3DScene& scene, const ViewProjection& view, Pixel mouse);

}  // namespace hvscene
