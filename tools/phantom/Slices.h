#pragma once

#include "phantom/Scan.h"

#include <array>
#include <vector>

namespace phantom {

enum class Orientation
{
    Axial,
    Coronal,
    Sagittal
};

using Triple = std::array<double, 3>;

/// A scan cut into slices as a scanner hands them out: each seen with the bed below (axial), with the top of
/// the scanner's axis at the top (coronal, sagittal).
///
/// Places are in the scanner's space, whose axes run x from left to right, y down to the bed, z along its
/// axis, with the origin in the middle. Head first, the mouse's x, y and z are the scanner's x, z and -y;
/// feet first it lies on the bed turned half around the vertical.
class Slices
{
public:
    /// Samples the whole scan; takes size^3 voxels of `bits` (8 or 16) of memory.
    Slices(const Scan& scan, int bits, Orientation orientation, bool feetFirst, unsigned threads);

    /// Columns, rows and slices.
    int size() const { return m_size; }
    int bits() const { return m_bits; }

    /// Slice i, row after row, of voxels as sampledFrames() has them. Slices follow one another along
    /// acrossSlices().
    std::vector<unsigned char> slice(int i) const;

    /// Unit vectors from pixel to pixel of a row, from row to row, from slice to slice: right-handed.
    Triple alongRow() const;
    Triple alongColumn() const;
    Triple acrossSlices() const;

    /// Centre of the first pixel of slice i in units of a voxel's edge.
    Triple firstPixel(int i) const;

private:
    int m_size, m_bits;
    Orientation m_orientation;
    bool m_feetFirst;
    std::vector<unsigned char> m_voxels;
};

}  // namespace phantom
