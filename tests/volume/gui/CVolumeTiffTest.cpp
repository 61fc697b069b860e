#include "volume/CVolumeTiff.h"

#include "support/ModalWatcher.h"
#include "support/TiffFiles.h"
#include "volume/CVolumeInfoDialog.h"
#include "volume/support/ProgressWatcher.h"
#include "volume/support/RecordingHost.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using viz_test::ModalWatcher;
using viz_test::ProgressWatcher;
using viz_test::TiffKind;
using Values = std::vector<std::uint32_t>;
using Entry = viz_test::RecordingHost::Entry;

const Entry canceled{16, "Open Volume action canceled by user."};
const Entry lowMemory{3, "Volume loading aborted. Low memory encountered."};
const Entry aborted{3, "Loading of TIFF frame data aborted."};
const Entry notCompatible{3, "Unable to load volume. TIFF file not compatible."};
const Entry noMemory{3, "Unable to allocate memory for Volume data."};

constexpr unsigned all = CVolumeTiff::allFrames;

// Sides that load at full resolution without a question.
constexpr unsigned columns = 20;
constexpr unsigned rows = 40;

TiffKind kindOf(unsigned bits, unsigned width = columns, unsigned height = rows)
{
    TiffKind kind;
    kind.width = width;
    kind.height = height;
    kind.bits = bits;
    return kind;
}

// 8-bit values that differ between neighbours, with 0 and 255 among those of frame 0.
std::uint32_t valueAt(unsigned x, unsigned y, unsigned frame)
{
    if (frame == 0 && y == 0 && x < 2) return x == 0 ? 0 : 255;
    return (x * 7 + y * 13 + frame * 29) % 256;
}

Values frameOf(unsigned frame, std::uint32_t times = 1, std::uint32_t plus = 0)
{
    Values values;
    for (unsigned y = 0; y < rows; ++y)
        for (unsigned x = 0; x < columns; ++x)
            values.push_back(valueAt(x, y, frame) * times + plus);
    return values;
}

Values constant(const TiffKind& kind, std::uint32_t value)
{
    return Values(std::size_t{kind.width} * kind.height, value);
}

class VolumeTiff : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder.path(name); }

    QStringList paths(const QStringList& names) const
    {
        QStringList all_;
        for (const QString& name : names)
            all_ << path(name);
        return all_;
    }

    void write(const QString& name, const TiffKind& kind, const Values& values) const
    {
        viz_test::writeTiff(path(name), kind, {values});
    }

    bool loadStack(const QStringList& names) { return reader.loadVolumeFiles(paths(names), all, all); }

    bool loadPages(const QString& name, unsigned first = all, unsigned last = all)
    {
        return reader.loadVolumeFiles({path(name)}, first, last);
    }

    int voxel(unsigned x, unsigned y, unsigned frame) const
    {
        const std::size_t w = reader.getLoadColumns();
        const std::size_t f = reader.getFrames();
        return reader.getVoxels()[x + frame * w + (reader.getLoadRows() - 1 - y) * w * f];
    }

    // Every voxel against the values that frameOf gave, `frames` naming the source of each frame.
    void expectVoxels(const std::vector<unsigned>& frames) const
    {
        ASSERT_EQ(reader.getFrames(), frames.size());
        ASSERT_EQ(reader.getLoadColumns(), columns);
        ASSERT_EQ(reader.getLoadRows(), rows);
        for (unsigned f = 0; f < frames.size(); ++f)
            for (unsigned y = 0; y < rows; ++y)
                for (unsigned x = 0; x < columns; ++x)
                    ASSERT_EQ(voxel(x, y, f), static_cast<int>(valueAt(x, y, frames[f])))
                        << x << ' ' << y << ' ' << f;
    }

    bool isEmptyFrame(unsigned frame) const
    {
        for (unsigned y = 0; y < reader.getLoadRows(); ++y)
            for (unsigned x = 0; x < reader.getLoadColumns(); ++x)
                if (voxel(x, y, frame) != 0) return false;
        return true;
    }

    std::string info(const char* name) const { return reader.getInfo().value(name).value.toStdString(); }

    static ModalWatcher::Answer answering(std::function<void(CVolumeInfoDialog&)> fill)
    {
        return [fill = std::move(fill)](QWidget* window) {
            auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
            ASSERT_NE(dialog, nullptr);
            fill(*dialog);
            if (dialog->isVisible()) dialog->reject();
        };
    }

    static void pressOk(CVolumeInfoDialog& dialog)
    {
        QTest::mouseClick(dialog.buttonBox->button(QDialogButtonBox::Ok), Qt::LeftButton);
    }

    // Memory is short until the user asks again.
    ModalWatcher::Answer afterShortMemory(std::function<void(CVolumeInfoDialog&)> fill)
    {
        host.memoryIsFull = true;
        return answering([this, fill = std::move(fill)](CVolumeInfoDialog& dialog) {
            host.memoryIsFull = false;
            fill(dialog);
            QTest::mouseClick(dialog.verifyButton, Qt::LeftButton);
            pressOk(dialog);
        });
    }

    viz_test::RecordingHost host;
    viz_test::TiffFolder folder;
    ModalWatcher modal;
    CVolumeTiff reader{nullptr};
};

