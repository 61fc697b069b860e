#include "support/NodeTest.h"

NodeTest::NodeTest()
    : node(std::make_unique<CGLVolume>("GLVolume"))
    , probe{*node}
{
    use(true);
}

NodeTest::~NodeTest()
{
    node.reset();  // while the canvas is current
}

void NodeTest::load(int a, int b, int c, const std::function<int(int x, int y, int z)>& voxel)
{
    std::vector<unsigned char> voxels;
    for (int z = 0; z < c; ++z)
        for (int y = 0; y < b; ++y)
            for (int x = 0; x < a; ++x)
                voxels.push_back(static_cast<unsigned char>(voxel(x, y, z)));
    float extent[3] = {2.0F, 2.0F, 2.0F};
    ASSERT_TRUE(node->loadVolume(voxels.data(), a, b, c, 255, 0, extent));
}

void NodeTest::loadConstant(int n, int voxel)
{
    load(n, n, n, [=](int, int, int) { return voxel; });
}

void NodeTest::setTable(const std::function<std::array<int, 4>(int voxel)>& entry)
{
    unsigned char table[1024];
    for (int i = 0; i < 256; ++i) {
        const auto color = entry(i);
        for (int k = 0; k < 4; ++k)
            table[4 * i + k] = static_cast<unsigned char>(color[k]);
    }
    node->setVolumeColorTable(table);
}

void NodeTest::setTable(int r, int g, int b, int a)
{
    setTable([=](int) { return std::array<int, 4>{r, g, b, a}; });
}

void NodeTest::setRamp(int a)
{
    setTable([=](int voxel) { return std::array<int, 4>{voxel, voxel, voxel, a}; });
}

void NodeTest::use(bool performance)
{
    node->setRenderInBestPerformance(performance);
    node->setShadersReady(false);
}

void NodeTest::draw(double depth)
{
    canvas.clear(depth);
    glPushMatrix();
    node->renderNode(GL_RENDER);
    glPopMatrix();
    EXPECT_EQ(takeGlError(), GLenum(GL_NO_ERROR));
}
