#include "support/dicom/DicomMutations.h"
#include "volume/support/DicomVolume.h"
#include "volume/support/ScarceMemory.h"

#include <QFile>

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using Entry = viz_test::RecordingHost::Entry;

const Entry scanAborted{3, "Loading of DICOM Datasets aborted."};
const Entry loadAborted{3, "Loading of DICOM frame data aborted."};
const Entry nothingUsable{3, "Unable to load volume. DICOM not compatible."};
const Entry notMonochrome{3,
                          "DICOM file not compatible. Application supports only Monochrome1 and Monochrome2 "
                          "type DICOM photometric interpretation."};
const Entry notCompatible{3, "Unable to load volume. DICOM file not compatible."};
const Entry noColumns{3, "Loading aborted. Unable to find Column information."};
const Entry noRows{3, "Loading aborted. Unable to find Row information."};
const Entry noVolumeMemory{3, "Unable allocate memory for Volume data."};
const Entry exceptionInScan{3, "Memory issue encountered -Unable to load DICOM data "};
const Entry noFrameMemory{3, "Unable to allocate memory for the contents of the volume file."};

class DicomFailure : public viz_test::DicomVolume
{
protected:
    static DicomBuilder slice()
    {
        DicomBuilder builder;
        builder.bits(8, 8).size(width, height).samples(frames(1));
        return builder;
    }
    static DicomBuilder withRange(DicomBuilder builder)
    {
        return builder.set(0x0028, 0x0106, "0").set(0x0028, 0x0107, "255");
    }

    void expectRefused(const QStringList& files, const Entry& entry)
    {
        EXPECT_FALSE(load(files));
        EXPECT_THAT(host.failures(), ElementsAre(entry));
        for (const QWidget* window : QApplication::topLevelWidgets())
            EXPECT_FALSE(window->isVisible()) << window->windowTitle().toStdString();
        host.entries.clear();
    }
    void expectRefused(const DicomBuilder& builder, const Entry& entry)
    {
        expectRefused({write("bad.dcm", builder)}, entry);
    }

    QString writeBytes(const char* name, const QByteArray& bytes)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }
};

TEST_F(DicomFailure, NoFilesAtAll)
{
    expectRefused(QStringList(), nothingUsable);
}

TEST_F(DicomFailure, WhatIsNoDicom)
{
    expectRefused({writeBytes("text.dcm", "no DICOM at all")}, nothingUsable);
    expectRefused({writeBytes("empty.dcm", "")}, nothingUsable);
    expectRefused({folder.filePath("missing.dcm")}, nothingUsable);
    expectRefused({folder.path()}, nothingUsable);
    expectRefused({QString()}, nothingUsable);
}

TEST_F(DicomFailure, APipeIsNoFile)
{
    const QString path = folder.filePath("pipe.dcm");
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    expectRefused({path}, nothingUsable);
}

// Kept: no file takes the place of the first.
TEST_F(DicomFailure, AFirstFileThatIsNoDicomSpoilsTheList)
{
    expectRefused(QStringList{writeBytes("text.dcm", "no DICOM at all")} + series(3), nothingUsable);
}

TEST_F(DicomFailure, EveryTruncation)
{
    const QByteArray whole = slice().bytes();
    ASSERT_GT(whole.size(), 1000);
    for (int length = 0; length < whole.size(); length += length < 900 ? 13 : 97) {
        EXPECT_FALSE(load({writeBytes("cut.dcm", whole.left(length))})) << length;
        EXPECT_EQ(host.failures().size(), 1U) << length;
        host.entries.clear();
    }
}

TEST_F(DicomFailure, PicturesThatAreNotGrey)
{
    expectRefused(slice().photometric("RGB", 3).samples({}), notMonochrome);
    expectRefused(slice().photometric("YBR_FULL", 3).samples({}), notMonochrome);
    expectRefused(slice().photometric("PALETTE COLOR"), notMonochrome);
}

TEST_F(DicomFailure, FilesWithoutAPicture)
{
    expectRefused(slice().withoutPixels(), noColumns);
    expectRefused(slice().remove(0x7fe0, 0x0010), noFrameMemory);
    expectRefused(slice().remove(0x7fe0, 0x0010).setBytes(0x7fe0, 0x0008, "OF", QByteArray(3200, 'x')),
                  noFrameMemory);
    expectRefused(slice().remove(0x7fe0, 0x0010).setBytes(0x7fe0, 0x0009, "OD", QByteArray(6400, 'x')),
                  noFrameMemory);
}

