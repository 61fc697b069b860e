#include "TiffReader.h"

#include "ImageMessages.h"
#include "SampleBuffer.h"
#include "logic/SampleTypes.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <mutex>

#include <tiffio.h>

namespace {

using hvimage::TiffPage;

constexpr int mostReasons = 8;   // told of one file
constexpr int mostWarnings = 4;  // the same
constexpr int mostKept = 256;    // warnings remembered of all files
constexpr std::uint64_t smallBlock = std::uint64_t{16} << 20;

TiffFile& fileOf(thandle_t handle)
{
    return *static_cast<TiffFile*>(handle);
}

tmsize_t readBytes(thandle_t handle, void* bytes, tmsize_t count)
{
    TiffFile& file = fileOf(handle);
    if (count <= 0) return 0;
    std::size_t const got = file.read(file.position, bytes, static_cast<std::size_t>(count));
    file.position += got;
    return static_cast<tmsize_t>(got);
}

tmsize_t writeNothing(thandle_t, void*, tmsize_t)
{
    return 0;
}

toff_t seekTo(thandle_t handle, toff_t offset, int whence)
{
    TiffFile& file = fileOf(handle);
    if (whence == SEEK_CUR)
        file.position += offset;
    else
        file.position = whence == SEEK_END ? file.size() + offset : offset;
    return file.position;
}

int closeNothing(thandle_t)
{
    return 0;
}

toff_t sizeOf(thandle_t handle)
{
    return fileOf(handle).size();
}

QString textOf(char const* format, va_list arguments)
{
    char text[512];
    int const length = std::vsnprintf(text, sizeof text, format, arguments);
    return length < 0 ? QString() : QString::fromLocal8Bit(text);
}

// Codecs whose memory and time keep within the size of the picture.
bool isCodecRead(std::uint16_t compression)
{
    switch (compression) {
    case COMPRESSION_NONE:
    case COMPRESSION_CCITTRLE:
    case COMPRESSION_CCITTFAX3:
    case COMPRESSION_CCITTFAX4:
    case COMPRESSION_CCITTRLEW:
    case COMPRESSION_LZW:
    case COMPRESSION_JPEG:
    case COMPRESSION_ADOBE_DEFLATE:
    case COMPRESSION_DEFLATE:
    case COMPRESSION_PACKBITS:
    case COMPRESSION_ZSTD:
        return TIFFIsCODECConfigured(compression) != 0;
    default:
        return false;
    }
}

bool isWholeBytes(unsigned bits)
{
    return bits == 8 || bits == 16 || bits == 32;
}

void swapBytes(unsigned char* samples, std::size_t count, unsigned bits)
{
    if (bits == 16)
        TIFFSwabArrayOfShort(reinterpret_cast<std::uint16_t*>(samples), static_cast<tmsize_t>(count));
    else if (bits == 32)
        TIFFSwabArrayOfLong(reinterpret_cast<std::uint32_t*>(samples), static_cast<tmsize_t>(count));
}

float finite(float value)
{
    return std::isfinite(value) ? value : 0.0F;
}

}  // namespace

void TiffReader::Closer::operator()(tiff* handle) const
{
    TIFFClose(handle);
}

TiffReader::TiffReader(char const* path)
    : m_file(path)
    , m_name(QFileInfo(QFile::decodeName(path)).fileName())
{
    if (!m_file.isOpen()) return;
    m_index = tiffIndex(m_file);
    if (m_index->runsInCircle) refuse(QStringLiteral("the list of its pictures runs in a circle"));
}

TiffReader::~TiffReader() = default;

int TiffReader::pageCount() const
{
    return m_index ? static_cast<int>(m_index->offsets.size()) : 0;
}

bool TiffReader::isUpToDate(char const* path) const
{
    TiffFile const now(path);
    return now.isOpen() && now.identity() == m_file.identity();
}

bool TiffReader::openHandle()
{
    if (m_handle) return true;
    std::unique_ptr<TIFFOpenOptions, void (*)(TIFFOpenOptions*)> const options(TIFFOpenOptionsAlloc(),
                                                                               TIFFOpenOptionsFree);
    if (!options) return false;
    // Tables of strips take at most four times their size in the file, and buffers hold parts of it.
    std::uint64_t const most = std::min(mostBytes, smallBlock + 8 * std::min(m_file.size(), mostBytes));
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), static_cast<tmsize_t>(most));
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), &TiffReader::onError, this);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), &TiffReader::onWarning, this);
    // h: no directory yet; m: nothing mapped; c: strips as they are.
    m_handle.reset(TIFFClientOpenExt(QFile::encodeName(m_name).constData(), "rhmc", &m_file, readBytes,
                                     writeNothing, seekTo, closeNothing, sizeOf, nullptr, nullptr,
                                     options.get()));
    return m_handle != nullptr;
}

