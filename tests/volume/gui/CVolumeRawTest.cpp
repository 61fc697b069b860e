#include "volume/CVolumeRaw.h"

#include "support/ModalWatcher.h"
#include "volume/CVolumeInfoDialog.h"
#include "volume/support/ProgressWatcher.h"
#include "volume/support/RawFiles.h"
#include "volume/support/RecordingHost.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using viz_test::frame20;
using viz_test::ModalWatcher;
using viz_test::ProgressWatcher;
using viz_test::rawHeader;
using Entry = viz_test::RecordingHost::Entry;

const Entry canceled{16, "Open Volume action canceled by user."};
const Entry lowMemory{3, "Volume loading aborted. Low memory encountered."};
const Entry cannotOpen{16, "Unable to open the selected volume file."};
const Entry cannotRead{16, "Unable to read the selected volume file."};
const Entry aborted{3, "Loading of volume data aborted."};
const Entry insufficient{3, "Unable to load volume. Insufficient volume data."};

long residentKilobytes()
{
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly)) return 0;
    return file.readAll().split(' ').value(1).toLong() * 4;
}

class VolumeRaw : public testing::Test
{
protected:
    bool load(const QByteArray& path) { return reader.loadVolumeFile(path.constData()); }
    bool loadFile(const QByteArray& contents) { return load(folder.write("volume.raw", contents)); }

    /// The first `count` voxels of each frame.
    std::vector<int> firstVoxels(unsigned count) const
    {
        std::vector<int> first;
        for (unsigned f = 0; f < reader.getFrames(); ++f)
            for (unsigned i = 0; i < count; ++i)
                first.push_back(reader.getVoxels()[f * reader.getLoadColumns() * reader.getLoadRows() + i]);
        return first;
    }

    int voxel(unsigned x, unsigned y, unsigned frame) const
    {
        const std::size_t width = reader.getLoadColumns();
        return reader.getVoxels()[x + y * width + frame * width * reader.getLoadRows()];
    }

    std::string info(const char* name) const { return reader.getInfo().value(name).value.toStdString(); }

    /// Answers the dialog: `fill`, then OK.
    static ModalWatcher::Answer accepting(std::function<void(CVolumeInfoDialog&)> fill)
    {
        return [fill = std::move(fill)](QWidget* window) {
            auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
            ASSERT_NE(dialog, nullptr);
            fill(*dialog);
            QTest::mouseClick(dialog->buttonBox->button(QDialogButtonBox::Ok), Qt::LeftButton);
            EXPECT_FALSE(dialog->isVisible()) << dialog->messageLabel->text().toStdString();
            if (dialog->isVisible()) dialog->reject();
        };
    }

    /// Answers the dialog: `look`, then Cancel.
    static ModalWatcher::Answer canceling(std::function<void(CVolumeInfoDialog&)> look)
    {
        return [look = std::move(look)](QWidget* window) {
            auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
            ASSERT_NE(dialog, nullptr);
            look(*dialog);
            QTest::mouseClick(dialog->buttonBox->button(QDialogButtonBox::Cancel), Qt::LeftButton);
        };
    }

    viz_test::RecordingHost host;
    viz_test::RawFolder folder;
    ModalWatcher modal;
    CVolumeRaw reader{nullptr};
};

// ---- complete headers: no dialog ----

TEST_F(VolumeRaw, EightBitsAtFullResolution)
{
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 1, 8) + frame20<std::uint8_t>({10, 20, 100, 150, 199, 200})));
    EXPECT_EQ(reader.getMinValue(), 10);
    EXPECT_EQ(reader.getMaxValue(), 200);
    EXPECT_FLOAT_EQ(reader.getValueScale(), 255.0F / 190.0F);
    // (value - 10) * 1.342105 + 0.5: 13.92, 121.29, 188.39, 254.16
    EXPECT_THAT(firstVoxels(6), ElementsAre(0, 13, 121, 188, 254, 255));
    EXPECT_EQ(reader.getResolutionFactor(), 1.0F);
    EXPECT_THAT(host.entries, IsEmpty());
}

