#include "dialog/ImportBench.h"

#include "hvutils/CHVUtilityFns.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QSignalSpy>

namespace {

class ImportBrowse : public ImportBench
{
protected:
    int rows() const { return dialog->m_pCompatibleDataList->model()->rowCount(); }
    QString cell(int row, int column) const
    {
        const QAbstractItemModel* model = dialog->m_pCompatibleDataList->model();
        return model->index(row, column).data().toString();
    }
    QStringList nameColumn() const
    {
        QStringList result;
        for (int row = 0; row < rows(); ++row)
            result << cell(row, 0);
        result.sort();
        return result;
    }
    /// Folders that link to one another: each way through them ends, and there are millions. A browse of it
    /// ends only by an abort.
    QString endlessTree()
    {
        constexpr int count = 10;
        for (int i = 0; i < count; ++i)
            QDir().mkpath(path(QString("t/%1").arg(i)));
        for (int i = 0; i < count; ++i)
            for (int k = 0; k < count; ++k)
                if (i != k)
                    QFile::link(path(QString("t/%1").arg(k)), path(QString("t/%1/l%2").arg(i).arg(k)));
        return path("t");
    }
    bool canClose() const { return HostServices::instance().canClose(); }
};

TEST_F(ImportBrowse, HasItsTitleTextsAndTips)
{
    EXPECT_EQ(dialog->objectName(), QString("Corvane Browser"));
    EXPECT_EQ(dialog->windowTitle(), QString::fromUtf8("Browse 3D Volumetric Data\xe2\x80\xa6"));
    EXPECT_EQ(dialog->m_pAbortButton->toolTip(),
              QString("<b>Abort:</b>\n<br>The process can be abort at any time</br>"));
    EXPECT_EQ(dialog->m_pPlayButton->toolTip(),
              QString("<b>Play:</b><br>Preview selected 3D Volumetric data.</br>"));
    EXPECT_EQ(dialog->m_pFrameSlider->toolTip(),
              QString("<b>Slice Play Back:</b><br>Navigate 3D Volumetric data frames for preview.</br>"));
    EXPECT_EQ(dialog->m_pStartFrameButton->toolTip(), QString("Set current frame as Start Index."));
    EXPECT_EQ(dialog->m_pEndFrameButton->toolTip(), QString("Set current frame as End Index."));
    EXPECT_EQ(dialog->m_pLoadButton->text(), QString("Load"));
    EXPECT_EQ(dialog->m_pNewWindowCheckBox->text(), QString("Load in a new window"));
    EXPECT_EQ(dialog->m_pBrowseButton->text(), QString("Browse..."));
    EXPECT_EQ(dialog->m_pAddToListCheckBox->text(), QString("Add to list"));
    EXPECT_FALSE(dialog->m_pLoadButton->isEnabled());
    EXPECT_EQ(message(), QString("No Preview available..."));
}

TEST_F(ImportBrowse, ABrowseFindsTheFoldersAndPreviewsTheFirst)
{
    series("a", 3);
    tiff("b/deep/stack.tif", 4);
    browseByMouse(folder.path());
    ASSERT_EQ(rows(), 2);
    EXPECT_EQ(nameColumn(), (QStringList{"a", "deep"}));
    const QAbstractItemModel* model = dialog->m_pCompatibleDataList->model();
    QStringList headers;
    for (int column = 0; column < model->columnCount(); ++column)
        headers << model->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(headers, (QStringList{"Name", "Folder Path", "Slices", "Dimension", "Modality", "Pixel Spacing",
                                    "Slice Spacing", "Data Type", "Type"}));
    EXPECT_EQ(dialog->m_pCompatibleDataList->currentIndex().row(), 0);
    EXPECT_EQ(message(), QString("(picture)"));
    EXPECT_TRUE(dialog->m_pLoadButton->isEnabled());
    EXPECT_EQ(names(dialog->getSelectedFiles()),
              (QStringList{"slice_000.dcm", "slice_001.dcm", "slice_002.dcm"}));
    EXPECT_TRUE(dialog->m_pStatusLabel->isVisible());
    EXPECT_FALSE(dialog->m_pProgressBar->isVisible());
    EXPECT_FALSE(dialog->m_pAbortButton->isVisible());
    EXPECT_TRUE(dialog->m_pBrowseButton->isEnabled());
    EXPECT_TRUE(canClose());
    EXPECT_EQ(host.cursorDepth(), 0);
}

TEST_F(ImportBrowse, EachDataSetHasTheIconOfItsKind)
{
    series("one", 1);
    series("many", 2);
    tiff("single/a.tif", 1);
    tiff("stack/a.tif", 1);
    tiff("stack/b.tif", 1);
    send(new CVolBrowseStartEvent("Searching..."));
    sendFound(infoOf("one", "dicom"));
    sendFound(infoOf("many"));
    sendFound(infoOf("single", "TIFF"));
    sendFound(infoOf("stack", "TIFF"));
    const char* icons[] = {":/Resource/dicomIcon.xpm", ":/Resource/dicomStackIcon.xpm",
                           ":/Resource/tiffIcon.xpm", ":/Resource/tiffStackIcon.xpm"};
    ASSERT_EQ(rows(), 4);
    for (int row = 0; row < 4; ++row) {
        const auto icon =
            dialog->m_pCompatibleDataList->model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
        const QPixmap expected(icons[row]);
        ASSERT_FALSE(expected.isNull());
        EXPECT_EQ(icon.pixmap(expected.size()).toImage(), QIcon(expected).pixmap(expected.size()).toImage())
            << row;
    }
}

TEST_F(ImportBrowse, TheStartClearsAndHoldsTheClosing)
{
    series("a", 3);
    show("a");
    ASSERT_EQ(rows(), 1);
    send(new CVolBrowseStartEvent("Searching..."));
    EXPECT_EQ(rows(), 0);
    EXPECT_EQ(dialog->m_pFileList->count(), 0);
    EXPECT_EQ(message(), QString("No Preview available..."));
    EXPECT_FALSE(dialog->m_pBrowseButton->isEnabled());
    EXPECT_FALSE(canClose());
    EXPECT_TRUE(dialog->m_pProgressBar->isVisible());
    EXPECT_TRUE(dialog->m_pAbortButton->isVisible());
    EXPECT_FALSE(dialog->m_pStatusLabel->isVisible());
    EXPECT_TRUE(dialog->m_pCompatibleDataList->isSortingEnabled());
    EXPECT_EQ(dialog->m_pProgressBar->value(), 0);
    EXPECT_TRUE(dialog->getSelectedFiles().isEmpty());
    send(new CVolBrowseEndEvent("Browsing aborted. "));
    EXPECT_EQ(dialog->m_pProgressBar->value(), 100);
    EXPECT_TRUE(canClose());
}

TEST_F(ImportBrowse, TheBarGoesRoundAndTheFolderIsShortened)
{
    send(new CVolBrowseStartEvent("Searching..."));
    send(new CVolBrowseProgressEvent("/data/a", 1, 1));
    EXPECT_EQ(dialog->m_pProgressLabel->text(), QString("Searching /data/a..."));
    EXPECT_EQ(dialog->m_pProgressBar->value(), 1);
    for (int i = 0; i < 99; ++i)
        send(new CVolBrowseProgressEvent("/" + QString(200, 'x'), 1, 1));
    EXPECT_EQ(dialog->m_pProgressBar->value(), 100);
    EXPECT_LE(dialog->m_pProgressLabel->text().size(), 60 + 13);
    send(new CVolBrowseProgressEvent("/data/a", 1, 1));
    EXPECT_EQ(dialog->m_pProgressBar->value(), 0);
    send(new CVolBrowseEndEvent(""));
}

TEST_F(ImportBrowse, AnEventWithoutADataSetAddsNothing)
{
    send(new CVolBrowseStartEvent("Searching..."));
    sendFound(nullptr);
    EXPECT_EQ(rows(), 0);
    send(new CVolBrowseEndEvent(""));
}

TEST_F(ImportBrowse, AddToListKeepsTheRowsAndShowsEachDataSetOnce)
{
    series("a", 2);
    series("b", 2);
    QTest::mouseClick(dialog->m_pAddToListCheckBox, Qt::LeftButton, {}, QPoint(8, 8));
    ASSERT_TRUE(dialog->m_pAddToListCheckBox->isChecked());
    browseByMouse(folder.path());
    ASSERT_EQ(rows(), 2);
    browseByMouse(folder.path());
    EXPECT_EQ(rows(), 2);
    series("c", 2);
    browseByMouse(folder.path());
    EXPECT_EQ(nameColumn(), (QStringList{"a", "b", "c"}));
    QTest::mouseClick(dialog->m_pAddToListCheckBox, Qt::LeftButton, {}, QPoint(8, 8));
    browseByMouse(path("b"));
    EXPECT_EQ(nameColumn(), QStringList{"b"}) << "without it the list starts anew";
}

TEST_F(ImportBrowse, TheNextChoiceBeginsWhereTheLastWas)
{
    series("a", 2);
    browseByMouse(path("a"));
    modal.expect([this](QWidget* window) {
        auto* chooser = qobject_cast<QFileDialog*>(window);
        EXPECT_EQ(chooser->directory().absolutePath(), path("a"));
        chooser->reject();
    });
    QTest::mouseClick(dialog->m_pBrowseButton, Qt::LeftButton);
    EXPECT_EQ(rows(), 1) << "a choice that is given up changes nothing";
    EXPECT_TRUE(dialog->m_pLoadButton->isEnabled());
}

TEST_F(ImportBrowse, TheLastFolderCanBeBrowsedOnceMore)
{
    dialog->onClickBrowsePathChosen();
    EXPECT_EQ(rows(), 0) << "there was no browse yet";
    series("a", 2);
    browseByMouse(folder.path());
    series("b", 2);
    dialog->onClickBrowsePathChosen();
    QTest::qWait(10);
    EXPECT_EQ(nameColumn(), (QStringList{"a", "b"}));
}

TEST_F(ImportBrowse, AbortEndsTheBrowse)
{
    bool wasRunning = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, dialog, [&] {
        if (canClose() || !dialog->m_pAbortButton->isVisible()) return;
        wasRunning = true;
        dialog->m_pAbortButton->click();
    });
    timer.start(0);
    dialog->browse(endlessTree());
    QTest::qWait(10);
    EXPECT_TRUE(wasRunning);
    EXPECT_TRUE(dialog->m_pBrowseButton->isEnabled());
    EXPECT_TRUE(canClose());
}

