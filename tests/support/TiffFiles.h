#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include <tiffio.h>

// TIFF files of any kind, made for one test.
namespace viz_test {

/// How a picture is stored. The samples are given as numbers, rows from top to bottom.
struct TiffKind
{
    unsigned width = 0;
    unsigned height = 0;
    unsigned bits = 8;
    unsigned samples = 1;  ///< of a pixel
    int format = SAMPLEFORMAT_UINT;
    int compression = COMPRESSION_NONE;
    int photometric = PHOTOMETRIC_MINISBLACK;
    int fillOrder = FILLORDER_MSB2LSB;
    int predictor = PREDICTOR_NONE;
    unsigned rowsPerStrip = 0;  ///< 0: one strip
    unsigned tile = 0;          ///< side of a tile, a multiple of 16; 0: strips
    double xResolution = 0;     ///< 0: no tag
    double yResolution = 0;
    int resolutionUnit = RESUNIT_NONE;
};

/// Samples of one or more bits without gaps, rows padded to whole bytes; 8, 16, 32 and 64 bits in the
/// machine's order.
inline QByteArray packedRow(const std::uint32_t* values, std::size_t count, unsigned bits)
{
    QByteArray row;
    if (bits == 8)
        for (std::size_t i = 0; i < count; ++i)
            row.append(static_cast<char>(values[i]));
    else if (bits == 16)
        for (std::size_t i = 0; i < count; ++i) {
            const auto value = static_cast<std::uint16_t>(values[i]);
            row.append(reinterpret_cast<const char*>(&value), 2);
        }
    else if (bits == 24)
        for (std::size_t i = 0; i < count; ++i)
            row.append(reinterpret_cast<const char*>(&values[i]), 3);
    else if (bits == 32)
        row.append(reinterpret_cast<const char*>(values), static_cast<int>(count * 4));
    else if (bits == 64)
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint64_t value = values[i];
            row.append(reinterpret_cast<const char*>(&value), 8);
        }
    else {
        std::uint64_t window = 0;
        unsigned held = 0;
        for (std::size_t i = 0; i < count; ++i) {
            window = (window << bits) | values[i];
            for (held += bits; held >= 8; held -= 8)
                row.append(static_cast<char>(window >> (held - 8)));
        }
        if (held > 0) row.append(static_cast<char>(window << (8 - held)));
    }
    return row;
}

/// Writes one page with width * samples * height values.
inline void writeTiffPage(TIFF* file, const TiffKind& kind, const std::vector<std::uint32_t>& values)
{
    const std::size_t rowValues = std::size_t{kind.width} * kind.samples;
    ASSERT_EQ(values.size(), rowValues * kind.height);
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, kind.width);
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, kind.height);
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, kind.bits);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, kind.samples);
    TIFFSetField(file, TIFFTAG_SAMPLEFORMAT, kind.format);
    TIFFSetField(file, TIFFTAG_COMPRESSION, kind.compression);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, kind.photometric);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_FILLORDER, kind.fillOrder);
    if (kind.predictor != PREDICTOR_NONE) TIFFSetField(file, TIFFTAG_PREDICTOR, kind.predictor);
    if (kind.xResolution != 0) TIFFSetField(file, TIFFTAG_XRESOLUTION, kind.xResolution);
    if (kind.yResolution != 0) TIFFSetField(file, TIFFTAG_YRESOLUTION, kind.yResolution);
    if (kind.xResolution != 0) TIFFSetField(file, TIFFTAG_RESOLUTIONUNIT, kind.resolutionUnit);
    if (kind.photometric == PHOTOMETRIC_PALETTE) {
        std::vector<std::uint16_t> map(std::size_t{1} << kind.bits);
        TIFFSetField(file, TIFFTAG_COLORMAP, map.data(), map.data(), map.data());
    }
    if (kind.tile == 0) {
        TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, kind.rowsPerStrip == 0 ? kind.height : kind.rowsPerStrip);
        for (unsigned y = 0; y < kind.height; ++y) {
            QByteArray row = packedRow(values.data() + y * rowValues, rowValues, kind.bits);
            ASSERT_EQ(TIFFWriteScanline(file, row.data(), y, 0), 1);
        }
    } else {
        TIFFSetField(file, TIFFTAG_TILEWIDTH, kind.tile);
        TIFFSetField(file, TIFFTAG_TILELENGTH, kind.tile);
        for (unsigned y0 = 0; y0 < kind.height; y0 += kind.tile)
            for (unsigned x0 = 0; x0 < kind.width; x0 += kind.tile) {
                QByteArray tile;
                for (unsigned y = y0; y < y0 + kind.tile; ++y) {
                    std::vector<std::uint32_t> row(std::size_t{kind.tile} * kind.samples, 1);
                    for (std::size_t x = 0; x < row.size() && y < kind.height; ++x)
                        if (x0 * kind.samples + x < rowValues)
                            row[x] = values[y * rowValues + x0 * kind.samples + x];
                    tile += packedRow(row.data(), row.size(), kind.bits);
                }
                ASSERT_GT(TIFFWriteTile(file, tile.data(), x0, y0, 0, 0), 0);
            }
    }
}

/// Writes a file of pages of one kind.
/// @param mode  of libtiff: "w", "w8" BigTIFF, "wb" and "wl" high and low byte first
inline void writeTiff(const QString& path, const TiffKind& kind,
                      const std::vector<std::vector<std::uint32_t>>& pages, const char* mode = "w")
{
    TIFFSetWarningHandler(nullptr);  // of old ways to compress, which are written on purpose
    TIFF* const file = TIFFOpen(QFile::encodeName(path).constData(), mode);
    ASSERT_NE(file, nullptr);
    for (const auto& page : pages) {
        writeTiffPage(file, kind, page);
        EXPECT_EQ(TIFFWriteDirectory(file), 1);
    }
    TIFFClose(file);
}

/// A temporary folder for TIFF files.
class TiffFolder
{
public:
    TiffFolder() { EXPECT_TRUE(m_folder.isValid()); }

    QString path(const QString& name) const { return m_folder.filePath(name); }
    QByteArray encoded(const QString& name) const { return QFile::encodeName(path(name)); }

    QByteArray contents(const QString& name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
    }

private:
    QTemporaryDir m_folder;
};

}  // namespace viz_test
