#include "volume/CVolumeInfoDialog.h"

#include "support/MouseMove.h"
#include "volume/support/RawFiles.h"
#include "volume/support/RecordingHost.h"

#include <QPushButton>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using viz_test::RawFolder;

class VolumeInfoDialog : public testing::Test
{
protected:
    void setSize(int columns, int rows, int frames)
    {
        dialog.setColumns(columns);
        dialog.setRows(rows);
        dialog.setFrames(frames);
    }

    QPushButton* ok() const { return dialog.buttonBox->button(QDialogButtonBox::Ok); }

    QPoint handle() const
    {
        const QSlider* const slider = dialog.resolutionSlider;
        QStyleOptionSlider option;
        option.initFrom(slider);
        option.orientation = slider->orientation();
        option.minimum = slider->minimum();
        option.maximum = slider->maximum();
        option.sliderPosition = slider->sliderPosition();
        option.sliderValue = slider->value();
        option.tickPosition = slider->tickPosition();
        option.tickInterval = slider->tickInterval();
        option.subControls = QStyle::SC_SliderHandle;
        return slider->style()
            ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider)
            .center();
    }

    viz_test::RecordingHost host;
    CVolumeInfoDialog dialog;
};

// ---- the form ----

TEST_F(VolumeInfoDialog, TakesNameAndModalityFromItsCaller)
{
    const CVolumeInfoDialog named(nullptr, "Volume File Information", true);
    EXPECT_EQ(named.objectName(), "Volume File Information");
    EXPECT_TRUE(named.isModal());
    EXPECT_EQ(named.windowTitle(), "Volume Information");
    EXPECT_FALSE(dialog.isModal());
}

TEST_F(VolumeInfoDialog, SpacingsHaveFourDecimals)
{
    for (const QDoubleSpinBox* box :
         {dialog.rowSpacingBox, dialog.columnSpacingBox, dialog.sliceSpacingBox}) {
        EXPECT_DOUBLE_EQ(box->minimum(), 0.0001);
        EXPECT_DOUBLE_EQ(box->singleStep(), 0.2);
        EXPECT_EQ(box->decimals(), 4);
    }
}

TEST_F(VolumeInfoDialog, CountsHaveTheirLimits)
{
    for (const QSpinBox* box : {dialog.widthBox, dialog.heightBox, dialog.framesBox}) {
        EXPECT_EQ(box->minimum(), 1);
        EXPECT_EQ(box->maximum(), 1024);
        EXPECT_EQ(box->value(), 1);
    }
    EXPECT_EQ(dialog.headerOffsetBox->minimum(), 0);
    EXPECT_EQ(dialog.headerOffsetBox->maximum(), 65535);
    EXPECT_EQ(dialog.headerOffsetBox->value(), 0);
}

TEST_F(VolumeInfoDialog, SliderGoesFromTenToAHundred)
{
    const QSlider* const slider = dialog.resolutionSlider;
    EXPECT_EQ(slider->orientation(), Qt::Horizontal);
    EXPECT_EQ(slider->minimum(), 10);
    EXPECT_EQ(slider->maximum(), 100);
    EXPECT_EQ(slider->value(), 100);
    EXPECT_EQ(slider->tickInterval(), 18);
    EXPECT_EQ(slider->toolTip(),
              "Low: Down-samples volume data. It conserves memory and improves performance.\n"
              "Full: Loads and renders volume data using the original resolution.");
}

