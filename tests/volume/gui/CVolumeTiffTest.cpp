#include "volume/support/VolumeTiff.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using viz_test::columns;
using viz_test::constant;
using viz_test::frameOf;
using viz_test::kindOf;
using viz_test::rows;
using viz_test::TiffKind;
using viz_test::valueAt;
using viz_test::Values;

const viz_test::RecordingHost::Entry notCompatible{3, "Unable to load volume. TIFF file not compatible."};

class VolumeTiffVoxels : public viz_test::VolumeTiff
{};

// ---- a stack ----

TEST_F(VolumeTiffVoxels, AStackKeepsTheOrderOfTheList)
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

TEST_F(VolumeTiffVoxels, TheFirstRowLiesInTheLastPlane)
{
    write("a.tif", kindOf(8), frameOf(0));
    write("b.tif", kindOf(8), frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    const std::size_t plane = std::size_t{columns} * 2;
    EXPECT_EQ(reader.getVoxels()[plane * (rows - 1) + 1], 255);
    EXPECT_EQ(reader.getVoxels()[plane * (rows - 1) + columns], valueAt(0, 0, 1));
    EXPECT_EQ(reader.getVoxels()[0], valueAt(0, rows - 1, 0));
}

TEST_F(VolumeTiffVoxels, SixteenBitsMapToTheWholeRange)
{
    // 1000 to 1000 + 255 * 100
    write("a.tif", kindOf(16), frameOf(0, 100, 1000));
    write("b.tif", kindOf(16), frameOf(1, 100, 1000));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    EXPECT_EQ(reader.getMinValue(), 1000);
    EXPECT_EQ(reader.getMaxValue(), 26500);
    expectVoxels({0, 1});
}

TEST_F(VolumeTiffVoxels, ThirtyTwoBitsOnBothSidesOfTheSignBit)
{
    // 0x7F800000 to 0x807F0000 in steps of 0x10000
    write("a.tif", kindOf(32), frameOf(0, 0x10000U, 0x7F800000U));
    write("b.tif", kindOf(32), frameOf(1, 0x10000U, 0x7F800000U));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    EXPECT_EQ(static_cast<std::uint32_t>(reader.getMinValue()), 0x7F800000U);
    EXPECT_EQ(static_cast<std::uint32_t>(reader.getMaxValue()), 0x807F0000U);
    expectVoxels({0, 1});
}

TEST_F(VolumeTiffVoxels, TheRangeIsThatOfAllFrames)
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

TEST_F(VolumeTiffVoxels, AStackOfOneValueIsAllZero)
{
    const TiffKind kind = kindOf(8);
    write("a.tif", kind, constant(kind, 7));
    ASSERT_TRUE(loadStack({"a.tif", "a.tif"}));
    EXPECT_EQ(reader.getMinValue(), 7);
    EXPECT_EQ(reader.getMaxValue(), 8);
    EXPECT_TRUE(isEmptyFrame(0));
}

TEST_F(VolumeTiffVoxels, BitDepthsMayDiffer)
{
    write("a.tif", kindOf(8), frameOf(0));
    write("b.tif", kindOf(16), frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    expectVoxels({0, 1});
}

TEST_F(VolumeTiffVoxels, ResolutionsAreDistancesAsTheyStand)
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

TEST_F(VolumeTiffVoxels, WithoutResolutionEverySpacingIsATenth)
{
    write("a.tif", kindOf(8), frameOf(0));
    ASSERT_TRUE(loadStack({"a.tif", "a.tif"}));
    EXPECT_FLOAT_EQ(reader.getExtent()[0], 0.1F * columns);
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 0.1F * rows);
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 0.2F);
    EXPECT_EQ(info("PixelSpacing"), "0.1, 0.1");
}

TEST_F(VolumeTiffVoxels, OneResolutionAloneCounts)
{
    TiffKind kind = kindOf(8);
    kind.xResolution = 3;
    write("a.tif", kind, frameOf(0));
    ASSERT_TRUE(loadStack({"a.tif", "a.tif"}));
    EXPECT_EQ(info("PixelSpacing"), "0.1, 3");
}

TEST_F(VolumeTiffVoxels, ASkippedFileLeavesItsFrameEmptyAndTheLastNameUnread)
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

TEST_F(VolumeTiffVoxels, AFileOfAnotherSizeIsLeftOutSilently)
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

