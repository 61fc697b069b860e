#include "phantom/OpticalVoxels.h"

#include "phantom/Photograph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <vector>

using namespace phantom;
using testing::HasSubstr;

namespace {

struct Line
{
    Vec3 place;
    double intensity = 0;
};

std::vector<Line> voxelsOf(const std::string& text)
{
    std::vector<Line> voxels;
    std::istringstream lines(text.substr(text.find("[Voxels]\n") + 9));
    lines.imbue(std::locale::classic());
    std::string word, number, equals;
    Line line;
    while (lines >> word >> number >> equals >> line.place.x >> line.place.y >> line.place.z >>
           line.intensity)
        voxels.push_back(line);
    return voxels;
}

TEST(PhantomLight, TheTextSaysHowManyVoxelsItHas)
{
    const std::string text = opticalVoxelText(1.0);
    const auto voxels = voxelsOf(text);
    EXPECT_GT(voxels.size(), 400U);
    EXPECT_THAT(text, HasSubstr("\nFormat Version = 1\nCount = " + std::to_string(voxels.size()) + "\n"));
    EXPECT_THAT(text, HasSubstr("\nVoxel Size = 1 1 1\n"));
    EXPECT_EQ(text.back(), '\n');
    EXPECT_EQ(text, opticalVoxelText(1.0));
}

TEST(PhantomLight, LightsLieWhereThePicturesShowThem)
{
    ASSERT_EQ(lights().size(), glows().size());
    for (std::size_t k = 0; k < lights().size(); ++k) {
        EXPECT_EQ(lights()[k].middle.x, glows()[k].x);
        EXPECT_EQ(lights()[k].middle.y, glows()[k].y);
    }
}

TEST(PhantomLight, IntensityFallsByTheNormalDistributionUpToTheReach)
{
    const Light& thigh = lights().at(1);
    double brightest = 0;
    for (const Line& voxel : voxelsOf(opticalVoxelText(1.0))) {
        const double away = length(voxel.place - thigh.middle);
        if (away > 8) continue;  // the liver's
        EXPECT_LE(away, thigh.reach + 1e-6);
        EXPECT_NEAR(voxel.intensity, thigh.peak * std::exp(-away * away / (2 * thigh.spread * thigh.spread)),
                    1.0);
        brightest = std::max(brightest, voxel.intensity);
    }
    EXPECT_EQ(brightest, 30000);
}

TEST(PhantomLight, PlacesAndSizesFollowTheSpacingThatIsTold)
{
    const auto voxels = voxelsOf(opticalVoxelText(1.0));
    const std::string text = opticalVoxelText(0.25);
    EXPECT_THAT(text, HasSubstr("\nVoxel Size = 0.25 0.25 0.25\n"));
    const auto small = voxelsOf(text);
    ASSERT_EQ(small.size(), voxels.size());
    for (std::size_t k = 0; k < small.size(); ++k)
        EXPECT_NEAR(small[k].place.y, voxels[k].place.y * 0.25, 1e-6);
}

}  // namespace
