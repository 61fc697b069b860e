#include "hvapi/scene/C3DVolumeData.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace {

/// Opens what a derived node reads.
class OpenVolume : public C3DVolumeData
{
public:
    OpenVolume()
        : C3DVolumeData("GLVolume")
    {}
    using C3DVolumeData::m_bSliceColorTableLocked;
    using C3DVolumeData::m_bVolumeColorTableUploaded;
    using C3DVolumeData::m_volumeColorTable;
    using C3DVolumeData::m_volumeProgram;
};

std::vector<unsigned char> ramp(std::size_t count)
{
    std::vector<unsigned char> v(count);
    for (std::size_t i = 0; i < count; ++i)
        v[i] = static_cast<unsigned char>(i * 7 + 3);
    return v;
}

void expectCoord(const Coord3d& c, double x, double y, double z)
{
    EXPECT_DOUBLE_EQ(c.x, x);
    EXPECT_DOUBLE_EQ(c.y, y);
    EXPECT_DOUBLE_EQ(c.z, z);
}

struct VolumeDataTest : testing::Test
{
    bool load(unsigned a = 5, unsigned b = 4, unsigned c = 6)
    {
        float extent[3] = {10.0f, 30.0f, 20.0f};
        return volume.loadVolume(voxels.data(), a, b, c, 1000, 10, extent);
    }

    OpenVolume volume;
    std::vector<unsigned char> voxels = ramp(120);
    QSignalSpy boxChanged{&volume, &C3DVolumeData::boundingBoxChanged};
    QSignalSpy dataChanged{&volume, &C3DVolumeData::volumeDataChanged};
};

TEST_F(VolumeDataTest, StartsEmpty)
{
    EXPECT_FALSE(volume.isValid());
    EXPECT_EQ(volume.getVolumeData(), nullptr);
    EXPECT_EQ(volume.getWidth(), 0);
    EXPECT_EQ(volume.getHeight(), 0);
    EXPECT_EQ(volume.getDepth(), 0);
    EXPECT_FALSE(volume.m_bVolumeColorTableUploaded);
    EXPECT_FALSE(volume.m_bSliceColorTableLocked);
    EXPECT_EQ(volume.m_volumeProgram.getID(), 0u);
    Coord3d min(1, 1, 1);
    Coord3d max(1, 1, 1);
    volume.getBBox(min, max);
    expectCoord(min, 0, 0, 0);
    expectCoord(max, 0, 0, 0);
    EXPECT_EQ(volume.getAxisOrientation().x, 1);
    EXPECT_EQ(volume.getAxisOrientation().y, 1);
    EXPECT_EQ(volume.getAxisOrientation().z, 1);
}

TEST_F(VolumeDataTest, StartsWithTheDefaultTable)
{
    for (int i = 0; i <= 60; ++i)
        EXPECT_EQ(volume.m_volumeColorTable[4 * i + 3], 0);
    EXPECT_EQ(volume.m_volumeColorTable[4 * 200], 200);
    EXPECT_EQ(volume.m_volumeColorTable[4 * 255 + 3], 255);
}

TEST_F(VolumeDataTest, LoadTakesCountsRangeAndBox)
{
    ASSERT_TRUE(load());
    EXPECT_TRUE(volume.isValid());
    EXPECT_EQ(volume.getWidth(), 5);
    EXPECT_EQ(volume.getHeight(), 4);
    EXPECT_EQ(volume.getDepth(), 6);
    EXPECT_EQ(volume.getMin(), 10);
    EXPECT_EQ(volume.getMax(), 1000);
    // extent[0] belongs to a, extent[2] to b, extent[1] to c.
    expectCoord(volume.getThickness(), 2.0, 5.0, 5.0);
    Coord3d min;
    Coord3d max;
    volume.getBBox(min, max);
    expectCoord(min, -5, -10, -15);
    expectCoord(max, 5, 10, 15);
}

