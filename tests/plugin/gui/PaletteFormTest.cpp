#include "gui/PluginBench.h"

#include "plugin/WidgetSync.h"
#include "render/CGLVolume.h"
#include "volume/CVolumeInfoDialog.h"

#include <QApplication>
#include <QButtonGroup>
#include <QEvent>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

class PaletteForm : public PluginBench
{};

const char* const controlNames[] = {"m_pTransformToolBtn",
                                    "m_pFiducialRegistrationButton",
                                    "m_pTransformResetBtn",
                                    "m_pCroptoolButton",
                                    "m_pCropResetBtn",
                                    "m_pVolumeInfoDialogButton",
                                    "m_pExtract2DImageFromVolume",
                                    "m_pVolumeButtonGroup",
                                    "m_pLODSlider",
                                    "m_pResetLODButton",
                                    "m_pAutoFitToolButton",
                                    "m_pClearToolButton",
                                    "m_pTransferPointOpenBtn",
                                    "m_pTansferPointsSaveBtn",
                                    "m_pHistogramWindowTB",
                                    "m_pReverseColorMapCheck",
                                    "m_pColorTableCombo",
                                    "m_pOpacitySlider",
                                    "m_pMinMaxUnitCB",
                                    "m_pBestRenderQualityCheckBox",
                                    "m_pLightingCheckBox",
                                    "m_pMedianFilterDenoiseCheckBox",
                                    "m_pMIPCheckBox",
                                    "m_pLogarithmicHistogramCheckBox",
                                    "m_pRenderEffectsDlgButton",
                                    "m_pSliceColorTable",
                                    "m_pSliceReverseColorMapCheck",
                                    "m_pSliceColorTableGroupBox",
                                    "m_pSliceOpacitySlider",
                                    "m_pSliceOpacitySpinBox",
                                    "m_pApplyColorBarScalingCB",
                                    "m_pSliceMinIntensitySlider",
                                    "m_pSliceMinIntensitySpinBox",
                                    "m_pSliceMaxIntensitySlider",
                                    "m_pSliceMaxIntensitySpinBox",
                                    "m_pSliceUseColorTable",
                                    "m_pSliceUseTransferFunction",
                                    "m_pSliceViewerGBox",
                                    "m_pSliceViewerFrame",
                                    "m_pSliceViewerSlider",
                                    "m_pSliceOrientation",
                                    "m_pExpandSliceView",
                                    "m_pCorvaneResultLbl",
                                    "m_pCorvaneLV",
                                    "m_pSavedResultsCB",
                                    "m_pDeleteResultsBtn",
                                    "m_pLoadResultsBtn",
                                    "m_pSaveResultsBtn",
                                    "m_pTransferFnGroup",
                                    "label",
                                    "m_pGLPalettePixmapFrame",
                                    "m_pSliceGLPalettePixmapFrame",
                                    "m_pResultTab",
                                    "volumeTab",
                                    "sliceTab",
                                    "VolumeVizTabWidget"};

/// Controls that a user can move, other than those that have their slots.
QList<QWidget*> deadControls(CHVVolumeVizPalette* palette)
{
    QList<QWidget*> dead;
    for (const char* name : controlNames) {
        auto* widget = palette->findChild<QWidget*>(name);
        if (!widget || isWired(name)) continue;
        const char* const kinds[] = {"QAbstractButton", "QComboBox", "QAbstractSlider", "QAbstractSpinBox"};
        for (const char* kind : kinds)
            if (widget->inherits(kind)) dead.append(widget);
    }
    return dead;
}

}  // namespace

TEST_F(PaletteForm, HasItsSize)
{
    EXPECT_EQ(palette->minimumSize(), QSize(325, 485));
    EXPECT_EQ(palette->maximumSize(), QSize(325, 485));
    EXPECT_EQ(palette->sizeHint().width(), 270);
}

TEST_F(PaletteForm, HasAllItsWidgets)
{
    for (const char* name : controlNames)
        EXPECT_NE(palette->findChild<QWidget*>(name), nullptr) << name;
}

TEST_F(PaletteForm, HasItsPages)
{
    QStringList titles;
    for (int i = 0; i < palette->VolumeVizTabWidget->count(); ++i)
        titles.append(palette->VolumeVizTabWidget->tabText(i));
    EXPECT_EQ(titles, QStringList({"Volume", "Slice", "Results"}));
}

