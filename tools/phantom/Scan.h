#pragma once

#include "phantom/Shapes.h"

#include <cstdint>
#include <vector>

namespace phantom {

/// Edge of the cube that is scanned, in mm; its centre is the origin of the mouse's space.
constexpr double fieldOfView = 80.0;

/// Standard deviation of the noise, in grey values of 0..255.
constexpr double noiseLevel = 1.5;

/// A scan that is sampled from solids, one frame (constant z) at a time.
///
/// Voxel (x, y) of frame z has its centre at ((x, y, z) + 0.5) * fieldOfView / size - fieldOfView / 2 in each
/// direction. Its grey value is the share of the materials in it, 0 for air up to 255, and noise on top.
class Scan
{
public:
    /// `size`: columns, rows and frames, all the same, at least 1. Soft solids paint over earlier ones in the
    /// order given; bone lies over all of them.
    Scan(std::vector<Solid> solids, int size, std::uint64_t seed);

    int size() const { return m_size; }

    /// Writes frame z, rows one after the other, x fastest, to size * size values of 0..255.
    void frame(int z, float* values) const;

private:
    /// Rows, columns and frames that a solid can reach: from first to last, last included; none if last <
    /// first.
    struct Reach
    {
        int firstX, lastX, firstY, lastY, firstZ, lastZ;
    };

    double position(int index) const;
    Reach reachOf(const Solid& solid) const;

    std::vector<Solid> m_solids;
    std::vector<Reach> m_reach;
    int m_size;
    std::uint64_t m_seed;
    double m_voxel;  ///< edge of a voxel in mm
};

/// The bytes of frames [first, first + count) as a RAW file holds them: one byte a voxel for bits = 8; for
/// bits = 16 two bytes, the low one first, of a value 16 times as fine (0..4080). The frames are shared out
/// among `threads` threads; the bytes do not depend on how many they are.
std::vector<unsigned char> sampledFrames(const Scan& scan, int first, int count, int bits, unsigned threads);

}  // namespace phantom