TEST_F(VolumeInfoDialog, TextsAreThoseOfTheManual)
{
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        texts << label->text();
    for (const QGroupBox* group : dialog.findChildren<QGroupBox*>())
        texts << group->title();
    for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
        texts << button->text();
    const char* const hint = "In case of low memory warning, adjust Slice Resolution slider above to refresh "
                             "Memory Requirement Status ";
    EXPECT_TRUE(texts.contains(hint));
    for (const char* text : {"Pixel Spacing (Row, Column): (",
                             ", ",
                             ") mm",
                             "Slice Spacing:",
                             "mm",
                             "Low",
                             "Full",
                             "Data Type:",
                             "Width:",
                             "Height:",
                             "pixels",
                             "Header Offset:",
                             "bytes",
                             "Number Of Slices/Images:",
                             "Good",
                             "Slice Information",
                             "Slice Resolution",
                             "Subject Orientation",
                             "Memory Requirement Status",
                             "Invert  X-Axis",
                             "Invert Y-Axis",
                             "Invert Z-Axis",
                             "Signed",
                             "Verify Memory",
                             "File: "})
        EXPECT_TRUE(texts.contains(text)) << text;
    EXPECT_EQ(dialog.dataTypeBox->count(), 2);
    EXPECT_EQ(dialog.dataTypeBox->itemText(0), "8-bit");
    EXPECT_EQ(dialog.dataTypeBox->itemText(1), "16-bit");
}

TEST_F(VolumeInfoDialog, EveryFieldSaysWhatItIs)
{
    QList<QWidget*> buddies;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        buddies << label->buddy();
    for (QWidget* field :
         {static_cast<QWidget*>(dialog.rowSpacingBox), static_cast<QWidget*>(dialog.columnSpacingBox),
          static_cast<QWidget*>(dialog.sliceSpacingBox), static_cast<QWidget*>(dialog.resolutionSlider),
          static_cast<QWidget*>(dialog.dataTypeBox), static_cast<QWidget*>(dialog.widthBox),
          static_cast<QWidget*>(dialog.heightBox), static_cast<QWidget*>(dialog.headerOffsetBox),
          static_cast<QWidget*>(dialog.framesBox)}) {
        EXPECT_TRUE(buddies.contains(field)) << field->objectName().toStdString();
        EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
    }
}

TEST_F(VolumeInfoDialog, StartsGoodWithoutHint)
{
    EXPECT_EQ(dialog.memoryStatusLabel->text(), "Good");
    EXPECT_TRUE(dialog.memoryHintLabel->isHidden());
    EXPECT_TRUE(dialog.memoryHintIcon->isHidden());
    EXPECT_TRUE(dialog.messageLabel->text().isEmpty());
    EXPECT_EQ(dialog.fileLabel->text(), "File: ");
    EXPECT_TRUE(dialog.isMemoryGood());
    EXPECT_FALSE(dialog.invertXBox->isChecked() || dialog.invertYBox->isChecked() ||
                 dialog.invertZBox->isChecked());
    EXPECT_EQ(host.memoryChecks, 0);
}

// ---- setters and getters ----

TEST_F(VolumeInfoDialog, GivesBackWhatWasSet)
{
    setSize(300, 200, 100);
    dialog.setHeaderOffset(60);
    dialog.setRowSpacing(0.3);
    dialog.setColumnSpacing(0.2);
    dialog.setSliceSpacing(0.5);
    dialog.setResolution(42);
    dialog.setSignedState(1);
    dialog.setBitDepth("16");
    EXPECT_EQ(dialog.getColumns(), 300);
    EXPECT_EQ(dialog.getRows(), 200);
    EXPECT_EQ(dialog.getFrames(), 100);
    EXPECT_EQ(dialog.getHeaderOffset(), 60);
    EXPECT_EQ(dialog.getRowSpacing(), 0.3F);
    EXPECT_EQ(dialog.getColumnSpacing(), 0.2F);
    EXPECT_EQ(dialog.getSliceSpacing(), 0.5F);
    EXPECT_EQ(dialog.getResolution(), 42);
    EXPECT_TRUE(dialog.isSigned());
    EXPECT_EQ(dialog.getBitDepth(), 16);
    dialog.setSignedState(0);
    dialog.setBitDepth("8");
    EXPECT_FALSE(dialog.isSigned());
    EXPECT_EQ(dialog.getBitDepth(), 8);
}