TEST_F(VolumeRaw, CountsStandInFileAndBlockOrder)
{
    ASSERT_TRUE(loadFile(rawHeader(40, 20, 3, 8) + QByteArray(2399, 'a') + 'b'));
    EXPECT_EQ(reader.getColumns(), 40U);
    EXPECT_EQ(reader.getRows(), 20U);
    EXPECT_EQ(reader.getFrames(), 3U);
    EXPECT_EQ(reader.getLoadColumns(), 40U);
    EXPECT_EQ(reader.getLoadRows(), 20U);
    EXPECT_EQ(voxel(39, 19, 2), 255) << "columns run fastest";
    EXPECT_EQ(voxel(38, 19, 2), 0);
}

TEST_F(VolumeRaw, SixteenBitsHaveTheirLowByteFirst)
{
    const QByteArray frame = QByteArray("\x00\x00\x01\x00\x00\x01\xFE\x01", 8) + QByteArray(792, '\0');
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 1, 16) + frame));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 510);
    EXPECT_THAT(firstVoxels(4), ElementsAre(0, 1, 128, 255));
}

TEST_F(VolumeRaw, TheRangeIsThatOfTheWholeVolume)
{
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 3, 8) + frame20<std::uint8_t>({50, 60}) +
                         frame20<std::uint8_t>({0, 10}) + frame20<std::uint8_t>({250, 255})));
    EXPECT_THAT(firstVoxels(2), ElementsAre(50, 60, 0, 10, 250, 255));
}

TEST_F(VolumeRaw, AVolumeOfOneValueIsAllZero)
{
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 2, 8) + QByteArray(800, '\x07')));
    EXPECT_EQ(reader.getMinValue(), 7);
    EXPECT_EQ(reader.getMaxValue(), 8);
    EXPECT_EQ(reader.getValueScale(), 255.0F);
    EXPECT_THAT(firstVoxels(400), testing::Each(0));
}

TEST_F(VolumeRaw, ValuesAllAbove64000StartThere)
{
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 1, 16) + frame20<std::uint16_t>({64255, 64100})));
    EXPECT_EQ(reader.getMinValue(), 64000);
    EXPECT_EQ(reader.getMaxValue(), 64255);
    EXPECT_THAT(firstVoxels(2), ElementsAre(255, 100));
}

TEST_F(VolumeRaw, SignedBytesAreStretchedFrameByFrame)
{
    // Frame 1: -10 to 10, 255 / 20 = 12.75. Frame 2: 0 to 1, spread as far.
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 2, 8, "s") + frame20<std::int8_t>({-10, 0, 10}) +
                         frame20<std::int8_t>({0, 1, 0})));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 255);
    EXPECT_THAT(firstVoxels(3), ElementsAre(0, 127, 255, 0, 255, 0));
}

TEST_F(VolumeRaw, SignedWordsAreStretchedTo16Bits)
{
    // 65535 / 3092 times 1024 is 21703; times 255 / 65535 that is 84.4
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 1, 16, "s") + frame20<std::int16_t>({-1024, 0, 2068})));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 65535);
    EXPECT_THAT(firstVoxels(3), ElementsAre(0, 84, 255));
}

TEST_F(VolumeRaw, ASignedFrameOfOneValueIsZero)
{
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 2, 16, "s") + frame20<std::int16_t>({-5}) +
                         frame20<std::int16_t>({0, 100})));
    EXPECT_THAT(firstVoxels(2), ElementsAre(0, 0, 0, 255));
}

