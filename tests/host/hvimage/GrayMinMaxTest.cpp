#include "hvimage/CILImage.h"
#include "hvimage/HV_GrayMinMax.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace {

template <class T>
struct TypeOf;
template <>
struct TypeOf<std::uint8_t>
{
    static constexpr HVSDataTypes value = eTypeUInt8;
};
template <>
struct TypeOf<std::uint16_t>
{
    static constexpr HVSDataTypes value = eTypeUInt16;
};
template <>
struct TypeOf<std::int16_t>
{
    static constexpr HVSDataTypes value = eTypeInt16;
};
template <>
struct TypeOf<std::uint32_t>
{
    static constexpr HVSDataTypes value = eTypeUInt32;
};
template <>
struct TypeOf<float>
{
    static constexpr HVSDataTypes value = eTypeFloat;
};
template <>
struct TypeOf<double>
{
    static constexpr HVSDataTypes value = eTypeDouble;
};

struct Range
{
    double low = -1.0;
    double high = -1.0;
    double mean = -1.0;
};

template <class T>
Range rangeOf(std::vector<T> values)
{
    CILImage image;
    EXPECT_TRUE(image.initWithData(TypeOf<T>::value, static_cast<long>(values.size()), 1, values.data()));
    Range range;
    HV_GrayMinMax(&image, &range.low, &range.high, &range.mean);
    return range;
}

/// 10 in front, 30 behind, 998 values of 20 between.
template <class T>
std::vector<T> withOneOfAThousandAtEachEnd()
{
    std::vector<T> values(1000, T(20));
    values.front() = T(10);
    values[1] = T(15);
    values[2] = T(25);
    values.back() = T(30);
    return values;
}

TEST(GrayMinMax, AFewSamplesSpanTheirWholeRange)
{
    Range const range = rangeOf<std::uint16_t>({500, 40000, 1000, 100});
    EXPECT_EQ(range.low, 100.0);
    EXPECT_EQ(range.high, 40000.0);
    EXPECT_EQ(range.mean, (500.0 + 40000.0 + 1000.0 + 100.0) / 4.0);
}

TEST(GrayMinMax, OneOfAThousandIsCutOffAtEachEnd)
{
    Range const range = rangeOf(withOneOfAThousandAtEachEnd<std::uint16_t>());
    EXPECT_EQ(range.low, 15.0);
    EXPECT_EQ(range.high, 25.0);
    Range const bytes = rangeOf(withOneOfAThousandAtEachEnd<std::uint8_t>());
    EXPECT_EQ(bytes.low, 15.0);
    EXPECT_EQ(bytes.high, 25.0);
}

TEST(GrayMinMax, WhereOnlyTheEndsDifferTheyAreTheRange)
{
    std::vector<std::uint16_t> values(2000, 7);
    values.front() = 3;
    Range const range = rangeOf(values);
    EXPECT_EQ(range.low, 3.0);
    EXPECT_EQ(range.high, 7.0);
}

TEST(GrayMinMax, SamplesOfManyBitsAreWithinAStepOfIt)
{
    std::vector<std::uint32_t> values(1000, 2000000000U);
    values.front() = 1000000000U;
    values[1] = 1500000000U;
    values[2] = 2500000000U;
    values.back() = 3000000000U;
    Range const range = rangeOf(values);
    double const step = 2e9 / 65535.0;
    EXPECT_NEAR(range.low, 1.5e9, step);
    EXPECT_NEAR(range.high, 2.5e9, step);
    EXPECT_NEAR(range.mean, 2e9, 1.0);
}

TEST(GrayMinMax, SignedAndRealSamples)
{
    Range const whole = rangeOf<std::int16_t>({-32768, 32767, 0, 1});
    EXPECT_EQ(whole.low, -32768.0);
    EXPECT_EQ(whole.high, 32767.0);
    EXPECT_EQ(whole.mean, 0.0);
    Range const real = rangeOf<float>({-0.5F, 0.25F, std::numeric_limits<float>::quiet_NaN(),
                                       std::numeric_limits<float>::infinity(), 0.25F});
    EXPECT_EQ(real.low, -0.5);
    EXPECT_NEAR(real.high, 0.25, 1e-4);
    EXPECT_NEAR(real.mean, 0.0, 1e-6);
}