TEST_F(VolumeTiffVoxels, ValuesOfAFileOfAnotherSizeDoNotCount)
{
    write("a.tif", kindOf(16), frameOf(0));
    write("wide.tif", kindOf(16, 40, 40), constant(kindOf(16, 40, 40), 60000));
    write("c.tif", kindOf(16), frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "c.tif", "wide.tif"}));
    EXPECT_EQ(reader.getMaxValue(), 255);
}

TEST_F(VolumeTiffVoxels, TheFirstTiffIsTheReference)
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

TEST_F(VolumeTiffVoxels, OneFrameOutOfMoreNamesIsNotAskedFor)
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

TEST_F(VolumeTiffVoxels, OnlyTheFirstPageOfEachFileCounts)
{
    viz_test::writeTiff(path("a.tif"), kindOf(8), {frameOf(0), frameOf(7)});
    viz_test::writeTiff(path("b.tif"), kindOf(8), {frameOf(1), frameOf(8)});
    ASSERT_TRUE(loadStack({"a.tif", "b.tif"}));
    expectVoxels({0, 1});
}

TEST_F(VolumeTiffVoxels, OddFileNames)
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

TEST_F(VolumeTiffVoxels, TheCursorIsRestoredForTheQuestionAndWaitsAfterwards)
{
    write("a.tif", kindOf(8), frameOf(0));
    ASSERT_TRUE(loadStack({"a.tif", "a.tif", "a.tif"}));
    EXPECT_EQ(host.cursorsRestored, 1);
    EXPECT_THAT(host.cursorsSet, ElementsAre(Qt::WaitCursor));
}

TEST_F(VolumeTiffVoxels, ASecondLoadReplacesTheFirst)
{
    write("a.tif", kindOf(8), frameOf(0));
    write("b.tif", kindOf(8), frameOf(1));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif", "b.tif"}));
    ASSERT_TRUE(loadStack({"b.tif", "a.tif"}));
    expectVoxels({1, 0});
    EXPECT_EQ(reader.getLoadedFiles().size(), 2);
    EXPECT_FALSE(reader.loadVolumeFiles({}, CVolumeTiff::allFrames, CVolumeTiff::allFrames));
    EXPECT_TRUE(reader.getInfo().isEmpty());
    EXPECT_THAT(host.failures(), IsEmpty()) << "an empty list is refused without a word";
}

// ---- pages ----

TEST_F(VolumeTiffVoxels, AllPagesOfOneFile)
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

TEST_F(VolumeTiffVoxels, ASinglePageIsAVolumeOfOneFrame)
{
    write("one.tif", kindOf(8), frameOf(0));
    ASSERT_TRUE(loadPages("one.tif"));
    expectVoxels({0});
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 0.1F);
}

TEST_F(VolumeTiffVoxels, ARangeOfPages)
{
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1), frameOf(2), frameOf(3)});
    ASSERT_TRUE(loadPages("v.tif", 1, 2));
    expectVoxels({1, 2});
    EXPECT_EQ(reader.getMaxValue(), 255) << "the first page of the file counts for the range";
    ASSERT_TRUE(loadPages("v.tif", 3, 3));
    expectVoxels({3});
    ASSERT_TRUE(loadPages("v.tif", 2, CVolumeTiff::allFrames));
    EXPECT_EQ(reader.getFrames(), 4U) << "half a range is none";
}

TEST_F(VolumeTiffVoxels, PagesThatAreNotThereAreRefused)
{
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    EXPECT_FALSE(loadPages("v.tif", 1, 2));
    EXPECT_FALSE(loadPages("v.tif", 1, 0));
    EXPECT_FALSE(loadPages("v.tif", 0, 0xFFFFFFFEU));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible, notCompatible, notCompatible));
    EXPECT_EQ(reader.getVoxels(), nullptr);
}

TEST_F(VolumeTiffVoxels, APageOfAnotherSizeStaysEmpty)
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

TEST_F(VolumeTiffVoxels, SidesThatDoNotFitAreReducedAndPadded)
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

TEST_F(VolumeTiffVoxels, PaddingBelowTheLowestValueWrapsAround)
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

TEST_F(VolumeTiffVoxels, UnequalSidesArePaddedEachForItself)
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

TEST_F(VolumeTiffVoxels, AFactorThatComesBackToOnePadsWithoutReducing)
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

}  // namespace
