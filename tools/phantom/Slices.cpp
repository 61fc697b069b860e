#include "phantom/Slices.h"

namespace phantom {
namespace {

Triple cross(const Triple& a, const Triple& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// Step through the voxels from one pixel to the next along a direction of the scanner's space.
std::ptrdiff_t stepAlong(const Triple& d, std::ptrdiff_t n, bool feetFirst)
{
    const double turned = feetFirst ? -1 : 1;
    return static_cast<std::ptrdiff_t>(turned * d[0]) + static_cast<std::ptrdiff_t>(turned * d[2]) * n -
           static_cast<std::ptrdiff_t>(d[1]) * n * n;
}

}  // namespace

Slices::Slices(const Scan& scan, int bits, Orientation orientation, bool feetFirst, unsigned threads)
    : m_size(scan.size())
    , m_bits(bits)
    , m_orientation(orientation)
    , m_feetFirst(feetFirst)
    , m_voxels(sampledFrames(scan, 0, scan.size(), bits, threads))
{}

Triple Slices::alongRow() const
{
    return m_orientation == Orientation::Sagittal ? Triple{0, -1, 0} : Triple{1, 0, 0};
}

Triple Slices::alongColumn() const
{
    return m_orientation == Orientation::Axial ? Triple{0, 1, 0} : Triple{0, 0, -1};
}

Triple Slices::acrossSlices() const
{
    const Triple normal = cross(alongRow(), alongColumn());
    return {normal[0] + 0.0, normal[1] + 0.0, normal[2] + 0.0};
}

Triple Slices::firstPixel(int i) const
{
    const Triple row = alongRow(), column = alongColumn(), across = acrossSlices();
    const double half = (m_size - 1) * 0.5;
    Triple place{};
    for (std::size_t axis = 0; axis < place.size(); ++axis)
        place[axis] = (i - half) * across[axis] - half * (row[axis] + column[axis]);
    return place;
}

std::vector<unsigned char> Slices::slice(int i) const
{
    const std::ptrdiff_t n = m_size, bytes = m_bits / 8;
    const Triple first = firstPixel(i);
    const double half = (m_size - 1) * 0.5, turned = m_feetFirst ? -1 : 1;
    // The scanner's x, z and -y are the mouse's x, y and z.
    const auto x = static_cast<std::ptrdiff_t>(turned * first[0] + half);
    const auto y = static_cast<std::ptrdiff_t>(turned * first[2] + half);
    const auto z = static_cast<std::ptrdiff_t>(half - first[1]);
    const std::ptrdiff_t start = x + n * (y + n * z);
    const std::ptrdiff_t column = stepAlong(alongRow(), n, m_feetFirst);
    const std::ptrdiff_t row = stepAlong(alongColumn(), n, m_feetFirst);

    std::vector<unsigned char> pixels(static_cast<std::size_t>(n * n * bytes));
    unsigned char* out = pixels.data();
    for (std::ptrdiff_t r = 0; r < n; ++r) {
        for (std::ptrdiff_t c = 0; c < n; ++c) {
            const unsigned char* const voxel = m_voxels.data() + (start + r * row + c * column) * bytes;
            for (std::ptrdiff_t b = 0; b < bytes; ++b)
                *out++ = voxel[b];
        }
    }
    return pixels;
}

}  // namespace phantom
