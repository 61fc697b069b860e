#pragma once

#include <QString>

#include <memory>

class QLockFile;

/// Keeps two programs from working in one data folder, where each would delete the other's temporary volumes.
class InstanceLock
{
public:
    InstanceLock();
    ~InstanceLock();

    /// Takes the folder, which is created if missing. False with `reason()` when it can't be written or
    /// another living program holds it. What a killed program left does not count.
    bool take(const QString& folder);

    /// Makes and takes a folder of this process's own under `parent`; it is removed with this object. Folders
    /// of programs that died are removed on the way. Empty with `reason()` on failure.
    QString takeOwnFolder(const QString& parent);

    const QString& reason() const { return m_reason; }

private:
    std::unique_ptr<QLockFile> m_lock;
    QString m_ownFolder;
    QString m_reason;
};
