#include "slices/logic/MovieFrames.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(MovieFramesTest, ASpacingOfOneAndARangeOfNineAreTenSeconds)
{
    const auto movie = movieFrames(0.0, 9.0, 1.0);
    ASSERT_TRUE(movie);
    EXPECT_EQ(movie->count, 150);
    EXPECT_EQ(movie->durationMs, 10000);
    EXPECT_EQ(movie->scaledSeconds, 666);  // 10 * 66.67
    EXPECT_FLOAT_EQ(movie->step, 10.0F / 150.0F);
    EXPECT_EQ(movie->position(0), 0.0F);
    EXPECT_FLOAT_EQ(movie->position(149), 149.0F * (10.0F / 150.0F));
}

TEST(MovieFramesTest, SecondsAreWhole)
{
    const auto movie = movieFrames(-1.0, 1.25, 1.0);  // 3.25 slices, 48.75 frames
    ASSERT_TRUE(movie);
    EXPECT_EQ(movie->count, 48);
    EXPECT_EQ(movie->durationMs, 3000);
    EXPECT_EQ(movie->scaledSeconds, 200);
    EXPECT_FLOAT_EQ(movie->step, 3.25F / 48.0F);
    EXPECT_EQ(movie->position(0), -1.0F);
}

TEST(MovieFramesTest, WhatGivesNoFrameIsNoMovie)
{
    EXPECT_FALSE(movieFrames(0.0, 9.0, 0.0));
    EXPECT_FALSE(movieFrames(0.0, 9.0, -1.0));
    EXPECT_FALSE(movieFrames(9.0, 0.0, 1.0));
    EXPECT_FALSE(movieFrames(0.0, std::numeric_limits<double>::infinity(), 1.0));
    EXPECT_FALSE(movieFrames(0.0, std::numeric_limits<double>::quiet_NaN(), 1.0));
    EXPECT_FALSE(movieFrames(0.0, 1e9, 0.01));
}

TEST(ExportTypesTest, PicturesStandBeforeMovies)
{
    const QStringList filters = exportFilters({"A Movie (*.abc)"});
    EXPECT_EQ(filters, (QStringList{"Bitmap Image (*.bmp)", "JPEG Image (*.jpg)", "PNG Image (*.png)",
                                    "Windows Metafile Format (*.wmf)", "Enhanced Metafile Format (*.emf)",
                                    "Postscript Enhanced Metafile (*.eps)",
                                    "Tagged Image File Format (*.tiff)", "A Movie (*.abc)"}));
    EXPECT_EQ(exportExtensions({"abc"}),
              (QStringList{"bmp", "jpg", "png", "wmf", "emf", "eps", "tiff", "abc"}));
}

TEST(ExportTypesTest, AMovieIsToldByItsSuffixWhateverItsCase)
{
    EXPECT_TRUE(isMovieSuffix("avi", {"mp4", "avi"}));
    EXPECT_TRUE(isMovieSuffix("AVI", {"mp4", "avi"}));
    EXPECT_FALSE(isMovieSuffix("png", {"mp4", "avi"}));
    EXPECT_FALSE(isMovieSuffix("", {"mp4", "avi"}));
}

}  // namespace