TEST_F(VolumeRaw, SpacingGoesToExtentsAndInfo)
{
    ASSERT_TRUE(loadFile(rawHeader(40, 20, 3, 8, "u", "0.3 0.2 1.5") + QByteArray(2400, 'a')));
    EXPECT_FLOAT_EQ(reader.getExtent()[0], 8.0F);  // second spacing, columns
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 4.5F);  // third spacing, frames
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 6.0F);  // first spacing, rows
    EXPECT_EQ(info("PixelSpacing"), "0.2, 0.3");
    EXPECT_EQ(info("SpacingBetweenSlices"), "1.5");
    EXPECT_EQ(info("NumberOfFrames"), "3");
    EXPECT_EQ(info("Rows"), "20");
    EXPECT_EQ(info("Columns"), "40");
    EXPECT_EQ(reader.getInfo().size(), 5);
    const SGroupElemInfo entry = reader.getInfo().value("Rows");
    EXPECT_EQ(entry.name, "Rows");
    EXPECT_TRUE(entry.group.isEmpty() && entry.element.isEmpty() && entry.vr.isEmpty());
}

TEST_F(VolumeRaw, WithoutScaleEverySpacingIsATenth)
{
    ASSERT_TRUE(loadFile(rawHeader(40, 20, 3, 8) + QByteArray(2400, 'a')));
    EXPECT_FLOAT_EQ(reader.getExtent()[0], 4.0F);
    EXPECT_EQ(info("PixelSpacing"), "0.1, 0.1");
}

TEST_F(VolumeRaw, TwoMarkersMakeOneHeader)
{
    const QByteArray header = "##\f\n##\n" + rawHeader(20, 20, 1, 8);
    ASSERT_TRUE(loadFile(header + frame20<std::uint8_t>({0, 255})));
    EXPECT_THAT(firstVoxels(2), ElementsAre(0, 255));
}

TEST_F(VolumeRaw, BytesBehindTheLastFrameAreLeftAlone)
{
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 1, 8) + frame20<std::uint8_t>({0, 100}) + '\xFF'));
    EXPECT_EQ(reader.getMaxValue(), 100);
}

TEST_F(VolumeRaw, LineEndsOfTwoBytesPutTheVoxelsEarly)
{
    // Four line ends count one byte each where the file has two: the first frame begins four bytes early,
    // within the end marker.
    const QByteArray header = rawHeader(20, 20, 1, 8).replace("\n", "\r\n");
    ASSERT_TRUE(loadFile(header + QByteArray(400, 'a')));
    EXPECT_EQ(reader.getMinValue(), '\n');
    EXPECT_EQ(reader.getMaxValue(), 'a');
    EXPECT_EQ(voxel(4, 0, 0), 255);
    EXPECT_NE(voxel(3, 0, 0), 255);
}

TEST_F(VolumeRaw, AHeaderBeyondTheDialogsLimitIsCut)
{
    // The offset stops at 65535, so the frame begins inside the header.
    const QByteArray remark = "#" + QByteArray(69999, ' ') + "\n";
    ASSERT_TRUE(loadFile(remark + rawHeader(20, 20, 1, 8) + frame20<std::uint8_t>({0, 255})));
    EXPECT_EQ(reader.getMinValue(), ' ');
    EXPECT_EQ(reader.getMaxValue(), ' ' + 1) << "one value only, separated";
}

TEST_F(VolumeRaw, UmlautsInThePathOpen)
{
    const QString name = QString::fromUtf8("M\xC3\xA4use \xC3\xBC"
                                           "ber.raw");
    if (QFile::decodeName(QFile::encodeName(name)) != name) GTEST_SKIP() << "the locale has no umlauts";
    ASSERT_TRUE(load(folder.write(name, rawHeader(20, 20, 1, 8) + frame20<std::uint8_t>({0, 255}))));
    EXPECT_THAT(firstVoxels(2), ElementsAre(0, 255));
}

TEST_F(VolumeRaw, RestoresTheCursorOfTheLoadFlowFirst)
{
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 1, 8) + QByteArray(400, 'a')));
    EXPECT_EQ(host.cursorsRestored, 1);
}

TEST_F(VolumeRaw, ASecondLoadReplacesTheFirst)
{
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 1, 8) + frame20<std::uint8_t>({0, 255})));
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 1, 8) + frame20<std::uint8_t>({0, 5, 255})));
    EXPECT_THAT(firstVoxels(3), ElementsAre(0, 5, 255));
}

// ---- reduced sizes ----

