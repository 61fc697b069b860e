#include "hvapi/export/CHVSImageExporter.h"

#include "hvutils/CHVSLog.h"
#include "lib/hvapi/export/PictureBytes.h"
#include "lib/hvutils/SafeFile.h"

#include <QFileInfo>

bool CHVSImageExporter::saveImage(QImage& image, QString& path)
{
    QString reason;
    const QByteArray bytes = PictureBytes::encode(image, QFileInfo(path).suffix(), reason);
    if (!bytes.isEmpty() && SafeFile::write(path, bytes, reason)) return true;
    getLogObject()->log(QStringLiteral("'%1' can't be written: %2").arg(path, reason),
                        QStringLiteral("hvapi"), 0, QString(), CHVSLog::eError, false);
    return false;
}
