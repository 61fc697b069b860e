// Browsing: the choice of a folder, the thread, and what its events bring.

#include "browse/C3DCVImportDialog.h"

#include "browse/CVolBrowseEvents.h"
#include "browse/CVolBrowseListItemModel.h"
#include "browse/CVolBrowseManager.h"
#include "browse/CVolBrowserInfo.h"
#include "browse/logic/DataSetIcon.h"
#include "browse/logic/Preview.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSSettings.h"
#include "hvutils/CHVUtilityFns.h"
#include "hvutils/Sleep.h"
#include "hvutils/shortenFolderNameForDisplay.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QIcon>
#include <QPointer>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr unsigned long servedEvery = 1000;  // ms

}  // namespace

QString C3DCVImportDialog::getBrowseFolder()
{
    static QString start = CHVPreference::getSettings()->getBrowsePath();
    QString folder =
        QFileDialog::getExistingDirectory(this, QStringLiteral("Halvane Corvane Folder:"), start);
    if (!folder.isEmpty()) start = folder;
    return folder;
}

void C3DCVImportDialog::onClickBrowse()
{
    browseFolder(getBrowseFolder());
}

void C3DCVImportDialog::onClickBrowsePath()
{
    const QString folder = getBrowseFolder();
    if (folder.isEmpty()) return;
    const QFileInfo info(folder);
    if (!info.isDir() || !info.isReadable()) {
        CHVSErrorHandler::errorMessage(this, eStatusFileNotReadable, QString());
        return;
    }
    browseFolder(folder);
}

void C3DCVImportDialog::onClickBrowsePathChosen()
{
    browseFolder(m_strBrowsePath);
}

void C3DCVImportDialog::browseFolder(const QString& folder)
{
    if (folder.isEmpty() || m_pBrowseManager->isRunning()) return;
    m_pLoadButton->setEnabled(false);
    setStatus(QString());
    const QPointer<C3DCVImportDialog> self(this);
    browse(folder);
    if (self) m_strBrowsePath = folder;
}

void C3DCVImportDialog::browse(QString strFolderPath)
{
    if (m_pBrowseManager->isRunning()) return;
    m_pBrowseManager->setBrowsePath(strFolderPath, true);
    m_pBrowseManager->start(QThread::InheritPriority);
    // The events that are handled here may close the application, and this window with it.
    const QPointer<C3DCVImportDialog> self(this);
    while (self && m_pBrowseManager->isRunning()) {
        Sleep(servedEvery);
        QCoreApplication::processEvents();
    }
}

void C3DCVImportDialog::stopBrowsing()
{
    m_pBrowseManager->abort();
}

void C3DCVImportDialog::customEvent(QEvent* event)
{
    switch (static_cast<int>(event->type())) {
    case CVolBrowseStartEvent::eventType:
        onBrowseStarted();
        break;
    case CVolBrowseProgressEvent::eventType:
        onBrowseProgress(static_cast<CVolBrowseProgressEvent*>(event)->folder());
        break;
    case CVolBrowseOneFileCompltdEvent::eventType:
        onDataSetFound(static_cast<CVolBrowseOneFileCompltdEvent*>(event)->takeInfo());
        break;
    case CVolBrowseEndEvent::eventType:
        m_pProgressBar->setValue(100);
        CHVUtilityFns::setCanClose(true);
        onBrowseEnded();
        break;
    default:
        QDialog::customEvent(event);
    }
}

void C3DCVImportDialog::onBrowseStarted()
{
    m_bBrowsing = true;
    {
        const QSignalBlocker quiet(m_pFileList);
        m_pFileList->clear();
    }
    m_strCurrentFolder.clear();
    clearSelection();
    if (!m_bAddToList) {
        m_strBrowsedFolders.clear();
        m_pModel->clear();
    }
    m_pBrowseButton->setEnabled(false);
    CHVUtilityFns::setCanClose(false);
    m_nProgress = 0;
    m_pProgressBar->setValue(0);
    m_pProgressLabel->clear();
    m_pProgressLabel->show();
    m_pProgressBar->show();
    m_pAbortButton->show();
    m_pStatusLabel->hide();
    m_pCompatibleDataList->setSortingEnabled(true);
}

// The bar runs round and round: nobody knows how many folders there are.
void C3DCVImportDialog::onBrowseProgress(QString folder)
{
    shortenFolderNameForDisplay(folder);
    m_pProgressLabel->setText(QStringLiteral("Searching ") + folder + QStringLiteral("..."));
    m_nProgress = m_nProgress >= 100 ? 0 : m_nProgress + 1;
    m_pProgressBar->setValue(m_nProgress);
}

void C3DCVImportDialog::onDataSetFound(std::unique_ptr<CVolBrowserInfo> info)
{
    if (m_pModel->rowCount() == 0)
        m_pModel->setHorizontalHeaderLabels(CVolBrowseListItemModel::columnHeaders());
    if (!info) return;
    const QString place = info->m_parentFolder + QLatin1Char('/') + info->m_name;
    if (m_bAddToList && m_strBrowsedFolders.contains(place)) return;
    m_strBrowsedFolders << place;
    const QIcon icon(dataSetIcon(info->m_type, info->m_fileCount));
    const QModelIndex name = m_pModel->appendDataSet(std::move(info), icon);
    if (m_pModel->rowCount() == 1) {
        m_pCompatibleDataList->setCurrentIndex(name);
        onChangeCurrentFolderSelection(name);
    }
    fitColumns(name.row());
}

// The columns have the width of what was in them before: only the new row is measured, since there may be
// thousands.
void C3DCVImportDialog::fitColumns(int row)
{
    QHeaderView* const header = m_pCompatibleDataList->header();
    if (m_pModel->rowCount() == 1) m_columnWidths.clear();
    m_columnWidths.resize(m_pModel->columnCount());
    for (int column = 0; column < m_columnWidths.size(); ++column) {
        const int wanted =
            std::max(m_pCompatibleDataList->sizeHintForIndex(m_pModel->index(row, column)).width(),
                     header->sectionSizeHint(column));
        m_columnWidths[column] = std::max(m_columnWidths[column], wanted);
        header->resizeSection(column, m_columnWidths[column]);
    }
}

void C3DCVImportDialog::onBrowseEnded()
{
    m_bBrowsing = false;
    m_pProgressLabel->hide();
    m_pProgressBar->hide();
    m_pAbortButton->hide();
    m_pStatusLabel->show();
    m_pBrowseButton->setEnabled(true);
}
