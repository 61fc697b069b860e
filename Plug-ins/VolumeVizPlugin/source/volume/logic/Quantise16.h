#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// From 16 bits to 8 by a table that gives most of the grey levels to the values with the strongest edges. No
// reader uses it; the linear mapping of the readers is in Quantise.h.
namespace viz {

/// A volume of 16-bit samples, x fastest, then y, then z.
struct Volume16
{
    const std::uint16_t* samples = nullptr;
    unsigned width = 0, height = 0, depth = 0;

    std::size_t count() const { return std::size_t{width} * height * depth; }
};

/// Number of different 16-bit values, and of entries in each table below.
constexpr std::size_t values16 = 65536;

/// Samples of two bytes each, high byte first, in the machine's own order.
/// @param bytes    2 * count bytes
/// @param samples  count elements
void decodeBigEndian(const unsigned char* bytes, std::size_t count, std::uint16_t* samples);

/// Length of the gradient at a voxel: on each axis half the difference of the two neighbours as an integer,
/// at the first and last voxel the whole difference to the only neighbour. An axis of one voxel counts as 0.
double gradientMagnitude(const Volume16& volume, unsigned x, unsigned y, unsigned z);

/// table[i] = 255 * i / highest; all 0 for a highest value of 0.
void fillLinearTable(std::uint16_t highest, double* table);

/// Running sum, scaled to 255, of the cube root of each value's summed square roots of gradient magnitude.
/// The two extreme values carry no weight, and no value more than one 256th of the whole (at most 256 rounds
/// of cutting).
/// @param table  values16 entries
void fillEqualisedTable(const Volume16& volume, std::uint16_t lowest, std::uint16_t highest, double* table);

/// Each voxel: table[sample] + 0.5, truncated.
/// @param voxels  volume.count() elements
void applyTable(const Volume16& volume, const double* table, unsigned char* voxels);

}  // namespace viz