// ---- a stack ----

TEST_F(VolumeTiff, AStackKeepsTheOrderOfTheList)
{
    for (unsigned f = 0; f < 3; ++f)
        write(QStringLiteral("%1.tif").arg(f), kindOf(8), frameOf(f));
    ASSERT_TRUE(loadStack({"2.tif", "0.tif", "1.tif"}));
    expectVoxels({2, 0, 1});
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 255);
    EXPECT_EQ(reader.getValueScale(), 1.0F);
    EXPECT_EQ(reader.getResolutionFactor(), 1.0F);
    EXPECT_EQ(reader.getLoadedFiles(), paths({"2.tif", "0.tif", "1.tif"}));
    EXPECT_THAT(host.failures(), IsEmpty());
}

TEST_F(VolumeTiff, TheFirstRowLiesInTheLastPlane)
{
    write("a.tif", kindOf(8), frameOf(0));
    write("b.tif", kindOf(8), frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    const std::size_t plane = std::size_t{columns} * 2;
    EXPECT_EQ(reader.getVoxels()[plane * (rows - 1) + 1], 255);
    EXPECT_EQ(reader.getVoxels()[plane * (rows - 1) + columns], valueAt(0, 0, 1));
    EXPECT_EQ(reader.getVoxels()[0], valueAt(0, rows - 1, 0));
}

TEST_F(VolumeTiff, SixteenBitsMapToTheWholeRange)
{
    // 1000 to 1000 + 255 * 100
    write("a.tif", kindOf(16), frameOf(0, 100, 1000));
    write("b.tif", kindOf(16), frameOf(1, 100, 1000));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    EXPECT_EQ(reader.getMinValue(), 1000);
    EXPECT_EQ(reader.getMaxValue(), 26500);
    expectVoxels({0, 1});
}

TEST_F(VolumeTiff, ThirtyTwoBitsOnBothSidesOfTheSignBit)
{
    // 0x7F800000 to 0x807F0000 in steps of 0x10000
    write("a.tif", kindOf(32), frameOf(0, 0x10000U, 0x7F800000U));
    write("b.tif", kindOf(32), frameOf(1, 0x10000U, 0x7F800000U));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    EXPECT_EQ(static_cast<std::uint32_t>(reader.getMinValue()), 0x7F800000U);
    EXPECT_EQ(static_cast<std::uint32_t>(reader.getMaxValue()), 0x807F0000U);
    expectVoxels({0, 1});
}

TEST_F(VolumeTiff, TheRangeIsThatOfAllFrames)
{
    const TiffKind kind = kindOf(8);
    write("a.tif", kind, constant(kind, 100));
    write("b.tif", kind, constant(kind, 50));
    write("c.tif", kind, constant(kind, 152));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif", "c.tif"}));
    EXPECT_EQ(reader.getMinValue(), 50);
    EXPECT_EQ(reader.getMaxValue(), 152);
    EXPECT_FLOAT_EQ(reader.getValueScale(), 2.5F);
    EXPECT_EQ(voxel(3, 3, 0), 125);  // 50 * 2.5 + 0.5
    EXPECT_EQ(voxel(3, 3, 1), 0);
    EXPECT_EQ(voxel(3, 3, 2), 255);
}

TEST_F(VolumeTiff, AStackOfOneValueIsAllZero)
{
    const TiffKind kind = kindOf(8);
    write("a.tif", kind, constant(kind, 7));
    ASSERT_TRUE(loadStack({"a.tif", "a.tif"}));
    EXPECT_EQ(reader.getMinValue(), 7);
    EXPECT_EQ(reader.getMaxValue(), 8);
    EXPECT_TRUE(isEmptyFrame(0));
}

TEST_F(VolumeTiff, BitDepthsMayDiffer)
{
    write("a.tif", kindOf(8), frameOf(0));
    write("b.tif", kindOf(16), frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    expectVoxels({0, 1});
}

TEST_F(VolumeTiff, ResolutionsAreDistancesAsTheyStand)
{
    TiffKind kind = kindOf(8);
    kind.xResolution = 2.5;
    kind.yResolution = 0.5;
    kind.resolutionUnit = RESUNIT_CENTIMETER;
    write("a.tif", kind, frameOf(0));
    write("b.tif", kind, frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    EXPECT_FLOAT_EQ(reader.getExtent()[0], 0.5F * columns) << "Y resolution, columns";
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 2.5F * rows) << "X resolution, rows";
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 2.5F * 2) << "slices as far apart as the X resolution says";
    EXPECT_EQ(info("PixelSpacing"), "0.5, 2.5");
    EXPECT_EQ(info("SpacingBetweenSlices"), "2.5");
    EXPECT_EQ(info("NumberOfFrames"), "2");
    EXPECT_EQ(info("Rows"), "40");
    EXPECT_EQ(info("Columns"), "20");
    EXPECT_EQ(reader.getInfo().size(), 5);
    const SGroupElemInfo entry = reader.getInfo().value("Rows");
    EXPECT_EQ(entry.name, "Rows");
    EXPECT_TRUE(entry.group.isEmpty() && entry.element.isEmpty() && entry.vr.isEmpty());
    EXPECT_EQ(reader.getDirection()[0], 0.0F);
    EXPECT_EQ(reader.getDirection()[1], 0.0F);
    EXPECT_EQ(reader.getDirection()[2], 1.0F);
}

TEST_F(VolumeTiff, WithoutResolutionEverySpacingIsATenth)
{
    write("a.tif", kindOf(8), frameOf(0));
    ASSERT_TRUE(loadStack({"a.tif", "a.tif"}));
    EXPECT_FLOAT_EQ(reader.getExtent()[0], 0.1F * columns);
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 0.1F * rows);
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 0.2F);
    EXPECT_EQ(info("PixelSpacing"), "0.1, 0.1");
}