TEST_F(VolumeRaw, SidesThatDoNotFitAreReducedAndPadded)
{
    // 70 x 70 loads at 99 percent: 69.3 rounds to 69, and 11 more make 80. Values 50 and 100: scale 5.1.
    ASSERT_TRUE(loadFile(rawHeader(70, 70, 2, 8) + QByteArray(4900, 50) + QByteArray(4900, 100)));
    EXPECT_EQ(reader.getColumns(), 70U);
    EXPECT_EQ(reader.getLoadColumns(), 80U);
    EXPECT_EQ(reader.getLoadRows(), 80U);
    EXPECT_EQ(reader.getResolutionFactor(), 0.99F);
    EXPECT_EQ(voxel(0, 0, 0), 0);
    EXPECT_EQ(voxel(68, 68, 0), 0);
    EXPECT_EQ(voxel(68, 68, 1), 255);
    // padding of value 0: (0 - 50) * 5.1 + 0.5 = -254.5, truncated to -254, low byte 2
    EXPECT_EQ(voxel(69, 0, 1), 2);
    EXPECT_EQ(voxel(0, 69, 1), 2);
    EXPECT_EQ(voxel(79, 79, 0), 2);

    EXPECT_FLOAT_EQ(reader.getExtent()[0], 8.115942F);   // 7 + 7 / 69 * 11
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 0.2318841F);  // 0.2 + 0.2 / 69 * 11, the frames
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 7.0F);
}

TEST_F(VolumeRaw, TheSliderChoosesTheSize)
{
    // 128 x 100 at 60 percent: rows become 64, the factor 0.64, columns 82 and with padding 100
    modal.expect(accepting([](CVolumeInfoDialog& dialog) {
        dialog.setColumns(128);
        dialog.setRows(100);
        dialog.setResolution(60);
    }));
    ASSERT_TRUE(loadFile(QByteArray(12800, 'a')));
    EXPECT_EQ(reader.getLoadColumns(), 100U);
    EXPECT_EQ(reader.getLoadRows(), 64U);
    EXPECT_FLOAT_EQ(reader.getResolutionFactor(), 0.64F);
}

TEST_F(VolumeRaw, AFactorThatComesBackToOnePadsWithoutReducing)
{
    modal.expect(accepting([](CVolumeInfoDialog& dialog) {
        dialog.setColumns(64);
        dialog.setRows(100);
        dialog.setResolution(50);
    }));
    QByteArray frame(6400, '\0');
    frame[6399] = '\xFF';
    ASSERT_TRUE(loadFile(frame));
    EXPECT_EQ(reader.getResolutionFactor(), 1.0F);
    EXPECT_EQ(reader.getLoadColumns(), 64U);
    EXPECT_EQ(reader.getLoadRows(), 120U);
    EXPECT_EQ(voxel(63, 99, 0), 255);
    EXPECT_EQ(voxel(63, 100, 0), 0);
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 0.12F);  // 0.1 + 0.1 / 100 * 20
}

TEST_F(VolumeRaw, SmallFramesAreEnlarged)
{
    modal.expect(accepting([](CVolumeInfoDialog& dialog) {
        dialog.setColumns(32);
        dialog.setRows(32);
        dialog.setFrames(2);
        dialog.setResolution(50);
    }));
    ASSERT_TRUE(loadFile(QByteArray(1024, 'a') + QByteArray(1024, 'b')));
    EXPECT_EQ(reader.getLoadColumns(), 64U);
    EXPECT_EQ(reader.getLoadRows(), 64U);
    EXPECT_EQ(voxel(63, 63, 0), 0);
    EXPECT_EQ(voxel(63, 63, 1), 255);
}

// ---- the dialog ----