TEST_F(VolumeInfoDialog, ValuesBeyondTheLimitsAreCut)
{
    setSize(2000, 0, -7);
    dialog.setHeaderOffset(100000);
    dialog.setRowSpacing(0.0);
    EXPECT_EQ(dialog.getColumns(), 1024);
    EXPECT_EQ(dialog.getRows(), 1);
    EXPECT_EQ(dialog.getFrames(), 1);
    EXPECT_EQ(dialog.getHeaderOffset(), 65535);
    EXPECT_EQ(dialog.getRowSpacing(), 0.0001F);
}

TEST_F(VolumeInfoDialog, AnUnknownDepthLeavesTheChoice)
{
    dialog.setBitDepth("16");
    dialog.setBitDepth("12");
    EXPECT_EQ(dialog.getBitDepth(), 16);
}

TEST_F(VolumeInfoDialog, ShowsAShortenedFileName)
{
    dialog.setFileName("/data/scan.raw");
    EXPECT_EQ(dialog.fileLabel->text(), "File: /data/scan.raw");
    dialog.setFileName("/data/" + QString(200, 'x') + "/scan.raw");
    EXPECT_LE(dialog.fileLabel->text().size(), 66);
    EXPECT_TRUE(dialog.fileLabel->text().endsWith("scan.raw"));
    EXPECT_EQ(dialog.fileLabel->textFormat(), Qt::PlainText);
}

TEST_F(VolumeInfoDialog, ALanguageChangeKeepsWhatIsShown)
{
    dialog.setFileName("/data/scan.raw");
    host.memoryIsFull = true;
    dialog.updateMemoryStatus();
    dialog.languageChange();
    EXPECT_EQ(dialog.fileLabel->text(), "File: /data/scan.raw");
    EXPECT_EQ(dialog.memoryStatusLabel->text(), "Low Memory encountered! Unable to load volume data.");
    EXPECT_EQ(dialog.windowTitle(), "Volume Information");
}

// ---- memory ----

TEST_F(VolumeInfoDialog, FullResolutionNeedsSidesThatFit)
{
    setSize(500, 500, 1);
    EXPECT_TRUE(dialog.updateMemoryStatus());
    EXPECT_EQ(dialog.getResolution(), 100);
    EXPECT_EQ(dialog.resolutionSlider->maximum(), 100);
}

TEST_F(VolumeInfoDialog, OtherSidesTakeFullResolutionAwayForGood)
{
    setSize(510, 510, 1);
    EXPECT_TRUE(dialog.updateMemoryStatus());
    EXPECT_EQ(dialog.getResolution(), 99);
    EXPECT_EQ(dialog.resolutionSlider->maximum(), 99);
    EXPECT_EQ(host.memoryChecks, 1) << "moving the slider is no further check";

    setSize(512, 512, 1);
    dialog.updateMemoryStatus();
    EXPECT_EQ(dialog.resolutionSlider->maximum(), 99);
}

TEST_F(VolumeInfoDialog, OneSideThatDoesNotFitIsEnough)
{
    setSize(512, 510, 1);
    dialog.updateMemoryStatus();
    EXPECT_EQ(dialog.resolutionSlider->maximum(), 99);
}

TEST_F(VolumeInfoDialog, AReducedResolutionIsLeftAsItIs)
{
    setSize(510, 510, 1);
    dialog.setResolution(50);
    dialog.updateMemoryStatus();
    EXPECT_EQ(dialog.getResolution(), 50);
    EXPECT_EQ(dialog.resolutionSlider->maximum(), 100);
}

TEST_F(VolumeInfoDialog, ShortMemoryIsShownAndRefused)
{
    host.memoryIsFull = true;
    EXPECT_FALSE(dialog.updateMemoryStatus());
    EXPECT_FALSE(dialog.isMemoryGood());
    EXPECT_EQ(dialog.memoryStatusLabel->text(), "Low Memory encountered! Unable to load volume data.");
    EXPECT_EQ(dialog.memoryStatusLabel->palette().color(QPalette::WindowText), QColor(255, 0, 0, 255));
    EXPECT_FALSE(dialog.memoryHintLabel->isHidden());
    EXPECT_FALSE(ok()->isEnabled());
    EXPECT_EQ(dialog.memoryGroup->title(), "Memory Requirement Status");
}

