#include "support/dicom/DicomBuilder.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcfilefo.h>
#include <dcmtk/dcmdata/dcmetinf.h>
#include <dcmtk/dcmdata/dcpixel.h>
#include <dcmtk/dcmdata/dcpixseq.h>
#include <dcmtk/dcmdata/dcpxitem.h>
#include <dcmtk/dcmdata/dcrleerg.h>
#include <dcmtk/dcmdata/dcuid.h>
#include <dcmtk/dcmdata/dcvrobow.h>
#include <dcmtk/dcmjpeg/djencode.h>
#include <dcmtk/dcmjpls/djencode.h>
#include <dcmtk/oflog/oflog.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <map>
#include <openjpeg.h>
#include <optional>
#include <utility>

struct DicomBuilder::Settings
{
    using Tag = std::pair<unsigned short, unsigned short>;
    struct Bytes
    {
        QByteArray representation;
        QByteArray bytes;
    };

    unsigned columns = 4;
    unsigned rows = 3;
    unsigned frames = 1;
    unsigned allocated = 16;
    unsigned stored = 16;
    bool isSigned = false;
    std::vector<std::int64_t> samples;
    QByteArray photometric = "MONOCHROME2";
    unsigned perPixel = 1;
    bool pixels = true;
    QByteArray syntax = "1.2.840.10008.1.2.1";
    QByteArray versionName;
    QByteArray classUid;
    bool header = true;
    std::map<Tag, QByteArray> attributes;  // before the pixels are made
    std::map<Tag, std::optional<QByteArray>> overrides;
    std::map<Tag, Bytes> byteOverrides;

    std::size_t sampleCount() const { return std::size_t{columns} * rows * frames * perPixel; }

    std::int64_t sample(std::size_t index) const
    {
        return samples.empty() ? static_cast<std::int64_t>(index)
                               : (index < samples.size() ? samples[index] : std::int64_t{0});
    }
};

namespace {

constexpr char implicitLittleEndian[] = "1.2.840.10008.1.2";
constexpr std::size_t smallestJpegLs = 256;

// Encoders for the life of the program; the decoders are left to whoever is tested.
void registerEncoders()
{
    struct Encoders
    {
        Encoders()
        {
            DJEncoderRegistration::registerCodecs();
            DJLSEncoderRegistration::registerCodecs();
            DcmRLEEncoderRegistration::registerCodecs();
        }
        ~Encoders()
        {
            DcmRLEEncoderRegistration::cleanup();
            DJLSEncoderRegistration::cleanup();
            DJEncoderRegistration::cleanup();
        }
    };
    static Encoders const encoders;
}

// Samples as the plain pixel element holds them.
QByteArray packed(std::function<std::int64_t(std::size_t)> const& sample, std::size_t count,
                  unsigned allocated)
{
    QByteArray bytes(static_cast<int>((count * allocated + 7) / 8), '\0');
    for (std::size_t i = 0; i < count; ++i) {
        auto const value = static_cast<std::uint64_t>(sample(i));
        if (allocated < 8) {
            for (unsigned bit = 0; bit < allocated; ++bit) {
                std::size_t const at = i * allocated + bit;
                if (value >> bit & 1U)
                    bytes[static_cast<int>(at / 8)] =
                        static_cast<char>(bytes[static_cast<int>(at / 8)] | 1 << at % 8);
            }
        } else {
            for (unsigned byte = 0; byte < allocated / 8; ++byte)
                bytes[static_cast<int>(i * (allocated / 8) + byte)] =
                    static_cast<char>(value >> 8 * byte & 0xFFU);
        }
    }
    if (bytes.size() % 2) bytes.append('\0');
    return bytes;
}

bool putBytes(DcmItem& item, DcmTag const& tag, QByteArray const& bytes)
{
    // The pixel element has a class of its own, which the dictionary's entry of the tag leads to.
    if (tag == DCM_PixelData) {
        if (tag.getEVR() == EVR_OW)
            return item
                .putAndInsertUint16Array(DCM_PixelData, reinterpret_cast<Uint16 const*>(bytes.constData()),
                                         static_cast<unsigned long>(bytes.size() / 2))
                .good();
        return item
            .putAndInsertUint8Array(DCM_PixelData, reinterpret_cast<Uint8 const*>(bytes.constData()),
                                    static_cast<unsigned long>(bytes.size()))
            .good();
    }
    auto element = std::make_unique<DcmOtherByteOtherWord>(tag);
    OFCondition const put = tag.getEVR() == EVR_OW
                                ? element->putUint16Array(reinterpret_cast<Uint16 const*>(bytes.constData()),
                                                          static_cast<unsigned long>(bytes.size() / 2))
                                : element->putUint8Array(reinterpret_cast<Uint8 const*>(bytes.constData()),
                                                         static_cast<unsigned long>(bytes.size()));
    return put.good() && item.insert(element.release(), OFTrue).good();
}

// DCMTK warns of what is wanted here, and its messages are to be those of the tested program.
class Quiet
{
public:
    Quiet()
        : m_former(root().getLogLevel())
    {
        root().setLogLevel(OFLogger::OFF_LOG_LEVEL);
    }
    ~Quiet() { root().setLogLevel(m_former); }
    Quiet(Quiet const&) = delete;
    Quiet& operator=(Quiet const&) = delete;

private:
    static dcmtk::log4cplus::Logger root() { return dcmtk::log4cplus::Logger::getRoot(); }
    dcmtk::log4cplus::LogLevel m_former;
};

struct Stream
{
    QByteArray bytes;
    OPJ_SIZE_T at = 0;