TEST_F(VolumeRaw, AHeaderlessFileIsAskedFor)
{
    modal.expect(accepting([](CVolumeInfoDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "Volume File Information");
        EXPECT_TRUE(dialog.isModal());
        EXPECT_TRUE(dialog.fileLabel->text().endsWith("volume.raw"));
        EXPECT_EQ(dialog.getColumns(), 1) << "zero is cut to the limit";
        EXPECT_EQ(dialog.getRows(), 1);
        EXPECT_EQ(dialog.getFrames(), 1);
        EXPECT_EQ(dialog.getBitDepth(), 8);
        EXPECT_EQ(dialog.getHeaderOffset(), 0);
        EXPECT_EQ(dialog.getResolution(), 99) << "one by one pixel does not load at full resolution";
        EXPECT_FALSE(dialog.isSigned());
        EXPECT_EQ(dialog.getRowSpacing(), 0.1F);
        EXPECT_FALSE(dialog.orientationGroup->isVisible());
        for (const QWidget* field :
             {static_cast<QWidget*>(dialog.widthBox), static_cast<QWidget*>(dialog.heightBox),
              static_cast<QWidget*>(dialog.framesBox), static_cast<QWidget*>(dialog.dataTypeBox),
              static_cast<QWidget*>(dialog.signedBox), static_cast<QWidget*>(dialog.headerOffsetBox)})
            EXPECT_TRUE(field->isEnabled()) << field->objectName().toStdString();
        dialog.setColumns(40);
        dialog.setRows(20);
        dialog.setFrames(2);
        dialog.resolutionSlider->setMaximum(100);
        dialog.setResolution(100);
        dialog.setBitDepth("16");
        dialog.setSignedState(1);
        dialog.setHeaderOffset(3);
        dialog.setRowSpacing(0.5);
        dialog.setColumnSpacing(0.25);
        dialog.setSliceSpacing(2.0);
    }));
    const QByteArray frames = frame20<std::int16_t>({-7, 7}) + frame20<std::int16_t>({0}) +
                              frame20<std::int16_t>({0}) + frame20<std::int16_t>({0});
    ASSERT_TRUE(loadFile("abc" + frames));
    EXPECT_THAT(firstVoxels(3), ElementsAre(0, 255, 0, 0, 0, 0));
    EXPECT_FLOAT_EQ(reader.getExtent()[0], 10.0F);
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 4.0F);
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 10.0F);
    EXPECT_EQ(info("PixelSpacing"), "0.25, 0.5");
}

TEST_F(VolumeRaw, WhatTheHeaderSettledIsNotAskedFor)
{
    modal.expect(canceling([](CVolumeInfoDialog& dialog) {
        EXPECT_FALSE(dialog.widthBox->isEnabled());
        EXPECT_FALSE(dialog.heightBox->isEnabled());
        EXPECT_FALSE(dialog.framesBox->isEnabled());
        EXPECT_FALSE(dialog.dataTypeBox->isEnabled());
        EXPECT_FALSE(dialog.headerOffsetBox->isEnabled());
        EXPECT_TRUE(dialog.signedBox->isEnabled());
        EXPECT_EQ(dialog.getColumns(), 5);
        EXPECT_EQ(dialog.getRows(), 6);
        EXPECT_EQ(dialog.getFrames(), 7);
        EXPECT_EQ(dialog.getBitDepth(), 16);
        EXPECT_EQ(dialog.getHeaderOffset(), 34);
    }));
    EXPECT_FALSE(loadFile("VolumeSize 5 6 7\nVoxelSize 16\n##\f\n"));
    EXPECT_THAT(host.entries, ElementsAre(canceled));
}

TEST_F(VolumeRaw, AFieldLineSettlesTheSignAlone)
{
    modal.expect(canceling([](CVolumeInfoDialog& dialog) {
        EXPECT_FALSE(dialog.signedBox->isEnabled());
        EXPECT_TRUE(dialog.isSigned());
        EXPECT_TRUE(dialog.widthBox->isEnabled());
        EXPECT_TRUE(dialog.dataTypeBox->isEnabled());
        EXPECT_TRUE(dialog.headerOffsetBox->isEnabled());
    }));
    EXPECT_FALSE(loadFile("Field Density Format s\n"));
}

