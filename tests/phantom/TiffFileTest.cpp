#include "phantom/TiffFile.h"
#include "TemporaryFolder.h"
#include "phantom/CommandLine.h"
#include "phantom/Mouse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include <tiffio.h>

using namespace phantom;

namespace {

constexpr int n = 16;

using Handle = std::unique_ptr<TIFF, void (*)(TIFF*)>;

Handle opened(const std::string& path)
{
    return {TIFFOpen(path.c_str(), "r"), TIFFClose};
}

template <class Value>
Value field(TIFF* tiff, std::uint32_t tag)
{
    Value value{};
    TIFFGetFieldDefaulted(tiff, tag, &value);
    return value;
}

std::vector<unsigned char> strip(TIFF* tiff)
{
    std::vector<unsigned char> bytes(static_cast<std::size_t>(TIFFStripSize(tiff)));
    TIFFReadEncodedStrip(tiff, 0, bytes.data(), static_cast<tmsize_t>(bytes.size()));
    return bytes;
}

/// Slice i: row 0 is the highest, and the slices run from the feet to the head.
std::vector<unsigned char> rawSlice(const std::vector<unsigned char>& raw, int size, int i, int bytes)
{
    std::vector<unsigned char> slice;
    for (int r = 0; r < size; ++r) {
        const auto row = raw.begin() + std::ptrdiff_t{1} * bytes * size * (i + size * (size - 1 - r));
        slice.insert(slice.end(), row, row + std::ptrdiff_t{1} * bytes * size);
    }
    return slice;
}

void expectPage(TIFF* tiff, int size, int bits, float spacing)
{
    EXPECT_EQ(field<std::uint32_t>(tiff, TIFFTAG_IMAGEWIDTH), static_cast<std::uint32_t>(size));
    EXPECT_EQ(field<std::uint32_t>(tiff, TIFFTAG_IMAGELENGTH), static_cast<std::uint32_t>(size));
    EXPECT_EQ(field<std::uint16_t>(tiff, TIFFTAG_BITSPERSAMPLE), bits);
    EXPECT_EQ(field<std::uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL), 1);
    EXPECT_EQ(field<std::uint16_t>(tiff, TIFFTAG_SAMPLEFORMAT), SAMPLEFORMAT_UINT);
    EXPECT_EQ(field<std::uint16_t>(tiff, TIFFTAG_PHOTOMETRIC), PHOTOMETRIC_MINISBLACK);
    EXPECT_EQ(field<std::uint16_t>(tiff, TIFFTAG_RESOLUTIONUNIT), RESUNIT_NONE);
    EXPECT_FLOAT_EQ(field<float>(tiff, TIFFTAG_XRESOLUTION), spacing);
    EXPECT_FLOAT_EQ(field<float>(tiff, TIFFTAG_YRESOLUTION), spacing);
    EXPECT_STREQ(field<const char*>(tiff, TIFFTAG_SOFTWARE), "phantom");
}

class TiffFile : public testing::Test
{
protected:
    std::string run(std::vector<std::string> arguments, const std::string& name)
    {
        arguments.push_back(m_folder.path(name));
        std::string out, error;
        runPhantom(arguments, out, error);
        return error;
    }

    TemporaryFolder m_folder;
};

}  // namespace

TEST_F(TiffFile, aStackIsOneFileASlice)
{
    ASSERT_EQ(run({"--format=tiff", "--size=16", "--spacing=0.0625"}, "s"), "");
    const auto raw = sampledFrames(Scan(mouseOnBed(), n, 1), 0, n, 16, 1);
    const auto names = m_folder.files("s");
    ASSERT_EQ(names.size(), static_cast<std::size_t>(n));
    EXPECT_EQ(names.front(), "slice-0001.tif");
    for (int i = 0; i < n; ++i) {
        const Handle tiff = opened(m_folder.path("s/" + names[i]));
        ASSERT_NE(tiff, nullptr);
        expectPage(tiff.get(), n, 16, 0.0625F);
        EXPECT_EQ(TIFFNumberOfDirectories(tiff.get()), 1);
        EXPECT_EQ(strip(tiff.get()), rawSlice(raw, n, i, 2));
    }
}

TEST_F(TiffFile, aMultiPageFileHoldsAPageASlice)
{
    // An odd size of 8 bits: pages begin at even bytes all the same.
    for (const int bits : {8, 16}) {
        ASSERT_EQ(run({"--format=tiff-multipage", "--size=17", "--bits", std::to_string(bits)}, "m.tif"), "");
        const auto raw = sampledFrames(Scan(mouseOnBed(), 17, 1), 0, 17, bits, 1);
        const Handle tiff = opened(m_folder.path("m.tif"));
        ASSERT_NE(tiff, nullptr);
        ASSERT_EQ(TIFFNumberOfDirectories(tiff.get()), 17);
        for (int i = 0; i < 17; ++i) {
            ASSERT_TRUE(TIFFSetDirectory(tiff.get(), static_cast<tdir_t>(i)));
            EXPECT_EQ(TIFFCurrentDirOffset(tiff.get()) % 2, 0U);
            expectPage(tiff.get(), 17, bits, 80.0F / 17);
            std::uint16_t page = 0, pages = 0;
            TIFFGetField(tiff.get(), TIFFTAG_PAGENUMBER, &page, &pages);
            EXPECT_EQ(page, i);
            EXPECT_EQ(pages, 17);
            EXPECT_EQ(strip(tiff.get()), rawSlice(raw, 17, i, bits / 8));
        }
    }
}

TEST_F(TiffFile, theFinestAndTheCoarsestSpacingAreTold)
{
    const Slices slices(Scan(mouseOnBed(), n, 1), 8, Orientation::Axial, false, 1);
    for (const double spacing : {0.0001, 99.0}) {
        ASSERT_EQ(writeTiffPages(m_folder.path("m.tif"), slices, spacing), "");
        EXPECT_FLOAT_EQ(field<float>(opened(m_folder.path("m.tif")).get(), TIFFTAG_XRESOLUTION),
                        static_cast<float>(spacing));
    }
}

TEST_F(TiffFile, theSameCallWritesTheSameBytes)
{
    ASSERT_EQ(run({"--format=tiff-multipage", "--size=16"}, "a.tif"), "");
    ASSERT_EQ(run({"--format=tiff-multipage", "--size=16"}, "b.tif"), "");
    EXPECT_EQ(m_folder.contents("a.tif"), m_folder.contents("b.tif"));
}

TEST_F(TiffFile, placesThatCannotBeWrittenAreNamed)
{
    EXPECT_THAT(run({"--format=tiff", "--size=16"}, "none/s"), testing::HasSubstr("cannot write the folder"));
    EXPECT_THAT(run({"--format=tiff-multipage", "--size=16"}, "none/m.tif"),
                testing::HasSubstr("cannot write \"" + m_folder.path("none/m.tif")));
    EXPECT_THAT(m_folder.files(), testing::IsEmpty());
}
