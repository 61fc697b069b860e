#include "hvutils/deleteFolderTree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

bool isAtOrAbove(QString const& folder, QString const& path)
{
    return path == folder || path.startsWith(folder + QLatin1Char('/'));
}

}  // namespace

bool deleteFolderTree(QDir folder)
{
    if (!QDir::isAbsolutePath(folder.path())) return false;
    QString const path = QDir::cleanPath(folder.path());
    QFileInfo const info(path);
    if (info.isSymLink()) return QFile::remove(path);
    if (!info.exists()) return true;
    QString const real = info.canonicalFilePath();
    if (!info.isDir() || QDir(real).isRoot() || isAtOrAbove(real, QDir::home().canonicalPath())) return false;
    return QDir(path).removeRecursively();
}
