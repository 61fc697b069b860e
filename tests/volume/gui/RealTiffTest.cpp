#include "volume/CVolumeTiff.h"

#include "support/ModalWatcher.h"
#include "support/SharedData.h"
#include "volume/support/RecordingHost.h"

#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using viz_test::sharedData;
using Entry = viz_test::RecordingHost::Entry;

const Entry notCompatible{3, "Unable to load volume. TIFF file not compatible."};

QStringList filesOf(const QString& folder)
{
    QStringList files;
    const QDir directory(folder);
    for (const QString& name : directory.entryList(QDir::Files, QDir::Name))
        files << directory.absoluteFilePath(name);
    return files;
}

class RealTiff : public testing::Test
{
protected:
    bool load(const QString& file) { return load(QStringList{file}); }
    bool load(const QStringList& files)
    {
        return reader.loadVolumeFiles(files, CVolumeTiff::allFrames, CVolumeTiff::allFrames);
    }

    std::size_t count() const
    {
        return std::size_t{reader.getLoadColumns()} * reader.getLoadRows() * reader.getFrames();
    }

    viz_test::RecordingHost host;
    viz_test::ModalWatcher modal;
    CVolumeTiff reader{nullptr};
};

TEST_F(RealTiff, AStackAndTheTextFileBesideIt)
{
    const QString folder = sharedData("tiff_stack/mr_banana_16bit");
    if (folder.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    ASSERT_TRUE(load(filesOf(folder)));
    EXPECT_EQ(reader.getColumns(), 384U);
    EXPECT_EQ(reader.getLoadColumns(), 384U);
    EXPECT_EQ(reader.getLoadRows(), 384U);
    EXPECT_EQ(reader.getFrames(), 7U);
    EXPECT_EQ(reader.getLoadedFiles().size(), 7);
    EXPECT_FLOAT_EQ(reader.getExtent()[0], 2.56F * 384) << "pixels per mm, taken as mm";
    EXPECT_EQ(*std::max_element(reader.getVoxels(), reader.getVoxels() + count()), 255);
    EXPECT_EQ(*std::min_element(reader.getVoxels(), reader.getVoxels() + count()), 0);
    EXPECT_THAT(host.failures(), IsEmpty());
}

TEST_F(RealTiff, PagesOf16Bits)
{
    const QString file = sharedData("tiff_multipage/cells_16bit/cancer_cell_migration_crop_every2nd.tif");
    if (file.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    ASSERT_TRUE(load(file));
    // 130 is no multiple of 64 or 20: 128.7 rounds to 129, and 11 more make 140
    EXPECT_EQ(reader.getColumns(), 130U);
    EXPECT_EQ(reader.getLoadColumns(), 140U);
    EXPECT_EQ(reader.getLoadRows(), 140U);
    EXPECT_EQ(reader.getFrames(), 24U);
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 24.0F);
    EXPECT_THAT(host.failures(), IsEmpty());
}

TEST_F(RealTiff, PagesOf8Bits)
{
    const QString file = sharedData("tiff_multipage/mouse_8bit_grey/mouse_AKR_20pages.tif");
    if (file.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    ASSERT_TRUE(load(file));
    EXPECT_EQ(reader.getColumns(), 125U);
    EXPECT_EQ(reader.getFrames(), 20U);
    EXPECT_FLOAT_EQ(reader.getSliceSpacing(), 0.141F);
    EXPECT_GT(std::count_if(reader.getVoxels(), reader.getVoxels() + count(), [](int v) { return v > 45; }),
              1000);
}

TEST_F(RealTiff, PaletteIndicesAreTheValues)
{
    const QString file = sharedData(
        "tiff_multipage/confocal_grid_8bit_palette/DeconvolutionSampleVerticalGrid1AU-crop_every2nd.tif");
    if (file.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    ASSERT_TRUE(load(file));
    EXPECT_EQ(reader.getFrames(), 11U);
    EXPECT_GE(reader.getMinValue(), 0);
    EXPECT_LE(reader.getMaxValue(), 8);
    EXPECT_GT(reader.getMaxValue(), 1);
}

TEST_F(RealTiff, OddFilesOfWholeNumbersLoad)
{
    const QString folder = sharedData("tiff_odd");
    if (folder.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    for (const char* name :
         {"12bit.cropped.tif", "16bit.MM.cropped.tif", "16bit.deflate.tif", "16bit.s.tif", "hopper4.tif",
          "g4-multi.tiff", "multipage.tiff", "multipage-mmap.tiff", "uint16_1_4660.tif"}) {
        host.entries.clear();
        EXPECT_TRUE(load(QDir(folder).filePath(name))) << name;
        EXPECT_THAT(host.failures(), IsEmpty()) << name;
    }
}

TEST_F(RealTiff, ColourAndFloatingPointAreRefused)
{
    const QString folder = sharedData("tiff_odd");
    if (folder.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    for (const char* name : {"hopper_lzw.tif", "hopper_bigtiff.tif", "10ct_32bit_128.tiff"}) {
        host.entries.clear();
        EXPECT_FALSE(load(QDir(folder).filePath(name))) << name;
        EXPECT_THAT(host.failures(), ElementsAre(notCompatible)) << name;
        EXPECT_THAT(host.entries, Contains(testing::Pair(2, testing::HasSubstr(name)))) << name;
    }
}

TEST_F(RealTiff, MalformedFilesEndWithAWord)
{
    const QString folder = sharedData("tiff_bad");
    if (folder.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    const QStringList files = filesOf(folder);
    for (const QString& file : files) {
        host.entries.clear();
        const bool good = load(file);
        EXPECT_EQ(host.failures().size(), good ? 0U : 1U) << file.toStdString();
        RecordProperty(file.section('/', -1).left(16).toStdString(), good ? "loads" : "refused");
    }
    host.entries.clear();
    const bool good = load(files);
    EXPECT_EQ(host.failures().size(), good ? 0U : 1U);
}

}  // namespace