bool TiffReader::select(int number, TiffPage& page)
{
    page = TiffPage();
    m_error.clear();
    if (number < 0 || number >= pageCount()) return false;
    if (!openHandle() ||
        !TIFFSetSubDirectory(m_handle.get(), m_index->offsets[static_cast<std::size_t>(number)]))
        return refuse(QStringLiteral("a picture can't be read"));

    tiff* const handle = m_handle.get();
    std::uint16_t format = SAMPLEFORMAT_UINT;
    TIFFGetField(handle, TIFFTAG_IMAGEWIDTH, &page.width);
    TIFFGetField(handle, TIFFTAG_IMAGELENGTH, &page.height);
    TIFFGetFieldDefaulted(handle, TIFFTAG_BITSPERSAMPLE, &page.bits);
    TIFFGetFieldDefaulted(handle, TIFFTAG_SAMPLESPERPIXEL, &page.samples);
    TIFFGetFieldDefaulted(handle, TIFFTAG_SAMPLEFORMAT, &format);
    TIFFGetFieldDefaulted(handle, TIFFTAG_COMPRESSION, &page.compression);
    TIFFGetField(handle, TIFFTAG_XRESOLUTION, &page.xResolution);
    TIFFGetField(handle, TIFFTAG_YRESOLUTION, &page.yResolution);
    TIFFGetFieldDefaulted(handle, TIFFTAG_RESOLUTIONUNIT, &page.resolutionUnit);
    page.number = static_cast<hvimage::TiffNumber>(format);
    page.xResolution = finite(page.xResolution);
    page.yResolution = finite(page.yResolution);
    m_error.clear();  // of tags that do not matter
    return true;
}

HVSDataTypes TiffReader::decodableType(TiffPage const& page)
{
    char const* reason = nullptr;
    HVSDataTypes const type = hvimage::sampleTypeOf(page, &reason);
    std::uint64_t bytes = 0;
    if (type == eTypeNone)
        refuse(QStringLiteral("the picture %1").arg(QLatin1String(reason)));
    else if (!isCodecRead(page.compression))
        refuse(
            QStringLiteral("the picture is packed by a method that is not read (%1)").arg(page.compression));
    else if (!hvimage::requiredBytes(type, page.width, page.height, bytes) || bytes > mostBytes)
        refuse(QStringLiteral("the picture of %1 x %2 pixels is too large").arg(page.width).arg(page.height));
    else if (!hvimage::canHold(m_file.size(), page))
        refuse(QStringLiteral("the file is too short for its picture of %1 x %2 pixels")
                   .arg(page.width)
                   .arg(page.height));
    else
        return type;
    return eTypeNone;
}

bool TiffReader::decode(TiffPage const& page, HVSDataTypes type, void* samples)
{
    auto* const bytes = static_cast<unsigned char*>(samples);
    bool const good =
        TIFFIsTiled(m_handle.get()) ? decodeTiles(page, type, bytes) : decodeStrips(page, type, bytes);
    if (!good) return refuse(QStringLiteral("a picture can't be decoded"));
    if (!m_error.isEmpty()) refuse(QStringLiteral("a picture is damaged"));
    if (page.number == hvimage::TiffNumber::Signed)
        hvimage::shiftSigned(type, samples, std::size_t{page.width} * page.height, page.bits);
    return true;
}

// Whole samples without compression whose strips follow each other in the file come by one read.
bool TiffReader::readPlainStrips(TiffPage const& page, std::uint32_t rowsPerStrip, unsigned char* samples)
{
    tiff* const handle = m_handle.get();
    std::uint16_t fillOrder = FILLORDER_MSB2LSB;
    TIFFGetFieldDefaulted(handle, TIFFTAG_FILLORDER, &fillOrder);
    if (page.compression != COMPRESSION_NONE || !isWholeBytes(page.bits) || fillOrder != FILLORDER_MSB2LSB)
        return false;
    std::uint64_t const rowBytes = hvimage::packedRowBytes(page.width, page.bits);
    std::uint64_t const pageBytes = rowBytes * page.height;
    std::uint64_t begin = 0;
    std::uint64_t length = 0;
    std::uint64_t done = 0;
    std::uint32_t strip = 0;
    for (std::uint32_t row = 0; row < page.height;
         row += std::min(rowsPerStrip, page.height - row), ++strip) {
        std::uint64_t const offset = TIFFGetStrileOffset(handle, strip);
        std::uint64_t const bytes = rowBytes * std::min(rowsPerStrip, page.height - row);
        if (offset == 0 || TIFFGetStrileByteCount(handle, strip) != bytes) return false;
        if (offset != begin + length) {
            if (m_file.read(begin, samples + done, length) != length) return false;
            done += length;
            begin = offset;
            length = 0;
        }
        length += bytes;
    }
    if (m_file.read(begin, samples + done, length) != length || done + length != pageBytes) return false;
    if (TIFFIsByteSwapped(handle)) swapBytes(samples, std::size_t{page.width} * page.height, page.bits);
    return true;
}