TEST_F(VolumeTiff, OneResolutionAloneCounts)
{
    TiffKind kind = kindOf(8);
    kind.xResolution = 3;
    write("a.tif", kind, frameOf(0));
    ASSERT_TRUE(loadStack({"a.tif", "a.tif"}));
    EXPECT_EQ(info("PixelSpacing"), "0.1, 3");
}

TEST_F(VolumeTiff, ASkippedFileLeavesItsFrameEmptyAndTheLastNameUnread)
{
    write("a.tif", kindOf(8), frameOf(0));
    folder.write("b.txt", "no picture");
    write("c.tif", kindOf(8), frameOf(2));
    write("d.tif", kindOf(8), frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "b.txt", "c.tif", "d.tif"}));
    ASSERT_EQ(reader.getFrames(), 3U);
    EXPECT_EQ(voxel(1, 0, 0), 255);
    EXPECT_TRUE(isEmptyFrame(1));
    EXPECT_EQ(voxel(5, 6, 2), static_cast<int>(valueAt(5, 6, 2)));
    EXPECT_EQ(reader.getLoadedFiles(), paths({"a.tif", "c.tif", "d.tif"}));
}

TEST_F(VolumeTiff, AFileOfAnotherSizeIsLeftOutSilently)
{
    write("a.tif", kindOf(8), frameOf(0));
    write("wide.tif", kindOf(8, 40, 40), constant(kindOf(8, 40, 40), 3));
    write("c.tif", kindOf(8), frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "wide.tif", "c.tif"}));
    EXPECT_EQ(reader.getFrames(), 2U);
    EXPECT_TRUE(isEmptyFrame(1)) << "the second name is that of the other size";
    EXPECT_EQ(reader.getLoadedFiles(), paths({"a.tif", "c.tif"}));
    EXPECT_THAT(host.failures(), IsEmpty());
}

TEST_F(VolumeTiff, ValuesOfAFileOfAnotherSizeDoNotCount)
{
    write("a.tif", kindOf(16), frameOf(0));
    write("wide.tif", kindOf(16, 40, 40), constant(kindOf(16, 40, 40), 60000));
    write("c.tif", kindOf(16), frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "c.tif", "wide.tif"}));
    EXPECT_EQ(reader.getMaxValue(), 255);
}