TEST_F(VolumeDataTest, LoadCopiesTheVoxels)
{
    ASSERT_TRUE(load());
    const std::vector<unsigned char> original = voxels;
    ASSERT_NE(volume.getVolumeData(), voxels.data());
    std::fill(voxels.begin(), voxels.end(), 0);
    EXPECT_EQ(std::memcmp(volume.getVolumeData(), original.data(), original.size()), 0);
}

TEST_F(VolumeDataTest, BoxIsAnnouncedBeforeTheVoxels)
{
    QStringList order;
    QObject::connect(&volume, &C3DVolumeData::boundingBoxChanged, [&] {
        order += "box";
        EXPECT_EQ(volume.getWidth(), 5);
        EXPECT_EQ(volume.getMax(), 1000);
    });
    QObject::connect(&volume, &C3DVolumeData::volumeDataChanged, [&] { order += "data"; });
    ASSERT_TRUE(load());
    EXPECT_EQ(order, QStringList({"box", "data"}));
}

TEST_F(VolumeDataTest, NegativeSourceValuesSurvive)
{
    float extent[3] = {1, 1, 1};
    ASSERT_TRUE(volume.loadVolume(voxels.data(), 2, 2, 2, 3071, static_cast<unsigned long>(-1024), extent));
    EXPECT_EQ(volume.getMin(), -1024);
    EXPECT_EQ(volume.getMax(), 3071);
}

TEST_F(VolumeDataTest, RefusalKeepsTheOldVolume)
{
    ASSERT_TRUE(load());
    const int boxes = boxChanged.count();
    const int datas = dataChanged.count();
    float good[3] = {1, 1, 1};
    float bad[3] = {1, std::numeric_limits<float>::quiet_NaN(), 1};
    float zero[3] = {1, 1, 0};
    EXPECT_FALSE(volume.loadVolume(nullptr, 2, 2, 2, 1, 0, good));
    EXPECT_FALSE(volume.loadVolume(voxels.data(), 2, 2, 2, 1, 0, nullptr));
    EXPECT_FALSE(volume.loadVolume(voxels.data(), 2, 2, 2, 1, 0, bad));
    EXPECT_FALSE(volume.loadVolume(voxels.data(), 2, 2, 2, 1, 0, zero));
    EXPECT_FALSE(volume.loadVolume(voxels.data(), 0, 2, 2, 1, 0, good));
    EXPECT_FALSE(volume.loadVolume(voxels.data(), 2147483647u, 2147483647u, 2147483647u, 1, 0, good));
    EXPECT_FALSE(volume.loadVolume(voxels.data(), 60000, 60000, 60000, 1, 0, good))
        << "no machine has the memory";
    EXPECT_EQ(volume.getWidth(), 5);
    EXPECT_EQ(volume.getDepth(), 6);
    EXPECT_EQ(volume.getMax(), 1000);
    expectCoord(volume.getThickness(), 2.0, 5.0, 5.0);
    EXPECT_EQ(std::memcmp(volume.getVolumeData(), voxels.data(), 120), 0);
    EXPECT_EQ(boxChanged.count(), boxes);
    EXPECT_EQ(dataChanged.count(), datas);
}

TEST_F(VolumeDataTest, ALoadFromTheOwnVoxelsIsSafe)
{
    ASSERT_TRUE(load());
    float extent[3] = {1, 1, 1};
    ASSERT_TRUE(volume.loadVolume(volume.getVolumeData(), 5, 4, 6, 1, 0, extent));
    EXPECT_EQ(std::memcmp(volume.getVolumeData(), voxels.data(), 120), 0);
    ASSERT_TRUE(volume.loadVolume(volume.getVolumeData() + 60, 5, 4, 3, 1, 0, extent));
    EXPECT_EQ(std::memcmp(volume.getVolumeData(), voxels.data() + 60, 60), 0);
}

TEST_F(VolumeDataTest, QuietLoadAnnouncesTheVoxelsOnlyWhenAsked)
{
    float extent[3] = {1, 1, 1};
    ASSERT_TRUE(volume.loadVolumeNotUpdate3DView(voxels.data(), 2, 3, 4, 1, 0, extent, false));
    EXPECT_EQ(boxChanged.count(), 1);
    EXPECT_EQ(dataChanged.count(), 0);
    ASSERT_TRUE(volume.loadVolumeNotUpdate3DView(voxels.data(), 2, 3, 4, 1, 0, extent, true));
    EXPECT_EQ(dataChanged.count(), 1);
}

