#include "CVolBrowseManager.h"

#include "CVolBrowseEvents.h"
#include "CVolBrowserInfo.h"
#include "HostFirstFile.h"
#include "browse/logic/FileOrder.h"

#include "hvdicom/sortDICOMFileListByPosition.h"
#include "hvutils/CHVUtilityFns.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QMutexLocker>

#include <algorithm>
#include <exception>

static_assert(sizeof(std::atomic<bool>) == 1, "the flag is one byte");

namespace {

constexpr int walkStopped = 46;

// Below the folder of a sequence its CT data has a folder of its own.
bool isCtDataOfSequence(const QString& name, const QString& parentFolder)
{
    return name.compare(QLatin1String("CT Data"), Qt::CaseInsensitive) == 0 && !parentFolder.isEmpty() &&
           QFileInfo(parentFolder + QStringLiteral("/SequenceInfo.txt")).isFile();
}

}  // namespace

CVolBrowseManager::CVolBrowseManager(QObject* receiver)
    : m_receiver(receiver)
    , m_nameFilters{QStringLiteral("*.dcm"), QStringLiteral("*.dc3"), QStringLiteral("*.tif"),
                    QStringLiteral("*tiff")}
    , m_lister(m_nameFilters)
{}

CVolBrowseManager::~CVolBrowseManager()
{
    abort();
    wait();
}

void CVolBrowseManager::setBrowsePath(QString path, bool recursive)
{
    const QMutexLocker locker(&m_mutex);
    m_path = path;
    m_recursive = recursive;
}

void CVolBrowseManager::abort()
{
    // A browse that has been started and is yet to clear the flag learns it by the thread's own request.
    requestInterruption();
    const QMutexLocker locker(&m_mutex);
    m_abort = true;
}

bool CVolBrowseManager::isAborted() const
{
    return m_abort || isInterruptionRequested();
}

void CVolBrowseManager::run()
{
    QString path;
    bool recursive = false;
    {
        const QMutexLocker locker(&m_mutex);
        path = m_path;
        recursive = m_recursive;
    }
    browse(path, recursive);
}

void CVolBrowseManager::browse(const QString& path, bool)
{
    CHVUtilityFns::setCursor(QCursor(Qt::BusyCursor));
    post(new CVolBrowseStartEvent(QStringLiteral("Searching...")));
    QCoreApplication::processEvents();
    m_abort = false;
    m_entered.clear();
    QDir start(path);
    const QString name = start.dirName();
    walkFolder(path, {name, start.cdUp() ? start.absolutePath() : QString()});
    post(new CVolBrowseEndEvent(isAborted() ? QStringLiteral("Browsing aborted. ") : QString()));
    CHVUtilityFns::restoreCursor();
}

void CVolBrowseManager::post(QEvent* event) const
{
    QCoreApplication::postEvent(m_receiver, event);
}

// Returns walkStopped after an abort, else 0.
int CVolBrowseManager::walkFolder(const QString& folder, const Place& place)
{
    if (isAborted()) return walkStopped;
    post(new CVolBrowseProgressEvent(folder, 1, 1));
    QThread::msleep(0);
    FolderListing listing = m_lister.list(folder);
    // A link that leads back to a folder on the way here would be followed for ever.
    if (std::find(m_entered.begin(), m_entered.end(), listing.identity) != m_entered.end()) return 0;

    if (!listing.files.isEmpty()) {
        sortByName(listing.files);
        if (auto info = dataSetOf(folder, place, listing.files))
            post(new CVolBrowseOneFileCompltdEvent(std::move(info)));
    }
    listing.files.clear();

    if (listing.folders.isEmpty()) return 0;

    m_entered.push_back(listing.identity);
    const QDir dir(folder);
    const QString above = dir.path() + QLatin1Char('/');
    const QString parentFolder = dir.absolutePath();
    int status = 0;
    for (auto name = listing.folders.cbegin(); name != listing.folders.cend() && status != walkStopped;
         ++name)
        status = walkFolder(above + *name, {*name, parentFolder});
    m_entered.pop_back();
    return status;
}

std::unique_ptr<CVolBrowserInfo> CVolBrowseManager::dataSetOf(const QString& folder, const Place& place,
                                                              const QStringList& files)
try {
    HostFirstFile first(folder, files.first());
    const std::optional<FolderClass> found = classifyFolder(first, {files.size(), files.first()});
    if (!found) return nullptr;

    auto info = std::make_unique<CVolBrowserInfo>();
    info->m_type = found->isTiff ? QStringLiteral("TIFF") : QStringLiteral("DICOM");
    info->m_folder = folder;
    info->m_name = place.name;
    info->m_parentFolder = place.parentFolder;
    info->m_slices = found->slices;
    info->m_fileCount = files.size();
    info->m_files =
        found->sortByPosition ? sortDICOMFileListByPosition(files, folder + QLatin1Char('/')) : files;
    info->m_dataType = found->dataType;
    info->m_modality = found->modality;
    info->m_dimension = found->dimension;
    info->m_pixelSpacing = found->pixelSpacing;
    info->m_sliceSpacing = found->sliceSpacing;
    if (isCtDataOfSequence(info->m_name, info->m_parentFolder)) {
        info->m_isCtDataFolder = true;
        info->m_name = QDir(place.parentFolder).dirName();
    }
    return info;
} catch (const std::exception&) {
    // A file that brings its reader to an end is one that cannot be classified.
    return nullptr;
}
