#include "app/PathList.h"

#include "lib/hvdicom/VolumeFolder.h"

#include <QFileInfo>

QStringList filesMeantBy(const QStringList& paths)
{
    QStringList files;
    for (const QString& path : paths) {
        const QFileInfo info(path);
        QStringList inside;
        if (info.isDir()) inside = hvdicom::filesOfVolume(info.absoluteFilePath());
        if (inside.isEmpty()) inside << info.absoluteFilePath();
        files << inside;
    }
    return files;
}
