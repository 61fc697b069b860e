#pragma once

#include "browse/FolderListing.h"

#include <QMutex>
#include <QString>
#include <QStringList>
#include <QThread>

#include <atomic>
#include <memory>
#include <vector>

class CVolBrowserInfo;

/// Looks through a folder and all below it for volumetric data, on a thread of its own. One folder with
/// matching files is one data set, and its first file decides. What it finds goes to the receiver by posted
/// events (CVolBrowseEvents.h): start, one for each folder entered, one for each data set, end.
///
/// The receiver has to outlive the manager. Destruction ends a browse and waits for it.
class CVolBrowseManager : public QThread
{
    Q_OBJECT

public:
    explicit CVolBrowseManager(QObject* receiver);
    ~CVolBrowseManager() override;

    /// The folder that the next start() looks through. Sub-folders always belong to it.
    void setBrowsePath(QString path, bool recursive);

    /// Ends a running browse when it next enters a folder. Any thread.
    void abort();

protected:
    void run() override;

private:
    void browse(const QString& path, bool recursive);
    struct Place
    {
        QString name;          // of a folder
        QString parentFolder;  // absolute; empty where there is none
    };
    int walkFolder(const QString& folder, const Place& place);
    void post(QEvent* event) const;
    bool isAborted() const;
    static std::unique_ptr<CVolBrowserInfo> dataSetOf(const QString& folder, const Place& place,
                                                      const QStringList& files);

    QObject* const m_receiver;
    QMutex m_mutex;  // guards the writer of m_abort
    std::atomic<bool> m_abort{false};
    QString m_path;
    bool m_recursive = false;
    const QStringList m_nameFilters;
    // The thread's own.
    FolderLister m_lister;
    std::vector<FolderIdentity> m_entered;  // from the start folder down to the present one
};
