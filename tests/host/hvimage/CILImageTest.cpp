#include "hvimage/CILImage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

namespace {

template <class T>
std::vector<T> samplesOf(CILImageBase const& image)
{
    T const* const data = static_cast<T const*>(image.get_data());
    return std::vector<T>(data, data + image.getWidth() * image.getHeight());
}

template <class T>
CILImage imageOf(HVSDataTypes type, long width, long height, std::vector<T> samples)
{
    CILImage image;
    EXPECT_TRUE(image.initWithData(type, width, height, samples.data()));
    EXPECT_NE(image.get_data(), nullptr);  // its own samples from here on
    return image;
}

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<std::uint16_t>;

}  // namespace

TEST(CILImageBase, EmptyAtFirst)
{
    CILImageBase const image;
    EXPECT_EQ(image.get_datatype(), eTypeNone);
    EXPECT_EQ(image.getWidth(), 0);
    EXPECT_EQ(image.getHeight(), 0);
    EXPECT_EQ(image.get_data(), nullptr);
}

TEST(CILImageBase, InitWithTypeGivesZerosOnABoundary)
{
    CILImageBase image;
    ASSERT_TRUE(image.InitWithType(eTypeUInt16, 5, 3));
    EXPECT_EQ(image.get_datatype(), eTypeUInt16);
    EXPECT_EQ(image.get_width(), 5);
    EXPECT_EQ(image.get_height(), 3);
    EXPECT_EQ(samplesOf<std::uint16_t>(image), Words(15, 0));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(image.get_data()) % 64, 0U);
}

TEST(CILImageBase, InitWithTypeAgainUsesTheMemoryAndClearsIt)
{
    CILImageBase image;
    ASSERT_TRUE(image.InitWithType(eTypeUInt8, 4, 6));
    void* const before = image.get_data();
    std::memset(before, 9, 24);
    ASSERT_TRUE(image.InitWithType(eTypeUInt16, 3, 4));
    EXPECT_EQ(image.get_data(), before);
    EXPECT_EQ(samplesOf<std::uint16_t>(image), Words(12, 0));
}

TEST(CILImageBase, RefusedSizesLeaveTheImage)
{
    CILImage image = imageOf<std::uint8_t>(eTypeUInt8, 2, 1, {7, 8});
    std::uint8_t byte = 1;
    long const large = std::numeric_limits<long>::max();
    EXPECT_FALSE(image.InitWithType(eTypeUInt8, 0, 4));
    EXPECT_FALSE(image.InitWithType(eTypeUInt8, 4, -1));
    EXPECT_FALSE(image.InitWithType(eTypeUInt8, large, large));
    EXPECT_FALSE(image.InitWithType(eTypeUInt8, large, 1));
    EXPECT_FALSE(image.InitWithType(static_cast<HVSDataTypes>(8), 1, 1));
    EXPECT_FALSE(image.initWithData(eTypeUInt8, 1, 1, nullptr));
    EXPECT_FALSE(image.initWithData(eTypeUInt8, -1, 1, &byte));
    EXPECT_FALSE(image.resize(large, 2, 0.0));
    EXPECT_FALSE(image.downSample(0, 1, eResampleAreaAverage));
    EXPECT_FALSE(image.downSample(1, 1, static_cast<IL_RESAMPLEMODES>(3)));
    EXPECT_EQ(image.get_datatype(), eTypeUInt8);
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{7, 8}));
}

TEST(CILImageBase, EmptyImagesRefuseOperations)
{
    CILImage image;
    std::uint8_t byte = 1;
    EXPECT_FALSE(image.resize(4, 4, 0.0));
    EXPECT_FALSE(image.downSample(4, 4, eResampleAreaAverage));
    EXPECT_FALSE(image.setImageData(&byte));
    image.RefreshImageStats();
    EXPECT_EQ(image.getMin(), 0.0);
    EXPECT_EQ(image.getMax(), 0.0);
}

