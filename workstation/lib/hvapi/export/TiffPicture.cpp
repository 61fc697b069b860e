#include "lib/hvapi/export/PictureBytes.h"

#include <QBuffer>
#include <QImage>

#include <memory>
#include <tiffio.h>

namespace {

// libtiff's calls for a file that it reads and writes through somebody else.

tmsize_t readFrom(thandle_t file, void* data, tmsize_t size)
{
    return static_cast<QBuffer*>(file)->read(static_cast<char*>(data), size);
}

tmsize_t writeTo(thandle_t file, void* data, tmsize_t size)
{
    return static_cast<QBuffer*>(file)->write(static_cast<const char*>(data), size);
}

toff_t seekIn(thandle_t file, toff_t offset, int from)
{
    auto* buffer = static_cast<QBuffer*>(file);
    qint64 place = static_cast<qint64>(offset);
    if (from == SEEK_CUR) place += buffer->pos();
    if (from == SEEK_END) place += buffer->size();
    return buffer->seek(place) ? static_cast<toff_t>(place) : static_cast<toff_t>(-1);
}

int closeNothing(thandle_t)
{
    return 0;
}

toff_t sizeOf(thandle_t file)
{
    return static_cast<toff_t>(static_cast<QBuffer*>(file)->size());
}

struct TiffDeleter
{
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};

}  // namespace

QByteArray PictureBytes::tiff(const QImage& picture)
{
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB888);
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    std::unique_ptr<TIFF, TiffDeleter> file(TIFFClientOpen("picture", "w", &buffer, readFrom, writeTo, seekIn,
                                                           closeNothing, sizeOf, nullptr, nullptr));
    if (!file) return {};
    TIFFSetField(file.get(), TIFFTAG_IMAGEWIDTH, rgb.width());
    TIFFSetField(file.get(), TIFFTAG_IMAGELENGTH, rgb.height());
    TIFFSetField(file.get(), TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(file.get(), TIFFTAG_SAMPLESPERPIXEL, 3);
    TIFFSetField(file.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(file.get(), TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file.get(), TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE);
    TIFFSetField(file.get(), TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
    TIFFSetField(file.get(), TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(file.get(), 0));
    TIFFSetField(file.get(), TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(file.get(), TIFFTAG_XRESOLUTION, 96.0);
    TIFFSetField(file.get(), TIFFTAG_YRESOLUTION, 96.0);
    for (int y = 0; y < rgb.height(); ++y) {
        QByteArray row(reinterpret_cast<const char*>(rgb.constScanLine(y)), rgb.width() * 3);
        if (TIFFWriteScanline(file.get(), row.data(), static_cast<quint32>(y), 0) < 0) return {};
    }
    if (TIFFFlush(file.get()) != 1) return {};
    file.reset();
    return buffer.data();
}
