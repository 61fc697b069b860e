#include "render/shaders/ShaderTexts.h"

#include <gmock/gmock.h>

#include <QRegularExpression>
#include <QString>
#include <string>

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

/// The text without its comments.
std::string code(const char* text)
{
    return QString(text).remove(QRegularExpression("//[^\n]*")).toStdString();
}

int count(const std::string& text, const std::string& word)
{
    return QString::fromStdString(text).count(
        QRegularExpression("\\b" + QString::fromStdString(word) + "\\b"));
}

bool matches(const std::string& text, const QString& pattern)
{
    return QRegularExpression(pattern).match(QString::fromStdString(text)).hasMatch();
}

bool declares(const std::string& text, const QString& type, const QString& name)
{
    return matches(text, QString("uniform\\s+%1\\s+%2\\s*;").arg(type, name));
}

struct VolumeTexts : ::testing::TestWithParam<const char*>
{
    std::string text = code(GetParam());
};
INSTANTIATE_TEST_SUITE_P(Both, VolumeTexts, ::testing::Values(volumeQualityText, volumePerformanceText),
                         [](const auto& variant) { return variant.index == 0 ? "Quality" : "Performance"; });

TEST_P(VolumeTexts, DeclareTheUniformsThatThePassesSet)
{
    EXPECT_TRUE(declares(text, "bool", "bLighting"));
    EXPECT_TRUE(declares(text, "sampler3D", "volumeData"));
    EXPECT_TRUE(declares(text, "vec3", "viewVec"));
    EXPECT_TRUE(declares(text, "float", "shininess"));
    EXPECT_TRUE(declares(text, "float", "sliceVoxelInterval"));
    EXPECT_TRUE(declares(text, "bool", "bFastRenderingMode"));
    EXPECT_TRUE(declares(text, "vec3", "voxelTextureSize_Normalized"));
    EXPECT_TRUE(declares(text, "float", "emissionlightCompensation"));
    EXPECT_TRUE(declares(text, "sampler1D", "colorTable"));
}

TEST_P(VolumeTexts, KnowNoSliceInterval)
{
    EXPECT_EQ(count(text, "sliceInterval"), 0);
}

TEST_P(VolumeTexts, DeclareTheModeFlagAndReadItNowhere)
{
    EXPECT_TRUE(declares(text, "bool", "bRenderInBestPerformance"));
    EXPECT_EQ(count(text, "bRenderInBestPerformance"), 1);
}

TEST_P(VolumeTexts, KeepToTheLanguageOfOpenGl20)
{
    EXPECT_THAT(text, Not(HasSubstr("#version")));
    EXPECT_EQ(count(text, "texture"), 0);
    EXPECT_EQ(count(text, "in"), 0);
    EXPECT_THAT(text, HasSubstr("gl_TexCoord[0].stp"));
    EXPECT_THAT(text, HasSubstr("gl_LightSource[0]"));
}

TEST(QualityText, HasItsSymbolAndItsFilters)
{
    const std::string text = code(volumeQualityText);
    EXPECT_THAT(text, HasSubstr("#define BESTQUALITY"));
    EXPECT_THAT(text, Not(HasSubstr("#define BESTPERFORMANCE")));
    EXPECT_TRUE(declares(text, "bool", "bMedianFilterDenoise"));
    EXPECT_TRUE(declares(text, "bool", "bFilterDenoiseGradient"));
    EXPECT_TRUE(declares(text, "float", "gradientsmooththreshold"));
}

TEST(QualityText, SortsAsFarAsTheMiddleNeedsIt)
{
    const std::string text = code(volumeQualityText);
    // The macro's own line, and rounds of 8, 7, 6, 5 and 4 comparisons.
    EXPECT_EQ(count(text, "ORDER"), 1 + 30);
}

TEST(QualityText, OffersTheMeanButAlwaysAsksForTheMedian)
{
    const std::string text = code(volumeQualityText);
    EXPECT_TRUE(matches(text, "bool bMean\\)"));
    EXPECT_TRUE(matches(text, "sampleFilter\\(p, [^;]*, false\\);"));
    EXPECT_FALSE(matches(text, "sampleFilter\\([^;]*, true\\);"));
}

TEST(PerformanceText, HasItsSymbolAndNoFilterCodeAtAll)
{
    const std::string text = volumePerformanceText;  // comments included
    EXPECT_THAT(text, HasSubstr("#define BESTPERFORMANCE"));
    EXPECT_THAT(text, Not(HasSubstr("BESTQUALITY")));
    for (const char* word : {"ilter", "edian", "enoise", "ORDER", "smooth", "mean", "corner"})
        EXPECT_THAT(text, Not(HasSubstr(word)));
}

TEST(SliceText, DeclaresItsUniforms)
{
    const std::string text = code(sliceText);
    EXPECT_TRUE(declares(text, "sampler3D", "volumeData"));
    EXPECT_TRUE(declares(text, "bool", "bSliceUseTransferFunction"));
    EXPECT_TRUE(declares(text, "float", "sliceMinColorBar"));
    EXPECT_TRUE(declares(text, "float", "sliceMaxColorBar"));
    EXPECT_TRUE(declares(text, "sampler1D", "colorTable"));
    EXPECT_TRUE(declares(text, "float", "sliceOpacity"));
    EXPECT_EQ(count(text, "FragDepth"), 0);
}

}  // namespace
