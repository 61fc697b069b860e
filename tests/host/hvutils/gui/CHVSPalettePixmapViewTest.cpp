#include "hvutils/CHVSPalettePixmapView.h"

#include <gtest/gtest.h>

#include <QImage>

namespace {

QRgb colorOf(CILPalette palette, int entry)
{
    unsigned char const* const c = palette.getColorTableBuffer() + 4 * entry;
    return qRgb(c[0], c[1], c[2]);
}

}  // namespace

TEST(CHVSPalettePixmapView, LyingBarRunsFromLeftToRight)
{
    CHVSPalettePixmapView view(nullptr);
    view.resize(256, 20);
    view.setPaletteCT(eColorTableJet, 0.0F, 1.0F);
    view.show();
    QImage const shown = view.grabFramebuffer();
    ASSERT_EQ(shown.size(), QSize(256, 20));
    for (int const x : {0, 60, 128, 200, 255}) {
        EXPECT_EQ(shown.pixel(x, 0), colorOf(view.getPalette(), x)) << x;
        EXPECT_EQ(shown.pixel(x, 19), colorOf(view.getPalette(), x)) << x;
    }
    view.close();
}

TEST(CHVSPalettePixmapView, StandingBarRunsFromBottomToTop)
{
    CHVSPalettePixmapView view(nullptr);
    view.resize(20, 256);
    view.setPaletteCT(eColorTableEosB, 0.0F, 1.0F);
    view.show();
    QImage const shown = view.grabFramebuffer();
    EXPECT_EQ(shown.pixel(5, 255), colorOf(view.getPalette(), 0));
    EXPECT_EQ(shown.pixel(5, 0), colorOf(view.getPalette(), 255));
    view.close();
}

TEST(CHVSPalettePixmapView, ReverseShowsTheLastColourFirst)
{
    CHVSPalettePixmapView view(nullptr);
    view.resize(300, 20);
    view.setPaletteCT(eColorTableJet, 0.0F, 1.0F);
    view.setPaletteCTReverse(true);
    EXPECT_EQ(view.getPalette().reversed(), 1);
    view.show();
    QImage const shown = view.grabFramebuffer();
    EXPECT_EQ(shown.pixel(0, 10), qRgb(128, 0, 0));
    EXPECT_EQ(shown.pixel(299, 10), qRgb(0, 0, 128));
    view.setPaletteCTReverse(false);
    EXPECT_EQ(view.grabFramebuffer().pixel(0, 10), qRgb(0, 0, 128));
    view.close();
}

TEST(CHVSPalettePixmapView, PaletteIsThatOfTheType)
{
    CHVSPalettePixmapView view(nullptr);
    view.setPaletteCT(eColorTableRed, 0.0F, 1.0F);
    EXPECT_EQ(view.getPalette().getMaxIndex(), 256);
    EXPECT_EQ(colorOf(view.getPalette(), 200), colorOf(CILPalette(eColorTableRed), 200));
}

TEST(CHVSPalettePixmapView, WithoutATableTheBarIsBlack)
{
    CHVSPalettePixmapView view(nullptr);
    view.resize(50, 20);
    view.setPaletteCT(static_cast<HVS_COLORTABLE_TYPES>(99), 0.0F, 1.0F);
    view.show();
    EXPECT_EQ(view.grabFramebuffer().pixel(25, 10), qRgb(0, 0, 0));
    view.close();
}
