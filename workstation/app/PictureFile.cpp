#include "PictureFile.h"

#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>

#include <unistd.h>

namespace PictureFile {

namespace {

QByteArray formatOf(const QString& path)
{
    return QFileInfo(path).suffix().toLower().toLatin1();
}

}  // namespace

bool isWritable(const QString& path)
{
    return QImageWriter::supportedImageFormats().contains(formatOf(path));
}

bool write(const QImage& picture, const QString& path, QString& reason)
{
    if (!isWritable(path)) {
        reason = QStringLiteral("'%1' has no ending of a picture format that can be written").arg(path);
        return false;
    }
    // the file is replaced, not written into: a device or pipe would be gone afterwards
    const QFileInfo target(path);
    if (target.exists() && !target.isFile()) {
        reason = QStringLiteral("'%1' can't be written: it is no plain file").arg(path);
        return false;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        reason = QStringLiteral("'%1' can't be written: %2").arg(path, file.errorString());
        return false;
    }
    QImageWriter writer(&file, formatOf(path));
    // for a format without loss the quality is the effort not made: 95 would leave it almost unpacked
    if (writer.format() == "jpg" || writer.format() == "jpeg") writer.setQuality(95);
    // commit() alone does not notice a disk that fills up at the last moment
    if (!writer.write(picture) || !file.flush() || ::fsync(file.handle()) != 0) {
        const bool isFormat = writer.error() == QImageWriter::InvalidImageError;
        reason = QStringLiteral("'%1' can't be written: %2")
                     .arg(path, isFormat ? writer.errorString() : file.errorString());
        file.cancelWriting();
        return false;
    }
    if (!file.commit()) {
        reason = QStringLiteral("'%1' can't be written: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

}  // namespace PictureFile
