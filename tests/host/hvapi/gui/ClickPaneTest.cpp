#include "lib/hvapi/windows/ClickPane.h"

#include "OpenSequences.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvimage/CILImage.h"
#include "lib/hvapi/sequence/SequenceStore.h"
#include "lib/hvapi/windows/logic/ClickPicture.h"
#include "support/DiskSequence.h"

#include <QLabel>
#include <QListWidget>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>

namespace {

using hvwindows::clickPicture;

QRgb tableEntry(int index)
{
    CILPalette palette(eColorTableRainbow);
    unsigned char const* entry = palette.getColorTableBuffer() + 4 * index;
    return qRgb(entry[0], entry[1], entry[2]);
}

CILImage imageOf(std::vector<unsigned char> values, long width, long height)
{
    CILImage image;
    EXPECT_TRUE(image.initWithData(eTypeUInt8, width, height, values.data()));
    EXPECT_NE(image.get_data(), nullptr);  // its own samples from here on
    image.RefreshImageStats();
    return image;
}

TEST(ClickPicture, LightLiesOverTheGraysFromItsLowestColourOn)
{
    CILImage const photograph = imageOf({0, 51, 102, 255}, 4, 1);
    CILImage const light = imageOf({9, 10, 20, 30}, 4, 1);
    QImage const picture = clickPicture(&photograph, &light, {10.0, 20.0, eColorTableRainbow});
    ASSERT_EQ(picture.size(), QSize(4, 1));
    EXPECT_EQ(picture.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(picture.pixel(1, 0), tableEntry(0));
    EXPECT_EQ(picture.pixel(2, 0), tableEntry(255));
    EXPECT_EQ(picture.pixel(3, 0), tableEntry(255));
    QImage const bare = clickPicture(&photograph, nullptr, {});
    EXPECT_EQ(bare.pixel(1, 0), qRgb(51, 51, 51));
    EXPECT_EQ(bare.pixel(3, 0), qRgb(255, 255, 255));
}

TEST(ClickPicture, LightOfAnotherSizeIsStretched)
{
    CILImage const photograph = imageOf(std::vector<unsigned char>(16, 7), 4, 4);
    CILImage const light = imageOf({0, 0, 0, 100}, 2, 2);
    QImage const picture = clickPicture(&photograph, &light, {50.0, 100.0, eColorTableRainbow});
    EXPECT_EQ(picture.pixel(1, 3), qRgb(0, 0, 0));
    for (int y = 2; y < 4; ++y) {
        for (int x = 2; x < 4; ++x)
            EXPECT_EQ(picture.pixel(x, y), tableEntry(255));
    }
}

TEST(ClickPicture, WithoutAPhotographTheGroundIsBlackAndWithoutBothThereIsNone)
{
    CILImage const light = imageOf({0, 100}, 2, 1);
    EXPECT_EQ(clickPicture(nullptr, &light, {50.0, 100.0, eColorTableRainbow}).pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_TRUE(clickPicture(nullptr, nullptr, {}).isNull());
    CILImage const empty;
    EXPECT_TRUE(clickPicture(&empty, &empty, {}).isNull());
}

TEST(ClickPicture, ReversedAndEmptyRangesAreHarmless)
{
    CILImage const light = imageOf({0, 100}, 2, 1);
    EXPECT_EQ(clickPicture(nullptr, &light, {50.0, 10.0, eColorTableRainbow}).pixel(1, 0), tableEntry(255));
    EXPECT_EQ(clickPicture(nullptr, &light, {0.0, 0.0, eColorTableRainbow}).pixel(0, 0), tableEntry(255));
}

TEST(ClickPicture, LargeImagesAreThinnedOut)
{
    CILImage const wide = imageOf(std::vector<unsigned char>(3000 * 3, 1), 3000, 3);
    EXPECT_EQ(clickPicture(&wide, nullptr, {}).size(), QSize(1024, 1));
}

class ClickPaneTest : public OpenSequences
{
protected:
    QTemporaryDir m_folder;
};

TEST_F(ClickPaneTest, TheSequenceViewShowsTheClickThatIsSelected)
{
    disk_sequence::make(m_folder.filePath("s"), "SLA", {"M1", "M2"});
    disk_sequence::makeClick(m_folder.filePath("s/M2"), "M2", 64);
    QFile::remove(m_folder.filePath("s/M2/luminescent.tif"));
    tag_estatus status = eStatusFailed;
    auto* window = CHVSSequenceWindow::getSequenceWindow(SequenceStore::open(m_folder.filePath("s"), status));
    ASSERT_TRUE(window);
    window->resize(900, 560);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    auto* list = window->findChild<QListWidget*>("m_pClickList");
    auto* view = window->findChild<ClickView*>("m_pClickView");
    auto* low = window->findChild<QSlider*>("m_pClickLow");
    ASSERT_TRUE(list && view && low);
    EXPECT_EQ(list->count(), 2);
    EXPECT_EQ(view->picture().size(), QSize(32, 32));
    EXPECT_EQ(view->picture().pixel(16, 16), tableEntry(255));
    EXPECT_EQ(view->picture().pixel(31, 0), qRgb(255, 255, 255));
    QImage const before = view->picture();
    low->setValue(900);
    EXPECT_NE(view->picture(), before);
    if (qEnvironmentVariableIsSet("CLICK_PANE_PICTURE")) window->grab().save(qgetenv("CLICK_PANE_PICTURE"));
    list->setCurrentRow(1);
    EXPECT_EQ(view->picture().size(), QSize(64, 64));
    EXPECT_FALSE(low->isVisible());
    EXPECT_EQ(window->findChild<QLabel*>("m_pClickFacts")->text(),
              "Photograph 64 x 64   Field of view 12.5 cm");
}

TEST_F(ClickPaneTest, ASequenceWithoutClicksHasNoPane)
{
    auto* sequence = SequenceRegistry::instance().open({"s", SequenceKind::Sla, false, {}, {}});
    auto* window = CHVSSequenceWindow::getSequenceWindow(sequence);
    window->show();
    EXPECT_FALSE(window->findChild<QListWidget*>("m_pClickList")->isVisible());
}

}  // namespace
