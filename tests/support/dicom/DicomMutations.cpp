#include "support/dicom/DicomMutations.h"

#include "support/dicom/DicomBuilder.h"

#include <algorithm>
#include <functional>
#include <zlib.h>

namespace {

QByteArray openSequences(int count)
{
    static constexpr char bytes[] = "\x08\0\x40\x11SQ\0\0\xFF\xFF\xFF\xFF\xFE\xFF\0\xE0\xFF\xFF\xFF\xFF";
    return QByteArray(bytes, sizeof bytes - 1).repeated(count);
}

// Deflated bytes without a header of their own, as in DICOM; both ways.
QByteArray inflated(QByteArray bytes)
{
    QByteArray result(16 << 20, '\0');
    z_stream stream = {};
    inflateInit2(&stream, -MAX_WBITS);
    stream.next_in = reinterpret_cast<Bytef*>(bytes.data());
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    inflate(&stream, Z_FINISH);
    result.truncate(static_cast<int>(stream.total_out));
    inflateEnd(&stream);
    return result;
}

QByteArray deflated(QByteArray bytes)
{
    QByteArray result(bytes.size() + 1024, '\0');
    z_stream stream = {};
    deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = reinterpret_cast<Bytef*>(bytes.data());
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.truncate(static_cast<int>(stream.total_out));
    deflateEnd(&stream);
    return result;
}

// Behind the header, whose length stands in its first attribute.
int attributesOf(QByteArray const& file)
{
    unsigned length = 0;
    for (int i = 0; i < 4; ++i)
        length |= static_cast<unsigned char>(file[140 + i]) << 8 * i;
    return 144 + static_cast<int>(length);
}

QByteArray withChangedAttributes(QByteArray const& file, std::function<void(QByteArray&)> const& change)
{
    int const start = attributesOf(file);
    bool const isDeflated = file.left(start).contains("1.2.840.10008.1.2.1.99");
    QByteArray attributes = isDeflated ? inflated(file.mid(start)) : file.mid(start);
    change(attributes);
    return file.left(start) + (isDeflated ? deflated(attributes) : attributes);
}

}  // namespace

QByteArray nestedDicom(QByteArray const& file, int levels)
{
    return withChangedAttributes(file, [levels](QByteArray& attributes) {
        attributes.insert(attributes.indexOf(QByteArray("\x10\0\x10\0PN", 6)), openSequences(levels));
    });
}

QByteArray nestedAtEnd(QByteArray const& file, int levels)
{
    return withChangedAttributes(
        file, [levels](QByteArray& attributes) { attributes.append(openSequences(levels)); });
}

QByteArray mutationSeed(int kind)
{
    static constexpr char const* syntaxes[] = {
        "1.2.840.10008.1.2",      "1.2.840.10008.1.2.1",    "1.2.840.10008.1.2.1.99",
        "1.2.840.10008.1.2.2",    "1.2.840.10008.1.2.5",    "1.2.840.10008.1.2.4.50",
        "1.2.840.10008.1.2.4.51", "1.2.840.10008.1.2.4.57", "1.2.840.10008.1.2.4.70",
        "1.2.840.10008.1.2.4.80", "1.2.840.10008.1.2.4.81", "1.2.840.10008.1.2.4.90",
        "1.2.840.10008.1.2.4.91"};
    DicomBuilder builder;
    std::vector<std::int64_t> samples(16 * 16 * 2, 7);
    for (std::size_t i = 0; i < samples.size(); i += 5)
        samples[i] = static_cast<std::int64_t>(i / 3);
    builder.size(16, 16, 2)
        .bits(16, 12)
        .samples(samples)
        .implementation("Halvane 1")
        .set(0x0008, 0x0018, "1.2.3.4")  // lossy encoders make a new one up
        .remove(0x0008, 0x2112);
    if (kind < 13) {
        if (kind == 5) builder.bits(8, 8);
        return builder.transferSyntax(syntaxes[kind]).bytes();
    }
    if (kind == 13) return builder.bits(1, 1).bytes();
    if (kind == 14) return builder.withoutHeader().bytes();
    return builder.size(16, 16).bits(8, 8).photometric("RGB", 3).bytes();
}

QByteArray mutatedDicom(QByteArray bytes, std::mt19937& random)
{
    auto const below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    int const header = std::min(bytes.size(), 900);
    int const rounds = 1 + below(3);
    for (int i = 0; i < rounds && bytes.size() > 16; ++i) {
        // what stands before the pixels is where a file says what to do
        int const end = std::min(bytes.size(), below(3) == 0 ? bytes.size() : header);
        int const at = below(end - 8);
        switch (below(7)) {
        case 0:
            bytes[at] = static_cast<char>(below(256));
            break;
        case 1:
            bytes[at] = static_cast<char>(bytes[at] ^ 1 << below(8));
            break;
        case 2: {
            static constexpr unsigned extremes[] = {0U,          1U,          0xFFFFFFFFU, 0xFFFFFFFEU,
                                                    0x7FFFFFFFU, 0x80000000U, 0xFFFFU};
            unsigned const value = extremes[below(7)];
            for (int byte = 0; byte < 4; ++byte)
                bytes[at + byte] = static_cast<char>(value >> 8 * byte & 0xFFU);
            break;
        }
        case 3:
            bytes.truncate(at);
            break;
        case 4:
            bytes.remove(at, 1 + below(40));
            break;
        case 5:
            bytes.insert(at, bytes.mid(below(bytes.size()), 1 + below(60)));
            break;
        default:
            bytes.replace(at, 2, "SQ");
        }
    }
    return bytes;
}