TEST(CILImageBase, CopiesAreDeep)
{
    CILImage image = imageOf<std::uint8_t>(eTypeUInt8, 2, 1, {7, 8});
    image.RefreshImageStats();
    CILImage copy(image);
    CILImage assigned;
    assigned = image;
    static_cast<std::uint8_t*>(image.get_data())[0] = 1;
    EXPECT_EQ(samplesOf<std::uint8_t>(copy), (Bytes{7, 8}));
    EXPECT_EQ(samplesOf<std::uint8_t>(assigned), (Bytes{7, 8}));
    EXPECT_EQ(copy.getMin(), 7.0);
    EXPECT_EQ(assigned.getMax(), 8.0);
    assigned = CILImage();
    EXPECT_EQ(assigned.get_data(), nullptr);
}

TEST(CILImageBase, SetImageDataReplacesTheSamples)
{
    CILImageBase image;
    ASSERT_TRUE(image.InitWithType(eTypeUInt16, 2, 1));
    std::uint16_t const samples[] = {3, 60000};
    EXPECT_TRUE(image.setImageData(samples));
    EXPECT_EQ(samplesOf<std::uint16_t>(image), (Words{3, 60000}));
    EXPECT_FALSE(image.setImageData(nullptr));
}

TEST(CILImageBase, BytesOfASample)
{
    EXPECT_EQ(CILImageBase::get_reqsizefortype(eTypeUInt8), 1);
    EXPECT_EQ(CILImageBase::get_reqsizefortype(eTypeUInt16), 2);
    EXPECT_EQ(CILImageBase::get_reqsizefortype(eTypeUInt32), 4);
    EXPECT_EQ(CILImageBase::get_reqsizefortype(eTypeNone), 0);
}

TEST(CILImageBase, ResizeKeepsThePictureAtTheTopLeft)
{
    CILImage image = imageOf<std::uint8_t>(eTypeUInt8, 2, 2, {1, 2, 3, 4});
    ASSERT_TRUE(image.resize(4, 3, 9.0));
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{1, 2, 9, 9, 3, 4, 9, 9, 9, 9, 9, 9}));
    ASSERT_TRUE(image.resize(1, 2));
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{1, 3}));
    ASSERT_TRUE(image.resize(3, 1));
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{1, 0, 0}));
    CILImageBase model;
    ASSERT_TRUE(model.InitWithType(eTypeUInt16, 1, 2));
    ASSERT_TRUE(image.resize(model, 400.0));
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{1, 255}));
    EXPECT_EQ(image.get_datatype(), eTypeUInt8);
}

TEST(CILImageBase, ResizeToTheSizeOfAnEmptyImageIsRefused)
{
    CILImage image = imageOf<std::uint8_t>(eTypeUInt8, 1, 1, {1});
    EXPECT_FALSE(image.resize(CILImageBase(), 0.0));
    EXPECT_EQ(image.getWidth(), 1);
}

TEST(CILImage, InitWithDataTakesACopyAlsoOfItsOwnSamples)
{
    CILImage image = imageOf<std::uint8_t>(eTypeUInt8, 4, 1, {1, 2, 3, 4});
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 2, 1, static_cast<std::uint8_t*>(image.get_data()) + 2));
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{3, 4}));
    ASSERT_TRUE(image.initWithData(eTypeUInt16, 1, 1, image.get_data()));
    EXPECT_EQ(image.get_datatype(), eTypeUInt16);
    EXPECT_EQ(samplesOf<std::uint16_t>(image), (Words{0x0403}));
}

TEST(CILImage, InitWithDataBorrowsUntilTheImageIsWrittenTo)
{
    Bytes samples = {1, 2, 3, 4};
    CILImage image;
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 4, 1, samples.data()));
    EXPECT_EQ(std::as_const(image).get_data(), samples.data());
    samples[0] = 9;
    image.RefreshImageStats();
    EXPECT_EQ(image.getMax(), 9.0);

    CILImage const copy(image);
    EXPECT_NE(copy.get_data(), samples.data());
    EXPECT_EQ(samplesOf<std::uint8_t>(copy), (Bytes{9, 2, 3, 4}));

    image.Mirror();
    EXPECT_EQ(samples, (Bytes{9, 2, 3, 4}));
    EXPECT_NE(std::as_const(image).get_data(), samples.data());
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{4, 3, 2, 9}));
}

