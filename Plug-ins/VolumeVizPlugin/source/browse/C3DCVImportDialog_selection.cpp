// The data set that is selected: its files, its range of frames, and playing.

#include "browse/C3DCVImportDialog.h"

#include "browse/CVolBrowseListItemModel.h"
#include "browse/CVolBrowseManager.h"
#include "browse/CVolBrowserInfo.h"
#include "browse/logic/FrameRange.h"
#include "browse/logic/Preview.h"
#include "hvutils/CHVUtilityFns.h"

#include <QCursor>
#include <QFileInfo>
#include <QIcon>
#include <QSignalBlocker>
#include <QTimerEvent>

namespace {

constexpr int playInterval = 33;  // ms

}  // namespace

void C3DCVImportDialog::onChangeCurrentFolderSelection(QModelIndex index)
{
    m_bCtDataFolder = false;
    const CVolBrowserInfo* const info = m_pModel->dataSet(index);
    if (!info) return;
    m_bCtDataFolder = info->m_isCtDataFolder;
    if (info->m_folder.compare(m_strCurrentFolder, Qt::CaseInsensitive) == 0) return;
    takeSelection(*info);
}

void C3DCVImportDialog::takeSelection(const CVolBrowserInfo& info)
{
    m_bBusy = true;
    m_strCurrentFolder = info.m_folder;
    m_strFiles = info.m_files;
    CHVUtilityFns::setCursor(QCursor(Qt::WaitCursor));
    {
        const QSignalBlocker quietFiles(m_pFileList);
        const QSignalBlocker quietFrame(m_pFrameSlider);
        m_pFileList->clear();
        m_pFileList->addItems(m_strFiles);
        if (!m_strFiles.isEmpty()) m_pFileList->setCurrentRow(0);
        m_pFrameSlider->setValue(1);
    }
    m_bBusy = false;
    if (m_strFiles.isEmpty()) {
        setStatus(QString());
        clearSelection();
    } else {
        showOpened(initData());
    }
    CHVUtilityFns::restoreCursor();
}

void C3DCVImportDialog::clearSelection()
{
    m_strFiles.clear();
    m_pLoadButton->setEnabled(false);
    enablePlaying(false);
    showPage(PreviewPage::NoPreview);
    m_timer.stop();
}

void C3DCVImportDialog::showOpened(int status)
{
    const PreviewPage page = pageAfterOpening(status, m_bIsRaw, QFileInfo(m_strCurrentFolder).isDir());
    if (status != 0) {
        m_pLoadButton->setEnabled(false);
        enablePlaying(false);
        showPage(page);
        if (page == PreviewPage::NotFound) {
            setStatus(QString());
            m_timer.stop();
        } else {
            m_pPlayButton->setChecked(false);
            onAutoPreviewClicked();
        }
        return;
    }
    enablePlaying(!m_bIsRaw);
    onAutoPreviewClicked();
    showPage(page);
    m_pLoadButton->setEnabled(true);
    updateStatusMessage();
    // The first frame is there already.
    const QSignalBlocker quiet(m_pFrameSlider);
    showRange(FrameRange::whole(frameCount()));
    m_pFrameSlider->setValue(1);
    m_pFrameLabel->setText(QStringLiteral("%1").arg(1));
}

void C3DCVImportDialog::enablePlaying(bool enabled)
{
    for (QWidget* const widget :
         {static_cast<QWidget*>(m_pFrameSlider), static_cast<QWidget*>(m_pPlayButton),
          static_cast<QWidget*>(m_pStartFrameButton), static_cast<QWidget*>(m_pEndFrameButton),
          static_cast<QWidget*>(m_pStartSpinBox), static_cast<QWidget*>(m_pEndSpinBox),
          static_cast<QWidget*>(m_pSpanSlider)})
        widget->setEnabled(enabled);
}

int C3DCVImportDialog::frameCount() const
{
    return m_strFiles.size() < 2 ? m_nFrames : m_strFiles.size();
}

FrameRange C3DCVImportDialog::chosenRange() const
{
    return FrameRange::of(m_pStartSpinBox->value(), m_pEndSpinBox->value(), m_pEndSpinBox->maximum());
}

void C3DCVImportDialog::showRange(const FrameRange& range)
{
    const QSignalBlocker quietStart(m_pStartSpinBox);
    const QSignalBlocker quietEnd(m_pEndSpinBox);
    const QSignalBlocker quietSpan(m_pSpanSlider);
    m_pStartSpinBox->setRange(range.firstMinimum(), range.firstMaximum());
    m_pStartSpinBox->setValue(range.first);
    m_pEndSpinBox->setRange(range.lastMinimum(), range.lastMaximum());
    m_pEndSpinBox->setValue(range.last);
    m_pSpanSlider->setRange(1, range.count);
    m_pSpanSlider->setLowerValue(range.first);
    m_pSpanSlider->setUpperValue(range.last);
    // Not quiet: a frame that is left outside gives way to the nearest one, and is shown.
    m_pFrameSlider->setRange(range.first, range.last);
}

void C3DCVImportDialog::onRangeChanged(int)
{
    showRange(chosenRange());
}

void C3DCVImportDialog::onSpanSliderValueChanged(int lower, int upper)
{
    showRange(chosenRange().movedTo(lower, upper));
}

void C3DCVImportDialog::onStartFrameButtonClicked()
{
    m_pStartSpinBox->setValue(m_pFrameSlider->value());
    onRangeChanged(m_pStartSpinBox->value());
}

void C3DCVImportDialog::onEndFrameButtonClicked()
{
    m_pEndSpinBox->setValue(m_pFrameSlider->value());
    onRangeChanged(m_pEndSpinBox->value());
}

void C3DCVImportDialog::onDoubleClickFolderSelection(QModelIndex index)
{
    onChangeCurrentFolderSelection(index);
    loadSelection();
}

void C3DCVImportDialog::onExpandCurrentFolder(QModelIndex index)
{
    onChangeCurrentFolderSelection(index);
}

void C3DCVImportDialog::onClickAccButton()
{
    loadSelection();
}

void C3DCVImportDialog::loadSelection()
{
    if (!m_pLoadButton->isEnabled()) return;
    m_timer.stop();
    emit emitLoadDataSignal();
}

void C3DCVImportDialog::onChangeCurrentFileSelection(int row)
{
    m_pFrameSlider->setValue(row + 1);
    // A file outside the range is not shown: the list goes back to the one that is.
    if (row < 0 || m_pFrameSlider->value() == row + 1) return;
    const QSignalBlocker quiet(m_pFileList);
    m_pFileList->setCurrentRow(m_pFrameSlider->value() - 1);
}

void C3DCVImportDialog::onAutoPreviewClicked()
{
    const bool plays = m_pPlayButton->isChecked() && canPlay(m_strFiles.size(), m_nFrames, m_bIsRaw);
    if (plays) {
        m_pPlayButton->setIcon(QIcon(QStringLiteral(":/Resource/stop_blue.xpm")));
        m_timer.start(playInterval, this);
    } else {
        m_pPlayButton->setIcon(QIcon(QStringLiteral(":/Resource/play_green.xpm")));
        m_timer.stop();
    }
}

void C3DCVImportDialog::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId()) {
        QDialog::timerEvent(event);
        return;
    }
    if (m_bBusy || !m_pPlayButton->isChecked()) m_timer.stop();
    if (!m_timer.isActive()) return;
    m_pFrameSlider->setValue(
        nextFrame(m_pFrameSlider->value(), m_pFrameSlider->minimum(), m_pFrameSlider->maximum()));
}