TEST_F(VolumeTiff, TheFirstTiffIsTheReference)
{
    folder.write("notes.txt", "no picture");
    write("a.tif", kindOf(8), frameOf(1));
    write("b.tif", kindOf(8), frameOf(0));
    ASSERT_TRUE(loadStack({"notes.txt", "a.tif", "b.tif"}));
    EXPECT_EQ(reader.getColumns(), columns);
    ASSERT_EQ(reader.getFrames(), 2U);
    EXPECT_TRUE(isEmptyFrame(0));
    EXPECT_EQ(voxel(5, 6, 1), static_cast<int>(valueAt(5, 6, 1)));
}

TEST_F(VolumeTiff, OneFrameOutOfMoreNamesIsNotAskedFor)
{
    // 2 x 2 pixels at full resolution: the dialog would not have let that through
    host.memoryIsFull = true;
    write("a.tif", kindOf(8, 2, 2), {0, 85, 170, 255});
    folder.write("b.txt", "no picture");
    ASSERT_TRUE(loadStack({"a.tif", "b.txt"}));
    EXPECT_EQ(reader.getFrames(), 1U);
    EXPECT_EQ(reader.getLoadColumns(), 2U);
    EXPECT_THAT(std::vector<int>(reader.getVoxels(), reader.getVoxels() + 4), ElementsAre(170, 255, 0, 85));
    EXPECT_EQ(host.memoryChecks, 0);
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 0.1F);
}

TEST_F(VolumeTiff, OnlyTheFirstPageOfEachFileCounts)
{
    viz_test::writeTiff(path("a.tif"), kindOf(8), {frameOf(0), frameOf(7)});
    viz_test::writeTiff(path("b.tif"), kindOf(8), {frameOf(1), frameOf(8)});
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    expectVoxels({0, 1});
}

TEST_F(VolumeTiff, OddFileNames)
{
    const QStringList names{
        "a b.tif",        "it's \"it\".tif", "#1.tif", "100%.tif", QString::fromUtf8("M\xC3\xA4use.tif"),
        QString(200, 'n')};
    for (int i = 0; i < names.size(); ++i)
        write(names[i], kindOf(8), frameOf(static_cast<unsigned>(i)));
    ASSERT_TRUE(loadStack(names));
    expectVoxels({0, 1, 2, 3, 4, 5});
    EXPECT_EQ(reader.getLoadedFiles(), paths(names));
}

TEST_F(VolumeTiff, TheCursorIsRestoredForTheQuestionAndWaitsAfterwards)
{
    write("a.tif", kindOf(8), frameOf(0));
    ASSERT_TRUE(loadStack({"a.tif", "a.tif", "a.tif"}));
    EXPECT_EQ(host.cursorsRestored, 1);
    EXPECT_THAT(host.cursorsSet, ElementsAre(Qt::WaitCursor));
}

TEST_F(VolumeTiff, ASecondLoadReplacesTheFirst)
{
    write("a.tif", kindOf(8), frameOf(0));
    write("b.tif", kindOf(8), frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif", "b.tif"}));
    ASSERT_TRUE(loadStack({"b.tif", "a.tif"}));
    expectVoxels({1, 0});
    EXPECT_EQ(reader.getLoadedFiles().size(), 2);
    EXPECT_FALSE(reader.loadVolumeFiles({}, all, all));
    EXPECT_TRUE(reader.getInfo().isEmpty());
    EXPECT_THAT(host.failures(), IsEmpty()) << "an empty list is refused without a word";
}

// ---- pages ----

TEST_F(VolumeTiff, AllPagesOfOneFile)
{
    viz_test::writeTiff(path("v.tif"), kindOf(16), {frameOf(0, 3), frameOf(1, 3), frameOf(2, 3)});
    ASSERT_TRUE(loadPages("v.tif"));
    expectVoxels({0, 1, 2});
    EXPECT_EQ(reader.getMaxValue(), 765);
    EXPECT_EQ(reader.getLoadedFiles(), paths({"v.tif"}));
    EXPECT_EQ(reader.getDirection()[2], 1.0F);
    EXPECT_EQ(info("NumberOfFrames"), "3");
    EXPECT_EQ(info("SpacingBetweenSlices"), "0.1");
    EXPECT_EQ(reader.getInfo().size(), 5);
    EXPECT_EQ(host.cursorsRestored, 1);
    EXPECT_THAT(host.cursorsSet, ElementsAre(Qt::WaitCursor));
}

TEST_F(VolumeTiff, ASinglePageIsAVolumeOfOneFrame)
{
    write("one.tif", kindOf(8), frameOf(0));
    ASSERT_TRUE(loadPages("one.tif"));
    expectVoxels({0});
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 0.1F);
}

