#pragma once

#include "lib/hvapi/scene/logic/Camera.h"

#include <QImage>

namespace hvscene {

/// The small triad in a corner of the view that shows how the axes lie: a line to a knob with its letter on
/// each positive end, a ring with the letter and a minus on each negative one. Drawn once for each direction
/// of the camera.
class OrientationAxes
{
public:
    /// Premultiplied ARGB, square; `scale` is the number of pixels of a line.
    const QImage& image(const Camera& camera, double scale);

private:
    QImage m_image;
    Vec3 m_right;
    Vec3 m_up;
    double m_scale = 0.0;
};

/// A bar of a round length with its name, no longer than `maxPixels`; null when none fits. Premultiplied
/// ARGB.
QImage scaleBarImage(double mmPerPixel, double maxPixels, double scale);

}  // namespace hvscene