TEST_F(ImportBrowse, AFolderThatIsNotThereGivesAnEmptyList)
{
    dialog->browse(path("nowhere/at all"));
    QTest::qWait(10);
    EXPECT_EQ(rows(), 0);
    EXPECT_TRUE(canClose());
    EXPECT_FALSE(dialog->m_pLoadButton->isEnabled());
}

/// A dialog whose question for a folder is answered.
class AnsweredDialog : public C3DCVImportDialog
{
public:
    QString getBrowseFolder() override { return answer; }

    QString answer;
};

TEST_F(ImportBrowse, AFolderThatCannotBeReadIsToldAndNotBrowsed)
{
    AnsweredDialog answered;
    answered.answer = path("nowhere");
    host.answerNextBox(1024);
    answered.onClickBrowsePath();
    ASSERT_EQ(host.boxes().size(), 1);
    EXPECT_EQ(answered.m_pCompatibleDataList->model()->rowCount(), 0);

    series("a", 2);
    answered.answer = folder.path();
    answered.onClickBrowse();
    QTest::qWait(10);
    EXPECT_EQ(answered.m_pCompatibleDataList->model()->rowCount(), 1);
    EXPECT_EQ(host.boxes().size(), 1);
}

TEST_F(ImportBrowse, ABrowseServesTheWindowOnceASecond)
{
    series("a", 2);
    QElapsedTimer clock;
    qint64 firstEvent = 0;
    QObject::connect(dialog->m_pCompatibleDataList->model(), &QAbstractItemModel::rowsInserted, dialog,
                     [&] { firstEvent = clock.elapsed(); });
    clock.start();
    dialog->browse(folder.path());
    EXPECT_GE(firstEvent, 1000) << "though the thread was ready long before";
    EXPECT_LT(clock.elapsed(), 3000);
}