TEST_F(VolumeTiff, ARangeOfPages)
{
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1), frameOf(2), frameOf(3)});
    ASSERT_TRUE(loadPages("v.tif", 1, 2));
    expectVoxels({1, 2});
    EXPECT_EQ(reader.getMaxValue(), 255) << "the first page of the file counts for the range";
    ASSERT_TRUE(loadPages("v.tif", 3, 3));
    expectVoxels({3});
    ASSERT_TRUE(loadPages("v.tif", 2, all));
    EXPECT_EQ(reader.getFrames(), 4U) << "half a range is none";
}

TEST_F(VolumeTiff, PagesThatAreNotThereAreRefused)
{
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    EXPECT_FALSE(loadPages("v.tif", 1, 2));
    EXPECT_FALSE(loadPages("v.tif", 1, 0));
    EXPECT_FALSE(loadPages("v.tif", 0, 0xFFFFFFFEU));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible, notCompatible, notCompatible));
    EXPECT_EQ(reader.getVoxels(), nullptr);
}

TEST_F(VolumeTiff, APageOfAnotherSizeStaysEmpty)
{
    TIFF* const file = TIFFOpen(folder.encoded("v.tif").constData(), "w");
    viz_test::writeTiffPage(file, kindOf(8), frameOf(0));
    TIFFWriteDirectory(file);
    viz_test::writeTiffPage(file, kindOf(8, 64, 64), constant(kindOf(8, 64, 64), 9));
    TIFFWriteDirectory(file);
    viz_test::writeTiffPage(file, kindOf(8), frameOf(2));
    TIFFWriteDirectory(file);
    TIFFClose(file);
    ASSERT_TRUE(loadPages("v.tif"));
    EXPECT_EQ(voxel(1, 0, 0), 255);
    EXPECT_TRUE(isEmptyFrame(1));
    EXPECT_EQ(voxel(5, 6, 2), static_cast<int>(valueAt(5, 6, 2)));
}

// ---- reduced sizes ----

TEST_F(VolumeTiff, SidesThatDoNotFitAreReducedAndPadded)
{
    // 70 x 70 loads at 99 percent: 69.3 rounds to 69, and 11 more make 80. Values 0 and 100.
    TiffKind kind = kindOf(8, 70, 70);
    kind.xResolution = 0.1;
    kind.yResolution = 0.1;
    for (const bool stack : {true, false}) {
        write("a.tif", kind, constant(kind, 0));
        write("b.tif", kind, constant(kind, 100));
        viz_test::writeTiff(path("v.tif"), kind, {constant(kind, 0), constant(kind, 100)});
        ASSERT_TRUE(stack ? loadStack({"a.tif", "b.tif"}) : loadPages("v.tif"));
        EXPECT_EQ(reader.getColumns(), 70U);
        EXPECT_EQ(reader.getRows(), 70U);
        EXPECT_EQ(reader.getLoadColumns(), 80U);
        EXPECT_EQ(reader.getLoadRows(), 80U);
        EXPECT_EQ(reader.getResolutionFactor(), 0.99F);
        EXPECT_TRUE(isEmptyFrame(0));
        for (unsigned y = 0; y < 80; ++y)
            for (unsigned x = 0; x < 80; ++x)
                ASSERT_EQ(voxel(x, y, 1), x < 69 && y < 69 ? 255 : 0) << x << ' ' << y;
        EXPECT_FLOAT_EQ(reader.getExtent()[0], 8.115942F);  // 7 + 7 / 69 * 11
        EXPECT_FLOAT_EQ(reader.getExtent()[1], 8.115942F);
        EXPECT_FLOAT_EQ(reader.getExtent()[2], 0.2F);
    }
}

TEST_F(VolumeTiff, PaddingBelowTheLowestValueWrapsAround)
{
    // padding 0 under a lowest value of 1000: see the mapping of unsigned samples, 180
    TiffKind kind = kindOf(16, 70, 70);
    write("a.tif", kind, constant(kind, 1000));
    write("b.tif", kind, constant(kind, 65000));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    EXPECT_EQ(voxel(68, 68, 0), 0);
    EXPECT_EQ(voxel(68, 68, 1), 255);
    EXPECT_EQ(voxel(69, 0, 0), 180);
    EXPECT_EQ(voxel(79, 79, 1), 180);
}

