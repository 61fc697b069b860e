#include "lib/hvapi/export/PictureBytes.h"

#include <QDataStream>
#include <QImage>

#include <limits>

// Both formats are streams of little-endian records. A picture is three of them in the enhanced format
// (header, one stretched bitmap, end) and five in the older one, which has to be told first how long its
// units are.

namespace {

constexpr int kPixelsPerInch = 96;
constexpr qint64 kHundredthsOfMillimetrePerInch = 2540;
constexpr quint32 kCopySource = 0x00CC0020;
constexpr quint32 kBitmapHeaderSize = 40;

void makeLittleEndian(QDataStream& stream)
{
    stream.setByteOrder(QDataStream::LittleEndian);
}

/// A device-independent bitmap: the header of 40 bytes, then rows of blue, green, red from the bottom up,
/// each padded to four bytes. Empty when it exceeds what its counts hold.
QByteArray bitmap(const QImage& picture)
{
    const qint64 rowSize = (picture.width() * qint64(3) + 3) / 4 * 4;
    const qint64 size = rowSize * picture.height();
    if (size > std::numeric_limits<qint32>::max() - 1024) return {};

    QByteArray bytes;
    bytes.reserve(static_cast<int>(size + kBitmapHeaderSize));
    QDataStream header(&bytes, QIODevice::WriteOnly);
    makeLittleEndian(header);
    constexpr qint32 kPixelsPerMetre = 3780;  // 96 an inch
    header << kBitmapHeaderSize << qint32(picture.width()) << qint32(picture.height()) << quint16(1)
           << quint16(24) << quint32(0) << quint32(size) << kPixelsPerMetre << kPixelsPerMetre << quint32(0)
           << quint32(0);
    QByteArray row(static_cast<int>(rowSize), '\0');
    for (int y = picture.height() - 1; y >= 0; --y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        char* to = row.data();
        for (int x = 0; x < picture.width(); ++x) {
            *to++ = static_cast<char>(qBlue(line[x]));
            *to++ = static_cast<char>(qGreen(line[x]));
            *to++ = static_cast<char>(qRed(line[x]));
        }
        bytes += row;
    }
    return bytes;
}

}  // namespace

QByteArray PictureBytes::enhancedMetafile(const QImage& picture)
{
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB32);
    const QByteArray dib = bitmap(rgb);
    if (dib.isEmpty()) return {};
    constexpr quint32 kHeaderSize = 88;
    constexpr quint32 kStretchSize = 80;
    constexpr quint32 kEndSize = 20;
    const qint32 right = rgb.width() - 1;
    const qint32 bottom = rgb.height() - 1;
    const auto hundredths = [](qint64 pixels) {
        return static_cast<qint32>(pixels * kHundredthsOfMillimetrePerInch / kPixelsPerInch);
    };
    const auto padded = static_cast<quint32>((dib.size() + 3) / 4 * 4);

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    makeLittleEndian(out);
    // Header: bounds in pixels and frame in hundredths of a millimetre, both with their ends; then a
    // reference device of a thousand millimetres.
    out << quint32(1) << kHeaderSize << qint32(0) << qint32(0) << right << bottom << qint32(0) << qint32(0)
        << hundredths(rgb.width()) << hundredths(rgb.height()) << quint32(0x464D4520) << quint32(0x00010000)
        << quint32(kHeaderSize + kStretchSize + padded + kEndSize) << quint32(3) << quint16(1) << quint16(0)
        << quint32(0) << quint32(0) << quint32(0) << qint32(3780) << qint32(3780) << qint32(1000)
        << qint32(1000);
    // The bitmap, from and to the whole picture.
    out << quint32(81) << quint32(kStretchSize + padded) << qint32(0) << qint32(0) << right << bottom
        << qint32(0) << qint32(0) << qint32(0) << qint32(0) << qint32(rgb.width()) << qint32(rgb.height())
        << kStretchSize << kBitmapHeaderSize << quint32(kStretchSize + kBitmapHeaderSize)
        << quint32(static_cast<quint32>(dib.size()) - kBitmapHeaderSize) << quint32(0) << kCopySource
        << qint32(rgb.width()) << qint32(rgb.height());
    out.writeRawData(dib.constData(), dib.size());
    for (auto i = static_cast<quint32>(dib.size()); i < padded; ++i)
        out << quint8(0);
    out << quint32(14) << kEndSize << quint32(0) << quint32(0x10) << kEndSize;
    return bytes;
}

QByteArray PictureBytes::placeableMetafile(const QImage& picture)
{
    constexpr int kLongestSide = std::numeric_limits<qint16>::max();
    if (picture.width() > kLongestSide || picture.height() > kLongestSide) return {};
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB32);
    const QByteArray dib = bitmap(rgb);
    if (dib.isEmpty()) return {};
    const auto width = static_cast<qint16>(rgb.width());
    const auto height = static_cast<qint16>(rgb.height());
    const auto dibWords = static_cast<quint32>((dib.size() + 1) / 2);
    // Sizes in words of 16 bits, the record's own three among them.
    constexpr quint32 kHeaderWords = 9;
    constexpr quint32 kMapModeWords = 4;
    constexpr quint32 kWindowWords = 5;
    constexpr quint32 kEndWords = 3;
    const quint32 stretchWords = 3 + 11 + dibWords;

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    makeLittleEndian(out);
    // What makes it placeable: key, box, units an inch, and the exclusive or of the ten words before it.
    const quint16 placeable[10] = {
        0xCDD7,         0x9AC6, 0, 0, 0, static_cast<quint16>(width), static_cast<quint16>(height),
        kPixelsPerInch, 0,      0};
    quint16 checksum = 0;
    for (const quint16 word : placeable) {
        out << word;
        checksum ^= word;
    }
    out << checksum;
    out << quint16(1) << quint16(kHeaderWords) << quint16(0x0300)
        << quint32(kHeaderWords + kMapModeWords + 2 * kWindowWords + stretchWords + kEndWords) << quint16(0)
        << stretchWords << quint16(0);
    out << kMapModeWords << quint16(0x0103) << quint16(8);             // units as wide and as high as I say
    out << kWindowWords << quint16(0x020B) << qint16(0) << qint16(0);  // origin
    out << kWindowWords << quint16(0x020C) << height << width;         // extent
    out << stretchWords << quint16(0x0F43) << kCopySource << quint16(0) << height << width << qint16(0)
        << qint16(0) << height << width << qint16(0) << qint16(0);
    out.writeRawData(dib.constData(), dib.size());
    if (dib.size() % 2 != 0) out << quint8(0);
    out << kEndWords << quint16(0);
    return bytes;
}
