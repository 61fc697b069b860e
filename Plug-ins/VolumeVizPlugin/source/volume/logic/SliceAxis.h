#pragma once

#include <QString>
#include <array>
#include <optional>

// Across which axis of the body the slices of a scan lie, and what stands along which axis of the volume.
namespace viz {

/// Axis that the slices are stacked along.
enum class SliceAxis : int
{
    Sagittal = 0,
    Coronal = 1,
    Axial = 2
};

/// Directions of a row and of a column of a slice, in patient coordinates.
struct SliceOrientation
{
    std::array<float, 3> alongRow{};
    std::array<float, 3> alongColumn{};
};

/// The last component on which both directions agree exactly, which in practice is the one where both are 0.
std::optional<SliceAxis> axisOfOrientation(const SliceOrientation& orientation);

/// The plane that an image type names: "SAGITTAL", else "CORONAL", else "AXIAL" or "TRANSVERSE".
std::optional<SliceAxis> axisOfImageType(const QString& imageType);

/// The first component of a position (mm) that equals the distance of the slice along its axis.
std::optional<SliceAxis> axisOfLocation(const std::array<float, 3>& position, float sliceLocation);

/// The extents in mm of a volume's columns, rows and slices, put into the order of the volume's axes.
std::array<float, 3> extentsAcross(SliceAxis axis, float columns, float rows, float slices);

/// Place of the slices among those three.
std::size_t sliceExtentOf(SliceAxis axis);

/// Counts of voxels along the three sides of a block.
struct BlockCounts
{
    unsigned columns = 0;
    unsigned rows = 0;
    unsigned frames = 0;
};

/// The counts of a loaded stack as the volume has them: sagittal slices exchange columns and frames, axial
/// ones rows and frames.
BlockCounts countsAcross(SliceAxis axis, const BlockCounts& stack);

}  // namespace viz