    static OPJ_SIZE_T write(void* data, OPJ_SIZE_T count, void* self)
    {
        auto& stream = *static_cast<Stream*>(self);
        auto const end = static_cast<int>(stream.at + count);
        if (stream.bytes.size() < end) stream.bytes.resize(end);
        std::copy_n(static_cast<char const*>(data), count, stream.bytes.data() + stream.at);
        stream.at += count;
        return count;
    }
    static OPJ_OFF_T skip(OPJ_OFF_T count, void* self)
    {
        static_cast<Stream*>(self)->at += static_cast<OPJ_SIZE_T>(count);
        return count;
    }
    static OPJ_BOOL seek(OPJ_OFF_T to, void* self)
    {
        static_cast<Stream*>(self)->at = static_cast<OPJ_SIZE_T>(to);
        return OPJ_TRUE;
    }
};

}  // namespace

QByteArray jpeg2000Frame(std::vector<std::int64_t> const& samples, unsigned columns, unsigned rows,
                         unsigned bits, bool isSigned, unsigned components)
{
    opj_cparameters_t parameters;
    opj_set_default_encoder_parameters(&parameters);
    parameters.numresolution = 1;
    for (unsigned side = std::min(columns, rows); side > 1 && parameters.numresolution < 6; side /= 2)
        ++parameters.numresolution;
    parameters.tcp_mct = components == 3 ? 1 : 0;
    opj_image_cmptparm_t component = {};
    component.dx = component.dy = 1;
    component.w = columns;
    component.h = rows;
    component.prec = bits;
    component.sgnd = isSigned ? 1 : 0;
    std::vector<opj_image_cmptparm_t> all(components, component);
    std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)> const image(
        opj_image_create(components, all.data(), components == 3 ? OPJ_CLRSPC_SRGB : OPJ_CLRSPC_GRAY),
        &opj_image_destroy);
    std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)> const codec(opj_create_compress(OPJ_CODEC_J2K),
                                                                           &opj_destroy_codec);
    std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)> const stream(
        opj_stream_default_create(OPJ_FALSE), &opj_stream_destroy);
    if (!image || !codec || !stream) return {};
    image->x1 = columns;
    image->y1 = rows;
    for (std::size_t i = 0; i < samples.size(); ++i)
        image->comps[i % components].data[i / components] = static_cast<OPJ_INT32>(samples[i]);
    Stream target;
    opj_stream_set_user_data(stream.get(), &target, nullptr);
    opj_stream_set_write_function(stream.get(), &Stream::write);
    opj_stream_set_skip_function(stream.get(), &Stream::skip);
    opj_stream_set_seek_function(stream.get(), &Stream::seek);
    if (!opj_setup_encoder(codec.get(), &parameters, image.get()) ||
        !opj_start_compress(codec.get(), image.get(), stream.get()) ||
        !opj_encode(codec.get(), stream.get()) || !opj_end_compress(codec.get(), stream.get()))
        return {};
    return target.bytes;
}

