#include "dialog/ImportBench.h"

#include "hvutils/CHVUtilityFns.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QThread>

namespace {

class ImportPreview : public ImportBench
{
protected:
    QStringList fileList() const
    {
        QStringList result;
        for (int row = 0; row < dialog->m_pFileList->count(); ++row)
            result << dialog->m_pFileList->item(row)->text();
        return result;
    }

    void expectRange(int start, int end, int sliderMinimum, int sliderMaximum) const
    {
        EXPECT_EQ(dialog->getStartFrame(), start);
        EXPECT_EQ(dialog->getEndFrame(), end);
        EXPECT_EQ(dialog->m_pSpanSlider->lowerValue(), start);
        EXPECT_EQ(dialog->m_pSpanSlider->upperValue(), end);
        EXPECT_EQ(dialog->m_pFrameSlider->minimum(), sliderMinimum);
        EXPECT_EQ(dialog->m_pFrameSlider->maximum(), sliderMaximum);
    }

    QModelIndex index(int row) const { return dialog->m_pCompatibleDataList->model()->index(row, 0); }

    void clickRow(int row, bool twice = false)
    {
        const QPoint place = dialog->m_pCompatibleDataList->visualRect(index(row)).center();
        QWidget* viewport = dialog->m_pCompatibleDataList->viewport();
        QTest::mouseClick(viewport, Qt::LeftButton, {}, place);
        if (twice) QTest::mouseDClick(viewport, Qt::LeftButton, {}, place);
    }
};

TEST_F(ImportPreview, ASeriesIsShownFileByFile)
{
    series("s", 5);
    show("s");
    EXPECT_EQ(fileList().size(), 5);
    EXPECT_EQ(dialog->m_pFileList->currentRow(), 0);
    EXPECT_EQ(dialog->m_pFrameLabel->text(), QString("1"));
    EXPECT_EQ(gray(0.1), 0);
    EXPECT_EQ(gray(0.9), 255);
    expectRange(1, 5, 1, 5);
    EXPECT_EQ(dialog->m_pStartSpinBox->maximum(), 4);
    EXPECT_EQ(dialog->m_pEndSpinBox->minimum(), 2);
    EXPECT_EQ(dialog->m_pEndSpinBox->maximum(), 5);
    dialog->m_pFrameSlider->setFocus();
    QTest::keyClick(dialog->m_pFrameSlider, Qt::Key_Right);
    EXPECT_EQ(dialog->m_pFrameLabel->text(), QString("2"));
    EXPECT_EQ(dialog->m_pFileList->currentRow(), 1);
    QTest::mouseClick(dialog->m_pFileList->viewport(), Qt::LeftButton, {},
                      dialog->m_pFileList->visualItemRect(dialog->m_pFileList->item(3)).center());
    EXPECT_EQ(dialog->m_pFrameSlider->value(), 4);
    EXPECT_EQ(dialog->m_pFrameLabel->text(), QString("4"));
}

TEST_F(ImportPreview, AMultiFrameFileIsShownFrameByFrame)
{
    multiFrame("m/a.dcm", 6);
    show("m");
    expectRange(1, 6, 1, 6);
    EXPECT_EQ(fileList(), QStringList{"a.dcm"});
    EXPECT_EQ(gray(2.5 / side), 255);
    dialog->m_pFrameSlider->setValue(4);
    EXPECT_EQ(gray(2.5 / side), 0);
    EXPECT_EQ(gray(4.5 / side), 255);
    EXPECT_EQ(dialog->m_pFileList->currentRow(), 0);
    EXPECT_EQ(names(dialog->getSelectedFiles()), QStringList{"a.dcm"});
}

TEST_F(ImportPreview, TiffsAreShownPageByPageAndFileByFile)
{
    tiff("pages/a.tif", 5);
    show("pages", "TIFF");
    expectRange(1, 5, 1, 5);
    EXPECT_EQ(gray(1.5 / side), 255);
    dialog->m_pFrameSlider->setValue(5);
    EXPECT_EQ(gray(1.5 / side), 0);
    EXPECT_EQ(gray(5.5 / side), 255);
    tiff("stack/a.tif", 1);
    tiff("stack/b.tif", 3);
    show("stack", "TIFF");
    expectRange(1, 2, 1, 2);
    dialog->m_pFrameSlider->setValue(2);
    EXPECT_EQ(message(), QString("(picture)"));
    EXPECT_EQ(dialog->m_pFileList->currentRow(), 1);
}

TEST_F(ImportPreview, FilesOfTheWorkstationAreReadByItsOwnReader)
{
    series("native", 3, "Halvane 1.0");
    show("native");
    EXPECT_EQ(message(), QString("(picture)"));
    EXPECT_EQ(gray(0.1), 0);
    EXPECT_EQ(gray(0.9), 255);
    dialog->m_pFrameSlider->setValue(3);
    EXPECT_EQ(gray(0.9), 255);
    EXPECT_EQ(message(), QString("(picture)"));
    ASSERT_TRUE(
        DicomBuilder().implementation("HVS3D").photometric("RGB", 3).bits(8, 8).write(path("rgb/a.dcm")));
    show("rgb");
    EXPECT_EQ(message(), QString("Unable to generate preview. Data not compatible..."));
}

TEST_F(ImportPreview, PixelsHaveTheirProportions)
{
    ASSERT_TRUE(DicomBuilder()
                    .size(side, side)
                    .samples(std::vector<std::int64_t>(side * side, 7))
                    .spacing(0.1, 0.4)
                    .set(0x0028, 0x0107, "7")
                    .write(path("p/a.dcm")));
    std::vector<std::int64_t> samples(side * side, 100);
    samples[0] = 0;
    ASSERT_TRUE(DicomBuilder().size(side, side).samples(samples).spacing(0.1, 0.4).write(path("p/a.dcm")));
    show("p");
    const QImage picture = dialog->findChild<QWidget*>("m_pPreview")->grab().toImage();
    const QPoint middle = picture.rect().center();
    EXPECT_EQ(qGray(picture.pixel(4, middle.y())), 255) << "four times as wide as high";
    EXPECT_EQ(qGray(picture.pixel(middle.x(), middle.y() - picture.width() / 4)), 0);
}

TEST_F(ImportPreview, ASingleFrameHasNothingToChooseOrPlay)
{
    series("one", 1);
    show("one");
    expectRange(1, 1, 1, 1);
    EXPECT_TRUE(dialog->m_pLoadButton->isEnabled());
    EXPECT_EQ(dialog->getSelectedFiles().size(), 1);
    QTest::mouseClick(dialog->m_pPlayButton, Qt::LeftButton);
    QTest::qWait(80);
    EXPECT_EQ(dialog->m_pFrameSlider->value(), 1);
}

TEST_F(ImportPreview, TheEndsOfTheRangeHoldEachOther)
{
    series("s", 10);
    show("s");
    dialog->m_pEndSpinBox->setValue(6);
    dialog->m_pStartSpinBox->setValue(3);
    expectRange(3, 6, 3, 6);
    EXPECT_EQ(dialog->m_pStartSpinBox->minimum(), 1);
    EXPECT_EQ(dialog->m_pStartSpinBox->maximum(), 5);
    EXPECT_EQ(dialog->m_pEndSpinBox->minimum(), 4);
    EXPECT_EQ(dialog->m_pEndSpinBox->maximum(), 10);
    EXPECT_EQ(dialog->m_pFrameSlider->value(), 3) << "the frame follows into the range";
    EXPECT_EQ(dialog->m_pFrameLabel->text(), QString("3"));
    EXPECT_EQ(names(dialog->getSelectedFiles()),
              (QStringList{"slice_002.dcm", "slice_003.dcm", "slice_004.dcm", "slice_005.dcm"}));
}

TEST_F(ImportPreview, TheSpanSliderSetsTheRange)
{
    series("s", 10);
    show("s");
    dialog->m_pSpanSlider->setFocus(Qt::TabFocusReason);
    QTest::keyClick(dialog->m_pSpanSlider, Qt::Key_Right);
    QTest::keyClick(dialog->m_pSpanSlider, Qt::Key_Right);
    QTest::keyClick(dialog->m_pSpanSlider, Qt::Key_Tab);
    QTest::keyClick(dialog->m_pSpanSlider, Qt::Key_Left);
    expectRange(3, 9, 3, 9);
    QTest::keyClick(dialog->m_pSpanSlider, Qt::Key_Home);
    expectRange(2, 3, 2, 3);
    dialog->m_pSpanSlider->setLowerValue(10);
    expectRange(9, 10, 9, 10);
}

TEST_F(ImportPreview, ButtonsTakeTheFrameThatIsShown)
{
    series("s", 10);
    show("s");
    dialog->m_pFrameSlider->setValue(4);
    QTest::mouseClick(dialog->m_pStartFrameButton, Qt::LeftButton);
    dialog->m_pFrameSlider->setValue(7);
    QTest::mouseClick(dialog->m_pEndFrameButton, Qt::LeftButton);
    expectRange(4, 7, 4, 7);
    QTest::mouseClick(dialog->m_pStartFrameButton, Qt::LeftButton);
    expectRange(6, 7, 6, 7);
}

TEST_F(ImportPreview, AFileOutsideTheRangeIsNotShown)
{
    series("s", 10);
    show("s");
    dialog->m_pEndSpinBox->setValue(5);
    QTest::mouseClick(dialog->m_pFileList->viewport(), Qt::LeftButton, {},
                      dialog->m_pFileList->visualItemRect(dialog->m_pFileList->item(7)).center());
    EXPECT_EQ(dialog->m_pFrameSlider->value(), 5);
    EXPECT_EQ(dialog->m_pFileList->currentRow(), 4);
}

TEST_F(ImportPreview, PlayingGoesRoundInsideTheRange)
{
    series("s", 8);
    show("s");
    dialog->m_pEndSpinBox->setValue(5);
    dialog->m_pStartSpinBox->setValue(3);
    std::vector<int> shown;
    QObject::connect(dialog->m_pFrameSlider, &QSlider::valueChanged, dialog,
                     [&shown](int frameNumber) { shown.push_back(frameNumber); });
    QElapsedTimer clock;
    clock.start();
    QTest::mouseClick(dialog->m_pPlayButton, Qt::LeftButton);
    while (shown.size() < 7 && clock.elapsed() < 5000)
        QTest::qWait(5);
    const qint64 elapsed = clock.elapsed();
    ASSERT_GE(shown.size(), 7U);
    shown.resize(7);
    EXPECT_EQ(shown, (std::vector<int>{4, 5, 3, 4, 5, 3, 4}));
    EXPECT_GE(elapsed, 7 * 33 - 40) << "a frame each 33 ms";
    QTest::mouseClick(dialog->m_pPlayButton, Qt::LeftButton);
    const int last = dialog->m_pFrameSlider->value();
    QTest::qWait(100);
    EXPECT_EQ(dialog->m_pFrameSlider->value(), last);
}

TEST_F(ImportPreview, FramesDoNotPileUpWhilePlaying)
{
    series("s", 100);
    show("s");
    QTest::mouseClick(dialog->m_pPlayButton, Qt::LeftButton);
    QTest::qWait(50);
    int changes = 0;
    QObject::connect(dialog->m_pFrameSlider, &QSlider::valueChanged, dialog, [&changes] { ++changes; });
    QThread::msleep(500);
    QCoreApplication::processEvents();
    EXPECT_LE(changes, 2) << "of the fifteen that were due while nothing was handled";
}

TEST_F(ImportPreview, EachFrameHasItsOwnRange)
{
    series("s", 5);
    show("s");
    for (const int number : {1, 3, 5}) {
        dialog->m_pFrameSlider->setValue(number);
        EXPECT_EQ(gray(0.9), 255) << "the brightest value is white, be it 1000 or 5000";
        EXPECT_EQ(gray(0.1), 0);
    }
}

TEST_F(ImportPreview, FoldersThatDifferByCaseAreTheSameSelection)
{
    series("scan", 3);
    series("SCAN", 5);
    send(new CVolBrowseStartEvent("Searching..."));
    sendFound(infoOf("scan"));
    sendFound(infoOf("SCAN"));
    send(new CVolBrowseEndEvent(""));
    clickRow(1);
    EXPECT_EQ(fileList().size(), 3);
}

TEST_F(ImportPreview, ThePlayButtonShowsWhatAClickWillDo)
{
    series("s", 4);
    show("s");
    const auto picture = [this] { return dialog->m_pPlayButton->icon().pixmap(16, 16).toImage(); };
    const auto resource = [](const char* name) { return QIcon(name).pixmap(16, 16).toImage(); };
    EXPECT_EQ(picture(), resource(":/Resource/play_green.xpm"));
    QTest::mouseClick(dialog->m_pPlayButton, Qt::LeftButton);
    EXPECT_EQ(picture(), resource(":/Resource/stop_blue.xpm"));
    QTest::mouseClick(dialog->m_pPlayButton, Qt::LeftButton);
    EXPECT_EQ(picture(), resource(":/Resource/play_green.xpm"));
}

TEST_F(ImportPreview, PlayingRestsWhileMinimised)
{
    series("s", 8);
    show("s");
    QTest::mouseClick(dialog->m_pPlayButton, Qt::LeftButton);
    dialog->onSignalWindowStateChanged(Qt::WindowNoState, Qt::WindowMinimized);
    const int last = dialog->m_pFrameSlider->value();
    QTest::qWait(100);
    EXPECT_EQ(dialog->m_pFrameSlider->value(), last);
    dialog->onSignalWindowStateChanged(Qt::WindowMinimized, Qt::WindowNoState);
    QTRY_VERIFY(dialog->m_pFrameSlider->value() != last);
}

TEST_F(ImportPreview, ArrowKeysAndClicksChooseTheDataSet)
{
    series("a", 2);
    series("b", 3);
    tiff("c/x.tif", 4);
    send(new CVolBrowseStartEvent("Searching..."));
    sendFound(infoOf("a"));
    sendFound(infoOf("b"));
    sendFound(infoOf("c", "TIFF"));
    send(new CVolBrowseEndEvent(""));
    EXPECT_EQ(dialog->getSelectedFolder(), path("a"));
    dialog->m_pCompatibleDataList->setFocus();
    QTest::keyClick(dialog->m_pCompatibleDataList, Qt::Key_Down);
    EXPECT_EQ(dialog->getSelectedFolder(), path("b"));
    expectRange(1, 3, 1, 3);
    QTest::keyClick(dialog->m_pCompatibleDataList, Qt::Key_Down);
    EXPECT_EQ(dialog->getSelectedFolder(), path("c"));
    expectRange(1, 4, 1, 4);
    clickRow(0);
    EXPECT_EQ(dialog->getSelectedFolder(), path("a"));
    expectRange(1, 2, 1, 2);
}

TEST_F(ImportPreview, ASecondClickOnTheSelectionKeepsItsFrameAndRange)
{
    series("a", 6);
    show("a");
    dialog->m_pStartSpinBox->setValue(2);
    dialog->m_pFrameSlider->setValue(4);
    clickRow(0);
    EXPECT_EQ(dialog->m_pFrameSlider->value(), 4);
    EXPECT_EQ(dialog->getStartFrame(), 2);
}

TEST_F(ImportPreview, ADoubleClickAsksForTheLoadWhenThereIsSomething)
{
    series("a", 3);
    QDir().mkpath(path("bad"));
    QFile bad(path("bad/a.dcm"));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.close();
    send(new CVolBrowseStartEvent("Searching..."));
    sendFound(infoOf("a"));
    sendFound(infoOf("bad"));
    send(new CVolBrowseEndEvent(""));
    QSignalSpy load(dialog, SIGNAL(emitLoadDataSignal()));
    clickRow(0, true);
    EXPECT_EQ(load.size(), 1);
    clickRow(1, true);
    EXPECT_EQ(load.size(), 1);
    EXPECT_FALSE(dialog->m_pLoadButton->isEnabled());
}

TEST_F(ImportPreview, ADamagedFirstFileIsToldOnThePage)
{
    series("a", 3);
    for (const char* content : {"", "no picture at all", "II*\0"}) {
        QFile file(path("bad/a.dcm"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        dialog->m_pPlayButton->setChecked(true);
        show("bad");
        EXPECT_EQ(message(), QString("Unable to generate preview. Data not compatible...")) << content;
        EXPECT_FALSE(dialog->m_pLoadButton->isEnabled());
        EXPECT_FALSE(dialog->m_pPlayButton->isChecked());
        EXPECT_EQ(host.cursorDepth(), 0);
    }
    show("a");
    EXPECT_EQ(message(), QString("(picture)"));
}

TEST_F(ImportPreview, AColourPictureIsRefused)
{
    tiff("rgb/a.tif", 1, 3);
    show("rgb", "TIFF");
    EXPECT_EQ(message(), QString("Unable to generate preview. Data not compatible..."));
    EXPECT_EQ(dialog->initData(), 30);
    ASSERT_TRUE(DicomBuilder().photometric("RGB", 3).bits(8, 8).write(path("colour/a.dcm")));
    show("colour");
    EXPECT_EQ(message(), QString("Unable to generate preview. Data not compatible..."));
}

TEST_F(ImportPreview, ARawFileHasNoPreviewAndCanBeLoaded)
{
    QDir().mkpath(path("raw"));
    QFile raw(path("raw/a.RAW"));
    ASSERT_TRUE(raw.open(QIODevice::WriteOnly));
    raw.write("VolumeSize 2 2 2\n##\f\n12345678");
    raw.close();
    show("raw");
    EXPECT_EQ(dialog->initData(), 0);
    EXPECT_EQ(message(), QString("No Preview available..."));
    EXPECT_TRUE(dialog->m_pLoadButton->isEnabled());
    dialog->onFrameChanged(1);
    EXPECT_EQ(message(), QString("No Preview available..."));
}

TEST_F(ImportPreview, AFolderThatVanishedIsToldAndNotLoaded)
{
    series("gone", 3);
    series("there", 3);
    send(new CVolBrowseStartEvent("Searching..."));
    sendFound(infoOf("there"));
    sendFound(infoOf("gone"));
    send(new CVolBrowseEndEvent(""));
    ASSERT_TRUE(QDir(path("gone")).removeRecursively());
    clickRow(1);
    EXPECT_EQ(message(), QString("Unable to locate file on disk..."));
    EXPECT_FALSE(dialog->m_pLoadButton->isEnabled());
    EXPECT_EQ(dialog->m_pStatusLabel->text(), QString());
    EXPECT_EQ(dialog->initData(), 65);
    clickRow(0);
    EXPECT_EQ(message(), QString("(picture)"));
    EXPECT_TRUE(dialog->m_pLoadButton->isEnabled());
}

TEST_F(ImportPreview, AFileThatVanishesIsToldAndTheOthersGoOn)
{
    const QStringList files = series("s", 4);
    show("s");
    ASSERT_TRUE(QFile::remove(files[2]));
    dialog->m_pFrameSlider->setValue(3);
    EXPECT_EQ(message(), QString("Unable to locate file on disk..."));
    EXPECT_EQ(dialog->m_pStatusLabel->text(), QString("Unable to locate DICOM file on disk."));
    dialog->m_pFrameSlider->setValue(4);
    EXPECT_EQ(message(), QString("(picture)"));
    EXPECT_EQ(dialog->m_pStatusLabel->text(),
              QString("No valid 3D Scene. Data will be loaded in a new window."));
    tiff("t/a.tif", 1);
    tiff("t/b.tif", 1);
    show("t", "TIFF");
    ASSERT_TRUE(QFile::remove(path("t/b.tif")));
    dialog->m_pFrameSlider->setValue(2);
    EXPECT_EQ(dialog->m_pStatusLabel->text(), QString("Unable to locate TIFF file on disk."));
    EXPECT_EQ(message(), QString("Unable to locate file on disk..."));
}

TEST_F(ImportPreview, FilesThatChangeWhilePreviewedDoNoHarm)
{
    const QStringList files = series("s", 4);
    show("s");
    QFile file(files[1]);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.close();
    dialog->m_pFrameSlider->setValue(2);
    EXPECT_EQ(message(), QString("Unable to generate preview. Data not compatible..."));
    ASSERT_TRUE(DicomBuilder().size(5, 7).write(files[2]));
    dialog->m_pFrameSlider->setValue(3);
    EXPECT_EQ(message(), QString("(picture)")) << "another size of picture";
    multiFrame("m/a.dcm", 4);
    show("m");
    ASSERT_TRUE(QFile::resize(path("m/a.dcm"), 900));
    for (int number : {4, 2, 3}) {
        dialog->m_pFrameSlider->setValue(number);
        dialog->findChild<QWidget*>("m_pPreview")->grab();
    }
    multiFrame("m/a.dcm", 2);
    dialog->m_pFrameSlider->setValue(4);
    dialog->m_pFrameSlider->setValue(1);
    EXPECT_EQ(host.boxes().size(), 0);
}

TEST_F(ImportPreview, SizesBeyondAllMeasureAreRefused)
{
    ASSERT_TRUE(
        DicomBuilder().set(0x0028, 0x0010, "65535").set(0x0028, 0x0011, "65535").write(path("big/a.dcm")));
    show("big");
    EXPECT_EQ(message(), QString("Unable to generate preview. Data not compatible..."));
    ASSERT_TRUE(DicomBuilder().set(0x0028, 0x0008, "2147483647").write(path("many/a.dcm")));
    show("many");
    EXPECT_EQ(message(), QString("Unable to generate preview. Data not compatible..."));
    ASSERT_TRUE(DicomBuilder()
                    .transferSyntax("1.2.840.10008.1.2.5")
                    .set(0x0028, 0x0010, "65535")
                    .set(0x0028, 0x0011, "65535")
                    .write(path("packed/a.dcm")));
    show("packed");
    EXPECT_EQ(message(), QString("Unable to generate preview. Data not compatible..."));
}

TEST_F(ImportPreview, AnEmptyDataSetClearsTheSelection)
{
    series("a", 3);
    show("a");
    auto info = infoOf("nothing");
    info->m_files.clear();
    sendFound(std::move(info));
    clickRow(1);
    EXPECT_EQ(message(), QString("No Preview available..."));
    EXPECT_FALSE(dialog->m_pLoadButton->isEnabled());
    EXPECT_EQ(dialog->m_pStatusLabel->text(), QString());
    EXPECT_TRUE(dialog->getSelectedFiles().isEmpty());
    EXPECT_EQ(fileList(), QStringList());
    EXPECT_EQ(host.cursorDepth(), 0);
}

TEST_F(ImportPreview, TheStatusNamesTheTarget)
{
    series("a", 3);
    show("a");
    EXPECT_EQ(dialog->m_pStatusLabel->text(),
              QString("No valid 3D Scene. Data will be loaded in a new window."));
    TestSequence scene = SequenceBuilder("MOUSE").scene3D().open();
    scene.show();
    dialog->aboutToActivateWindow();
    EXPECT_EQ(dialog->m_pStatusLabel->text(), QString("Data will be loaded in MOUSE."));
    dialog->m_pNewWindowCheckBox->setFocus();
    QTest::keyClick(dialog->m_pNewWindowCheckBox, Qt::Key_Space);
    EXPECT_TRUE(dialog->isLoadInNewWindow());
    EXPECT_EQ(dialog->m_pStatusLabel->text(), QString());
    QTest::keyClick(dialog->m_pNewWindowCheckBox, Qt::Key_Space);
    scene.close();
    TestSequence optical = SequenceBuilder("CLICKS").other().open();
    optical.show();
    dialog->updateStatusMessage();
    EXPECT_EQ(dialog->m_pStatusLabel->text(),
              QString("No valid 3D Scene. Data will be loaded in a new window."));
}

TEST_F(ImportPreview, CtDataOfASequenceHasNoTarget)
{
    series("seq/CT Data", 3);
    auto info = infoOf("seq/CT Data");
    info->m_isCtDataFolder = true;
    send(new CVolBrowseStartEvent("Searching..."));
    sendFound(std::move(info));
    send(new CVolBrowseEndEvent(""));
    EXPECT_TRUE(dialog->isCtDataFolder());
    EXPECT_EQ(dialog->m_pStatusLabel->text(), QString());
    EXPECT_TRUE(dialog->m_pLoadButton->isEnabled());
}

}  // namespace