TEST_F(VolumeRaw, SizesOutsideTheLimitsAreCutWithoutAMessage)
{
    modal.expect(canceling([](CVolumeInfoDialog& dialog) {
        EXPECT_EQ(dialog.getColumns(), 1024);
        EXPECT_EQ(dialog.getRows(), 1);
        EXPECT_EQ(dialog.getFrames(), 1);
        EXPECT_EQ(dialog.getRowSpacing(), 0.0001F);
    }));
    EXPECT_FALSE(loadFile("VolumeSize 2147483647 0 -3\nVolumeScale -1 1 1\n"));
    EXPECT_THAT(host.entries, ElementsAre(canceled));
}

TEST_F(VolumeRaw, AnUnknownDepthIsTakenForEightBits)
{
    ASSERT_TRUE(
        loadFile("VolumeSize 20 20 1\nVoxelSize 12\nField Format u\n##\f\n" + QByteArray(399, 'a') + 'b'));
    EXPECT_EQ(reader.getMaxValue(), 'b');
}

TEST_F(VolumeRaw, CancelIsLoggedForTheStatusLine)
{
    modal.expectButton("Cancel");
    EXPECT_FALSE(loadFile("no header here"));
    EXPECT_THAT(host.entries, ElementsAre(canceled));
    EXPECT_EQ(reader.getVoxels(), nullptr);
}

TEST_F(VolumeRaw, OkStaysWhileTheFileIsTooShort)
{
    modal.expect([](QWidget* window) {
        auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
        dialog->setColumns(100);
        QTest::mouseClick(dialog->buttonBox->button(QDialogButtonBox::Ok), Qt::LeftButton);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(dialog->messageLabel->text(), "File doesn't contain the above specified amount of data");
        dialog->reject();
    });
    EXPECT_FALSE(loadFile(QByteArray(99, 'a')));
    EXPECT_THAT(host.entries, ElementsAre(canceled));
}

TEST_F(VolumeRaw, ShortMemoryShowsTheDialogOfACompleteFile)
{
    host.memoryIsFull = true;
    modal.expect(canceling([](CVolumeInfoDialog& dialog) {
        EXPECT_FALSE(dialog.buttonBox->button(QDialogButtonBox::Ok)->isEnabled());
        EXPECT_TRUE(dialog.memoryHintLabel->isVisible());
    }));
    EXPECT_FALSE(loadFile(rawHeader(2, 1, 1, 8) + "ab"));
    EXPECT_THAT(host.entries, ElementsAre(canceled));
}

TEST_F(VolumeRaw, AcceptingWithShortMemoryIsRefused)
{
    host.memoryIsFull = true;
    modal.expect([](QWidget* window) { qobject_cast<CVolumeInfoDialog*>(window)->accept(); });
    EXPECT_FALSE(loadFile(rawHeader(2, 1, 1, 8) + "ab"));
    EXPECT_THAT(host.entries, ElementsAre(lowMemory));
}