DicomBuilder::DicomBuilder()
    : d(std::make_shared<Settings>())
{
    auto& a = d->attributes;
    a[{0x0008, 0x0016}] = UID_CTImageStorage;
    a[{0x0008, 0x0018}] = "1.2.826.0.1.3680043.10.9999.1.1";
    a[{0x0008, 0x0008}] = "ORIGINAL\\PRIMARY\\AXIAL";
    a[{0x0008, 0x0060}] = "CT";
    a[{0x0008, 0x0070}] = "Builder";
    a[{0x0010, 0x0010}] = "Phantom^Test";
    a[{0x0010, 0x0020}] = "phantom";
    a[{0x0018, 0x0050}] = "1";
    a[{0x0018, 0x5100}] = "HFS";
    a[{0x0020, 0x000d}] = "1.2.826.0.1.3680043.10.9999.1";
    a[{0x0020, 0x000e}] = "1.2.826.0.1.3680043.10.9999.1.0";
    a[{0x0020, 0x0013}] = "1";
    position(0.0, 0.0, 0.0);
    orientation({1.0, 0.0, 0.0}, {0.0, 1.0, 0.0});
    spacing(1.0, 1.0);
}

DicomBuilder::Settings& DicomBuilder::change()
{
    if (d.use_count() > 1) d = std::make_shared<Settings>(*d);
    return *d;
}

DicomBuilder& DicomBuilder::size(unsigned columns, unsigned rows, unsigned frames)
{
    Settings& s = change();
    s.columns = columns;
    s.rows = rows;
    s.frames = frames;
    return *this;
}

DicomBuilder& DicomBuilder::bits(unsigned allocated, unsigned stored, bool isSigned)
{
    Settings& s = change();
    s.allocated = allocated;
    s.stored = stored;
    s.isSigned = isSigned;
    return *this;
}

DicomBuilder& DicomBuilder::samples(std::vector<std::int64_t> values)
{
    change().samples = std::move(values);
    return *this;
}

DicomBuilder& DicomBuilder::photometric(QByteArray name, unsigned perPixel)
{
    Settings& s = change();
    s.photometric = std::move(name);
    s.perPixel = perPixel;
    return *this;
}

DicomBuilder& DicomBuilder::withoutPixels()
{
    change().pixels = false;
    return *this;
}

DicomBuilder& DicomBuilder::transferSyntax(QByteArray uid)
{
    change().syntax = std::move(uid);
    return *this;
}

DicomBuilder& DicomBuilder::implementation(QByteArray versionName)
{
    change().versionName = std::move(versionName);
    return *this;
}

DicomBuilder& DicomBuilder::implementationClass(QByteArray uid)
{
    change().classUid = std::move(uid);
    return *this;
}

DicomBuilder& DicomBuilder::withoutHeader()
{
    change().header = false;
    return *this;
}

DicomBuilder& DicomBuilder::position(double x, double y, double z)
{
    change().attributes[{0x0020, 0x0032}] = QByteArray::number(x, 'g', 12) + '\\' +
                                            QByteArray::number(y, 'g', 12) + '\\' +
                                            QByteArray::number(z, 'g', 12);
    return *this;
}

DicomBuilder& DicomBuilder::orientation(std::array<double, 3> alongRow, std::array<double, 3> alongColumn)
{
    QByteArray text;
    for (auto const& vector : {alongRow, alongColumn})
        for (double const value : vector)
            text += (text.isEmpty() ? "" : "\\") + QByteArray::number(value, 'g', 12);
    change().attributes[{0x0020, 0x0037}] = text;
    return *this;
}

