#include "TestPicture.h"

#include "hvapi/export/CHVSImageExporter.h"
#include "lib/hvapi/export/PictureBytes.h"
#include "support/FullDisk.h"
#include "testing/TestHostServices.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>
#include <tiffio.h>

namespace {

struct ImageExporterTest : ::testing::Test
{
    QString save(const QString& name, QImage picture = testPicture())
    {
        QString path = folder.filePath(name);
        EXPECT_TRUE(CHVSImageExporter::saveImage(picture, path)) << qPrintable(name);
        return path;
    }

    /// The output of another program that turns `from` into a PNG; a null image where it is not installed.
    QImage readBy(const QString& program, const QStringList& arguments, const QString& result)
    {
        if (QStandardPaths::findExecutable(program).isEmpty()) return {};
        QProcess process;
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished(60000)) << qPrintable(program);
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
        return QImage(result);
    }

    TestHostServices services;
    QTemporaryDir folder;
};

TEST_F(ImageExporterTest, BitmapsAndPngsKeepEveryPixel)
{
    for (const char* name : {"a.bmp", "a.png", "A.PNG"}) {
        const QImage back(save(name));
        EXPECT_EQ(back.convertToFormat(QImage::Format_RGB32), testPicture()) << name;
    }
}

TEST_F(ImageExporterTest, PhotographsKeepTheirColours)
{
    for (const char* name : {"a.jpg", "a.JPEG"}) {
        const QImage back(save(name), "jpg");
        EXPECT_EQ(back.size(), QSize(60, 40));
        EXPECT_LE(worstQuarter(back), 4) << name;
    }
}

TEST_F(ImageExporterTest, TiffKeepsEveryPixel)
{
    const QImage picture = testPicture(61, 41);
    for (const char* name : {"a.tiff", "a.tif", "A.TIFF"}) {
        TIFF* file = TIFFOpen(QFile::encodeName(save(name, picture)).constData(), "r");
        ASSERT_NE(file, nullptr);
        std::vector<std::uint32_t> pixels(61 * 41);
        ASSERT_EQ(TIFFReadRGBAImageOriented(file, 61, 41, pixels.data(), ORIENTATION_TOPLEFT, 1), 1);
        TIFFClose(file);
        for (int y = 0; y < 41; ++y)
            for (int x = 0; x < 61; ++x) {
                const std::uint32_t value = pixels[static_cast<std::size_t>(y * 61 + x)];
                ASSERT_EQ(qRgb(TIFFGetR(value), TIFFGetG(value), TIFFGetB(value)), picture.pixel(x, y));
            }
    }
}

TEST_F(ImageExporterTest, PostScriptIsReadByAnInterpreter)
{
    const QString path = save("a.eps", testPicture(600, 400));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.startsWith("%!PS-Adobe-3.0 EPSF-3.0"));
    EXPECT_TRUE(text.contains("%%BoundingBox: 0 0 450 300"));

    const QString result = folder.filePath("eps.png");
    const QImage back = readBy("gs",
                               {"-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-dEPSCrop", "-sDEVICE=png16m",
                                "-r96", "-sOutputFile=" + result, path},
                               result);
    if (back.isNull()) GTEST_SKIP() << "no PostScript interpreter here";
    EXPECT_EQ(back.size(), QSize(600, 400));
    EXPECT_LE(worstQuarter(back), 2);
}

TEST_F(ImageExporterTest, OlderMetafilesAreReadByAnotherProgram)
{
    const QString path = save("a.wmf", testPicture(601, 401));
    const QString result = folder.filePath("wmf.png");
    const QImage back =
        readBy("wmf2gd", {"-t", "png", "-o", result, "--maxwidth=601", "--maxheight=401", path}, result);
    if (back.isNull()) GTEST_SKIP() << "no reader of metafiles here";
    EXPECT_NEAR(back.width() / double(back.height()), 601.0 / 401.0, 0.02);
    EXPECT_LE(worstQuarter(back), 8);
}

QByteArray bytesOf(const QImage& picture, const char* ending)
{
    QString reason;
    return PictureBytes::encode(picture, ending, reason);
}

TEST_F(ImageExporterTest, EnhancedMetafilesAreReadByAnotherProgram)
{
    const QString path = save("a.emf", testPicture(601, 401));
    const QString result = folder.filePath("emf.svg");
    const QString program = QStandardPaths::findExecutable("emf2svg-conv");
    if (program.isEmpty()) GTEST_SKIP() << "no reader of enhanced metafiles here";
    ASSERT_EQ(QProcess::execute(program, {"-i", path, "-o", result}), 0);
    QFile file(result);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray svg = file.readAll();
    // The bitmap stands in the drawing as a PNG.
    const QByteArray mark = "data:image/png;base64,";
    const int start = svg.indexOf(mark);
    ASSERT_GT(start, 0);
    const int end = svg.indexOf('"', start);
    const QByteArray text = svg.mid(start + mark.size(), end - start - mark.size());
    const QImage back = QImage::fromData(QByteArray::fromBase64(text));
    EXPECT_EQ(back.size(), QSize(601, 401));
    EXPECT_LE(worstQuarter(back), 1);
}

/// Numbers of a metafile by their offsets.
struct Records
{
    QByteArray bytes;
    quint32 u32(int offset) const { return qFromLittleEndian<quint32>(bytes.constData() + offset); }
    quint16 u16(int offset) const { return qFromLittleEndian<quint16>(bytes.constData() + offset); }
    /// A pixel of a bitmap of 24 bits that starts at `bits`, rows from the bottom up.
    QRgb pixel(int bits, int width, int height, int x, int y) const
    {
        const int row = (width * 3 + 3) / 4 * 4;
        const auto* p =
            reinterpret_cast<const uchar*>(bytes.constData()) + bits + (height - 1 - y) * row + x * 3;
        return qRgb(p[2], p[1], p[0]);
    }
};