TEST_F(VolumeTiff, UnequalSidesArePaddedEachForItself)
{
    // 128 x 100 at 60 percent: rows become 64, the factor 0.64, columns 82 and with padding 100
    TiffKind kind = kindOf(8, 128, 100);
    kind.xResolution = 0.5;
    kind.yResolution = 0.25;
    viz_test::writeTiff(path("v.tif"), kind, {constant(kind, 0), constant(kind, 10)});
    modal.expect(afterShortMemory([](CVolumeInfoDialog& dialog) { dialog.setResolution(60); }));
    ASSERT_TRUE(loadPages("v.tif"));
    EXPECT_EQ(reader.getLoadColumns(), 100U);
    EXPECT_EQ(reader.getLoadRows(), 64U);
    EXPECT_FLOAT_EQ(reader.getResolutionFactor(), 0.64F);
    EXPECT_EQ(voxel(81, 63, 1), 255);
    EXPECT_EQ(voxel(82, 63, 1), 0);
    EXPECT_FLOAT_EQ(reader.getExtent()[0], 32.0F + 32.0F / 82 * 18);  // 0.25 * 128
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 50.0F);                    // 0.5 * 100
}

TEST_F(VolumeTiff, AFactorThatComesBackToOnePadsWithoutReducing)
{
    const TiffKind kind = kindOf(8, 64, 100);
    Values values = constant(kind, 0);
    values.back() = 255;
    viz_test::writeTiff(path("v.tif"), kind, {values, values});
    modal.expect(afterShortMemory([](CVolumeInfoDialog& dialog) { dialog.setResolution(50); }));
    ASSERT_TRUE(loadPages("v.tif"));
    EXPECT_EQ(reader.getResolutionFactor(), 1.0F);
    EXPECT_EQ(reader.getLoadColumns(), 64U);
    EXPECT_EQ(reader.getLoadRows(), 120U);
    EXPECT_EQ(voxel(63, 99, 0), 255);
    EXPECT_EQ(voxel(63, 100, 0), 0);
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 12.0F);  // 10 + 10 / 100 * 20
}

// ---- the dialog ----

TEST_F(VolumeTiff, ShortMemoryAsksOnceForAStack)
{
    TiffKind kind = kindOf(8);
    kind.xResolution = 2;
    kind.yResolution = 3;
    write("a.tif", kind, frameOf(0));
    write("b.tif", kind, frameOf(1));
    modal.expect(afterShortMemory([this](CVolumeInfoDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "Volume File Information");
        EXPECT_FALSE(dialog.fileGroup->isVisible());
        EXPECT_FALSE(dialog.orientationGroup->isVisible());
        EXPECT_TRUE(dialog.fileLabel->toolTip().endsWith("b.tif"));
        EXPECT_EQ(dialog.getColumns(), 20);
        EXPECT_EQ(dialog.getRows(), 40);
        EXPECT_EQ(dialog.getFrames(), 3) << "names in the list";
        EXPECT_EQ(dialog.getHeaderOffset(), 0);
        EXPECT_EQ(dialog.getRowSpacing(), 2.0F);
        EXPECT_EQ(dialog.getColumnSpacing(), 3.0F);
        EXPECT_EQ(dialog.getSliceSpacing(), 2.0F);
        EXPECT_EQ(dialog.getResolution(), 100);
        dialog.setRowSpacing(0.5);
        dialog.setColumnSpacing(0.25);
        dialog.setSliceSpacing(4);
        EXPECT_EQ(host.cursorsRestored, 1);
        EXPECT_THAT(host.cursorsSet, IsEmpty());
    }));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif", "a.tif"}));
    EXPECT_FLOAT_EQ(reader.getExtent()[0], 0.25F * columns);
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 0.5F * rows);
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 12.0F);
    EXPECT_EQ(info("PixelSpacing"), "3, 2") << "as the file says";
    EXPECT_EQ(info("SpacingBetweenSlices"), "4");
}

TEST_F(VolumeTiff, AsLongAsThereIsOneFrameTheQuestionIsNotRepeated)
{
    write("a.tif", kindOf(8), frameOf(0));
    write("wide.tif", kindOf(8, 40, 40), constant(kindOf(8, 40, 40), 3));
    write("c.tif", kindOf(8), frameOf(1));
    modal.expect(afterShortMemory([](CVolumeInfoDialog& dialog) {
        dialog.setRowSpacing(0.5);
        dialog.setSliceSpacing(4);
    }));
    ASSERT_TRUE(loadStack({"a.tif", "wide.tif", "c.tif"}));
    EXPECT_EQ(host.cursorsRestored, 2);
    EXPECT_FLOAT_EQ(reader.getSliceSpacing(), 0.5F) << "set to the X spacing before each candidate";
}