DicomBuilder& DicomBuilder::spacing(double betweenRows, double betweenColumns)
{
    change().attributes[{0x0028, 0x0030}] =
        QByteArray::number(betweenRows, 'g', 12) + '\\' + QByteArray::number(betweenColumns, 'g', 12);
    return *this;
}

DicomBuilder& DicomBuilder::set(unsigned short group, unsigned short element, QByteArray value)
{
    Settings& s = change();
    s.byteOverrides.erase({group, element});
    s.overrides[{group, element}] = std::move(value);
    return *this;
}

DicomBuilder& DicomBuilder::remove(unsigned short group, unsigned short element)
{
    Settings& s = change();
    s.byteOverrides.erase({group, element});
    s.overrides[{group, element}] = std::nullopt;
    return *this;
}

DicomBuilder& DicomBuilder::setBytes(unsigned short group, unsigned short element, QByteArray representation,
                                     QByteArray bytes)
{
    Settings& s = change();
    s.overrides.erase({group, element});
    s.byteOverrides[{group, element}] = {std::move(representation), std::move(bytes)};
    return *this;
}

QByteArray DicomBuilder::bytes() const
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(QStringLiteral("file.dcm"));
    QFile file(path);
    if (!folder.isValid() || !write(path) || !file.open(QIODevice::ReadOnly)) return {};
    return file.readAll();
}

