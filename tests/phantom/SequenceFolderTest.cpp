#include "phantom/SequenceFolder.h"
#include "TemporaryFolder.h"
#include "phantom/CommandLine.h"
#include "phantom/Mouse.h"
#include "phantom/OpticalVoxels.h"
#include "phantom/Photograph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include <tiffio.h>

using namespace phantom;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr int n = 32;

struct Picture
{
    int side = 0;
    std::vector<std::uint16_t> pixels;

    int at(int column, int row) const { return pixels.at(static_cast<std::size_t>(row) * side + column); }
    /// At a place of the mouse's space in mm, where the whole picture shows 80 mm.
    int atMm(double x, double y) const
    {
        return at(static_cast<int>((x + 40) * side / 80), static_cast<int>((40 - y) * side / 80));
    }
    int highest() const { return *std::max_element(pixels.begin(), pixels.end()); }
};

Picture pictureOf(const std::string& path)
{
    const std::unique_ptr<TIFF, void (*)(TIFF*)> tiff(TIFFOpen(path.c_str(), "r"), TIFFClose);
    Picture picture;
    if (!tiff) return picture;
    std::uint32_t width = 0, height = 0;
    std::uint16_t bits = 0;
    TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &height);
    TIFFGetField(tiff.get(), TIFFTAG_BITSPERSAMPLE, &bits);
    EXPECT_EQ(width, height);
    EXPECT_EQ(bits, 16);
    picture.side = static_cast<int>(width);
    picture.pixels.resize(std::size_t{width} * height);
    EXPECT_EQ(TIFFReadEncodedStrip(tiff.get(), 0, picture.pixels.data(), -1),
              static_cast<tmsize_t>(picture.pixels.size() * 2));
    return picture;
}

class SequenceFolder : public testing::Test
{
protected:
    int write(const std::string& name, std::vector<std::string> arguments = {})
    {
        arguments.insert(arguments.end(),
                         {"--format=sequence", "--size=" + std::to_string(n), m_folder.path(name)});
        std::string out;
        return runPhantom(arguments, out, m_error);
    }
    Picture picture(const std::string& name) const { return pictureOf(m_folder.path(name)); }

    TemporaryFolder m_folder;
    std::string m_error;
};

TEST_F(SequenceFolder, hasClicksWithTheirPicturesAndTheScan)
{
    ASSERT_EQ(write("mouse"), 0) << m_error;
    EXPECT_THAT(m_folder.files(), ElementsAre("mouse"));
    EXPECT_THAT(m_folder.files("mouse"),
                ElementsAre("CT Data", "M0001", "M0002", "M0003", "OpticalVoxels.txt", "SequenceInfo.txt"));
    for (const char* click : {"mouse/M0001", "mouse/M0002", "mouse/M0003"})
        EXPECT_THAT(m_folder.files(click), ElementsAre("ClickInfo.txt", "luminescent.tif", "photograph.tif"));
    EXPECT_EQ(m_folder.files("mouse/CT Data").size(), std::size_t{n});
}

TEST_F(SequenceFolder, scanIsThatOfADicomSeries)
{
    ASSERT_EQ(write("mouse"), 0) << m_error;
    std::string out;
    ASSERT_EQ(runPhantom({"--format=dicom", "--size=32", m_folder.path("series")}, out, m_error), 0);
    for (const std::string& name : m_folder.files("series"))
        EXPECT_EQ(m_folder.contents("mouse/CT Data/" + name), m_folder.contents("series/" + name)) << name;
}

TEST_F(SequenceFolder, textsTellTypeClicksAndFieldOfView)
{
    ASSERT_EQ(write("mouse", {"--spacing=0.5"}), 0) << m_error;
    const std::string info = m_folder.contents("mouse/SequenceInfo.txt");
    EXPECT_THAT(info, HasSubstr("[Sequence]\nFormat Version = 1\nSequence Type = CT\n"));
    EXPECT_THAT(info, HasSubstr("[Clicks]\nClick 1 = M0001\nClick 2 = M0002\nClick 3 = M0003\n"));
    const std::string click = m_folder.contents("mouse/M0002/ClickInfo.txt");
    // 32 pixels of 0.5 mm are 1.6 cm
    EXPECT_THAT(click, HasSubstr("[photographic image]\nFile = photograph.tif\nField of View = 1.6\n"));
    EXPECT_THAT(click, HasSubstr("[luminescent image]\nFile = luminescent.tif\nField of View = 1.6\n"));
}

TEST_F(SequenceFolder, opticalVoxelsGoByTheSpacing)
{
    ASSERT_EQ(write("mouse", {"--spacing=0.5"}), 0) << m_error;
    // 32 voxels of 0.5 mm for the 80 mm of the mouse's space
    EXPECT_EQ(m_folder.contents("mouse/OpticalVoxels.txt"), opticalVoxelText(0.2));
}

