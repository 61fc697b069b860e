#pragma once

#include <array>

// How large a frame is loaded: the size chosen by the slice-resolution slider, the padding that goes with a
// reduced size, and what both do to the physical extents.
namespace viz {

/// Makes a whole number of pixels of a real one. The readers pass the host's rounding to the nearest.
using Rounding = double (*)(double);

/// Size of a frame as it stands in the block, and of the picture in its upper left corner. All counts are
/// pixels.
struct LoadSize
{
    unsigned columns = 0;         ///< width of the stored frame, padding included
    unsigned rows = 0;            ///< height of the stored frame, padding included
    unsigned reducedColumns = 0;  ///< width of the source picture at the final factor
    unsigned reducedRows = 0;     ///< height of the source picture at the final factor
    float factor = 1.0F;          ///< loaded size / source size, as it came out

    /// The frame that was read is not yet the frame to store: its size changes, or padding comes to it.
    bool changesFrame() const { return factor != 1.0F || columns != reducedColumns || rows != reducedRows; }
};

/// Slider position in percent (10 to 100) as a factor.
float resolutionFactor(int sliderPercent);

/// The size to load a source of columns x rows pixels with, at the factor asked for. A side below 64 raises
/// the factor; a side that is no multiple of 64 then grows to the next step of 20. Factor 1 leaves any size
/// alone.
LoadSize loadSize(unsigned columns, unsigned rows, float factor, Rounding round);

/// True where a source of that size can't be shown unpadded, so that full resolution is not offered: one of
/// its sides is neither a multiple of 64 nor one of 20.
bool excludesFullResolution(unsigned columns, unsigned rows);

/// Extent of a side that was padded from `reduced` to `stored` pixels with the size of a pixel unchanged. The
/// result has the unit of `extent`.
float paddedExtent(float extent, unsigned reduced, unsigned stored);

/// Distances in mm, in the order of a RAW file's "VolumeScale" line.
struct RawSpacing
{
    float row = 0.1F;     ///< first value
    float column = 0.1F;  ///< second value
    float slice = 0.1F;   ///< third value
};

/// Extents of a RAW volume in mm, in the order of the hand-over: along the columns, along the frames, along
/// the rows. Of a padded frame the columns correct the first extent and the rows correct the second one,
/// which belongs to the frames; the third stays as it is. Kept on purpose: it is how a RAW volume has always
/// been shown.
std::array<float, 3> rawExtents(const RawSpacing& spacing, unsigned columns, unsigned rows, unsigned frames,
                                const LoadSize& size);

}  // namespace viz