TEST_F(ImportBrowse, EscapeLeavesTheWindowOpen)
{
    series("a", 2);
    show("a");
    for (QWidget* widget :
         {static_cast<QWidget*>(dialog), static_cast<QWidget*>(dialog->m_pCompatibleDataList),
          static_cast<QWidget*>(dialog->m_pSpanSlider), static_cast<QWidget*>(dialog->m_pFrameSlider)}) {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Escape);
        EXPECT_TRUE(dialog->isVisible());
    }
}

TEST_F(ImportBrowse, ClosingHidesTheWindowAndStopsPlaying)
{
    series("a", 4);
    show("a");
    QTest::mouseClick(dialog->m_pPlayButton, Qt::LeftButton);
    frame->close();
    EXPECT_FALSE(frame->isVisible());
    const int shown = dialog->m_pFrameSlider->value();
    QTest::qWait(120);
    EXPECT_EQ(dialog->m_pFrameSlider->value(), shown);
    dialog->showWindow();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(rows(), 1);
}

TEST_F(ImportBrowse, ClosingEndsABrowse)
{
    QTimer::singleShot(0, [this] { frame->close(); });
    dialog->browse(endlessTree());
    QTest::qWait(10);
    EXPECT_FALSE(frame->isVisible());
    EXPECT_TRUE(canClose());
}

