#pragma once

#include "lib/hvapi/scene/logic/Vec3.h"

#include <QString>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace hvscene {

/// A box of light: where a reconstruction from optical pictures has put intensity.
struct OpticalVoxel
{
    Vec3 center;  ///< millimetres of the scene
    Vec3 size;    ///< millimetres, above 0
    float intensity = 0.0f;
};

/// A reconstruction.
struct OpticalVoxels
{
    std::vector<OpticalVoxel> voxels;
    QString unit;                     ///< of the intensities; may be empty
    std::optional<double> threshold;  ///< from where a voxel is shown at first, where that is told

    /// Of the intensities; 0 without voxels.
    double lowest() const;
    double highest() const;
    /// From where a voxel is shown at first: what is told, else a quarter of the way from the lowest to the
    /// highest intensity.
    double defaultThreshold() const;
    /// Around all voxels.
    Box box() const;
};

/// Which voxels are drawn, in their order: those that are not below `threshold`, and of these the share
/// `ratio` (0 to 1), spread evenly over the list, so that a part costs what it is worth. Of a share above 0
/// at least one voxel is left.
std::vector<std::size_t> drawnVoxels(const OpticalVoxels& optical, float threshold, double ratio);

/// Place of an intensity in the colour table, 0 to 1; 1 where all intensities are the same.
double colourPlace(double intensity, double lowest, double highest);

/// What a graphics card is given: 8 corners a voxel, and for each of the six sides (-x, +x, -y, +y, -z, +z)
/// the four corners of every voxel, counter-clockwise seen from outside.
struct VoxelBoxes
{
    std::vector<float> corners;          ///< x, y, z
    std::vector<unsigned char> colours;  ///< R, G, B, A a corner
    std::array<std::vector<unsigned int>, 6> sides;
    std::vector<unsigned int> middles;  ///< one corner a voxel, for a voxel that is smaller than a pixel
    double smallest = 0.0;              ///< shortest edge of all, mm

    bool isEmpty() const { return corners.empty(); }
};

/// `table` has 256 entries of R, G, B, A, of which the colours are taken.
VoxelBoxes voxelBoxes(const OpticalVoxels& optical, const std::vector<std::size_t>& drawn,
                      const unsigned char* table);

}  // namespace hvscene
