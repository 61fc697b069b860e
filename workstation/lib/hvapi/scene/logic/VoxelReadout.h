#pragma once

#include "lib/hvapi/scene/logic/Vec3.h"

#include <QString>

namespace hvscene {

/// What the 8-bit values of a volume stand for: a straight line from voxel 0 to voxel 255.
struct ValueUnit
{
    QString name;            ///< "Counts", "Hounsfield", ...
    double atLowest = 0.0;   ///< what voxel 0 stands for
    double atHighest = 0.0;  ///< what voxel 255 stands for

    /// What an 8-bit value stands for.
    double valueOf(int voxel) const;
    /// What a step of 1 of the 8-bit value stands for, without its sign: values nearer to one another than
    /// this came out the same.
    double step() const;
};

/// A number with the digits that a quantisation by `step` leaves: down to the place of the step's first
/// digit. Without a step, that is 0 or no number, six significant digits.
QString numberAtStep(double value, double step);

/// The line that tells of a voxel: where it is seen, in millimetres of the scene, its 8-bit value, and what
/// that stands for, with the step between two values: "x 3.20  y −1.10  z 0.45 mm   |   voxel 143   |
/// 812 Hounsfield, in steps of 9.8".
QString readoutText(Vec3 place, int voxel, const ValueUnit& unit);

}  // namespace hvscene