TEST_F(ImportBrowse, AWindowThatGoesDuringABrowseTakesItAlong)
{
    const QString tree = endlessTree();
    const QPointer<C3DCVImportDialog> watched(dialog);
    QTimer::singleShot(0, [this] {
        delete frame;
        frame = nullptr;
    });
    dialog->browse(tree);
    EXPECT_TRUE(watched.isNull());
    EXPECT_TRUE(canClose());
    QTest::qWait(10);
    EXPECT_EQ(host.cursorDepth(), 0);
}

TEST_F(ImportBrowse, ADialogThatGoesRightAfterTheStartLeavesNothingBehind)
{
    series("a", 2);
    send(new CVolBrowseStartEvent("Searching..."));
    QCoreApplication::postEvent(dialog, new CVolBrowseOneFileCompltdEvent(infoOf("a")));
    EXPECT_FALSE(canClose());
    delete frame;
    frame = nullptr;
    EXPECT_TRUE(canClose());
}

TEST_F(ImportBrowse, ColumnsAreAsWideAsTheirWidestCell)
{
    series("a", 2);
    send(new CVolBrowseStartEvent("Searching..."));
    for (const char* name :
         {"a name of middling length", "short", "a name that is by far the longest of the three"}) {
        auto info = infoOf("a");
        info->m_name = name;
        sendFound(std::move(info));
        std::vector<int> widths;
        for (int column = 0; column < 9; ++column)
            widths.push_back(dialog->m_pCompatibleDataList->columnWidth(column));
        for (int column = 0; column < 9; ++column) {
            dialog->m_pCompatibleDataList->resizeColumnToContents(column);
            EXPECT_EQ(widths[static_cast<std::size_t>(column)],
                      dialog->m_pCompatibleDataList->columnWidth(column))
                << name << column;
        }
    }
    send(new CVolBrowseEndEvent(""));
    show("a");
    const int fresh = dialog->m_pCompatibleDataList->columnWidth(0);
    dialog->m_pCompatibleDataList->resizeColumnToContents(0);
    EXPECT_EQ(dialog->m_pCompatibleDataList->columnWidth(0), fresh) << "of the new list alone";
}

TEST_F(ImportBrowse, SlicesSortByNumberAfterAClickOnTheHeader)
{
    series("a", 1);
    send(new CVolBrowseStartEvent("Searching..."));
    for (const int slices : {10, 9, 100}) {
        auto info = infoOf("a");
        info->m_name = QString::number(slices);
        info->m_slices = QString::number(slices);
        sendFound(std::move(info));
    }
    send(new CVolBrowseEndEvent(""));
    auto* header = dialog->m_pCompatibleDataList->header();
    const QPoint slices(header->sectionViewportPosition(2) + 10, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, slices);
    QStringList order;
    for (int row = 0; row < rows(); ++row)
        order << cell(row, 2);
    if (order.first() == "100") std::reverse(order.begin(), order.end());
    EXPECT_EQ(order, (QStringList{"9", "10", "100"}));
}

}  // namespace
