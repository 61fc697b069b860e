#include "plugin/logic/RenderProfile.h"

#include <gtest/gtest.h>

TEST(QualityLimit, IsTheNodesOwnFromQualityMode)
{
    EXPECT_EQ(qualityTimeLimit(0.1, false), 0.1);
    EXPECT_EQ(qualityTimeLimit(0.2, false), 0.2);
}

TEST(QualityLimit, IsFourTenthsInSinglePrecisionFromPerformanceMode)
{
    EXPECT_EQ(qualityTimeLimit(0.1, true), 0.1 * static_cast<double>(0.4F));
    EXPECT_NE(qualityTimeLimit(0.1, true), 0.1 * 0.4);
}

TEST(QualityLimit, FortyMillisecondsPassFromPerformanceMode)
{
    const float nodeLimit = 0.1F;
    EXPECT_TRUE(isWithinLimit(0.04, qualityTimeLimit(nodeLimit, true)));
    EXPECT_FALSE(isWithinLimit(0.041, qualityTimeLimit(nodeLimit, true)));
}

TEST(QualityLimit, OnlyATimeAboveItFails)
{
    EXPECT_TRUE(isWithinLimit(0.099, 0.1));
    EXPECT_TRUE(isWithinLimit(0.1, 0.1));
    EXPECT_FALSE(isWithinLimit(0.101, 0.1));
}

TEST(EvaluationDensity, IsTheWholePartOfTheShare)
{
    EXPECT_EQ(evaluationDensity(1.0F / 30.0F, 300), 10);
    EXPECT_EQ(evaluationDensity(0.5F, 301), 150);
    EXPECT_EQ(evaluationDensity(0.033F, 300), 9) << "9.9";
}

TEST(ProfileLine, SaysWhatWasMeasured)
{
    RenderProfile profile;
    profile.wasInPerformanceMode = true;
    profile.partialTime = 0.012;
    profile.limit = 0.04;
    profile.isInPerformanceMode = false;
    profile.fullTime = 0.125;
    EXPECT_EQ(profileLine(profile),
              QString("GPU Rendering Profile (Frame Time): Partial Prerendering (Performance Mode) 0.012s, "
                      "Quality Mode Requirement <0.0400s,Full regular rendering (Quality Mode) 0.125s."));
    profile.wasInPerformanceMode = false;
    profile.partialTime = 1.0;
    profile.limit = 0.1;
    EXPECT_EQ(profileLine(profile),
              QString("GPU Rendering Profile (Frame Time): Partial Prerendering (Quality Mode) 1s, "
                      "Quality Mode Requirement <0.1000s,Full regular rendering (Quality Mode) 0.125s."));
}

TEST(RenderModeQuestion, HasItsWords)
{
    EXPECT_EQ(renderModeQuestionTitle(), QString("Choose 3D Rendering Mode: Performance/Quality"));
    EXPECT_EQ(renderModeQuestionText(),
              QString("Current rendering speed of the Graphics Processing Unit is too low for 3D rendering "
                      "in Quality Mode.\nChoose Performance Mode to reduce load on the GPU (image quality "
                      "will decrease).\nSelect Yes to render in Quality Mode, select No to render in "
                      "Performance Mode.\n"));
}