TEST(CILImage, OperationsThatMakeNewSamplesLeaveBorrowedOnesAlone)
{
    Bytes samples = {1, 3, 5, 7};
    Bytes const others = {8, 8, 8, 8};
    CILImage image;
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 4, 1, samples.data()));
    ASSERT_TRUE(image.setImageData(others.data()));
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 4, 1, samples.data()));
    ASSERT_TRUE(image.InitWithType(eTypeUInt8, 4, 1));
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 4, 1, samples.data()));
    ASSERT_TRUE(image.downSample(2, 1, eResampleAreaAverage));
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{2, 6}));
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 4, 1, samples.data()));
    ASSERT_TRUE(image.resize(5, 1, 9.0));
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{1, 3, 5, 7, 9}));
    EXPECT_EQ(samples, (Bytes{1, 3, 5, 7}));
}

TEST(CILImage, StatisticsAreMeasuredWhenAsked)
{
    CILImage image = imageOf<std::uint16_t>(eTypeUInt16, 3, 1, {500, 7, 65535});
    EXPECT_EQ(image.getMin(), 0.0);
    EXPECT_EQ(image.getMax(), 0.0);
    image.RefreshImageStats();
    EXPECT_EQ(image.getMin(), 7.0);
    EXPECT_EQ(image.getMax(), 65535.0);
    static_cast<std::uint16_t*>(image.get_data())[1] = 600;
    EXPECT_EQ(image.getMin(), 7.0);
    image.RefreshImageStats();
    EXPECT_EQ(image.getMin(), 500.0);
}

TEST(CILImage, StatisticsOf32Bits)
{
    CILImage image = imageOf<std::uint32_t>(eTypeUInt32, 2, 1, {4294967295U, 70000U});
    image.RefreshImageStats();
    EXPECT_EQ(image.getMin(), 70000.0);
    EXPECT_EQ(image.getMax(), 4294967295.0);
}

// 4 x 2 to 2 x 1: blocks of four pixels.
TEST(CILImage, DownSampleByWholeFactorsAveragesBlocks)
{
    CILImage image = imageOf<std::uint8_t>(eTypeUInt8, 4, 2, {10, 20, 0, 255, 30, 40, 0, 255});
    ASSERT_TRUE(image.downSample(2, 1, eResampleAreaAverage));
    EXPECT_EQ(image.getWidth(), 2);
    EXPECT_EQ(image.getHeight(), 1);
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{25, 128}));  // 100 / 4; 510 / 4 = 127.5, halves up
}

// 3 to 2: the new pixels cover [0, 1.5) and [1.5, 3): (1 a + 0.5 b) / 1.5 and (0.5 b + 1 c) / 1.5.
TEST(CILImage, DownSampleCountsPixelsOnTheBorderByTheirShare)
{
    CILImage row = imageOf<std::uint16_t>(eTypeUInt16, 3, 1, {300, 600, 3000});
    ASSERT_TRUE(row.downSample(2, 1, eResampleAreaAverage));
    EXPECT_EQ(samplesOf<std::uint16_t>(row), (Words{400, 2200}));
    CILImage column = imageOf<std::uint16_t>(eTypeUInt16, 1, 3, {300, 600, 3000});
    ASSERT_TRUE(column.downSample(1, 2, eResampleAreaAverage));
    EXPECT_EQ(samplesOf<std::uint16_t>(column), (Words{400, 2200}));
}

// 3 x 3 to 2 x 2, by hand: each new pixel is 2.25 old ones, of which a corner counts 1, its neighbours on the
// middle lines 0.5 each and the centre 0.25.
TEST(CILImage, DownSampleInBothDirections)
{
    CILImage image = imageOf<std::uint16_t>(eTypeUInt16, 3, 3, {9, 18, 27, 36, 45, 54, 63, 72, 81});
    ASSERT_TRUE(image.downSample(2, 2, eResampleAreaAverage));
    // (9 + 9 + 18 + 11.25) / 2.25 = 21; (27 + 9 + 27 + 11.25) / 2.25 = 33; 57; 69
    EXPECT_EQ(samplesOf<std::uint16_t>(image), (Words{21, 33, 57, 69}));
}

