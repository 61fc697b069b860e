#include "phantom/OpticalVoxels.h"

#include "phantom/Photograph.h"
#include "phantom/Text.h"

#include <cmath>

namespace phantom {

const std::vector<Light>& lights()
{
    static const std::vector<Light> places = [] {
        const Glow& liver = glows().at(0);
        const Glow& thigh = glows().at(1);
        return std::vector<Light>{{{liver.x, liver.y, -3.2}, liver.spread, liver.peak, 4.8},
                                  {{thigh.x, thigh.y, 3.0}, thigh.spread, thigh.peak, 4.0}};
    }();
    return places;
}

std::string opticalVoxelText(double scale)
{
    std::string voxels;
    int count = 0;
    for (const Light& light : lights()) {
        const int steps = static_cast<int>(light.reach);
        for (int z = -steps; z <= steps; ++z) {
            for (int y = -steps; y <= steps; ++y) {
                for (int x = -steps; x <= steps; ++x) {
                    const Vec3 away{static_cast<double>(x), static_cast<double>(y), static_cast<double>(z)};
                    const double square = dot(away, away);
                    if (square > light.reach * light.reach) continue;
                    const double intensity =
                        light.peak * std::exp(-square / (2 * light.spread * light.spread));
                    const Vec3 place = (light.middle + away) * scale;
                    voxels += "Voxel " + std::to_string(++count) + " = " + brief(place.x) + " " +
                              brief(place.y) + " " + brief(place.z) + " " +
                              std::to_string(std::lround(intensity)) + "\n";
                }
            }
        }
    }
    const std::string edge = brief(scale);
    return "# Light in a made-up mouse, written by phantom.\n[Optical Voxels]\nFormat Version = 1\nCount = " +
           std::to_string(count) + "\nUnit = photons/s\nVoxel Size = " + edge + " " + edge + " " + edge +
           "\n\n[Voxels]\n" + voxels;
}

}  // namespace phantom
