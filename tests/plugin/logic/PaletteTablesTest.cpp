#include "plugin/logic/ColorTableNames.h"
#include "plugin/logic/SameId.h"
#include "plugin/logic/TempFolders.h"
#include "plugin/logic/ToolRequest.h"
#include "plugin/logic/ViewTab.h"

#include <gtest/gtest.h>

TEST(ColorTableNames, ThirteenNamesWithTheHostsNumbers)
{
    const QStringList names = {"Grays",  "Red",        "Green", "Blue",      "Cyan",    "Yellow", "Magenta",
                               "Orange", "BlueYellow", "EosB",  "GreenPink", "Rainbow", "Jet"};
    EXPECT_EQ(colorTableNames(), names);

    const QList<int> numbers = {0, 8, 9, 10, 11, 12, 13, 14, 23, 25, 24, 1, 26};
    for (int i = 0; i < numbers.size(); ++i)
        EXPECT_EQ(colorTableNumber(i), numbers.at(i)) << i;
}

TEST(ColorTableNames, AnyOtherIndexGivesRed)
{
    EXPECT_EQ(colorTableNumber(-1), 8);
    EXPECT_EQ(colorTableNumber(13), 8);
    EXPECT_EQ(colorTableNumber(1000000), 8);
}

TEST(ViewTab, TwoTabsCountInAnyCase)
{
    EXPECT_TRUE(isPaletteTab("Sequence View"));
    EXPECT_TRUE(isPaletteTab("SEQUENCE VIEW"));
    EXPECT_TRUE(isPaletteTab("3D View"));
    EXPECT_TRUE(isPaletteTab("3d view"));
}

TEST(ViewTab, NoOtherNameCounts)
{
    for (const char* name : {"", "3D", "Sequence", "3D View ", "Sequence View 2"})
        EXPECT_FALSE(isPaletteTab(name)) << name;
}

TEST(SameId, CaseDoesNotCount)
{
    EXPECT_TRUE(sameId("AB1", "ab1"));
    EXPECT_FALSE(sameId("AB1", "AB2"));
    EXPECT_TRUE(sameId(QString(), ""));
}

TEST(TempFolders, LieBelowTheProgramData)
{
    EXPECT_EQ(tempRoot("/home/u/data"), QString("/home/u/data/3DCVTempData"));
    EXPECT_EQ(sequenceTempFolder("/d", "SEQ 1"), QString("/d/3DCVTempData/SEQ 1"));
    EXPECT_EQ(voxelDumpPath("/d", "SEQ 1"), QString("/d/3DCVTempData/SEQ 1/VolumeData.dat"));
}

TEST(TempFolders, AnIdThatLeavesTheRootNamesNoFolder)
{
    for (const char* id : {"", ".", "..", "../x", "a/b", "/etc", "a\\b"}) {
        EXPECT_TRUE(sequenceTempFolder("/d", id).isNull()) << id;
        EXPECT_TRUE(voxelDumpPath("/d", id).isNull()) << id;
    }
    EXPECT_FALSE(sequenceTempFolder("/d", "..x").isNull());
}

TEST(ToolRequest, NamesPageAndOrientation)
{
    const ToolView volume = viewOfToolRequest(0);
    EXPECT_TRUE(volume.known);
    EXPECT_EQ(volume.page, PalettePage::Volume);
    EXPECT_EQ(volume.sliceOrientation, -1);
    EXPECT_EQ(volume.sliceAxis, -1);

    const int orientations[] = {2, 1, 0};
    for (int request = 1; request <= 3; ++request) {
        const ToolView slice = viewOfToolRequest(request);
        EXPECT_TRUE(slice.known);
        EXPECT_EQ(slice.page, PalettePage::Slice);
        EXPECT_EQ(slice.sliceOrientation, orientations[request - 1]) << request;
        EXPECT_EQ(slice.sliceAxis, request - 1);
    }
}

TEST(ToolRequest, AnyOtherValueShowsNothing)
{
    EXPECT_FALSE(viewOfToolRequest(-1).known);
    EXPECT_FALSE(viewOfToolRequest(4).known);
    EXPECT_FALSE(viewOfToolRequest(6).known);
}
