#pragma once

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "render/CGLVolume.h"
#include "testing/TestHostServices.h"

#include <QImage>

#include <functional>
#include <memory>

/// Puts the node "GLVolume" under the graph's root: 20 x 20 x 20 voxels in a box of 20 x 30 x 40 mm around
/// the origin, with the transfer function as the colour source of its slices: red at the high end of x, green
/// at the high end of y, blue at the high end of z, grey in between.
CGLVolume* addMarkedNode(C3DSGManager& graph);

/// A scene with that node.
struct MarkedVolume
{
    static constexpr int kVoxels = 20;
    static constexpr unsigned char kNothing = 0;
    static constexpr unsigned char kGrey = 50;
    static constexpr unsigned char kRed = 100;
    static constexpr unsigned char kGreen = 150;
    static constexpr unsigned char kBlue = 200;
    static constexpr unsigned char kWhite = 250;

    MarkedVolume();
    ~MarkedVolume();

    /// Other voxels, by place.
    void load(const std::function<unsigned char(int x, int y, int z)>& voxel);
    void removeNode();

    TestHostServices services;
    std::unique_ptr<C3DSGManager> graph;
    std::unique_ptr<C3DScene> scene;
    CGLVolume* node = nullptr;
};

/// The name of a pixel's colour: "red", "green", "blue", "grey", "white", "black", or its numbers.
QString colorName(const QColor& color);
/// The colour at a share of the picture's width, and of its height from the bottom.
QString colorAt(const QImage& image, double across, double up);
