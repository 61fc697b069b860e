#include "volume/RawFile.h"

#include "hvimage/CILImage.h"
#include "volume/logic/Quantise.h"

#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstring>
#include <new>

namespace {

constexpr int readAtOnce = 1 << 18;

template <typename Sample>
constexpr HVSDataTypes signedType()
{
    return sizeof(Sample) == 1 ? eTypeInt8 : eTypeInt16;
}

}  // namespace

bool readRawHeader(const QString& path, viz::RawHeader& header)
{
    // A pipe or device could be opened, but would keep us waiting for ever.
    if (!QFileInfo(path).isFile()) return false;
    // Not in text mode: the parser itself delivers lines as text mode does, at any length.
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return false;

    viz::RawHeaderParser parser;
    std::vector<char> piece(readAtOnce);
    qint64 count = file.read(piece.data(), readAtOnce);
    while (count > 0 && !parser.feed(piece.data(), static_cast<std::size_t>(count)))
        count = file.read(piece.data(), readAtOnce);
    parser.finish();
    header = parser.header();
    return true;
}

RawFrames::RawFrames(const char* path, const RawSource& source, unsigned columns, unsigned rows)
    : m_file(std::fopen(path, "rb"))
    , m_source(source)
    , m_columns(static_cast<long>(columns))
    , m_rows(static_cast<long>(rows))
{
    if (m_file == nullptr) return;
    // Whole frames go straight to where they are wanted.
    static_cast<void>(std::setvbuf(m_file.get(), nullptr, _IONBF, 0));
    rewind();
}

void RawFrames::rewind()
{
    std::clearerr(m_file.get());
    static_cast<void>(std::fseek(m_file.get(), m_source.headerSize, SEEK_SET));
}

long RawFrames::read(CILImage& frame)
{
    const HVSDataTypes type = m_source.bits == 16 ? eTypeUInt16 : eTypeUInt8;
    const bool fits =
        frame.get_datatype() == type && frame.get_width() == m_columns && frame.get_height() == m_rows;
    if (!fits && !frame.InitWithType(type, m_columns, m_rows)) return -1;
    if (!m_source.isSigned) return static_cast<long>(readSamples(frame.get_data()));
    if (type == eTypeUInt8) return readStretched<std::int8_t>(static_cast<std::uint8_t*>(frame.get_data()));
    return readStretched<std::int16_t>(static_cast<std::uint16_t*>(frame.get_data()));
}

std::size_t RawFrames::readSamples(void* samples)
{
    const std::size_t size = m_source.bits == 16 ? 2 : 1;
    const auto wanted = static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows);
    const std::size_t count = std::fread(samples, size, wanted, m_file.get());
    std::memset(static_cast<unsigned char*>(samples) + count * size, 0, (wanted - count) * size);
    return count;
}

template <typename Sample, typename Pixel>
long RawFrames::readStretched(Pixel* pixels)
{
    const auto wanted = static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows);
    try {
        m_signedSamples.resize(wanted * sizeof(Sample));
    } catch (const std::bad_alloc&) {
        return -1;
    }
    const std::size_t count = readSamples(m_signedSamples.data());
    if (!m_signedStatistics.initWithArray(m_signedSamples.data(), static_cast<long>(wanted),
                                          signedType<Sample>()))
        return -1;
    viz::stretchSigned(reinterpret_cast<const Sample*>(m_signedSamples.data()), wanted,
                       static_cast<int>(m_signedStatistics.Min()), static_cast<int>(m_signedStatistics.Max()),
                       pixels);
    return static_cast<long>(count);
}