TEST_F(DicomFailure, SamplesOf64Bits)
{
    expectRefused(slice()
                      .set(0x0028, 0x0100, "64")
                      .set(0x0028, 0x0101, "64")
                      .set(0x0028, 0x0102, "63")
                      .setBytes(0x7fe0, 0x0010, "OW", QByteArray(int{width * height} * 8, 'x')),
                  notCompatible);
}

TEST_F(DicomFailure, MissingAndZeroSizes)
{
    for (const DicomBuilder& one : {slice(), withRange(slice())}) {
        for (const char* value : {"", "0"}) {
            expectRefused(DicomBuilder(one).set(0x0028, 0x0011, value), noColumns);
            expectRefused(DicomBuilder(one).set(0x0028, 0x0010, value), noRows);
        }
        expectRefused(DicomBuilder(one).remove(0x0028, 0x0011).remove(0x0028, 0x0010), noColumns);
        expectRefused(DicomBuilder(one).remove(0x0028, 0x0010), noRows);
    }
}

TEST_F(DicomFailure, LessDataThanTheSizeNeeds)
{
    expectRefused(slice().set(0x0028, 0x0010, "41"), notCompatible);
    expectRefused(slice().set(0x0028, 0x0100, "16").set(0x0028, 0x0101, "16").set(0x0028, 0x0102, "15"),
                  notCompatible);
    expectRefused(withRange(slice()).set(0x0028, 0x0010, "41"), notCompatible);
}

TEST_F(DicomFailure, AbsurdSizes)
{
    const DicomBuilder huge = slice().set(0x0028, 0x0010, "65535").set(0x0028, 0x0011, "65535");
    const QString many = write("many.dcm", DicomBuilder(huge).set(0x0028, 0x0008, "1000000"));
    expectRefused({many, many}, noFrameMemory);
    EXPECT_FALSE(load({write("huge.dcm", huge)}));
    EXPECT_EQ(host.failures().size(), 1U);
}

// Nothing is decoded where the files tell their range, so that only the block shows how much they claim.
TEST_F(DicomFailure, AVolumeLargerThanTheMemory)
{
    const std::uint64_t memory = static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES)) *
                                 static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
    const std::uint64_t slices = memory / (std::uint64_t{64000} * 64000) + 2;
    QStringList files;
    for (std::uint64_t i = 0; i < slices; ++i) {
        const DicomBuilder huge =
            withRange(slice()).set(0x0028, 0x0010, "65535").set(0x0028, 0x0011, "65535");
        files << write(qPrintable(QStringLiteral("huge%1.dcm").arg(i)),
                       DicomBuilder(huge).position(0, 0, static_cast<double>(i)));
    }
    expectRefused(files, noVolumeMemory);
    EXPECT_EQ(reader.getVoxels(), nullptr);
}

// Decoded to 32 bits, a picture of 40000 samples takes twice the memory of the file.
TEST_F(DicomFailure, AnExceptionInTheScanEndsTheLoadAndNoMore)
{
    if (!viz_test::ScarceMemory::isPossible()) GTEST_SKIP() << "the sanitizer gives the memory";
    DicomBuilder ct;
    ct.bits(16, 16, true).set(0x0028, 0x1052, "-1024").set(0x0028, 0x1053, "1");
    const QStringList files =
        writeDicomSeries(folder.path(), ct, 200, 200, 3, {0, 0, 0}, {0, 0, 1},
                         [](unsigned x, unsigned, unsigned) { return static_cast<int>(x) - 100; });
    viz_test::ScarceMemory memory;
    memory.throwFrom(120000);
    const bool loaded = load(files);
    memory.giveAll();
    EXPECT_FALSE(loaded);
    EXPECT_THAT(host.failures(), ElementsAre(exceptionInScan));
    host.entries.clear();
    EXPECT_TRUE(load(files));
}

TEST_F(DicomFailure, CompressedPixelsThatDoNotDecodeEndTheLoad)
{
    struct Case
    {
        const char* syntax;
        char nonsense;
    };
    // 0x80 says nothing to the decoder of runs, so that samples are missing at the end
    for (const Case& one : {Case{"1.2.840.10008.1.2.5", '\x80'}, Case{"1.2.840.10008.1.2.4.70", '\xFF'},
                            Case{"1.2.840.10008.1.2.4.90", '\xFF'}}) {
        QByteArray damaged = slice().transferSyntax(one.syntax).bytes();
        const int pixels = damaged.indexOf(QByteArray("\xE0\x7F\x10\0OB", 6));
        ASSERT_GT(pixels, 0) << one.syntax;
        const int data = pixels + 100;  // behind the offset table and the heads of fragment and stream
        const int length = damaged.size() - data - 8;
        damaged.replace(data, length, QByteArray(length, one.nonsense));
        const QString path = writeBytes("damaged.dcm", damaged);
        expectRefused({path}, noFrameMemory);
        expectRefused(series(2) + QStringList{path}, noFrameMemory);
    }
}

