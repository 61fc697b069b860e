#include "plugin/logic/FileKind.h"

#include <gtest/gtest.h>

TEST(FileKind, RawAndVoxAreRawIgnoringCase)
{
    for (const char* path : {"/data/a.raw", "/data/A.RAW", "/data/a.vox", "/data/a.VoX", "a.raw"})
        EXPECT_EQ(fileKindByName(path), FileKind::Raw) << path;
}

TEST(FileKind, TheMarkCountsAnywhereInThePath)
{
    EXPECT_EQ(fileKindByName("/data/scan.raw.d/readme.txt"), FileKind::Raw);
    EXPECT_EQ(fileKindByName("/data/a.raw.gz"), FileKind::Raw);
    EXPECT_EQ(fileKindByName("/data/a.voxels"), FileKind::Raw);
}

TEST(FileKind, AnythingElseIsNoVolume)
{
    for (const char* path : {"", "/data/raw", "/data/vox/a", "/data/a.dcm", "/data/a.ra.w"})
        EXPECT_EQ(fileKindByName(path), FileKind::NotAVolume) << path;
}
