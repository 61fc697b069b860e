#include "lib/hvapi/export/PictureBytes.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

namespace {

constexpr int kPhotographQuality = 95;

QByteArray byWriter(const QImage& picture, const char* format, QString& reason)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    // For a format without loss the quality is the effort not made.
    if (qstrcmp(format, "jpg") == 0) writer.setQuality(kPhotographQuality);
    if (!writer.write(picture)) {
        reason = writer.errorString();
        bytes.clear();
    }
    return bytes;
}

QByteArray orReason(const QByteArray& bytes, QString& reason)
{
    if (bytes.isEmpty()) reason = QStringLiteral("the picture is too large for this format");
    return bytes;
}

}  // namespace

QByteArray PictureBytes::encode(const QImage& picture, const QString& ending, QString& reason)
{
    if (picture.isNull()) {
        reason = QStringLiteral("there is no picture");
        return {};
    }
    const QImage opaque = picture.convertToFormat(QImage::Format_RGB32);
    const QString format = ending.toLower();
    if (format == QLatin1String("bmp")) return byWriter(opaque, "bmp", reason);
    if (format == QLatin1String("png")) return byWriter(opaque, "png", reason);
    if (format == QLatin1String("jpg") || format == QLatin1String("jpeg"))
        return byWriter(opaque, "jpg", reason);
    if (format == QLatin1String("tif") || format == QLatin1String("tiff"))
        return orReason(tiff(opaque), reason);
    if (format == QLatin1String("eps")) return orReason(postScript(opaque), reason);
    if (format == QLatin1String("emf")) return orReason(enhancedMetafile(opaque), reason);
    if (format == QLatin1String("wmf")) return orReason(placeableMetafile(opaque), reason);
    reason = QStringLiteral("no picture format has the ending '%1'").arg(ending);
    return {};
}