TEST_F(VolumeDataTest, FreedVoxelsLeaveCountsAndBox)
{
    ASSERT_TRUE(load());
    volume.freeVoxelData();
    EXPECT_FALSE(volume.isValid());
    EXPECT_EQ(volume.getVolumeData(), nullptr);
    EXPECT_EQ(volume.getWidth(), 5);
    expectCoord(volume.getThickness(), 2.0, 5.0, 5.0);
    ASSERT_TRUE(load());
    EXPECT_TRUE(volume.isValid());
}

TEST_F(VolumeDataTest, ThicknessMakesTheBoxAnew)
{
    ASSERT_TRUE(load());
    volume.setThickness(Coord3d(1.0, 2.0, 3.0));
    EXPECT_EQ(boxChanged.count(), 2);
    Coord3d min;
    Coord3d max;
    volume.getBBox(min, max);
    expectCoord(min, -2.5, -4.0, -9.0);
    expectCoord(max, 2.5, 4.0, 9.0);
    expectCoord(volume.getThickness(), 1.0, 2.0, 3.0);
    volume.setThickness(Coord3d(1.0, 0.0, 3.0));
    volume.setThickness(Coord3d(1.0, 2.0, std::numeric_limits<double>::infinity()));
    volume.setThickness(Coord3d(-1.0, 2.0, 3.0));
    expectCoord(volume.getThickness(), 1.0, 2.0, 3.0);
    EXPECT_EQ(boxChanged.count(), 2);
}

TEST_F(VolumeDataTest, ARestoredBoxSetsTheThickness)
{
    ASSERT_TRUE(load());
    Coord3d min(-1, -2, -3);
    Coord3d max(4, 6, 9);
    volume.setBBox(min, max);
    EXPECT_EQ(boxChanged.count(), 2);
    expectCoord(volume.getThickness(), 1.0, 2.0, 2.0);
    Coord3d low;
    Coord3d high;
    volume.getBBox(low, high);
    expectCoord(low, -1, -2, -3);
    expectCoord(high, 4, 6, 9);
    Coord3d nan(std::nan(""), 0, 0);
    volume.setBBox(nan, max);
    volume.setBBox(max, min);
    volume.getBBox(low, high);
    expectCoord(low, -1, -2, -3);
    EXPECT_EQ(boxChanged.count(), 2);
}

TEST_F(VolumeDataTest, AxisOrientationIsMinusOneForTrueAndAnnouncesTheBox)
{
    volume.setAxisOrientation(true, false, true);
    EXPECT_EQ(volume.getAxisOrientation().x, -1);
    EXPECT_EQ(volume.getAxisOrientation().y, 1);
    EXPECT_EQ(volume.getAxisOrientation().z, -1);
    EXPECT_EQ(boxChanged.count(), 1);
    volume.setAxisOrientation(true, false, true);
    EXPECT_EQ(boxChanged.count(), 1);
}

TEST_F(VolumeDataTest, ColourTableIsCopiedAndMarkedForUpload)
{
    std::vector<unsigned char> table = ramp(1024);
    volume.m_bVolumeColorTableUploaded = true;
    volume.setVolumeColorTable(table.data());
    EXPECT_FALSE(volume.m_bVolumeColorTableUploaded);
    const std::vector<unsigned char> original = table;
    std::fill(table.begin(), table.end(), 0);
    EXPECT_EQ(std::memcmp(volume.m_volumeColorTable, original.data(), 1024), 0);
    volume.m_bVolumeColorTableUploaded = true;
    volume.setVolumeColorTable(nullptr);
    EXPECT_TRUE(volume.m_bVolumeColorTableUploaded);
    EXPECT_EQ(std::memcmp(volume.m_volumeColorTable, original.data(), 1024), 0);
}

}  // namespace
