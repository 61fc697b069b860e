#pragma once

#include "support/CGLVolumeProbe.h"
#include "support/GlCanvas.h"

#include "testing/TestHostServices.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

/// A node with a volume in the box from -1 to 1, on a canvas that shows it from the front.
///
/// Slices of n voxels at density 100 lie 2 / n apart, the first at z = 1 - 1e-6: n of them. In the outermost
/// half voxel the texture fades to 0, so tests look elsewhere or use tables that don't care.
struct NodeTest : ::testing::Test
{
    /// Performance text and no settings at the start.
    NodeTest();
    ~NodeTest() override;

    /// Voxels by place, 0 to 255; source range 0 to 255.
    void load(int a, int b, int c, const std::function<int(int x, int y, int z)>& voxel);
    void loadConstant(int n, int voxel);
    /// The same colour for all voxels.
    void setTable(int r, int g, int b, int a);
    /// Grey of the voxel's own value.
    void setRamp(int a);
    void setTable(const std::function<std::array<int, 4>(int voxel)>& entry);

    /// Clears and draws by the scene walk's entry; no GL error may come of it.
    void draw(double depth = 1.0);
    void use(bool performance);

    TestHostServices services;
    GlCanvas canvas;
    std::unique_ptr<CGLVolume> node;
    CGLVolumeProbe probe;
};

/// Grey level of n slices of opacity `alpha` and colour `color` (both 0 to 1), composited over black.
inline double composited(double color, double alpha, int n)
{
    return 255.0 * color * (1.0 - std::pow(1.0 - alpha, n));
}

/// Opacity that a slice gets from a table alpha (0 to 1) at an interval in voxels.
inline double sliceAlpha(double alpha, double voxelInterval)
{
    return (1.0 - std::pow(1.0 - alpha, voxelInterval)) * 255.0 / 256.0;
}

MATCHER_P4(IsColor, r, g, b, tolerance, "")
{
    *result_listener << "is " << arg.r << " " << arg.g << " " << arg.b;
    return std::abs(arg.r - (r)) <= tolerance && std::abs(arg.g - (g)) <= tolerance &&
           std::abs(arg.b - (b)) <= tolerance;
}
