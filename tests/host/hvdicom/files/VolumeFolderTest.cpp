#include "lib/hvdicom/VolumeFolder.h"

#include "DicomFiles.h"

#include <QDir>
#include <QFileInfo>

namespace {

class VolumeFolder : public viz_test::DicomFiles
{
protected:
    QString folder() const { return QFileInfo(path()).absolutePath(); }
    QStringList names() const
    {
        QStringList names;
        for (const QString& file : hvdicom::filesOfVolume(folder())) {
            EXPECT_EQ(QFileInfo(file).absolutePath(), folder());
            names << QFileInfo(file).fileName();
        }
        return names;
    }
};

}  // namespace

TEST_F(VolumeFolder, SlicesStandByTheirPlaceWhateverTheirNames)
{
    write(DicomBuilder().position(0, 0, 7), "1.dcm");
    write(DicomBuilder().position(0, 0, 5), "2.dcm");
    write(DicomBuilder().position(0, 0, 6), "3");
    EXPECT_EQ(names(), QStringList({"2.dcm", "3", "1.dcm"}));
}

TEST_F(VolumeFolder, WhatIsNoSliceComesBehindThem)
{
    writeBytes("Dear reader", "0 read me.txt");
    write(DicomBuilder().withoutPixels().remove(0x0020, 0x0032), "DICOMDIR");
    write(DicomBuilder().position(0, 0, 7), "a.dcm");
    write(DicomBuilder().position(0, 0, 5), "b.dcm");
    EXPECT_EQ(names(), QStringList({"b.dcm", "a.dcm", "0 read me.txt", "DICOMDIR"}));
}

TEST_F(VolumeFolder, WithoutDicomFilesTheNamesCount)
{
    QDir(folder()).mkpath("deeper");
    for (const char* name : {"s-10", "s-2", "s-1", ".hidden"})
        writeBytes("II*", name);
    EXPECT_EQ(names(), QStringList({"s-1", "s-10", "s-2"}));
}

TEST_F(VolumeFolder, AnEmptyOneAndOneThatIsNotThereHaveNone)
{
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(hvdicom::filesOfVolume(folder() + "/none"), QStringList());
}