TEST(CILImage, DownSampleAlsoEnlarges)
{
    CILImage row = imageOf<std::uint8_t>(eTypeUInt8, 2, 1, {10, 40});
    ASSERT_TRUE(row.downSample(3, 2, eResampleAreaAverage));
    EXPECT_EQ(samplesOf<std::uint8_t>(row), (Bytes{10, 25, 40, 10, 25, 40}));
}

TEST(CILImage, DownSampleOfAConstantPictureIsConstant)
{
    for (std::uint32_t const value : {1U, 65535U, 4294967295U}) {
        CILImage image =
            imageOf<std::uint32_t>(eTypeUInt32, 37, 23, std::vector<std::uint32_t>(37 * 23, value));
        ASSERT_TRUE(image.downSample(17, 11, eResampleAreaAverage));
        EXPECT_EQ(samplesOf<std::uint32_t>(image), std::vector<std::uint32_t>(17 * 11, value));
    }
}

TEST(CILImage, DownSampleOfSignedAndRealSamples)
{
    CILImage words = imageOf<std::int16_t>(eTypeInt16, 2, 1, {-3, -6});
    ASSERT_TRUE(words.downSample(1, 1, eResampleAreaAverage));
    EXPECT_EQ(samplesOf<std::int16_t>(words), (std::vector<std::int16_t>{-4}));  // -4.5, halves up
    CILImage reals = imageOf<float>(eTypeFloat, 2, 1, {0.5F, 1.0F});
    ASSERT_TRUE(reals.downSample(1, 1, eResampleAreaAverage));
    EXPECT_EQ(samplesOf<float>(reals), (std::vector<float>{0.75F}));
}

TEST(CILImage, DownSampleToTheSameSizeChangesNothing)
{
    CILImage image = imageOf<std::uint8_t>(eTypeUInt8, 2, 2, {1, 2, 3, 4});
    ASSERT_TRUE(image.downSample(2, 2, eResampleAreaAverage));
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{1, 2, 3, 4}));
}

TEST(CILImage, AreaAverageIsModeFour)
{
    EXPECT_EQ(static_cast<int>(eResampleAreaAverage), 4);
}

TEST(CILImageTurns, MirrorSwapsLeftAndRight)
{
    CILImage image = imageOf<std::uint8_t>(eTypeUInt8, 3, 2, {1, 2, 3, 4, 5, 6});
    image.Mirror();
    EXPECT_EQ(samplesOf<std::uint8_t>(image), (Bytes{3, 2, 1, 6, 5, 4}));
}

TEST(CILImageTurns, FlipSwapsTopAndBottom)
{
    CILImage image = imageOf<std::uint16_t>(eTypeUInt16, 2, 3, {1, 2, 3, 4, 5, 6});
    image.Flip();
    EXPECT_EQ(samplesOf<std::uint16_t>(image), (Words{5, 6, 3, 4, 1, 2}));
}

TEST(CILImageTurns, EveryTypeAndBack)
{
    for (HVSDataTypes const type :
         {eTypeUInt8, eTypeUInt16, eTypeUInt32, eTypeFloat, eTypeDouble, eTypeInt8, eTypeInt16}) {
        CILImage image;
        ASSERT_TRUE(image.InitWithType(type, 5, 4));
        auto const bytes = static_cast<std::size_t>(20 * CILImageBase::get_reqsizefortype(type));
        auto* const data = static_cast<std::uint8_t*>(image.get_data());
        for (std::size_t i = 0; i < bytes; ++i)
            data[i] = static_cast<std::uint8_t>(i);
        Bytes const before(data, data + bytes);
        image.Mirror();
        EXPECT_NE(Bytes(data, data + bytes), before) << type;
        image.Flip();
        image.Mirror();
        image.Flip();
        EXPECT_EQ(Bytes(data, data + bytes), before) << type;
    }
}

TEST(CILImageTurns, AnEmptyImageStaysEmpty)
{
    CILImage image;
    image.Mirror();
    image.Flip();
    EXPECT_EQ(image.get_data(), nullptr);
}
