#pragma once

#include "browse/CVolBrowseEvents.h"
#include "browse/CVolBrowseManager.h"
#include "browse/CVolBrowserInfo.h"
#include "support/TiffFiles.h"
#include "support/dicom/DicomBuilder.h"
#include "testing/TestHostServices.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

namespace viz_test {

/// Takes the events of a browse and keeps what they carry.
class BrowseReceiver : public QObject
{
public:
    QStringList log;  ///< "start TEXT", "folder PATH", "data PATH", "end TEXT", in the order of arrival
    std::vector<std::unique_ptr<CVolBrowserInfo>> found;
    int foldersEntered = 0;
    std::function<void(int eventType)> onEvent;

    bool hasEnded() const { return !log.isEmpty() && log.last().startsWith("end "); }

    QStringList foundFolders() const
    {
        QStringList folders;
        for (const auto& info : found)
            folders << info->m_folder;
        return folders;
    }

    /// The data set of a folder; null when there is none.
    const CVolBrowserInfo* of(const QString& folder) const
    {
        for (const auto& info : found)
            if (info->m_folder == folder) return info.get();
        return nullptr;
    }

protected:
    void customEvent(QEvent* event) override
    {
        switch (static_cast<int>(event->type())) {
        case 1100:
            log << "start " + static_cast<CVolBrowseStartEvent*>(event)->text();
            break;
        case 1101: {
            auto* const progress = static_cast<CVolBrowseProgressEvent*>(event);
            log << "folder " + progress->folder();
            ++foldersEntered;
            EXPECT_EQ(progress->step(), 1);
            EXPECT_EQ(progress->total(), 1);
            break;
        }
        case 1102:
            found.push_back(static_cast<CVolBrowseOneFileCompltdEvent*>(event)->takeInfo());
            ASSERT_TRUE(found.back());
            log << "data " + found.back()->m_folder;
            break;
        case 1103:
            log << "end " + static_cast<CVolBrowseEndEvent*>(event)->text();
            break;
        default:
            ADD_FAILURE() << "an event of type " << event->type();
        }
        if (onEvent) onEvent(event->type());
    }
};

/// Browses a folder to the end and delivers all events.
inline void browse(CVolBrowseManager& manager, const QString& folder)
{
    manager.setBrowsePath(folder, true);
    manager.start(QThread::InheritPriority);
    while (manager.isRunning()) {
        manager.wait(5);
        QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
}

/// A tree of folders, written by code, that goes with the test.
class BrowseTree : public testing::Test
{
protected:
    BrowseTree() { EXPECT_TRUE(m_root.isValid()); }

    /// Absolute path of something in the tree; its folder is made.
    QString path(const QString& relative)
    {
        const QString path = QDir(m_root.path()).absoluteFilePath(relative);
        EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        return path;
    }
    QString folder(const QString& relative = {})
    {
        const QString path = relative.isEmpty() ? m_root.path() : m_root.path() + '/' + relative;
        EXPECT_TRUE(QDir().mkpath(path));
        return path;
    }
    void write(const QString& relative, const QByteArray& bytes)
    {
        QFile file(path(relative));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    void dicom(const QString& relative, const DicomBuilder& builder = DicomBuilder())
    {
        ASSERT_TRUE(builder.write(path(relative)));
    }
    void tiff(const QString& relative, unsigned pages = 1, unsigned bits = 8)
    {
        TiffKind kind;
        kind.width = 5;
        kind.height = 3;
        kind.bits = bits;
        writeTiff(path(relative), kind,
                  std::vector<std::vector<std::uint32_t>>(pages, std::vector<std::uint32_t>(15)));
    }

    /// Browses the whole tree, or a folder of it.
    void browseTree(const QString& relative = {}) { browse(manager, folder(relative)); }

    /// The rules' own words: what QDir lists through the name filters, in no order of its own.
    QStringList listedFiles(const QString& relative)
    {
        return QDir(folder(relative)).entryList({"*.dcm", "*.dc3", "*.tif", "*tiff"}, QDir::Files);
    }

    QTemporaryDir m_root;
    TestHostServices host;
    BrowseReceiver receiver;
    CVolBrowseManager manager{&receiver};
};

}  // namespace viz_test
