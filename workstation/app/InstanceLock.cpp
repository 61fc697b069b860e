#include "InstanceLock.h"

#include <QCoreApplication>
#include <QDir>
#include <QLockFile>

namespace {

const QString& lockName()
{
    static const QString name = QStringLiteral("halvane.lock");
    return name;
}

std::unique_ptr<QLockFile> lockOf(const QString& folder)
{
    auto lock = std::make_unique<QLockFile>(folder + QLatin1Char('/') + lockName());
    lock->setStaleLockTime(0);  // a lock is stale when its process is gone, not when it is old
    return lock;
}

/// Snapshot folders whose program did not live to remove them.
void removeAbandoned(const QString& parent)
{
    const QStringList names =
        QDir(parent).entryList({QStringLiteral("snapshot-*")}, QDir::Dirs | QDir::NoSymLinks);
    for (const QString& name : names) {
        const QString folder = parent + QLatin1Char('/') + name;
        const std::unique_ptr<QLockFile> lock = lockOf(folder);
        if (!lock->tryLock(0)) continue;
        lock->unlock();
        QDir(folder).removeRecursively();
    }
}

}  // namespace

InstanceLock::InstanceLock() = default;

InstanceLock::~InstanceLock()
{
    m_lock.reset();
    if (!m_ownFolder.isEmpty()) QDir(m_ownFolder).removeRecursively();
}

bool InstanceLock::take(const QString& folder)
{
    if (!QDir().mkpath(folder)) {
        m_reason = QStringLiteral("the data folder '%1' can't be made").arg(folder);
        return false;
    }
    m_lock = lockOf(folder);
    if (m_lock->tryLock(0)) return true;
    if (m_lock->error() == QLockFile::LockFailedError) {
        qint64 process = 0;
        QString host;
        QString program;
        m_lock->getLockInfo(&process, &host, &program);
        m_reason = QStringLiteral("Halvane is running already (process %1) and works in '%2'")
                       .arg(process)
                       .arg(folder);
    } else {
        m_reason = QStringLiteral("the data folder '%1' can't be written").arg(folder);
    }
    m_lock.reset();
    return false;
}

QString InstanceLock::takeOwnFolder(const QString& parent)
{
    removeAbandoned(parent);
    QString folder = QStringLiteral("%1/snapshot-%2").arg(parent).arg(QCoreApplication::applicationPid());
    if (!take(folder)) return {};
    m_ownFolder = folder;
    return folder;
}