TEST_F(VolumeRaw, MemoryThatSufficesAfterAllLoads)
{
    host.memoryIsFull = true;
    modal.expect([this](QWidget* window) {
        auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
        host.memoryIsFull = false;
        QTest::mouseClick(dialog->verifyButton, Qt::LeftButton);
        QTest::mouseClick(dialog->buttonBox->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    EXPECT_TRUE(loadFile(rawHeader(2, 1, 1, 8) + "ab"));
}

// ---- failures ----

TEST_F(VolumeRaw, AMissingFileIsAskedForWithDefaultsAndRefused)
{
    modal.expect([](QWidget* window) {
        auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
        dialog->accept();
        EXPECT_EQ(dialog->messageLabel->text(), "Unable to read the volume data file.");
        dialog->reject();
    });
    EXPECT_FALSE(load(folder.encoded("missing.raw")));
    EXPECT_THAT(host.entries, ElementsAre(canceled));
}

TEST_F(VolumeRaw, WhatIsNoPlainFileCannotBeOpened)
{
    EXPECT_FALSE(load(folder.encoded(".")));
    const QByteArray pipe = folder.encoded("pipe.raw");
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    EXPECT_FALSE(load(pipe)) << "and nobody waits for its other end";
    EXPECT_THAT(host.entries, ElementsAre(cannotOpen, cannotOpen));
}

TEST_F(VolumeRaw, AFileThatVanishesBehindTheDialogCannotBeRead)
{
    modal.expect([this](QWidget* window) {
        qobject_cast<CVolumeInfoDialog*>(window)->accept();
        EXPECT_TRUE(QFile::remove(folder.path("volume.raw")));
    });
    EXPECT_FALSE(loadFile("abc"));
    EXPECT_THAT(host.entries, ElementsAre(cannotRead));
}

TEST_F(VolumeRaw, AnEmptyFileIsAskedFor)
{
    modal.expectButton("Cancel");
    EXPECT_FALSE(loadFile({}));
    EXPECT_THAT(host.entries, ElementsAre(canceled));
}

TEST_F(VolumeRaw, AHeaderThatPromisesMoreIsRefused)
{
    EXPECT_FALSE(loadFile(rawHeader(4, 4, 3, 8) + QByteArray(47, 'a')));
    EXPECT_THAT(host.entries, ElementsAre(insufficient));
    EXPECT_EQ(reader.getVoxels(), nullptr);
}

TEST_F(VolumeRaw, HalfASampleIsNoSample)
{
    EXPECT_FALSE(loadFile(rawHeader(2, 1, 1, 16) + "abc"));
    EXPECT_FALSE(loadFile(rawHeader(2, 1, 1, 16, "s") + "abc"));
    EXPECT_THAT(host.entries, ElementsAre(insufficient, insufficient));
}

TEST_F(VolumeRaw, AHeaderWithoutVoxelsIsRefused)
{
    EXPECT_FALSE(loadFile(rawHeader(2, 1, 1, 8)));
    EXPECT_THAT(host.entries, ElementsAre(insufficient));
}

TEST_F(VolumeRaw, WithoutAMarkerTheHeaderItselfIsTheVoxels)
{
    ASSERT_TRUE(loadFile("VolumeSize 4 1 2\nVoxelSize 8\nField Format u\n"));
    EXPECT_EQ(reader.getMinValue(), 'S');
    EXPECT_EQ(reader.getMaxValue(), 'u');
}

TEST_F(VolumeRaw, ALastLineCutInsideATokenIsReadAsItStands)
{
    modal.expectButton("Cancel");
    EXPECT_FALSE(loadFile("VoxelSize 8\nField Format u\nVolumeSize 4 1"));
    EXPECT_THAT(host.entries, ElementsAre(canceled));
}

TEST_F(VolumeRaw, AFileThatShrinksBetweenThePassesReadsZeros)
{
    ProgressWatcher progress;
    progress.onStep = [this](CHVSProgressBar& dialog) {
        if (dialog.windowTitle() == "Loading volume data...")
            QFile::resize(folder.path("volume.raw"), rawHeader(20, 20, 2, 8).size() + 401);
    };
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 2, 8) + frame20<std::uint8_t>({0, 255}) +
                         frame20<std::uint8_t>({255, 255})));
    EXPECT_THAT(firstVoxels(2), ElementsAre(0, 255, 255, 0));
}

TEST_F(VolumeRaw, AnEntryNamesNoSourceAndTheTimeOfCompilation)
{
    EXPECT_FALSE(loadFile(rawHeader(2, 1, 1, 8)));
    ASSERT_EQ(host.fullEntries.size(), 1U);
    EXPECT_TRUE(host.fullEntries[0].source.isEmpty());
    EXPECT_EQ(host.fullEntries[0].line, 0);
    EXPECT_FALSE(host.fullEntries[0].context.isEmpty());
    EXPECT_FALSE(host.fullEntries[0].showBox);
}

