#include "volume/logic/Quantise16.h"

#include <algorithm>
#include <cmath>

namespace viz {

namespace {

constexpr int mostRounds = 256;
constexpr double greyLevels = 256.0;

// One component of the gradient. `position` runs along an axis of `extent` voxels that lie `stride` samples
// apart.
int difference(const std::uint16_t* sample, unsigned position, unsigned extent, std::size_t stride)
{
    if (extent < 2) return 0;
    if (position == 0) return static_cast<int>(sample[stride]) - *sample;
    const int before = *(sample - stride);
    if (position == extent - 1) return static_cast<int>(*sample) - before;
    return (static_cast<int>(sample[stride]) - before) / 2;
}

// Cuts entries above one 256th of the sum. Returns whether there was any.
bool cutPeaks(double* table)
{
    double sum = 0;
    for (std::size_t i = 0; i < values16; ++i)
        sum += table[i];
    const double limit = sum / greyLevels;
    bool cut = false;
    for (std::size_t i = 0; i < values16; ++i) {
        if (table[i] > limit) {
            table[i] = limit;
            cut = true;
        }
    }
    return cut;
}

}  // namespace

void decodeBigEndian(const unsigned char* bytes, std::size_t count, std::uint16_t* samples)
{
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = static_cast<std::uint16_t>(bytes[2 * i] << 8 | bytes[2 * i + 1]);
}

double gradientMagnitude(const Volume16& volume, unsigned x, unsigned y, unsigned z)
{
    const std::size_t row = volume.width;
    const std::size_t slice = row * volume.height;
    const std::uint16_t* const sample = volume.samples + x + y * row + z * slice;
    const double dx = difference(sample, x, volume.width, 1);
    const double dy = difference(sample, y, volume.height, row);
    const double dz = difference(sample, z, volume.depth, slice);
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

void fillLinearTable(std::uint16_t highest, double* table)
{
    for (std::size_t i = 0; i < values16; ++i)
        table[i] = highest == 0 ? 0.0 : 255.0 * static_cast<double>(i) / highest;
}

void fillEqualisedTable(const Volume16& volume, std::uint16_t lowest, std::uint16_t highest, double* table)
{
    std::fill_n(table, values16, 0.0);
    const std::uint16_t* sample = volume.samples;
    for (unsigned z = 0; z < volume.depth; ++z)
        for (unsigned y = 0; y < volume.height; ++y)
            for (unsigned x = 0; x < volume.width; ++x)
                table[*sample++] += std::sqrt(gradientMagnitude(volume, x, y, z));

    std::for_each(table, table + values16, [](double& weight) { weight = std::pow(weight, 1.0 / 3.0); });
    table[highest] = 0;
    table[lowest] = 0;
    for (int round = 0; round < mostRounds && cutPeaks(table);)
        ++round;

    for (std::size_t i = 1; i < values16; ++i)
        table[i] += table[i - 1];
    const double whole = table[values16 - 1];
    if (whole > 0) std::for_each(table, table + values16, [&](double& level) { level *= 255.0 / whole; });
}

void applyTable(const Volume16& volume, const double* table, unsigned char* voxels)
{
    const std::size_t count = volume.count();
    for (std::size_t i = 0; i < count; ++i)
        voxels[i] = static_cast<unsigned char>(static_cast<int>(table[volume.samples[i]] + 0.5));
}

}  // namespace viz
