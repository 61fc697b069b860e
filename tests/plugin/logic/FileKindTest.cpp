#include "plugin/logic/FileKind.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

/// A file whose content is known; remembers what was looked at.
struct Content
{
    bool tiff = false;
    bool hostPicture = false;
    bool dicom = false;
    QStringList asked;

    FileKind kindOf(const QString& path)
    {
        const auto answer = [this](const char* name, bool value) {
            return [this, name, value](const QString&) {
                asked.append(name);
                return value;
            };
        };
        return fileKind(path, {answer("tiff", tiff), answer("host", hostPicture), answer("dicom", dicom)});
    }
};

}  // namespace

TEST(FileKind, RawAndVoxAreRawIgnoringCase)
{
    for (const char* path : {"/data/a.raw", "/data/A.RAW", "/data/a.vox", "/data/a.VoX", "a.raw"})
        EXPECT_TRUE(isRawByName(path)) << path;
}

TEST(FileKind, TheMarkCountsAnywhereInThePath)
{
    EXPECT_TRUE(isRawByName("/data/scan.raw.d/readme.txt"));
    EXPECT_TRUE(isRawByName("/data/a.raw.gz"));
    EXPECT_TRUE(isRawByName("/data/a.voxels"));
}

TEST(FileKind, NoOtherPathIsRaw)
{
    for (const char* path : {"", "/data/raw", "/data/vox/a", "/data/a.dcm", "/data/a.ra.w"})
        EXPECT_FALSE(isRawByName(path)) << path;
}

TEST(FileKind, TiffContentComesBeforeEveryName)
{
    Content all{true, true, true, {}};
    EXPECT_EQ(all.kindOf("/data/a.raw"), FileKind::Tiff);
    EXPECT_EQ(all.asked, QStringList("tiff"));
}

TEST(FileKind, TheNameOfARawFileComesBeforeDicomContent)
{
    Content dicom{false, true, true, {}};
    EXPECT_EQ(dicom.kindOf("/data/a.vox"), FileKind::Raw);
    EXPECT_EQ(dicom.asked, QStringList("tiff"));
}

TEST(FileKind, ThePicturesOfTheHostComeBeforeOtherDicom)
{
    Content picture{false, true, true, {}};
    EXPECT_EQ(picture.kindOf("/data/a.dcm"), FileKind::HostPicture);
    EXPECT_EQ(picture.asked, QStringList({"tiff", "host"}));
}

TEST(FileKind, DicomIsDicomUnderAnyName)
{
    Content dicom{false, false, true, {}};
    EXPECT_EQ(dicom.kindOf("/data/IM0001"), FileKind::Dicom);
    EXPECT_EQ(dicom.asked, QStringList({"tiff", "host", "dicom"}));
}

TEST(FileKind, AnythingElseIsNoVolume)
{
    Content letter;
    EXPECT_EQ(letter.kindOf("/data/a.tif"), FileKind::NotAVolume);
    EXPECT_EQ(letter.kindOf("/data/a.dcm"), FileKind::NotAVolume);
}
