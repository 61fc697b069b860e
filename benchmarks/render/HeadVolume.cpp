#include "render/HeadVolume.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace {

struct Place
{
    double x, y, z;
};

/// Below 1 inside the ellipsoid.
double ellipsoid(Place p, Place centre, Place half)
{
    const double x = (p.x - centre.x) / half.x;
    const double y = (p.y - centre.y) / half.y;
    const double z = (p.z - centre.z) / half.z;
    return std::sqrt(x * x + y * y + z * z);
}

int tissue(Place p)
{
    const double head = ellipsoid(p, {0, 0.15, -0.05}, {0.68, 0.75, 0.85});
    const double jaw = ellipsoid(p, {0, -0.55, 0.3}, {0.42, 0.3, 0.45});
    const double left = ellipsoid(p, {-0.27, 0.05, 0.75}, {0.17, 0.15, 0.3});
    const double right = ellipsoid(p, {0.27, 0.05, 0.75}, {0.17, 0.15, 0.3});
    const double nose = ellipsoid(p, {0, -0.2, 0.82}, {0.09, 0.17, 0.25});
    const bool hollow = std::min({left, right, nose}) < 1.0;
    if (!hollow && ((head < 0.92 && head > 0.82) || (jaw < 0.9 && jaw > 0.68))) return 210;
    if (head < 0.82) return 80;
    if (std::min(head, jaw) < 1.0) return hollow ? 30 : 65;
    return 4;
}

}  // namespace

std::vector<unsigned char> headVolume(int n)
{
    std::vector<unsigned char> voxels;
    voxels.reserve(static_cast<std::size_t>(n) * n * n);
    std::minstd_rand random(1);
    const auto at = [n](int i) { return (2.0 * i + 1.0) / n - 1.0; };
    for (int z = 0; z < n; ++z)
        for (int y = 0; y < n; ++y)
            for (int x = 0; x < n; ++x) {
                const int noise = static_cast<int>(random() % 9) - 4;
                voxels.push_back(
                    static_cast<unsigned char>(std::max(0, tissue({at(x), at(y), at(z)}) + noise)));
            }
    return voxels;
}