TEST(GrayMinMax, NumbersAtTheEndOfAllNumbersStayFinite)
{
    double const most = std::numeric_limits<double>::max();
    Range const range = rangeOf<double>({-most, most, 0.0});
    EXPECT_LE(range.low, -most / 2.0);
    EXPECT_GE(range.high, most / 2.0);
    EXPECT_EQ(range.mean, 0.0);
}

TEST(GrayMinMax, NothingGivesZero)
{
    Range range;
    HV_GrayMinMax(nullptr, &range.low, &range.high, &range.mean);
    EXPECT_EQ(range.low, 0.0);
    EXPECT_EQ(range.high, 0.0);
    EXPECT_EQ(range.mean, 0.0);
    CILImage empty;
    HV_GrayMinMax(&empty, &range.low, nullptr, nullptr);
    EXPECT_EQ(range.low, 0.0);
    Range const noNumber = rangeOf<float>({std::numeric_limits<float>::quiet_NaN()});
    EXPECT_EQ(noNumber.high, 0.0);
}

TEST(DicomPixels, TheDepthDecidesOnTheSample)
{
    std::uint32_t values[6] = {1, 2, 3, 4, 5, 6};
    auto* pixels = reinterpret_cast<char*>(values);
    CILImage image;
    const struct
    {
        unsigned depth;
        HVSDataTypes type;
    } rows[] = {{1, eTypeUInt8},   {8, eTypeUInt8},   {9, eTypeUInt16},
                {16, eTypeUInt16}, {17, eTypeUInt32}, {32, eTypeUInt32}};
    for (auto const& row : rows) {
        ASSERT_TRUE(image.InitFromDICOMFile(pixels, 3, 2, row.depth)) << row.depth;
        EXPECT_EQ(image.get_datatype(), row.type) << row.depth;
        EXPECT_EQ(image.getWidth(), 2);
        EXPECT_EQ(image.getHeight(), 3);
    }
    EXPECT_EQ(static_cast<std::uint32_t*>(image.get_data())[5], 6U);
}

TEST(DicomPixels, AreCopied)
{
    std::uint16_t values[2] = {7, 9};
    CILImage image;
    ASSERT_TRUE(image.InitFromDICOMFile(reinterpret_cast<char*>(values), 1, 2, 16));
    values[0] = 100;
    CILImage const& shown = image;
    EXPECT_EQ(static_cast<std::uint16_t const*>(shown.get_data())[0], 7);
    ASSERT_TRUE(image.InitFromDICOMFile(static_cast<char*>(image.get_data()), 2, 1, 16)) << "its own";
    EXPECT_EQ(static_cast<std::uint16_t const*>(shown.get_data())[1], 9);
    EXPECT_EQ(image.getHeight(), 2);
}

TEST(DicomPixels, WhatIsNoPictureLeavesTheImage)
{
    std::uint16_t value = 9;
    auto* pixels = reinterpret_cast<char*>(&value);
    CILImage image;
    ASSERT_TRUE(image.InitFromDICOMFile(pixels, 1, 1, 16));
    EXPECT_FALSE(image.InitFromDICOMFile(pixels, 1, 1, 0));
    EXPECT_FALSE(image.InitFromDICOMFile(pixels, 1, 1, 33));
    EXPECT_FALSE(image.InitFromDICOMFile(pixels, 0, 1, 16));
    EXPECT_FALSE(image.InitFromDICOMFile(nullptr, 1, 1, 16));
    EXPECT_FALSE(image.InitFromDICOMFile(pixels, 4294967295U, 4294967295U, 32));
    EXPECT_EQ(*static_cast<std::uint16_t*>(image.get_data()), 9);
}

TEST(ImagePalette, IsCopiedInAndOutAndStaysOverNewPixels)
{
    std::uint8_t value = 100;
    CILImage image;
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 1, 1, &value));
    CILPalette palette = image.getPalette();
    palette.SetImageMinMax(0.0, 200.0);
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 0.0;
    image.getPalette().GetRGBForImageValue(200.0, &red, &green, &blue, &alpha);
    EXPECT_LT(red, 255.0) << "a change of the copy changes nothing";
    image.setPalette(palette);
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 1, 1, &value));
    CILImage const copy(image);
    CILImage assigned;
    assigned = image;
    for (CILImage const* each :
         {static_cast<CILImage const*>(&image), &copy, static_cast<CILImage const*>(&assigned)}) {
        each->getPalette().GetRGBForImageValue(200.0, &red, &green, &blue, &alpha);
        EXPECT_EQ(red, 255.0);
    }
}

}  // namespace
