#pragma once

#include "phantom/Slices.h"

#include <cstdint>
#include <vector>

namespace phantom {

/// What a camera straight above the bed sees of a scan: pictures with the nose at the top and the mouse's
/// right side on the right, one pixel for each voxel of a slice.
class Photograph
{
public:
    /// `slices` are axial and head first.
    explicit Photograph(const Slices& slices);

    /// Pixels a side.
    int size() const { return m_size; }

    /// Height of what is seen first at pixel (column, row), in mm from the middle of the scan; below the scan
    /// where nothing is.
    double height(int column, int row) const;
    /// Whether the mouse is seen there, and not the bed or the ground.
    bool isMouse(int column, int row) const;

    /// Grey picture by daylight, the top row first; values up to 4000. The light falls from the upper left.
    std::vector<std::uint16_t> daylight() const;

    /// The same in the dark, of half as many pixels a side: a glow in the liver and one in the left thigh,
    /// `strength` (0 to 1) times as bright as they can be, up to 30000, dim on all that is not the mouse,
    /// with the camera's noise on top.
    std::vector<std::uint16_t> glow(double strength, std::uint64_t seed) const;

private:
    double millimetres(double pixel) const;
    double shade(int column, int row) const;

    int m_size;
    std::vector<double> m_heights;
};

/// Where the glows of a Photograph lie, in mm of the mouse's space.
struct Glow
{
    double x, y;
    double spread;  ///< standard deviation, mm
    double peak;    ///< at full strength
};
const std::vector<Glow>& glows();

}  // namespace phantom