bool DicomBuilder::write(QString const& path) const
{
    registerEncoders();
    Quiet const quiet;
    DcmFileFormat file;
    DcmDataset& dataset = *file.getDataset();
    Settings const& s = *d;
    auto const put = [&dataset](Settings::Tag tag, QByteArray const& value) {
        DcmTag key(tag.first, tag.second);
        // Signed or not: for the dictionary that depends on the pixels.
        if (key.getEVR() == EVR_xs) key.setVR(DcmVR(value.startsWith('-') ? EVR_SS : EVR_US));
        return (value.isEmpty() ? dataset.insertEmptyElement(key)
                                : dataset.putAndInsertString(key, value.constData()))
            .good();
    };
    bool good = true;
    for (auto const& [tag, value] : s.attributes)
        good = put(tag, value) && good;

    E_TransferSyntax const syntax = DcmXfer(s.syntax.constData()).getXfer();
    if (syntax == EXS_Unknown) return false;
    // The encoder of DCMTK 3.6.7 writes past its buffer when a picture does not shrink.
    bool const isJpegLs = syntax == EXS_JPEGLSLossless || syntax == EXS_JPEGLSLossy;
    if (isJpegLs && s.sampleCount() / s.frames * s.allocated / 8 < smallestJpegLs) return false;
    bool const isJpeg2000 = syntax == EXS_JPEG2000 || syntax == EXS_JPEG2000LosslessOnly;
    if (s.pixels) {
        put({0x0028, 0x0002}, QByteArray::number(s.perPixel));
        put({0x0028, 0x0004}, s.photometric);
        if (s.perPixel > 1) put({0x0028, 0x0006}, "0");
        if (s.frames > 1) put({0x0028, 0x0008}, QByteArray::number(s.frames));
        put({0x0028, 0x0010}, QByteArray::number(s.rows));
        put({0x0028, 0x0011}, QByteArray::number(s.columns));
        put({0x0028, 0x0100}, QByteArray::number(s.allocated));
        put({0x0028, 0x0101}, QByteArray::number(s.stored));
        put({0x0028, 0x0102}, QByteArray::number(s.stored - 1));
        put({0x0028, 0x0103}, s.isSigned ? "1" : "0");
        if (isJpeg2000) {
            auto* const pixels = new DcmPixelData(DCM_PixelData);
            auto* const sequence = new DcmPixelSequence(DcmTag(DCM_PixelSequenceTag));
            auto* const table = new DcmPixelItem(DcmTag(DCM_PixelItemTag));
            sequence->insert(table);
            DcmOffsetList offsets;
            std::size_t const frame = s.sampleCount() / s.frames;
            for (unsigned f = 0; f < s.frames; ++f) {
                std::vector<std::int64_t> values(frame);
                for (std::size_t i = 0; i < frame; ++i)
                    values[i] = s.sample(f * frame + i);
                QByteArray code = jpeg2000Frame(values, s.columns, s.rows, s.stored, s.isSigned, s.perPixel);
                good = !code.isEmpty() && good;
                sequence->storeCompressedFrame(offsets, reinterpret_cast<Uint8*>(code.data()),
                                               static_cast<Uint32>(code.size()), 0);
            }
            table->createOffsetTable(offsets);
            pixels->putOriginalRepresentation(syntax, nullptr, sequence);
            good = dataset.insert(pixels, OFTrue).good() && good;
        } else {
            QByteArray const bytes =
                packed([&s](std::size_t i) { return s.sample(i); }, s.sampleCount(), s.allocated);
            good =
                putBytes(dataset, DcmTag(DCM_PixelData, s.allocated <= 8 ? EVR_OB : EVR_OW), bytes) && good;
        }
    }
    if (!isJpeg2000)
        good = dataset.chooseRepresentation(syntax, nullptr).good() && dataset.canWriteXfer(syntax) && good;

    for (auto const& [tag, value] : s.overrides)
        if (value)
            good = put(tag, *value) && good;
        else
            dataset.findAndDeleteElement(DcmTagKey(tag.first, tag.second));
    for (auto const& [tag, value] : s.byteOverrides)
        good = putBytes(dataset,
                        DcmTag(DcmTagKey(tag.first, tag.second), DcmVR(value.representation.constData())),
                        value.bytes) &&
               good;
    if (!good) return false;

    OFFilename const name(QFile::encodeName(path).constData());
    if (!s.header) {
        E_TransferSyntax const plain =
            syntax == EXS_Unknown ? DcmXfer(implicitLittleEndian).getXfer() : syntax;
        return dataset.saveFile(name, plain).good();
    }
    if (file.validateMetaInfo(syntax, EWM_createNewMeta).bad()) return false;
    DcmMetaInfo& meta = *file.getMetaInfo();
    if (!s.versionName.isEmpty())
        meta.putAndInsertString(DCM_ImplementationVersionName, s.versionName.constData());
    if (!s.classUid.isEmpty()) meta.putAndInsertString(DCM_ImplementationClassUID, s.classUid.constData());
    meta.computeGroupLengthAndPadding(EGL_recalcGL, EPD_noChange, EXS_LittleEndianExplicit,
                                      EET_ExplicitLength);
    return file
        .saveFile(name, syntax, EET_ExplicitLength, EGL_recalcGL, EPD_noChange, 0, 0, EWM_dontUpdateMeta)
        .good();
}

QStringList writeDicomSeries(QString const& folder, DicomBuilder builder, unsigned columns, unsigned rows,
                             unsigned slices, std::array<double, 3> origin, std::array<double, 3> step,
                             std::function<std::int64_t(unsigned, unsigned, unsigned)> const& value)
{
    QStringList paths;
    builder.size(columns, rows);
    for (unsigned slice = 0; slice < slices; ++slice) {
        std::vector<std::int64_t> samples;
        samples.reserve(std::size_t{columns} * rows);
        for (unsigned y = 0; y < rows; ++y)
            for (unsigned x = 0; x < columns; ++x)
                samples.push_back(value(x, y, slice));
        QByteArray const number = QByteArray::number(slice + 1);
        DicomBuilder one = builder;
        one.samples(std::move(samples))
            .position(origin[0] + slice * step[0], origin[1] + slice * step[1], origin[2] + slice * step[2])
            .set(0x0020, 0x0013, number)
            .set(0x0008, 0x0018, "1.2.826.0.1.3680043.10.9999.1.0." + number);
        QString const path =
            QDir(folder).filePath(QStringLiteral("slice_%1.dcm").arg(slice, 3, 10, QLatin1Char('0')));
        if (!one.write(path)) return {};
        paths << path;
    }
    return paths;
}