TEST_F(PaletteForm, ListsTheColorTables)
{
    for (QComboBox* combo : {palette->m_pColorTableCombo, palette->m_pSliceColorTable}) {
        EXPECT_EQ(combo->count(), 13);
        EXPECT_EQ(combo->currentIndex(), 0);
        EXPECT_EQ(combo->itemText(12), QString("Jet"));
    }
    EXPECT_TRUE(palette->m_pColorTableCombo->isEditable());
    EXPECT_EQ(CHVVolumeVizPalette::getColorTableType(12), eColorTableJet);
    EXPECT_EQ(CHVVolumeVizPalette::getColorTableType(99), eColorTableRed);
}

TEST_F(PaletteForm, StartsWithTheseTexts)
{
    EXPECT_EQ(palette->m_pVolumeButtonGroup->title(), QString("Display Volume"));
    EXPECT_EQ(palette->label->text(), QString("1.0 <b>Opacity</b>"));
    EXPECT_EQ(palette->m_pMIPCheckBox->text(), QString("Maximum Intensity Projection (MIP)"));
    EXPECT_EQ(palette->m_pSliceOrientation->itemText(0), QString("Coronal"));
    EXPECT_EQ(palette->m_pSliceOrientation->itemText(1), QString("Transaxial"));
    EXPECT_EQ(palette->m_pSliceOrientation->itemText(2), QString("Sagittal"));
    EXPECT_EQ(palette->m_pCorvaneLV->headerItem()->text(0), QString("Key"));
    EXPECT_EQ(palette->m_pCorvaneLV->headerItem()->text(1), QString("Value"));
}

TEST_F(PaletteForm, StartsWithTheseRanges)
{
    EXPECT_EQ(palette->m_pLODSlider->minimum(), 50);
    EXPECT_EQ(palette->m_pLODSlider->maximum(), 300);
    EXPECT_EQ(palette->m_pLODSlider->value(), 100);
    EXPECT_FALSE(palette->m_pLODSlider->hasTracking());
    for (QDoubleSpinBox* box : {palette->m_pSliceMinIntensitySpinBox, palette->m_pSliceMaxIntensitySpinBox}) {
        EXPECT_EQ(box->minimum(), 0.0);
        EXPECT_EQ(box->maximum(), 100.0);
    }
    for (QSlider* slider : {palette->m_pSliceMinIntensitySlider, palette->m_pSliceMaxIntensitySlider}) {
        EXPECT_EQ(slider->minimum(), 0);
        EXPECT_EQ(slider->maximum(), 100);
    }
}

TEST_F(PaletteForm, ThePicturesOfItsButtonsAreThere)
{
    const auto buttons = palette->findChildren<QToolButton*>(QRegularExpression("^m_p"));
    EXPECT_GE(buttons.size(), 15);
    for (QToolButton* button : buttons)
        EXPECT_FALSE(button->icon().pixmap(20, 20).isNull()) << button->objectName().toStdString();
}

TEST_F(PaletteForm, PixmapsAreKnownUnderBothPaths)
{
    const char* const names[] = {"3dcvsearch.xpm", "dicomIcon.xpm",         "dicomStackIcon.xpm",
                                 "tiffIcon.xpm",   "tiffStackIcon.xpm",     "play_green.xpm",
                                 "stop_blue.xpm",  "switchToMultiView.xpm", "switchToSingleView.xpm"};
    for (const char* name : names) {
        EXPECT_FALSE(QPixmap(QString(":/Resource/") + name).isNull()) << name;
        EXPECT_FALSE(QPixmap(QString(":/resource/") + name).isNull()) << name;
    }
}

TEST_F(PaletteForm, TheSlicesColorsAreOneChoiceOfTwo)
{
    EXPECT_TRUE(palette->m_pSliceUseColorTable->isChecked());
    EXPECT_FALSE(palette->m_pSliceUseTransferFunction->isChecked());
    QButtonGroup* group = palette->m_pSliceUseColorTable->group();
    ASSERT_NE(group, nullptr);
    EXPECT_TRUE(group->exclusive());
    EXPECT_EQ(group->id(palette->m_pSliceUseColorTable), 0);
    EXPECT_EQ(group->id(palette->m_pSliceUseTransferFunction), 1);
}

