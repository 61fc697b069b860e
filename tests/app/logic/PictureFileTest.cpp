#include "app/PictureFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

QImage red()
{
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return picture;
}

TEST(PictureFile, TheEndingDecidesTheFormat)
{
    EXPECT_TRUE(PictureFile::isWritable("a/out.png"));
    EXPECT_TRUE(PictureFile::isWritable("OUT.PNG"));
    EXPECT_TRUE(PictureFile::isWritable("out.jpg"));
    EXPECT_FALSE(PictureFile::isWritable("out"));
    EXPECT_FALSE(PictureFile::isWritable("png"));
    EXPECT_FALSE(PictureFile::isWritable("out.vox"));
}

TEST(PictureFile, WritesWhatItWasGiven)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("out.png");
    QString reason;
    ASSERT_TRUE(PictureFile::write(red(), path, reason)) << reason.toStdString();
    const QImage read(path);
    EXPECT_EQ(read.size(), QSize(20, 10));
    EXPECT_EQ(read.pixelColor(3, 3), QColor(Qt::red));
}

TEST(PictureFile, PicturesWithoutLossArePacked)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("out.png");
    QImage plain(400, 400, QImage::Format_RGB32);
    plain.fill(Qt::darkBlue);
    QString reason;
    ASSERT_TRUE(PictureFile::write(plain, path, reason)) << reason.toStdString();
    EXPECT_LT(QFileInfo(path).size(), 400 * 400 / 4);
}

TEST(PictureFile, AFolderThatIsNotThereIsAReason)
{
    const QTemporaryDir folder;
    QString reason;
    EXPECT_FALSE(PictureFile::write(red(), folder.filePath("none/out.png"), reason));
    EXPECT_TRUE(reason.contains("none/out.png"));
}

TEST(PictureFile, AFailureLeavesTheOlderFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("out.png");
    QString reason;
    ASSERT_TRUE(PictureFile::write(red(), path, reason));
    EXPECT_FALSE(PictureFile::write(QImage(), path, reason)) << "an empty picture can't be written";
    EXPECT_FALSE(reason.isEmpty());
    EXPECT_EQ(QImage(path).size(), QSize(20, 10));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST(PictureFile, WhatIsNoPlainFileIsNeverReplaced)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath("pipe");
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    const QString link = folder.filePath("out.png");
    ASSERT_TRUE(QFile::link(pipe, link));
    QString reason;
    EXPECT_FALSE(PictureFile::write(red(), link, reason));
    EXPECT_FALSE(reason.isEmpty());
    struct stat state = {};
    ASSERT_EQ(stat(pipe.toLocal8Bit().constData(), &state), 0);
    EXPECT_TRUE(S_ISFIFO(state.st_mode)) << "the pipe was replaced by a picture";
}

}  // namespace
