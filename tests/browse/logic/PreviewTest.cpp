#include "browse/logic/Preview.h"

#include <gtest/gtest.h>

namespace {

TEST(PreviewPages, HaveTheirTexts)
{
    EXPECT_EQ(pageText(PreviewPage::Picture), QString());
    EXPECT_EQ(pageText(PreviewPage::NoPreview), QString("No Preview available..."));
    EXPECT_EQ(pageText(PreviewPage::NotCompatible),
              QString("Unable to generate preview. Data not compatible..."));
    EXPECT_EQ(pageText(PreviewPage::NotFound), QString("Unable to locate file on disk..."));
}

TEST(PreviewPages, FollowTheFirstFile)
{
    EXPECT_EQ(pageAfterOpening(0, false, true), PreviewPage::Picture);
    EXPECT_EQ(pageAfterOpening(0, true, true), PreviewPage::NoPreview);
    EXPECT_EQ(pageAfterOpening(30, false, true), PreviewPage::NotCompatible);
    EXPECT_EQ(pageAfterOpening(65, false, true), PreviewPage::NotCompatible);
    EXPECT_EQ(pageAfterOpening(65, false, false), PreviewPage::NotFound);
}

TEST(PreviewKind, APictureComesBeforeTheName)
{
    EXPECT_EQ(previewKind(true, "a.raw"), PreviewKind::Tiff);
    EXPECT_EQ(previewKind(false, "a.RAW.bak"), PreviewKind::Raw);
    EXPECT_EQ(previewKind(false, "a.Vox"), PreviewKind::Raw);
    EXPECT_EQ(previewKind(false, "raw.dcm"), PreviewKind::Dicom);
    EXPECT_EQ(previewKind(false, ""), PreviewKind::Dicom);
}

TEST(PixelDistance, RowsStandFirst)
{
    const auto distance = pixelDistance("0.2\\0.1");
    ASSERT_TRUE(distance);
    EXPECT_EQ(distance->alongHeight, 0.2);
    EXPECT_EQ(distance->alongWidth, 0.1);
    EXPECT_TRUE(pixelDistance(" 1 \\ 2 "));
}

TEST(PixelDistance, WhatIsNoPairOfLengthsIsNone)
{
    for (const char* text : {"", "1", "1\\", "\\1", "1\\2\\3", "0\\1", "-1\\1", "nan\\1", "1\\inf", "a\\b"})
        EXPECT_FALSE(pixelDistance(text)) << text;
}

TEST(CanPlay, NeedsASecondFrame)
{
    EXPECT_TRUE(canPlay(2, 2, false));
    EXPECT_TRUE(canPlay(1, 9, false));
    EXPECT_FALSE(canPlay(1, 1, false));
    EXPECT_FALSE(canPlay(0, 0, false));
    EXPECT_FALSE(canPlay(1, 9, true));
}

}  // namespace
