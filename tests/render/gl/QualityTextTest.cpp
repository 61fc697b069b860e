#include "StraightText.h"
#include "support/NodeTest.h"

namespace {

/// Settings of a frame, one bit each.
enum Setting
{
    Lit = 1,
    Median = 2,
    SmoothGradient = 4,
    Dragging = 8,
    HighDensity = 16
};

/// The program's own text has loops that end as soon as no fragment wants more; the picture is that of the
/// steps written straight down.
struct QualityTextPictures : NodeTest, ::testing::WithParamInterface<int>
{
    bool has(Setting setting) const { return (GetParam() & setting) != 0; }
};
INSTANTIATE_TEST_SUITE_P(Settings, QualityTextPictures, ::testing::Range(0, 32));

TEST_P(QualityTextPictures, AreThoseOfTheStepsWrittenStraightDown)
{
    // A ball of two tissues in air, with noise: strong edges, faint gradients and clear parts. No side is a
    // power of two.
    unsigned seed = 1;
    load(11, 12, 13, [&](int x, int y, int z) {
        seed = seed * 1664525U + 1013904223U;
        const int r = (x - 5) * (x - 5) + (y - 6) * (y - 6) + (z - 6) * (z - 6);
        return (r < 9 ? 190 : r < 30 ? 110 : 10) + static_cast<int>(seed >> 28);
    });
    setTable([](int v) { return std::array<int, 4>{v, 255 - v, v / 2, v < 60 ? 0 : v / 2}; });
    use(false);
    node->setLighting(has(Lit));
    node->setMedianFilterDenoise(has(Median));
    node->setFilterDenoiseGradient(has(SmoothGradient));
    node->m_nLevelOfDetail = has(HighDensity) ? 220 : 100;
    services.setFastRenderingMode(has(Dragging));
    glRotated(20, 1, 0, 0);
    glRotated(30, 0, 1, 0);
    draw();
    const QByteArray own = canvas.pixels();
    ASSERT_TRUE(
        probe.volumeProgram().updateShader_Source(FRAGMENT_SHADER, "volume_fp", kStraightQualityText));
    draw();
    const QByteArray straight = canvas.pixels();

    int largest = 0;
    int brightest = 0;
    for (int i = 0; i < own.size(); ++i) {
        const int a = static_cast<unsigned char>(own[i]);
        const int b = static_cast<unsigned char>(straight[i]);
        largest = std::max(largest, std::abs(a - b));
        brightest = std::max(brightest, a);
    }
    EXPECT_GT(brightest, 100);
    EXPECT_LE(largest, 1) << "of rounding";
}

}  // namespace
