#include "support/MarkedVolume.h"

#include "render/gl/GlewSupport.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>

#include <vector>

namespace {

void loadEntryPoints()
{
    QOpenGLContext context;
    QOffscreenSurface surface;
    surface.create();
    if (context.create() && context.makeCurrent(&surface)) glew::initialise();
}

unsigned char marker(int x, int y, int z)
{
    constexpr int high = MarkedVolume::kVoxels - 4;
    if (x >= high) return MarkedVolume::kRed;
    if (y >= high) return MarkedVolume::kGreen;
    if (z >= high) return MarkedVolume::kBlue;
    return MarkedVolume::kGrey;
}

void setEntry(unsigned char (&table)[1024], int voxel, int r, int g, int b, int a)
{
    // Neighbours as well: the texture interpolates, and its last bit is the driver's.
    for (int i = voxel - 5; i <= voxel + 5; ++i) {
        const int entry[4] = {r, g, b, a};
        for (int k = 0; k < 4; ++k)
            table[4 * i + k] = static_cast<unsigned char>(entry[k]);
    }
}

void loadVoxels(CGLVolume& node, const std::function<unsigned char(int, int, int)>& voxel)
{
    constexpr int n = MarkedVolume::kVoxels;
    std::vector<unsigned char> voxels;
    for (int z = 0; z < n; ++z)
        for (int y = 0; y < n; ++y)
            for (int x = 0; x < n; ++x)
                voxels.push_back(voxel(x, y, z));
    // In the order of the counts' extents: width, depth, height.
    float extent[3] = {20.0F, 40.0F, 30.0F};
    node.loadVolume(voxels.data(), n, n, n, 255, 0, extent);
    node.resetVolumeStates();
    Vec3f offsets[8];
    node.setCropBoxOffset(offsets);
}

}  // namespace

CGLVolume* addMarkedNode(C3DSGManager& graph)
{
    loadEntryPoints();
    auto* node = new CGLVolume("GLVolume");
    graph.addChild(graph.getRootNode(), node);
    loadVoxels(*node, marker);
    unsigned char table[1024] = {};
    setEntry(table, MarkedVolume::kGrey, 128, 128, 128, 255);
    setEntry(table, MarkedVolume::kRed, 255, 0, 0, 255);
    setEntry(table, MarkedVolume::kGreen, 0, 255, 0, 255);
    setEntry(table, MarkedVolume::kBlue, 0, 0, 255, 255);
    setEntry(table, MarkedVolume::kWhite, 255, 255, 255, 255);
    node->setVolumeColorTable(table);
    node->setSliceUseTransferFunction(true);
    node->setRenderInBestPerformance(true);
    node->show(true);
    return node;
}

MarkedVolume::MarkedVolume()
    : graph(std::make_unique<C3DSGManager>())
    , scene(std::make_unique<C3DScene>(graph.get()))
    , node(addMarkedNode(*graph))
{}

MarkedVolume::~MarkedVolume() = default;

void MarkedVolume::load(const std::function<unsigned char(int, int, int)>& voxel)
{
    loadVoxels(*node, voxel);
}

void MarkedVolume::removeNode()
{
    delete node;
    node = nullptr;
}

QString colorName(const QColor& color)
{
    const auto near = [&](int r, int g, int b) {
        return std::abs(color.red() - r) < 40 && std::abs(color.green() - g) < 40 &&
               std::abs(color.blue() - b) < 40;
    };
    if (near(255, 0, 0)) return "red";
    if (near(0, 255, 0)) return "green";
    if (near(0, 0, 255)) return "blue";
    if (near(128, 128, 128)) return "grey";
    if (near(255, 255, 255)) return "white";
    if (near(0, 0, 0)) return "black";
    return color.name();
}

QString colorAt(const QImage& image, double across, double up)
{
    return colorName(image.pixelColor(static_cast<int>(across * image.width()),
                                      static_cast<int>((1.0 - up) * image.height())));
}