bool TiffReader::decodeStrips(TiffPage const& page, HVSDataTypes type, unsigned char* samples)
{
    tiff* const handle = m_handle.get();
    std::uint32_t rowsPerStrip = 0;
    TIFFGetFieldDefaulted(handle, TIFFTAG_ROWSPERSTRIP, &rowsPerStrip);
    std::uint64_t const rowBytes = hvimage::packedRowBytes(page.width, page.bits);
    if (rowsPerStrip == 0 || TIFFScanlineSize64(handle) != rowBytes) return false;
    if (readPlainStrips(page, rowsPerStrip, samples)) return true;

    rowsPerStrip = std::min(rowsPerStrip, page.height);
    std::uint64_t const outBytes =
        std::uint64_t{page.width} * static_cast<unsigned>(hvimage::bytesPerSample(type));
    bool const direct = isWholeBytes(page.bits);
    SampleBuffer packed;
    if (!direct && !packed.allocate(rowBytes * rowsPerStrip)) return false;
    std::uint32_t strip = 0;
    for (std::uint32_t row = 0; row < page.height; ++strip) {
        std::uint32_t const rows = std::min(rowsPerStrip, page.height - row);
        auto const bytes = static_cast<tmsize_t>(rowBytes * rows);
        unsigned char* const target = samples + outBytes * row;
        void* const buffer = direct ? target : packed.data();
        if (TIFFReadEncodedStrip(handle, strip, buffer, bytes) != bytes) return false;
        for (std::uint32_t y = 0; !direct && y < rows; ++y)
            hvimage::unpackRow(static_cast<unsigned char const*>(buffer) + rowBytes * y, page.width,
                               page.bits, type, target + outBytes * y);
        row += rows;
    }
    return true;
}

bool TiffReader::decodeTiles(TiffPage const& page, HVSDataTypes type, unsigned char* samples)
{
    tiff* const handle = m_handle.get();
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    TIFFGetField(handle, TIFFTAG_TILEWIDTH, &width);
    TIFFGetField(handle, TIFFTAG_TILELENGTH, &height);
    std::uint64_t const tileBytes = TIFFTileSize64(handle);
    std::uint64_t const rowBytes = hvimage::packedRowBytes(width, page.bits);
    std::uint64_t const sampleBytes = static_cast<unsigned>(hvimage::bytesPerSample(type));
    std::uint64_t const outBytes = sampleBytes * page.width;
    // A tile may be larger than the picture, but not without measure.
    SampleBuffer tile;
    if (width == 0 || height == 0 || tileBytes > smallBlock + 4 * outBytes * page.height ||
        TIFFTileRowSize64(handle) != rowBytes || tileBytes != rowBytes * height || !tile.allocate(tileBytes))
        return false;
    for (std::uint64_t y = 0; y < page.height; y += height)
        for (std::uint64_t x = 0; x < page.width; x += width) {
            auto const number =
                TIFFComputeTile(handle, static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), 0, 0);
            auto const bytes = static_cast<tmsize_t>(tileBytes);
            if (TIFFReadEncodedTile(handle, number, tile.data(), bytes) != bytes) return false;
            std::uint64_t const columns = std::min<std::uint64_t>(width, page.width - x);
            std::uint64_t const rows = std::min<std::uint64_t>(height, page.height - y);
            for (std::uint64_t row = 0; row < rows; ++row) {
                auto const* const source = static_cast<unsigned char const*>(tile.data()) + row * rowBytes;
                unsigned char* const target = samples + (y + row) * outBytes + x * sampleBytes;
                if (isWholeBytes(page.bits))
                    std::memcpy(target, source, columns * sampleBytes);
                else
                    hvimage::unpackRow(source, columns, page.bits, type, target);
            }
        }
    return true;
}

// Always false, so that it can be returned.
bool TiffReader::refuse(QString const& reason)
{
    QString text = QStringLiteral("%1: %2").arg(m_name, reason);
    if (!m_error.isEmpty()) text += QStringLiteral(" (%1)").arg(m_error);
    m_error.clear();
    if (m_told.contains(text) || m_told.size() >= mostReasons) return false;
    m_told << text;
    sendImageMessage(ImageMessage::Warning, text);
    return false;
}

int TiffReader::onError(tiff*, void* reader, char const*, char const* format, va_list arguments)
{
    // Codecs may report every row of a picture; the first report tells the cause.
    auto* const self = static_cast<TiffReader*>(reader);
    if (self->m_error.isEmpty()) self->m_error = textOf(format, arguments);
    return 1;
}

int TiffReader::onWarning(tiff*, void* reader, char const*, char const* format, va_list arguments)
{
    // The same in every slice of a stack, as a rule: once is enough.
    static std::mutex mutex;
    static QSet<QString> told;
    auto* const self = static_cast<TiffReader*>(reader);
    if (self->m_warnings >= mostWarnings) return 1;
    QString const text = textOf(format, arguments);
    {
        std::lock_guard<std::mutex> const lock(mutex);
        if (told.contains(text)) return 1;
        if (told.size() >= mostKept) told.clear();
        told.insert(text);
    }
    ++self->m_warnings;
    sendImageMessage(ImageMessage::Information, QStringLiteral("%1: %2").arg(self->m_name, text));
    return 1;
}