TEST(MetafileTest, AnEnhancedOneIsHeaderBitmapAndEnd)
{
    const QImage picture = testPicture(61, 41);
    const Records file{bytesOf(picture, "emf")};
    EXPECT_EQ(file.u32(0), 1u);
    const int stretch = static_cast<int>(file.u32(4));
    EXPECT_EQ(file.u32(16), 60u);  // bounds with their ends
    EXPECT_EQ(file.u32(20), 40u);
    EXPECT_EQ(file.u32(32), 1613u);  // 61 pixels at 96 an inch, in hundredths of a millimetre
    EXPECT_EQ(file.u32(40), 0x464D4520u);
    EXPECT_EQ(file.u32(48), static_cast<quint32>(file.bytes.size()));
    EXPECT_EQ(file.u32(52), 3u);
    EXPECT_EQ(file.u32(stretch), 81u);
    const int end = stretch + static_cast<int>(file.u32(stretch + 4));
    EXPECT_EQ(file.u32(end), 14u);
    EXPECT_EQ(end + 20, file.bytes.size());
    EXPECT_EQ(file.u32(end + 16), 20u);
    const int header = stretch + static_cast<int>(file.u32(stretch + 48));
    const int bits = stretch + static_cast<int>(file.u32(stretch + 56));
    EXPECT_EQ(file.u32(stretch + 60), 184u * 41u);
    EXPECT_EQ(file.u32(header), 40u);
    EXPECT_EQ(file.u32(header + 4), 61u);
    EXPECT_EQ(file.u32(header + 8), 41u);
    EXPECT_EQ(file.u16(header + 14), 24u);
    for (int y = 0; y < 41; ++y)
        for (int x = 0; x < 61; ++x)
            ASSERT_EQ(file.pixel(bits, 61, 41, x, y), picture.pixel(x, y));
}

TEST(MetafileTest, APlaceableOneHasItsChecksumAndSizes)
{
    const QImage picture = testPicture(61, 41);
    const Records file{bytesOf(picture, "wmf")};
    EXPECT_EQ(file.u32(0), 0x9AC6CDD7u);
    EXPECT_EQ(file.u16(10), 61u);
    EXPECT_EQ(file.u16(12), 41u);
    EXPECT_EQ(file.u16(14), 96u);
    quint16 checksum = 0;
    for (int i = 0; i < 20; i += 2)
        checksum = static_cast<quint16>(checksum ^ file.u16(i));
    EXPECT_EQ(file.u16(20), checksum);
    EXPECT_EQ(file.u32(28) * 2 + 22, static_cast<quint32>(file.bytes.size()));
    int record = 22 + 18;
    QList<int> functions;
    quint32 longest = 0;
    while (file.u16(record + 4) != 0) {
        functions << file.u16(record + 4);
        longest = std::max(longest, file.u32(record));
        record += static_cast<int>(file.u32(record)) * 2;
    }
    EXPECT_EQ(functions, (QList<int>{0x0103, 0x020B, 0x020C, 0x0F43}));
    EXPECT_EQ(file.u32(34), longest);
    EXPECT_EQ(record + 6, file.bytes.size());
}

TEST(MetafileTest, SidesBeyondSixteenBitsAreRefused)
{
    EXPECT_TRUE(bytesOf(QImage(32768, 1, QImage::Format_RGB32), "wmf").isEmpty());
    EXPECT_FALSE(bytesOf(QImage(32767, 1, QImage::Format_RGB32), "wmf").isEmpty());
}

TEST_F(ImageExporterTest, WhatCannotBeWrittenSaysWhyAndLeavesTheOldFile)
{
    QImage picture = testPicture();
    QString path = save("old.png");
    QImage none;
    EXPECT_FALSE(CHVSImageExporter::saveImage(none, path));
    EXPECT_EQ(QImage(path).size(), QSize(60, 40));

    QString unknown = folder.filePath("a.xyz");
    EXPECT_FALSE(CHVSImageExporter::saveImage(picture, unknown));
    EXPECT_FALSE(QFile::exists(unknown));
    QString bare = folder.filePath("bare");
    EXPECT_FALSE(CHVSImageExporter::saveImage(picture, bare));
    QString nowhere = folder.filePath("no/such/folder/a.png");
    EXPECT_FALSE(CHVSImageExporter::saveImage(picture, nowhere));
    EXPECT_EQ(services.messages(3).size(), 4);
    EXPECT_TRUE(services.messages(3).at(1).contains("'xyz'"));
}

TEST_F(ImageExporterTest, AFullDiskLeavesTheOldFile)
{
    QString path = save("old.bmp");
    QImage larger = testPicture(600, 400);
    {
        const FullDisk disk(10000);
        EXPECT_FALSE(CHVSImageExporter::saveImage(larger, path));
    }
    EXPECT_EQ(QImage(path).size(), QSize(60, 40));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("old.bmp"));
}

TEST_F(ImageExporterTest, ADeviceIsNotReplaced)
{
    QImage picture = testPicture();
    QString device = "/dev/full";
    EXPECT_FALSE(CHVSImageExporter::saveImage(picture, device));
    EXPECT_TRUE(QFileInfo::exists("/dev/full"));
}

}  // namespace
