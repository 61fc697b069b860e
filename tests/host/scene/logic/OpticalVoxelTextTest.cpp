#include "lib/hvapi/scene/logic/OpticalVoxelText.h"

#include <gtest/gtest.h>

#include <clocale>
#include <random>

using hvscene::OpticalVoxelText;
using hvscene::parseOpticalVoxels;

namespace {

const QByteArray head = "[Optical Voxels]\nFormat Version = 1\nCount = 2\nVoxel Size = 0.5 0.25 1\n";
const QByteArray list = "[Voxels]\nVoxel 1 = 1.25 -3.5 0.75 812.5\nVoxel 2 = 2 3 4 5 6 7 8\n";

std::string refusalOf(const QByteArray& bytes)
{
    const OpticalVoxelText text = parseOpticalVoxels(bytes);
    EXPECT_EQ(text.optical.has_value(), text.refusal.isEmpty());
    return text.refusal.toStdString();
}

/// A text with one voxel of that line behind a good one.
OpticalVoxelText withLine(const QByteArray& line)
{
    return parseOpticalVoxels(head + "[Voxels]\na = 0 0 0 1\nb = " + line + "\n");
}

TEST(OpticalVoxelTextTest, ReadsPlacesSizesAndIntensities)
{
    const OpticalVoxelText text = parseOpticalVoxels(head + "Unit = pmol\nDefault Threshold = -1.5\n" + list);
    ASSERT_TRUE(text.optical) << text.refusal.toStdString();
    EXPECT_EQ(text.leftOut, 0);
    EXPECT_EQ(text.optical->unit, "pmol");
    ASSERT_TRUE(text.optical->threshold);
    EXPECT_EQ(*text.optical->threshold, -1.5);
    ASSERT_EQ(text.optical->voxels.size(), 2U);
    const auto& a = text.optical->voxels[0];
    EXPECT_EQ(a.center.x, 1.25);
    EXPECT_EQ(a.center.y, -3.5);
    EXPECT_EQ(a.center.z, 0.75);
    EXPECT_EQ(a.intensity, 812.5f);
    EXPECT_EQ(a.size.x, 0.5);
    EXPECT_EQ(a.size.y, 0.25);
    EXPECT_EQ(a.size.z, 1.0);
    const auto& b = text.optical->voxels[1];
    EXPECT_EQ(b.intensity, 5.0f);
    EXPECT_EQ(b.size.x, 6.0);
    EXPECT_EQ(b.size.z, 8.0);
}

TEST(OpticalVoxelTextTest, TakesForeignLineEndsMarksCommentsAndCase)
{
    const QByteArray text =
        "\xEF\xBB\xBF# from elsewhere\r\n[OPTICAL voxels]\r\nformat version=1\r\ncount=1\r\n"
        "; a comment\r\n[voxels]\r\nv\t=\t1\t2  3 4e2 1 1 1\r\n";
    const OpticalVoxelText read = parseOpticalVoxels(text);
    ASSERT_TRUE(read.optical) << read.refusal.toStdString();
    EXPECT_EQ(read.optical->voxels.front().intensity, 400.0f);
}

TEST(OpticalVoxelTextTest, VoxelsThatMakeNoSenseAreLeftOutAndTold)
{
    for (const char* line :
         {"", "1 2 3", "1 2 3 4 5", "1 2 3 4 5 6", "1 2 3 4 5 6 7 8", "x 2 3 4", "1 2 3 nan", "inf 2 3 4",
          "1 2 3 4 1 1 0", "1 2 3 4 -1 1 1", "1 2 3 4 1 nan 1", "1 2 3 1e300", "1 2 1e9 4", "1 2 3 4 1 1 1e9",
          "1,5 2 3 4", "1, 2, 3, 4", "0x10 2 3 4", "1 2 3 1e999"}) {
        const OpticalVoxelText text = withLine(line);
        ASSERT_TRUE(text.optical) << line;
        EXPECT_EQ(text.optical->voxels.size(), 1U) << line;
        EXPECT_EQ(text.leftOut, 1) << line;
        ASSERT_EQ(text.complaints.size(), 1) << line;
        EXPECT_TRUE(text.complaints.first().startsWith("'b'")) << line;
    }
    EXPECT_EQ(withLine("1 2 3 -4").leftOut, 0) << "an intensity may be below 0";
}

TEST(OpticalVoxelTextTest, ComplaintsAreFew)
{
    QByteArray text =
        "[Optical Voxels]\nFormat Version = 1\nCount = 101\nVoxel Size = 1 1 1\n[Voxels]\ng = 1 1 1 1\n";
    for (int k = 0; k < 100; ++k)
        text += "v" + QByteArray::number(k) + " = 1 2 3 nan\n";
    const OpticalVoxelText read = parseOpticalVoxels(text);
    ASSERT_TRUE(read.optical);
    EXPECT_EQ(read.leftOut, 100);
    EXPECT_EQ(read.complaints.size(), 8);
}

TEST(OpticalVoxelTextTest, VoxelsWithoutAnySizeAreLeftOut)
{
    const QByteArray text = "[Optical Voxels]\nFormat Version = 1\nCount = 2\n" + list;
    const OpticalVoxelText read = parseOpticalVoxels(text);
    ASSERT_TRUE(read.optical);
    EXPECT_EQ(read.optical->voxels.size(), 1U);
    EXPECT_EQ(read.leftOut, 1);
}

TEST(OpticalVoxelTextTest, AFileThatWasCutShortIsRefused)
{
    EXPECT_EQ(refusalOf(head + "[Voxels]\nVoxel 1 = 1 2 3 4\n"),
              "it has 1 of its 2 voxels; it was cut short");
    EXPECT_NE(refusalOf(head + list + "Voxel 3 = 1 2 3 4\n"), "");
    const QByteArray whole = head + list;
    for (int length = 0; length < whole.size(); ++length)
        EXPECT_NE(refusalOf(whole.left(length)), "") << length;
    EXPECT_EQ(refusalOf(whole), "");
}

TEST(OpticalVoxelTextTest, WhatSaysNothingOfItselfIsRefused)
{
    EXPECT_NE(refusalOf(""), "");
    EXPECT_NE(refusalOf(list), "");
    EXPECT_NE(refusalOf(head), "");
    EXPECT_NE(refusalOf("[Optical Voxels]\nCount = 2\nVoxel Size = 1 1 1\n" + list), "") << "no version";
    EXPECT_NE(refusalOf("[Optical Voxels]\nFormat Version = 2\nCount = 2\nVoxel Size = 1 1 1\n" + list), "");
    EXPECT_EQ(refusalOf("[Optical Voxels]\nFormat Version = 1\nCount = 2\nVoxel Size = 1 1 1\n" + list), "");
}

TEST(OpticalVoxelTextTest, AbsurdCountsSizesAndThresholdsAreRefused)
{
    for (const char* count :
         {"", "0", "-1", "two", "2.5", "nan", "250001", "99999999999999999999", "2147483648", "-2147483648"})
        EXPECT_NE(refusalOf("[Optical Voxels]\nFormat Version = 1\nVoxel Size = 1 1 1\nCount = " +
                            QByteArray(count) + "\n" + list),
                  "")
            << count;
    for (const char* size :
         {"1", "1 1", "1 1 1 1", "0 1 1", "1 -1 1", "nan 1 1", "inf 1 1", "1,5 1 1", "1e9 1 1"})
        EXPECT_NE(refusalOf("[Optical Voxels]\nFormat Version = 1\nCount = 2\nVoxel Size = " +
                            QByteArray(size) + "\n" + list),
                  "")
            << size;
    for (const char* threshold : {"nan", "inf", "x", "1 2", "1e300"})
        EXPECT_NE(refusalOf(head + "Default Threshold = " + threshold + "\n" + list), "") << threshold;
}

TEST(OpticalVoxelTextTest, NothingLeftIsRefused)
{
    EXPECT_EQ(refusalOf(head + "[Voxels]\na = 1 2 3 nan\nb = 1 2 3 nan\n"), "none of its voxels makes sense");
}

TEST(OpticalVoxelTextTest, TextsBeyondAllMeasureAreRefusedAtOnce)
{
    EXPECT_NE(refusalOf(QByteArray(hvscene::longestVoxelText + 1, 'x')), "");
    EXPECT_NE(refusalOf(head + "[Voxels]\n" + QByteArray("a=\n").repeated(300000)), "");
}

TEST(OpticalVoxelTextTest, TheMostVoxelsAreTaken)
{
    QByteArray text = "[Optical Voxels]\nFormat Version = 1\nCount = 250000\nVoxel Size = 1 1 1\n[Voxels]\n";
    text += QByteArray("v = 1 2 3 4\n").repeated(250000);
    const OpticalVoxelText read = parseOpticalVoxels(text);
    ASSERT_TRUE(read.optical) << read.refusal.toStdString();
    EXPECT_EQ(read.optical->voxels.size(), 250000U);
}

TEST(OpticalVoxelTextTest, NumbersHaveAPointInACommaLocale)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    // Without such a locale on the machine the default one is as good a test.
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8"})
        if (std::setlocale(LC_ALL, name)) break;
    const OpticalVoxelText text = parseOpticalVoxels(head + list);
    std::setlocale(LC_ALL, before.c_str());
    ASSERT_TRUE(text.optical);
    EXPECT_EQ(text.optical->voxels.front().center.x, 1.25);
}

TEST(OpticalVoxelTextTest, DamagedTextsAreSurvived)
{
    std::mt19937 random(7);
    const QByteArray whole = head + "Default Threshold = 3\nUnit = x\n" + list;
    for (int round = 0; round < 3000; ++round) {
        QByteArray damaged = whole;
        for (unsigned k = 0; k < 1 + random() % 4; ++k) {
            const int at = static_cast<int>(random() % static_cast<unsigned>(damaged.size()));
            if (random() % 3 == 0)
                damaged.remove(at, static_cast<int>(random() % 8));
            else
                damaged[at] = static_cast<char>(random() % 256);
        }
        const OpticalVoxelText text = parseOpticalVoxels(damaged);
        if (!text.optical) continue;
        for (const auto& voxel : text.optical->voxels) {
            ASSERT_TRUE(voxel.size.x > 0 && voxel.size.y > 0 && voxel.size.z > 0);
            ASSERT_LE(std::fabs(voxel.center.x), hvscene::farthestVoxel);
        }
    }
}

}  // namespace
