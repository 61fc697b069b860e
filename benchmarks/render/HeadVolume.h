#pragma once

#include <vector>

/// n * n * n voxels of a head-like volume, x fastest: air, skin, a skull with eye sockets and a jaw, brain,
/// and a little noise. The same for each call.
std::vector<unsigned char> headVolume(int n);