TEST_F(DicomFailure, ALaterFileOf64BitsEndsTheLoad)
{
    const QString deep =
        write("deep.dcm", slice()
                              .set(0x0028, 0x0100, "64")
                              .set(0x0028, 0x0101, "64")
                              .set(0x0028, 0x0102, "63")
                              .setBytes(0x7fe0, 0x0010, "OW", QByteArray(int{width * height} * 8, 'x')));
    expectRefused(series(2) + QStringList{deep}, notCompatible);
}

TEST_F(DicomFailure, ACodecThatIsNotThere)
{
    const QByteArray known = slice().transferSyntax("1.2.840.10008.1.2.5").bytes();
    ASSERT_FALSE(known.isEmpty());
    QByteArray unknown = known;
    const int at = unknown.indexOf("1.2.840.10008.1.2.5");
    ASSERT_GE(at, 0);
    unknown.replace(at, 20, QByteArray("1.2.840.10008.1.2.4.100").left(20));
    EXPECT_FALSE(load({writeBytes("codec.dcm", unknown)}));
    EXPECT_EQ(host.failures().size(), 1U);
}

TEST_F(DicomFailure, ClosingTheProgressInTheScan)
{
    viz_test::ProgressWatcher progress;
    progress.onStep = [](CHVSProgressBar& dialog) { dialog.close(); };
    expectRefused(series(3), scanAborted);
    EXPECT_EQ(reader.getVoxels(), nullptr);
}

TEST_F(DicomFailure, ClosingTheProgressInTheLoadingPass)
{
    viz_test::ProgressWatcher progress;
    progress.onStep = [](CHVSProgressBar& dialog) {
        if (dialog.windowTitle().startsWith("Loading")) dialog.close();
    };
    expectRefused(series(3), loadAborted);
}

// The scan keeps the parsed files, so that a file may go once it was read.
TEST_F(DicomFailure, AFileRemovedBetweenThePasses)
{
    const QStringList files = series(3);
    viz_test::ProgressWatcher progress;
    progress.onStep = [&files](CHVSProgressBar& dialog) {
        if (dialog.windowTitle().startsWith("Loading")) QFile::remove(files.last());
    };
    ASSERT_TRUE(load(files));
    EXPECT_FALSE(QFile::exists(files.last()));
    expectPattern(2, {0, 1, 2});
}

// The parser goes down by a call for each level.
TEST_F(DicomFailure, NestingWithoutEndIsNoDicom)
{
    for (const char* syntax : {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2.1.99"}) {
        const QByteArray whole = slice().transferSyntax(syntax).bytes();
        const QString before = writeBytes("before.dcm", nestedDicom(whole, 100000));
        const QString behind = writeBytes("behind.dcm", nestedAtEnd(whole, 100000));
        expectRefused({before}, nothingUsable);
        expectRefused({behind}, nothingUsable);
        ASSERT_TRUE(load(series(3) + QStringList{before, behind})) << syntax;
        expectPattern(2, {0, 1, 2});
        host.entries.clear();
    }
}

// What tells the readers apart lies in the file's header; none of its bytes may do harm.
TEST_F(DicomFailure, MutatedFilesDoNoHarm)
{
    const QByteArray whole = slice().bytes();
    const QString second = write("second.dcm", slice().position(0, 0, 1));
    unsigned state = 12345;
    const auto next = [&state] { return state = state * 1664525U + 1013904223U; };
    const int header = whole.size() - static_cast<int>(width * height);
    for (int round = 0; round < 200; ++round) {
        QByteArray bytes = whole;
        for (int change = 0; change < 3; ++change)
            bytes[static_cast<int>((next() >> 8) % static_cast<unsigned>(header))] =
                static_cast<char>(next() >> 24);
        CVolumeDicom one(nullptr);
        one.loadVolumeFiles({writeBytes("mutated.dcm", bytes), second}, viz_test::allFrames,
                            viz_test::allFrames, false);
    }
}

}  // namespace
