#include "gui/PluginBench.h"

#include "hvutils/CHVSPalettePixmapView.h"
#include "plugin/logic/ColorTableNames.h"
#include "render/CGLVolume.h"
#include "transfer/CTransferFunction1DWidget.h"

#include <QLineEdit>
#include <QTest>

namespace {

using Locks = QVector<HoverPoints::LockType>;

class PaletteColors : public PluginBench
{
protected:
    void SetUp() override
    {
        sequence = openCurrent("S1");
        ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("a.raw")}, -1, -1));
        node = nodeOf(sequence);
        palette->setResultsModifiedForSequence(false);
    }

    HoverPoints& editor() { return *palette->transferFunctionWidget()->hoverPoints(); }
    bool isModified() { return palette->m_pSavedResultsCB->findText("(new)") != -1; }
    CILPalette bar()
    {
        return palette->m_pGLPalettePixmapFrame->findChild<CHVSPalettePixmapView*>()->getPalette();
    }

    QRgb entryOf(int type, int index)
    {
        CILPalette table(static_cast<HVS_COLORTABLE_TYPES>(type));
        const unsigned char* entry = table.getColorTableBuffer() + 4 * index;
        return qRgb(entry[0], entry[1], entry[2]);
    }

    QRgb shownColor(int point) { return editor().colors().at(point) | 0xff000000U; }

    CHVSSequenceDataset* sequence = nullptr;
    CGLVolume* node = nullptr;
};

}  // namespace

TEST_F(PaletteColors, AnotherTableKeepsThePointsAndTheirPlaces)
{
    const QPolygonF points = editor().points();
    const Locks locks = editor().locks();
    palette->m_pColorTableCombo->setCurrentIndex(12);
    EXPECT_EQ(editor().points(), points);
    EXPECT_EQ(editor().locks(), locks);
    EXPECT_EQ(record("S1").nVolumeColorTable, 12);
    EXPECT_EQ(shownColor(0), qRgb(0, 0, 128));  // Jet begins in dark blue
    EXPECT_EQ(record("S1").transferColors, editor().colors());
    CILPalette shown = bar();
    EXPECT_EQ(shown.getColorTableBuffer()[2], 128);
}

TEST_F(PaletteColors, TheUsersChoiceIsAModification)
{
    palette->m_pColorTableCombo->setCurrentIndex(3);
    EXPECT_TRUE(isModified());
    EXPECT_TRUE(record("S1").bModified);
}

TEST_F(PaletteColors, AChoiceOfTheProgramTellsTheRecordOnly)
{
    palette->onSelChangeVolumeColorTableCombo(3);
    EXPECT_FALSE(isModified());
    EXPECT_TRUE(record("S1").bModified);
}

TEST_F(PaletteColors, NamesThatAreTypedMakeNoNewTables)
{
    palette->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(palette));
    QLineEdit* edit = palette->m_pColorTableCombo->lineEdit();
    ASSERT_TRUE(edit);
    edit->selectAll();
    QTest::keyClicks(edit, "Mauve");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(palette->m_pColorTableCombo->count(), 13);
    edit->selectAll();
    QTest::keyClicks(edit, "Jet");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(record("S1").nVolumeColorTable, 12);
}

TEST_F(PaletteColors, ReverseMirrorsTheTableAndNotThePoints)
{
    palette->m_pColorTableCombo->setCurrentIndex(12);
    const QPolygonF points = editor().points();
    palette->m_pReverseColorMapCheck->click();
    EXPECT_TRUE(record("S1").bVolumeColorTableReverse);
    EXPECT_EQ(editor().points(), points);
    EXPECT_EQ(shownColor(0), qRgb(128, 0, 0));
    EXPECT_TRUE(bar().reversed());
    palette->m_pReverseColorMapCheck->click();
    EXPECT_EQ(shownColor(0), qRgb(0, 0, 128));
}

