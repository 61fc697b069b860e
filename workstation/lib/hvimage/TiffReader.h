#pragma once

#include "TiffFile.h"
#include "logic/TiffSamples.h"

#include <QString>
#include <QStringList>

#include <cstdarg>
#include <memory>

struct tiff;

// The pictures of one TIFF file. What can't be read is told through sendImageMessage, each reason once. Not
// for two threads at a time.
class TiffReader
{
public:
    // Largest picture that is decoded, in bytes of its samples.
    static constexpr std::uint64_t mostBytes = std::uint64_t{1} << 30;

    // `path` in the file system's encoding.
    explicit TiffReader(char const* path);
    ~TiffReader();
    TiffReader(TiffReader const&) = delete;
    TiffReader& operator=(TiffReader const&) = delete;

    // 0 when the file is no TIFF file.
    int pageCount() const;

    // Whether the file at the path is still the one that was opened.
    bool isUpToDate(char const* path) const;

    // Goes to a page, from 0, and reads its directory; `page` has no size when that fails.
    bool select(int number, hvimage::TiffPage& page);

    // Type of the samples of the selected page if they can be decoded within the limits; else eTypeNone.
    HVSDataTypes decodableType(hvimage::TiffPage const& page);

    // Decodes the selected page into width x height samples of that type. False leaves `samples` undefined.
    bool decode(hvimage::TiffPage const& page, HVSDataTypes type, void* samples);

private:
    struct Closer
    {
        void operator()(tiff* handle) const;
    };

    bool openHandle();
    bool decodeStrips(hvimage::TiffPage const& page, HVSDataTypes type, unsigned char* samples);
    bool decodeTiles(hvimage::TiffPage const& page, HVSDataTypes type, unsigned char* samples);
    bool readPlainStrips(hvimage::TiffPage const& page, std::uint32_t rowsPerStrip, unsigned char* samples);
    bool refuse(QString const& reason);

    static int onError(tiff*, void* reader, char const* module, char const* format, va_list arguments);
    static int onWarning(tiff*, void* reader, char const* module, char const* format, va_list arguments);

    TiffFile m_file;
    QString m_name;
    std::shared_ptr<TiffIndex const> m_index;
    std::unique_ptr<tiff, Closer> m_handle;
    QString m_error;  // first one of the library since the last refusal or success
    QStringList m_told;
    int m_warnings = 0;
};