TEST_F(VolumeTiff, ShortMemoryAsksForPages)
{
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    modal.expect(afterShortMemory([](CVolumeInfoDialog& dialog) {
        EXPECT_EQ(dialog.getFrames(), 2);
        EXPECT_TRUE(dialog.fileLabel->toolTip().endsWith("v.tif"));
        dialog.setSliceSpacing(4);
    }));
    ASSERT_TRUE(loadPages("v.tif"));
    expectVoxels({0, 1});
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 8.0F);
    EXPECT_EQ(info("SpacingBetweenSlices"), "0.1") << "as the file says";
}

TEST_F(VolumeTiff, CancelIsLoggedForTheStatusLine)
{
    host.memoryIsFull = true;
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    write("a.tif", kindOf(8), frameOf(0));
    modal.expectButton("Cancel");
    modal.expectButton("Cancel");
    EXPECT_FALSE(loadPages("v.tif"));
    EXPECT_FALSE(loadStack({"a.tif", "a.tif"}));
    EXPECT_THAT(host.failures(), ElementsAre(canceled, canceled));
    EXPECT_EQ(reader.getVoxels(), nullptr);
    EXPECT_EQ(host.cursorsRestored, 2);
    EXPECT_THAT(host.cursorsSet, IsEmpty());
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->inherits("CHVSProgressBar")) << "closed and deleted";
}