TEST_F(SequenceFolder, calibrationMakesWaterOfTheGreyOfWater)
{
    for (const char* bits : {"8", "16"}) {
        ASSERT_EQ(write(bits, {std::string("--bits=") + bits}), 0) << m_error;
        const int depth = std::stoi(bits);
        const auto voxels = sampledFrames(Scan(mouseOnBed(), n, 1), 0, n, depth, 1);
        double highest = 0;
        for (std::size_t i = 0; i < voxels.size(); i += depth / 8)
            highest = std::max<double>(highest, depth == 8 ? voxels[i] : voxels[i] | voxels[i + 1] << 8);
        const std::string info = m_folder.contents(std::string(bits) + "/SequenceInfo.txt");
        const std::string key = "Reconstructed Volume Max = ";
        ASSERT_THAT(info, HasSubstr(key));
        const double absorption = std::stod(info.substr(info.find(key) + key.size()));
        // absorption rises from 0 at 0 to `absorption` at the highest value
        const double water = absorption * (depth == 8 ? 40 : 640) / highest;
        EXPECT_NEAR(water, 0.02, 1e-6) << bits;
        EXPECT_THAT(info, HasSubstr("Reconstructed Volume Min = 0\n"));
        EXPECT_THAT(info, HasSubstr("Hounsfield Calibration Air = 0\n"));
        EXPECT_THAT(info, HasSubstr("Hounsfield Calibration Water = 0.02\n"));
    }
}

TEST_F(SequenceFolder, photographShowsTheMouseOnItsBedWithTheNoseUp)
{
    ASSERT_EQ(write("mouse"), 0) << m_error;
    const Picture photograph = picture("mouse/M0001/photograph.tif");
    ASSERT_EQ(photograph.side, n);
    const int back = photograph.atMm(0, -10);
    EXPECT_GT(back, 1500);
    EXPECT_GT(photograph.atMm(0, 25), 1000) << "the head";
    EXPECT_LT(photograph.atMm(0, -39), back / 2) << "no mouse beyond the rump";
    EXPECT_LT(photograph.atMm(-30, 30), back / 2) << "the bed or the ground";
    EXPECT_GT(photograph.atMm(-6, -14), photograph.atMm(6, -14)) << "the light comes from the left";
    EXPECT_EQ(photograph.pixels, picture("mouse/M0003/photograph.tif").pixels);
}

TEST_F(SequenceFolder, lightGlowsInTheLeftThighMostAndInTheSecondClickMost)
{
    ASSERT_EQ(write("mouse"), 0) << m_error;
    const Picture first = picture("mouse/M0001/luminescent.tif");
    const Picture second = picture("mouse/M0002/luminescent.tif");
    const Picture third = picture("mouse/M0003/luminescent.tif");
    ASSERT_EQ(second.side, n / 2);
    EXPECT_GT(second.atMm(-9.5, -24), 8000);
    EXPECT_GT(second.atMm(-9.5, -24), 2 * second.atMm(9.5, -24)) << "the right thigh is dark";
    EXPECT_LT(second.atMm(0, 30), 400) << "so is the head";
    EXPECT_GT(second.highest(), third.highest());
    EXPECT_GT(third.highest(), first.highest());
}

TEST_F(SequenceFolder, sameCallGivesTheSameBytes)
{
    ASSERT_EQ(write("a"), 0) << m_error;
    ASSERT_EQ(write("b"), 0) << m_error;
    for (const char* name : {"/SequenceInfo.txt", "/M0002/photograph.tif", "/M0002/luminescent.tif",
                             "/M0002/ClickInfo.txt", "/CT Data/slice-0009.dcm"})
        EXPECT_EQ(m_folder.contents(std::string("a") + name), m_folder.contents(std::string("b") + name));
    ASSERT_EQ(write("c", {"--seed=2"}), 0) << m_error;
    EXPECT_NE(m_folder.contents("a/M0002/luminescent.tif"), m_folder.contents("c/M0002/luminescent.tif"));
}

TEST_F(SequenceFolder, folderInUseIsRefusedAndLeftAlone)
{
    ASSERT_EQ(write("mouse"), 0) << m_error;
    const std::string before = m_folder.contents("mouse/SequenceInfo.txt");
    EXPECT_EQ(write("mouse", {"--bits=8"}), 1);
    EXPECT_THAT(m_error, HasSubstr("holds files"));
    EXPECT_EQ(m_folder.contents("mouse/SequenceInfo.txt"), before);
    EXPECT_THAT(m_folder.files(), ElementsAre("mouse")) << "no part is left";
    EXPECT_EQ(write("no/such/folder"), 1);
}

}  // namespace