TEST_F(PaletteForm, ControlsWithoutASlotStayDisabled)
{
    for (QWidget* control : deadControls(palette))
        EXPECT_FALSE(control->isEnabled()) << control->objectName().toStdString();
    openCurrent("S1", SequenceKind::Ct);
    EXPECT_FALSE(palette->m_pVolumeInfoDialogButton->isEnabled());
    EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("a.raw")}, -1, -1));
    for (QWidget* control : deadControls(palette))
        EXPECT_FALSE(control->isEnabled()) << control->objectName().toStdString();
    EXPECT_TRUE(palette->m_pVolumeInfoDialogButton->isEnabled());
}

TEST_F(PaletteForm, EscapeDoesNotCloseIt)
{
    palette->show();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    press.accept();
    EXPECT_TRUE(QCoreApplication::sendEvent(palette, &press));
    EXPECT_FALSE(press.isAccepted());
    EXPECT_TRUE(palette->isVisible());
    palette->hide();
}

TEST_F(PaletteForm, ANewLanguageKeepsTheState)
{
    palette->m_pCorvaneResultLbl->setText("Volume Information: (Unsaved)");
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(palette, &change);
    EXPECT_EQ(palette->m_pCorvaneResultLbl->text(), QString("Volume Information: (Unsaved)"));
    EXPECT_EQ(palette->m_pVolumeButtonGroup->title(), QString("Display Volume"));
}

TEST_F(PaletteForm, TheVolumeButtonChangesSpacingAndOrientation)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("a.raw")}, -1, -1));
    modal.expect([](QWidget* window) {
        auto* dialog = qobject_cast<CVolumeInfoDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_FALSE(dialog->resolutionGroup->isVisible());
        EXPECT_FALSE(dialog->memoryGroup->isVisible());
        EXPECT_FALSE(dialog->fileGroup->isVisible());
        EXPECT_TRUE(dialog->orientationGroup->isVisible());
        EXPECT_NEAR(dialog->getColumnSpacing(), 0.2, 1e-6) << "x";
        EXPECT_NEAR(dialog->getSliceSpacing(), 0.1, 1e-6) << "y";
        EXPECT_NEAR(dialog->getRowSpacing(), 0.3, 1e-6) << "z";
        EXPECT_FALSE(dialog->invertXBox->isChecked());
        dialog->setColumnSpacing(1.0);
        dialog->setSliceSpacing(2.0);
        dialog->setRowSpacing(3.0);
        dialog->invertYBox->setChecked(true);
        dialog->accept();
    });
    QTest::mouseClick(palette->m_pVolumeInfoDialogButton, Qt::LeftButton);

    CGLVolume* node = nodeOf(sequence);
    EXPECT_NEAR(node->getThickness().x, 1.0, 1e-9);
    EXPECT_NEAR(node->getThickness().y, 2.0, 1e-9);
    EXPECT_NEAR(node->getThickness().z, 3.0, 1e-9);
    EXPECT_EQ(node->getAxisOrientation().x, 1);
    EXPECT_EQ(node->getAxisOrientation().y, -1);
    EXPECT_EQ(node->getAxisOrientation().z, 1);

    modal.expect([](QWidget* window) {
        auto* dialog = qobject_cast<CVolumeInfoDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(dialog->invertYBox->isChecked());
        dialog->setColumnSpacing(7.0);
        dialog->reject();
    });
    QTest::mouseClick(palette->m_pVolumeInfoDialogButton, Qt::LeftButton);
    EXPECT_NEAR(node->getThickness().x, 1.0, 1e-9);
}

TEST_F(PaletteForm, TheVolumeButtonNeedsAVolume)
{
    palette->onShowVolumeInfoDialog();
    openCurrent("S1");
    palette->onShowVolumeInfoDialog();
}

// A host may have a style sheet, under which Qt forgets fonts that a form has set; and the words are many.
TEST_F(PaletteForm, EveryTextFitsUnderAHostsStyleSheet)
{
    qApp->setStyleSheet("QMenuBar { padding: 2px; }");
    QWidget dock;
    QVBoxLayout layout(&dock);
    layout.addWidget(palette);
    dock.show();
    palette->show();
    for (int page = 0; page < palette->VolumeVizTabWidget->count(); ++page) {
        palette->VolumeVizTabWidget->setCurrentIndex(page);
        QCoreApplication::processEvents();
        const auto widgets = palette->VolumeVizTabWidget->widget(page)->findChildren<QWidget*>();
        for (QWidget* widget : widgets) {
            const bool text = widget->inherits("QLabel") || widget->inherits("QCheckBox") ||
                              widget->inherits("QRadioButton");
            if (!text) continue;
            EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
        }
    }
    palette->setParent(nullptr);
    qApp->setStyleSheet(QString());
}