TEST_F(VolumeInfoDialog, VerifyMemoryTriesAgain)
{
    host.memoryIsFull = true;
    dialog.updateMemoryStatus();
    host.memoryIsFull = false;
    host.memoryChecks = 0;
    QTest::mouseClick(dialog.verifyButton, Qt::LeftButton);
    EXPECT_EQ(host.memoryChecks, 1);
    EXPECT_TRUE(dialog.isMemoryGood());
    EXPECT_EQ(dialog.memoryStatusLabel->text(), "Good");
    EXPECT_EQ(dialog.memoryStatusLabel->palette().color(QPalette::WindowText), QColor(0, 0, 0, 255));
    EXPECT_TRUE(dialog.memoryHintLabel->isHidden());
    EXPECT_TRUE(ok()->isEnabled());
}

TEST_F(VolumeInfoDialog, AKeyOnTheSliderChecksAtOnce)
{
    QTest::keyClick(dialog.resolutionSlider, Qt::Key_Left);
    EXPECT_EQ(dialog.getResolution(), 99);
    EXPECT_EQ(host.memoryChecks, 1);
}

TEST_F(VolumeInfoDialog, DraggingTheSliderChecksAtItsReleaseOnly)
{
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    host.memoryChecks = 0;
    host.memoryIsFull = true;

    const QPoint start = handle();
    QTest::mousePress(dialog.resolutionSlider, Qt::LeftButton, Qt::NoModifier, start);
    viz_test::moveMouse(dialog.resolutionSlider, start - QPoint(30, 0));
    viz_test::moveMouse(dialog.resolutionSlider, start - QPoint(60, 0));
    EXPECT_LT(dialog.getResolution(), 100);
    EXPECT_EQ(host.memoryChecks, 0);
    EXPECT_TRUE(dialog.updateMemoryStatus()) << "answers true at once during the drag";
    EXPECT_EQ(host.memoryChecks, 0);

    QTest::mouseRelease(dialog.resolutionSlider, Qt::LeftButton, Qt::NoModifier, start - QPoint(60, 0));
    EXPECT_EQ(host.memoryChecks, 1);
    EXPECT_FALSE(dialog.isMemoryGood());
}

// ---- the file's size ----

TEST_F(VolumeInfoDialog, AFileOfExactlyTheSizeIsAccepted)
{
    const RawFolder folder;
    folder.write("exact.raw", QByteArray(10 + 4 * 3 * 2 * 2, 'x'));
    dialog.setFileName(folder.path("exact.raw"));
    setSize(4, 3, 2);
    dialog.setBitDepth("16");
    dialog.setHeaderOffset(10);
    EXPECT_TRUE(dialog.validateInput());
    EXPECT_TRUE(dialog.messageLabel->text().isEmpty());
}

TEST_F(VolumeInfoDialog, AFileOneByteShortIsRefusedUntilItFits)
{
    const RawFolder folder;
    folder.write("short.raw", QByteArray(10 + 4 * 3 * 2 * 2 - 1, 'x'));
    dialog.setFileName(folder.path("short.raw"));
    setSize(4, 3, 2);
    dialog.setBitDepth("16");
    dialog.setHeaderOffset(10);
    dialog.setSignedState(1);
    EXPECT_FALSE(dialog.validateInput());
    EXPECT_EQ(dialog.messageLabel->text(), "File doesn't contain the above specified amount of data");
    dialog.setBitDepth("8");
    EXPECT_TRUE(dialog.validateInput());
    EXPECT_TRUE(dialog.messageLabel->text().isEmpty());
}

TEST_F(VolumeInfoDialog, AnOffsetBehindTheEndIsRefused)
{
    const RawFolder folder;
    folder.write("tiny.raw", QByteArray(5, 'x'));
    dialog.setFileName(folder.path("tiny.raw"));
    dialog.setHeaderOffset(65535);
    EXPECT_FALSE(dialog.validateInput());
}

