#include "phantom/Scan.h"

#include "phantom/Noise.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <system_error>
#include <thread>

namespace phantom {
namespace {

/// Share of a voxel that lies inside a surface at this distance from its centre.
double coverage(double distance, double voxel)
{
    return std::clamp(0.5 - distance / voxel, 0.0, 1.0);
}

void storeFrame(const std::vector<float>& values, int bits, unsigned char* out)
{
    if (bits == 8) {
        for (const float value : values)
            *out++ = static_cast<unsigned char>(value + 0.5F);
        return;
    }
    for (const float value : values) {
        const auto sample = static_cast<unsigned>(value * 16.0F + 0.5F);
        *out++ = static_cast<unsigned char>(sample & 0xff);
        *out++ = static_cast<unsigned char>(sample >> 8);
    }
}

}  // namespace

Scan::Scan(std::vector<Solid> solids, int size, std::uint64_t seed)
    : m_solids(std::move(solids))
    , m_size(size)
    , m_seed(seed)
    , m_voxel(fieldOfView / size)
{
    m_reach.reserve(m_solids.size());
    for (const Solid& solid : m_solids)
        m_reach.push_back(reachOf(solid));
}

double Scan::position(int index) const
{
    return (index + 0.5) * m_voxel - fieldOfView * 0.5;
}

Scan::Reach Scan::reachOf(const Solid& solid) const
{
    const Bounds box = bounds(solid);
    // One voxel more on each side: a voxel is touched up to half its edge away.
    const auto first = [this](double mm) {
        return static_cast<int>(
            std::clamp(std::floor((mm + fieldOfView * 0.5) / m_voxel) - 1, 0.0, 1.0 * m_size));
    };
    const auto last = [this](double mm) {
        return static_cast<int>(
            std::clamp(std::floor((mm + fieldOfView * 0.5) / m_voxel) + 1, -1.0, m_size - 1.0));
    };
    return {first(box.low.x), last(box.high.x), first(box.low.y),
            last(box.high.y), first(box.low.z), last(box.high.z)};
}

void Scan::frame(int z, float* values) const
{
    const std::size_t pixels = static_cast<std::size_t>(m_size) * m_size;
    std::vector<float> soft(pixels, 0.0F), boneShare(pixels, 0.0F), boneDensity(pixels, 0.0F);

    for (std::size_t i = 0; i < m_solids.size(); ++i) {
        const Solid& solid = m_solids[i];
        const Reach& reach = m_reach[i];
        if (z < reach.firstZ || z > reach.lastZ) continue;
        const auto density = static_cast<float>(solid.density);
        for (int y = reach.firstY; y <= reach.lastY; ++y) {
            for (int x = reach.firstX; x <= reach.lastX; ++x) {
                const auto share = static_cast<float>(
                    coverage(distance(solid, {position(x), position(y), position(z)}), m_voxel));
                if (share <= 0) continue;
                const std::size_t at = static_cast<std::size_t>(y) * m_size + x;
                if (solid.tissue == Tissue::Soft) {
                    soft[at] += (density - soft[at]) * share;
                } else if (share > boneShare[at] || (share == boneShare[at] && density > boneDensity[at])) {
                    boneShare[at] = share;
                    boneDensity[at] = density;
                }
            }
        }
    }

    for (std::size_t at = 0; at < pixels; ++at) {
        const double clean = soft[at] + (boneDensity[at] - soft[at]) * boneShare[at];
        values[at] =
            static_cast<float>(std::clamp(clean + noiseLevel * noise(m_seed, z * pixels + at), 0.0, 255.0));
    }
}

std::vector<unsigned char> sampledFrames(const Scan& scan, int first, int count, int bits, unsigned threads)
{
    const std::size_t pixels = static_cast<std::size_t>(scan.size()) * scan.size();
    const std::size_t frameBytes = pixels * (bits / 8);
    std::vector<unsigned char> bytes(frameBytes * count);

    std::atomic<int> next{0};
    const auto work = [&] {
        std::vector<float> values(pixels);
        for (int i = next++; i < count; i = next++) {
            scan.frame(first + i, values.data());
            storeFrame(values, bits, bytes.data() + i * frameBytes);
        }
    };
    std::vector<std::thread> helpers;
    try {
        for (unsigned i = 1; i < threads; ++i)
            helpers.emplace_back(work);
    } catch (const std::system_error&) {
        // No more threads to be had: those that run, this one at least, share the frames.
    }
    work();
    for (std::thread& helper : helpers)
        helper.join();
    return bytes;
}

}  // namespace phantom
