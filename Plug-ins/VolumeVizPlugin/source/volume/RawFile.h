#pragma once

#include "hvimage/CIL1DData.h"
#include "volume/logic/RawHeader.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <vector>

class CILImage;
class QString;

/// Where the frames stand in a RAW file and how their samples are stored.
struct RawSource
{
    int headerSize = 0;  ///< bytes in front of the first frame
    int bits = 8;        ///< of a sample, 8 or 16; two bytes are in the machine's order
    bool isSigned = false;
    viz::RawSpacing spacing;  ///< mm
};

/// Reads the text header of a file that exists.
/// @return false when it can't be opened, or is no plain file
bool readRawHeader(const QString& path, viz::RawHeader& header);

/// The frames of a RAW file, one after the other. Signed ones come out stretched, each by itself, over the
/// whole range of the unsigned type of their size.
class RawFrames
{
public:
    /// @param path           in the file system's encoding
    /// @param columns, rows  of a frame, in pixels, above 0
    RawFrames(const char* path, const RawSource& source, unsigned columns, unsigned rows);

    bool isOpen() const { return m_file != nullptr; }

    /// Back to the first frame.
    void rewind();

    /// Reads the next frame into `frame`, whose memory is used again where it has the right size. Samples
    /// that the file does not have are 0.
    /// @return samples read, less than columns * rows at the end of the file; -1 when memory does not suffice
    long read(CILImage& frame);

private:
    struct Closer
    {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::size_t readSamples(void* samples);
    template <typename Sample, typename Pixel>
    long readStretched(Pixel* pixels);

    std::unique_ptr<std::FILE, Closer> m_file;
    RawSource m_source;
    long m_columns;
    long m_rows;
    std::vector<unsigned char> m_signedSamples;
    CIL1DData m_signedStatistics;
};
