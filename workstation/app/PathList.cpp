#include "app/PathList.h"

#include <QDir>
#include <QFileInfo>

QStringList filesMeantBy(const QStringList& paths)
{
    QStringList files;
    for (const QString& path : paths) {
        const QFileInfo info(path);
        QStringList inside;
        if (info.isDir()) {
            const QDir folder(info.absoluteFilePath());
            const QStringList names = folder.entryList(QDir::Files, QDir::Name);
            for (const QString& name : names)
                inside << folder.absoluteFilePath(name);
        }
        if (inside.isEmpty()) inside << info.absoluteFilePath();
        files << inside;
    }
    return files;
}