TEST_F(PaletteColors, ClearMakesARampOfTheTablesColours)
{
    palette->m_pColorTableCombo->setCurrentIndex(8);
    palette->m_pClearToolButton->click();
    const QPolygonF points = editor().points();
    ASSERT_EQ(points.size(), 3);
    EXPECT_EQ(editor().locks(),
              (Locks{HoverPoints::LockToLeft, HoverPoints::NoLock, HoverPoints::LockToRight}));
    EXPECT_EQ(points[0], QPointF(0, 185));
    EXPECT_EQ(points[2].y(), 0.0);
    EXPECT_EQ(shownColor(0), entryOf(23, 0));
    EXPECT_EQ(shownColor(2), entryOf(23, 255));
    // The middle stands on the diagonal.
    const double width = palette->transferFunctionWidget()->width();
    EXPECT_NEAR(1.0 - points[1].y() / 185.0, points[1].x() / width * 256.0 / 255.0, 1e-6);
    EXPECT_EQ(record("S1").transferPoints, points);
}

TEST_F(PaletteColors, ClearOfAReversedTableRunsTheOtherWay)
{
    palette->m_pColorTableCombo->setCurrentIndex(8);
    palette->m_pReverseColorMapCheck->click();
    palette->m_pClearToolButton->click();
    ASSERT_EQ(editor().points().size(), 3);
    EXPECT_EQ(editor().points()[0], QPointF(0, 185));
    EXPECT_EQ(shownColor(0), entryOf(23, 255));
    EXPECT_EQ(shownColor(2), entryOf(23, 0));
}

TEST_F(PaletteColors, ClearIsAModificationByTheButtonOnly)
{
    palette->onClickClearTransferFunction();
    EXPECT_FALSE(isModified());
    palette->m_pClearToolButton->click();
    EXPECT_TRUE(isModified());
    EXPECT_FALSE(record("S1").bModified);
}

TEST_F(PaletteColors, ReverseIsNoModification)
{
    palette->m_pReverseColorMapCheck->click();
    EXPECT_FALSE(isModified());
    EXPECT_FALSE(record("S1").bModified);
}

// It sets the lower end of the slices' colour scale as well, and that is one.
TEST_F(PaletteColors, AutoFitIsAModificationByItsSlices)
{
    palette->m_pAutoFitToolButton->click();
    EXPECT_TRUE(isModified());
}

TEST_F(PaletteColors, TheTableReachesTheVolume)
{
    palette->m_pClearToolButton->click();
    const unsigned char* table = node->getVolumeColorTable();
    EXPECT_LE(table[3], 1);
    EXPECT_NEAR(table[4 * 128 + 3], 128, 3);
    EXPECT_GE(table[4 * 255 + 3], 252);
    // From clear black to full white: multiplied with the opacity the colour is a straight line as well.
    EXPECT_NEAR(table[4 * 128], 128, 3);
}

TEST_F(PaletteColors, TheLogarithmicScaleOfTablesDoesNothing)
{
    const auto colors = editor().colors();
    palette->onClickVolumeColorTableLogrithmicScaleCheckBox();
    EXPECT_EQ(editor().colors(), colors);
}

TEST_F(PaletteColors, ALoadStartsWithTheRampOfTheCurrentTable)
{
    palette->m_pColorTableCombo->setCurrentIndex(12);
    ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1));
    EXPECT_EQ(shownColor(0), qRgb(0, 0, 128));
    EXPECT_GT(editor().points().size(), 4);
}

TEST_F(PaletteColors, WithoutASequenceNothingHappens)
{
    plugin.onSignalSequenceChanged(nullptr);
    palette->onSelChangeVolumeColorTableCombo(5);
    palette->onClickVolumeColorTableReverseCheckBox();
    palette->onClickClearTransferFunction();
    EXPECT_TRUE(palette->recordOf(QString()) == nullptr);
}

TEST_F(PaletteColors, ASequenceWithoutAVolumeKeepsItsChoiceForLater)
{
    openCurrent("S2");
    palette->onSelChangeVolumeColorTableCombo(12);
    EXPECT_EQ(record("S2").nVolumeColorTable, 12);
    EXPECT_TRUE(editor().points().isEmpty());
}
