#pragma once

#include <QDir>
#include <QString>

namespace viz_test {

/// Absolute path of a file or folder of the collection of real scans, or an empty string where it is absent.
/// The collection is not part of the project: a test that needs it skips with a message.
inline QString sharedData(const QString& relativePath)
{
    const QByteArray root = qgetenv("VIZ_SHARED_DATA");
    if (root.isEmpty()) return {};
    const QDir folder(QString::fromLocal8Bit(root));
    return folder.exists(relativePath) ? folder.absoluteFilePath(relativePath) : QString();
}

}  // namespace viz_test