TEST_F(VolumeTiff, AcceptingWithShortMemoryIsRefused)
{
    host.memoryIsFull = true;
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    modal.expect(answering([](CVolumeInfoDialog& dialog) { dialog.accept(); }));
    EXPECT_FALSE(loadPages("v.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(lowMemory));
}

// ---- failures ----

TEST_F(VolumeTiff, AListWithoutTiffFilesIsRefused)
{
    folder.write("a.txt", "no picture");
    folder.write("empty.tif", {});
    EXPECT_FALSE(loadStack({"a.txt", "empty.tif", "missing.tif"}));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
    EXPECT_EQ(reader.getVoxels(), nullptr);
}

TEST_F(VolumeTiff, AFileThatIsNoTiffIsRefused)
{
    folder.write("a.txt", "no picture");
    EXPECT_FALSE(loadPages("a.txt"));
    EXPECT_FALSE(loadPages("missing.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible, notCompatible));
}

TEST_F(VolumeTiff, UnknownKindsOfSamplesAreRefusedWithAReason)
{
    TiffKind real = kindOf(32);
    real.format = SAMPLEFORMAT_IEEEFP;
    TiffKind colour = kindOf(8);
    colour.samples = 3;
    colour.photometric = PHOTOMETRIC_RGB;
    write("float.tif", real, constant(real, 0x3F800000U));
    write("rgb.tif", colour, Values(std::size_t{columns} * rows * 3, 5));
    write("good.tif", kindOf(8), frameOf(0));

    EXPECT_FALSE(loadPages("float.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
    EXPECT_THAT(host.entries, Contains(Pair(2, HasSubstr("float.tif: the picture has floating-point"))));
    EXPECT_FALSE(loadPages("rgb.tif"));
    EXPECT_FALSE(loadStack({"float.tif", "good.tif"}));
    EXPECT_FALSE(loadStack({"good.tif", "rgb.tif"}));
    EXPECT_FALSE(loadStack({"good.tif", "good.tif", "float.tif"}));
    EXPECT_THAT(host.failures(),
                ElementsAre(notCompatible, notCompatible, notCompatible, notCompatible, notCompatible));
}

TEST_F(VolumeTiff, OneUnreadablePageSpoilsTheLoad)
{
    TIFF* const file = TIFFOpen(folder.encoded("v.tif").constData(), "w");
    viz_test::writeTiffPage(file, kindOf(32), frameOf(0));
    TIFFWriteDirectory(file);
    TiffKind real = kindOf(32);
    real.format = SAMPLEFORMAT_IEEEFP;
    viz_test::writeTiffPage(file, real, frameOf(1));
    TIFFWriteDirectory(file);
    TIFFClose(file);
    EXPECT_FALSE(loadPages("v.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
    ASSERT_TRUE(loadPages("v.tif", 0, 0)) << "pages that are not asked for do not matter";
}

TEST_F(VolumeTiff, AFileThatVanishesBetweenThePassesIsMissed)
{
    for (unsigned f = 0; f < 3; ++f)
        write(QStringLiteral("%1.tif").arg(f), kindOf(8), frameOf(f));
    ProgressWatcher progress;
    progress.onStep = [this](CHVSProgressBar& dialog) {
        if (dialog.windowTitle() == "Loading TIFF frame data...") QFile::remove(path("2.tif"));
    };
    EXPECT_FALSE(loadStack({"0.tif", "1.tif", "2.tif"}));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
}

TEST_F(VolumeTiff, AFileThatChangesItsSizeBetweenThePassesStaysEmpty)
{
    for (unsigned f = 0; f < 2; ++f)
        write(QStringLiteral("%1.tif").arg(f), kindOf(8), frameOf(f));
    ProgressWatcher progress;
    progress.onStep = [this](CHVSProgressBar& dialog) {
        if (dialog.windowTitle() == "Loading TIFF frame data...")
            write("1.tif", kindOf(8, 40, 40), constant(kindOf(8, 40, 40), 3));
    };
    ASSERT_TRUE(loadStack({"0.tif", "1.tif"}));
    EXPECT_TRUE(isEmptyFrame(1));
}

TEST_F(VolumeTiff, PagesAreReadToTheEndThoughTheFileIsRemoved)
{
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    ProgressWatcher progress;
    progress.onStep = [this](CHVSProgressBar&) { QFile::remove(path("v.tif")); };
    ASSERT_TRUE(loadPages("v.tif"));
    expectVoxels({0, 1});
}

TEST_F(VolumeTiff, PagesThatAreCutBetweenThePassesAreRefused)
{
    const TiffKind kind = kindOf(16, 128, 128);
    viz_test::writeTiff(path("v.tif"), kind, {constant(kind, 1), constant(kind, 2), constant(kind, 3)});
    ProgressWatcher progress;
    progress.onStep = [this](CHVSProgressBar& dialog) {
        if (dialog.windowTitle() == "Loading Tiff frame data...") QFile::resize(path("v.tif"), 100);
    };
    EXPECT_FALSE(loadPages("v.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
}

TEST_F(VolumeTiff, ABlockBeyondMemoryIsRefused)
{
    // A directory alone: 2147483647 x 2147483647 pixels of 8 bits
    const unsigned char bytes[] = {'I',  'I', 42, 0, 8, 0, 0, 0, 4,    0,                 //
                                   0,    1,   4,  0, 1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x7F,  //
                                   1,    1,   4,  0, 1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x7F,  //
                                   2,    1,   3,  0, 1, 0, 0, 0, 8,    0,    0,    0,     //
                                   0x11, 1,   4,  0, 1, 0, 0, 0, 8,    0,    0,    0,    0, 0, 0, 0};
    folder.write("huge.tif", QByteArray(reinterpret_cast<const char*>(bytes), sizeof bytes));
    EXPECT_FALSE(loadPages("huge.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(noMemory));
    EXPECT_FALSE(loadStack({"huge.tif", "missing.tif"}));
    EXPECT_THAT(host.failures(), ElementsAre(noMemory, noMemory));
}

// ---- progress ----

TEST_F(VolumeTiff, ProgressHasTwoTitlesForAStack)
{
    write("a.tif", kindOf(8), frameOf(0));
    ProgressWatcher progress;
    bool modalAndUnowned = true;
    progress.onStep = [&](CHVSProgressBar& dialog) {
        modalAndUnowned = modalAndUnowned && dialog.isModal() && dialog.parent() == nullptr;
    };
    ASSERT_TRUE(loadStack({"a.tif", "a.tif", "a.tif"}));
    EXPECT_EQ(progress.titles, QStringList({"Scanning through TIFF data...", "Loading TIFF frame data..."}));
    EXPECT_TRUE(modalAndUnowned);
    EXPECT_GE(progress.steps, 6);
}

TEST_F(VolumeTiff, ProgressHasTwoOtherTitlesForPages)
{
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    ProgressWatcher progress;
    ASSERT_TRUE(loadPages("v.tif"));
    EXPECT_EQ(progress.titles, QStringList({"Scanning through Tiff data...", "Loading Tiff frame data..."}));
    EXPECT_GE(progress.steps, 4);
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->inherits("CHVSProgressBar")) << "closed and deleted";
}

TEST_F(VolumeTiff, ClosingTheProgressEndsTheLoadAtEveryStep)
{
    write("a.tif", kindOf(8), frameOf(0));
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1), frameOf(2)});
    for (const bool stack : {true, false})
        for (int step = 1; step <= 5; ++step) {
            host.entries.clear();
            ProgressWatcher progress;
            progress.onStep = [&](CHVSProgressBar& dialog) {
                if (progress.steps == step) dialog.close();
            };
            EXPECT_FALSE(stack ? loadStack({"a.tif", "a.tif", "a.tif"}) : loadPages("v.tif")) << step;
            EXPECT_THAT(host.failures(), ElementsAre(aborted));
            EXPECT_EQ(progress.steps, step);
        }
}

}  // namespace