TEST_F(VolumeRaw, AGigabyteWithoutLineEndsIsReadInLittleMemory)
{
    QFile file(folder.path("zeros.raw"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(qint64{1} << 30));  // a hole: it takes no room on the disk
    file.close();
    const long before = residentKilobytes();
    modal.expect(canceling([before](CVolumeInfoDialog& dialog) {
        EXPECT_LT(residentKilobytes() - before, 64 * 1024);
        EXPECT_EQ(dialog.getHeaderOffset(), 0);
    }));
    EXPECT_FALSE(load(folder.encoded("zeros.raw")));
    EXPECT_THAT(host.entries, ElementsAre(canceled));
}

TEST_F(VolumeRaw, AFileThatMayNotBeReadCannotBeOpened)
{
    if (geteuid() == 0) GTEST_SKIP() << "root may read everything";
    const QByteArray path = folder.write("locked.raw", rawHeader(20, 20, 1, 8));
    ASSERT_EQ(chmod(path.constData(), 0), 0);
    EXPECT_FALSE(load(path));
    EXPECT_THAT(host.entries, ElementsAre(cannotOpen));
}

// ---- progress ----

TEST_F(VolumeRaw, TheEndOfTheProgressDoesNotEndTheApplication)
{
    ProgressWatcher progress;
    bool quits = false;
    progress.onStep = [&quits](CHVSProgressBar& dialog) {
        quits = quits || dialog.testAttribute(Qt::WA_QuitOnClose);
    };
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 1, 8) + QByteArray(400, 'a')));
    EXPECT_FALSE(quits) << "it may be the only window there is";
}

TEST_F(VolumeRaw, ProgressHasTwoTitlesAndAStepForEachFrame)
{
    ProgressWatcher progress;
    bool modalAndUnowned = true;
    progress.onStep = [&](CHVSProgressBar& dialog) {
        modalAndUnowned = modalAndUnowned && dialog.isModal() && dialog.parent() == nullptr;
    };
    ASSERT_TRUE(loadFile(rawHeader(2, 1, 5, 8) + QByteArray(10, 'a')));
    EXPECT_EQ(progress.titles, QStringList({"Scanning through Volume data...", "Loading volume data..."}));
    EXPECT_TRUE(modalAndUnowned);
    EXPECT_GE(progress.steps, 10);
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->inherits("CHVSProgressBar")) << "closed and deleted";
}

TEST_F(VolumeRaw, ProgressTellsTheFrameAndThePercentDoneBeforeIt)
{
    ProgressWatcher progress;
    QStringList labels;
    QList<int> percents;
    progress.onStep = [&](CHVSProgressBar& dialog) {
        labels << dialog.findChild<QLabel*>("activity")->text();
        percents << dialog.findChild<QProgressBar*>("progress")->value();
        QTest::qSleep(45);  // the dialog shows what comes faster than that only later
    };
    ASSERT_TRUE(loadFile(rawHeader(20, 20, 4, 8) + QByteArray(1600, 'a')));
    for (const char* label : {"Frame 1", "Frame 2", "Frame 3", "Frame 4"})
        EXPECT_TRUE(labels.contains(label)) << label;
    EXPECT_TRUE(percents.contains(25));
    EXPECT_TRUE(percents.contains(50));
    EXPECT_FALSE(percents.contains(100));
}

TEST_F(VolumeRaw, ClosingTheProgressEndsTheScan)
{
    ProgressWatcher progress;
    progress.onStep = [](CHVSProgressBar& dialog) { dialog.close(); };
    EXPECT_FALSE(loadFile(rawHeader(2, 1, 5, 8) + QByteArray(10, 'a')));
    EXPECT_THAT(host.entries, ElementsAre(aborted));
    EXPECT_EQ(progress.steps, 1);
    EXPECT_EQ(reader.getVoxels(), nullptr);
}

TEST_F(VolumeRaw, ClosingTheProgressEndsTheSecondPassToo)
{
    ProgressWatcher progress;
    progress.onStep = [](CHVSProgressBar& dialog) {
        if (dialog.windowTitle() == "Loading volume data...") dialog.close();
    };
    EXPECT_FALSE(loadFile(rawHeader(2, 1, 5, 8) + QByteArray(10, 'a')));
    EXPECT_THAT(host.entries, ElementsAre(aborted));
}

}  // namespace