TEST_F(VolumeInfoDialog, AMissingFileIsRefused)
{
    dialog.setFileName("/nowhere/at all.raw");
    EXPECT_FALSE(dialog.validateInput());
    EXPECT_EQ(dialog.messageLabel->text(), "Unable to read the volume data file.");
    dialog.setValidateFile(false);
    EXPECT_TRUE(dialog.validateInput());
}

TEST_F(VolumeInfoDialog, OkClosesOnlyWhenTheFileFits)
{
    const RawFolder folder;
    folder.write("one.raw", QByteArray(1, 'x'));
    dialog.setFileName(folder.path("one.raw"));
    dialog.show();
    setSize(2, 1, 1);
    QTest::mouseClick(ok(), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
    setSize(1, 1, 1);
    QTest::mouseClick(ok(), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST_F(VolumeInfoDialog, CancelClosesWithoutAQuestion)
{
    dialog.show();
    QTest::mouseClick(dialog.buttonBox->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

// ---- shown ----

TEST_F(VolumeInfoDialog, ShowsEverythingThatIsEnabled)
{
    dialog.show();
    for (const QGroupBox* group : dialog.findChildren<QGroupBox*>())
        EXPECT_TRUE(group->isVisible()) << group->title().toStdString();
    EXPECT_GT(dialog.spacingGroup->maximumHeight(), 100);
    EXPECT_EQ(dialog.maximumHeight(), 50);
    EXPECT_GE(dialog.height(), dialog.layout()->minimumSize().height()) << "nothing is cut off";
    EXPECT_EQ(host.memoryChecks, 1);
}

TEST_F(VolumeInfoDialog, CollapsesToItsVisibleParts)
{
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    const int whole = dialog.height();
    EXPECT_EQ(whole, dialog.layout()->minimumSize().height());
    dialog.hide();
    dialog.fileGroup->setDisabled(true);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    EXPECT_LE(dialog.height(), whole - dialog.fileGroup->minimumSizeHint().height());
}

TEST_F(VolumeInfoDialog, GrowsForTheHintAndShrinksAgain)
{
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    const int without = dialog.height();
    host.memoryIsFull = true;
    dialog.updateMemoryStatus();
    QTest::qWait(10);
    EXPECT_GT(dialog.height(), without);
    EXPECT_GE(dialog.memoryHintLabel->height(),
              dialog.memoryHintLabel->heightForWidth(dialog.memoryHintLabel->width()));
    host.memoryIsFull = false;
    dialog.updateMemoryStatus();
    QTest::qWait(10);
    EXPECT_EQ(dialog.height(), without);
}

TEST_F(VolumeInfoDialog, HidesDisabledGroups)
{
    dialog.resolutionGroup->setDisabled(true);
    dialog.memoryGroup->setDisabled(true);
    dialog.fileGroup->setDisabled(true);
    dialog.show();
    EXPECT_FALSE(dialog.resolutionGroup->isVisible());
    EXPECT_FALSE(dialog.memoryGroup->isVisible());
    EXPECT_FALSE(dialog.fileGroup->isVisible());
    EXPECT_TRUE(dialog.orientationGroup->isVisible());
    EXPECT_TRUE(dialog.spacingGroup->isVisible());
    EXPECT_EQ(dialog.spacingGroup->maximumHeight(), 100);
    EXPECT_GE(dialog.spacingGroup->height(), dialog.spacingGroup->minimumSizeHint().height());
}

TEST_F(VolumeInfoDialog, ShowsAGroupAgainThatWasEnabledSince)
{
    dialog.orientationGroup->setDisabled(true);
    dialog.show();
    EXPECT_FALSE(dialog.orientationGroup->isVisible());
    dialog.hide();
    dialog.orientationGroup->setEnabled(true);
    dialog.show();
    EXPECT_TRUE(dialog.orientationGroup->isVisible());
}

}  // namespace
