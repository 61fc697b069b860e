#include "DicomFile.h"

#include "DicomLibrary.h"
#include "DicomNesting.h"
#include "DicomText.h"
#include "HeaderMemory.h"
#include "hvimage/CILImage.h"

#include <dcmtk/dcmdata/dccodec.h>
#include <dcmtk/dcmdata/dcdatset.h>
#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcmetinf.h>
#include <dcmtk/dcmdata/dcpixel.h>
#include <dcmtk/dcmdata/dcpixseq.h>
#include <dcmtk/dcmdata/dcpxitem.h>
#include <dcmtk/dcmdata/dcsequen.h>
#include <dcmtk/dcmimgle/diutils.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <sys/stat.h>
#include <unistd.h>

namespace hvdicom {

namespace {

constexpr Uint32 longestReadAtOnce = 4096;
constexpr unsigned long longestTextInTable = 1024;

struct CloseFile
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// Whole number at the beginning of a text, as scanf would take it.
std::optional<std::int64_t> leadingInteger(QByteArray const& text)
{
    char* end = nullptr;
    errno = 0;
    long long const value = std::strtoll(text.constData(), &end, 10);
    if (end == text.constData() || errno != 0) return std::nullopt;
    return value;
}

int photometricByName(QByteArray const& name)
{
    if (name.isEmpty()) return EPI_Missing;
    if (name == "MONOCHROME2") return EPI_Monochrome2;
    QByteArray plain;
    for (char const c : name.toUpper())
        if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) plain += c;
    for (SP_Interpretation const* entry = PhotometricInterpretationNames; entry->Name; ++entry)
        if (plain == entry->Name) return entry->Type;
    return EPI_Unknown;
}

// The beginning of an attribute of group 0008 or 0002, with which files without a header of their own begin.
bool beginsWithAttribute(std::array<unsigned char, 8> const& b)
{
    bool const little = (b[0] == 0x08 || b[0] == 0x02) && b[1] == 0 && b[3] == 0;
    bool const big = b[0] == 0 && (b[1] == 0x08 || b[1] == 0x02) && b[2] == 0;
    return little || big;
}

// Whether a table of tags can show the value: text and numbers that are short, and no bulk data.
bool hasShortText(DcmElement& element)
{
    if (!element.isLeaf() || element.getLength() > longestTextInTable) return false;
    if (element.isaString()) return true;
    switch (element.ident()) {
    case EVR_OB:
    case EVR_OW:
    case EVR_UN:
    case EVR_PixelData:
    case EVR_ox:
        return false;
    default:
        return true;
    }
}

QString valueOf(DcmElement& element, QByteArray const& characterSet)
{
    OFString value;
    if (hasShortText(element)) element.getOFStringArray(value);
    return decodedText(QByteArray(value.data(), static_cast<int>(value.size())), characterSet);
}

void addElements(DcmItem& item, QByteArray const& characterSet, QMap<QString, SGroupElemInfo>& map)
{
    try {
        for (unsigned long i = 0; i < item.card(); ++i) {
            DcmElement* const element = item.getElement(i);
            if (!element) continue;
            SGroupElemInfo info;
            info.group = QStringLiteral("%1").arg(element->getGTag(), 4, 16, QLatin1Char('0')).toUpper();
            info.element = QStringLiteral("%1").arg(element->getETag(), 4, 16, QLatin1Char('0')).toUpper();
            info.name = QString::fromLatin1(DcmTag(element->getTag()).getTagName());
            info.value = valueOf(*element, characterSet);
            map.insert(info.group + QStringLiteral(", ") + info.element, info);
        }
    } catch (std::exception const&) {
        // What has been read so far is as good as it was.
    }
}

std::uint32_t keyOf(DcmTagKey const& tag)
{
    return static_cast<std::uint32_t>(tag.getGroup()) << 16 | tag.getElement();
}

// One of the values between "\\", counted from 0; empty where there are less.
QByteArray valueAt(std::string_view values, unsigned long position)
{
    std::size_t begin = 0;
    for (; position > 0; --position) {
        begin = values.find('\\', begin);
        if (begin == std::string_view::npos) return {};
        ++begin;
    }
    std::size_t const end = std::min(values.find('\\', begin), values.size());
    return QByteArray(values.data() + begin, static_cast<int>(end - begin));
}

QString latin1(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

bool hasPixelElement(DcmDataset& dataset)
{
    DcmElement* element = nullptr;
    return dataset.findAndGetElement(DCM_PixelData, element).good() && element &&
           element->ident() == EVR_PixelData;
}

// Null where the DICOM library cannot read the file.
std::unique_ptr<DcmFileFormat> parse(QByteArray const& path)
{
    if (!isReadableFile(path.constData()) || isNestedTooDeep(path.constData())) return nullptr;
    auto file = std::make_unique<DcmFileFormat>();
    if (file->loadFile(OFFilename(path.constData()), EXS_Unknown, EGL_noChange, longestReadAtOnce,
                       ERM_autoDetect)
            .bad())
        return nullptr;
    return file;
}

}  // namespace

bool isReadableFile(char const* path)
{
    struct stat status = {};
    return path && *path && ::stat(path, &status) == 0 && S_ISREG(status.st_mode) &&
           ::access(path, R_OK) == 0;
}

bool isDicomFile(char const* path)
{
    if (plainHeader(path)) return true;
    if (!isReadableFile(path)) return false;
    std::array<unsigned char, 132> start = {};
    std::size_t read = 0;
    {
        std::unique_ptr<std::FILE, CloseFile> const file(std::fopen(path, "rb"));
        if (!file) return false;
        read = std::fread(start.data(), 1, start.size(), file.get());
    }
    if (read == start.size() && std::equal(start.begin() + 128, start.end(), "DICM"))
        return !isNestedTooDeep(path);
    if (read < 8 || !beginsWithAttribute(
                        {start[0], start[1], start[2], start[3], start[4], start[5], start[6], start[7]}))
        return false;
    // Without a header of its own any file might look like one: it has to be read, and say what it is.
    DicomFile file;
    return file.open(path) && (!file.text(DCM_SOPClassUID).isEmpty() || !file.text(DCM_Modality).isEmpty());
}

DicomFile::DicomFile()
{
    startDicom();
}

bool DicomFile::open(QByteArray const& path)
{
    return open(path, plainHeader(path.constData()));
}

bool DicomFile::open(QByteArray const& path, std::shared_ptr<PlainHeader const> plain)
{
    m_path = path;
    m_plain = std::move(plain);
    m_file.reset();
    m_isBroken = false;
    m_cache.clear();
    m_pixels.reset();
    m_fragmentOfFrame.clear();
    try {
        if (!m_plain) m_file = parse(path);
    } catch (std::exception const&) {
        m_plain.reset();
        m_file.reset();
    }
    return isOpen();
}

// The file as the DICOM library has it; null when it can no longer be read, or is another one by now.
DcmFileFormat* DicomFile::parsed() const
{
    if (m_file || m_isBroken || !m_plain) return m_file.get();
    PixelLayout const before = readLayout();
    try {
        m_file = parse(m_path);
        bool const hasPixels = m_file && hasPixelElement(*m_file->getDataset());
        if (hasPixels != m_plain->hasPixels() || (hasPixels && !(readLayout() == before))) m_file.reset();
    } catch (std::exception const&) {
        m_file.reset();
    }
    m_isBroken = !m_file;
    return m_file.get();
}

QByteArray DicomFile::text(DcmTagKey const& tag, unsigned long position) const
{
    if (!m_file && m_plain) {
        std::uint32_t const key = keyOf(tag);
        if (auto const values = m_plain->values(key)) return valueAt(*values, position);
        if (!m_plain->has(key)) return {};
    }
    OFString value;
    if (!parsed() || m_file->getDataset()->findAndGetOFString(tag, value, position).bad()) return {};
    return QByteArray(value.data(), static_cast<int>(value.size())).trimmed();
}

std::optional<double> DicomFile::number(DcmTagKey const& tag, unsigned long position) const
{
    bool good = false;
    double const value = text(tag, position).toDouble(&good);
    if (!good || !std::isfinite(value)) return std::nullopt;
    return value;
}

QString DicomFile::string(DcmTagKey const& tag) const
{
    return decodedText(text(tag), text(DCM_SpecificCharacterSet));
}

QString DicomFile::implementationVersionName() const
{
    if (!m_file && m_plain) return latin1(m_plain->values(keyOf(DCM_ImplementationVersionName)).value_or(""));
    OFString value;
    if (!m_file || m_file->getMetaInfo()->findAndGetOFString(DCM_ImplementationVersionName, value).bad())
        return {};
    return QString::fromLatin1(value.c_str()).trimmed();
}

QMap<QString, SGroupElemInfo> DicomFile::elements() const
{
    QMap<QString, SGroupElemInfo> map;
    if (!parsed()) return map;
    QByteArray const characterSet = text(DCM_SpecificCharacterSet);
    addElements(*m_file->getMetaInfo(), characterSet, map);
    addElements(*m_file->getDataset(), characterSet, map);
    return map;
}

QList<QMap<QString, SGroupElemInfo>> DicomFile::items(DcmTagKey const& sequence) const
{
    QList<QMap<QString, SGroupElemInfo>> maps;
    if (!m_file && m_plain && !m_plain->has(keyOf(sequence))) return maps;
    DcmSequenceOfItems* found = nullptr;
    if (!parsed() || m_file->getDataset()->findAndGetSequence(sequence, found).bad() || !found) return maps;
    QByteArray const characterSet = text(DCM_SpecificCharacterSet);
    for (unsigned long i = 0; i < found->card(); ++i) {
        maps.append(QMap<QString, SGroupElemInfo>());
        if (DcmItem* const item = found->getItem(i)) addElements(*item, characterSet, maps.last());
    }
    return maps;
}

QString DicomFile::values(DcmTagKey const& tag) const
{
    std::uint32_t const key = keyOf(tag);
    if (!m_file && m_plain) {
        if (auto const values = m_plain->values(key)) return latin1(*values);
        if (!m_plain->has(key)) return {};
    }
    if (!parsed()) return {};
    auto* const item = tag.getGroup() == 0x0002 ? static_cast<DcmItem*>(m_file->getMetaInfo())
                                                : static_cast<DcmItem*>(m_file->getDataset());
    DcmElement* element = nullptr;
    if (item->findAndGetElement(tag, element).bad() || !element) return {};
    return valueOf(*element, text(DCM_SpecificCharacterSet)).trimmed();
}

// Of the parsed file where there is one, else of the plain header.
PixelLayout DicomFile::readLayout() const
{
    auto const unsignedValue = [this](DcmTagKey const& tag, std::uint64_t absent) {
        if (!m_file && !m_plain->has(keyOf(tag))) return absent;
        QByteArray const value = text(tag);
        if (value.isEmpty()) return absent;
        std::optional<std::int64_t> const read = leadingInteger(value);
        return read && *read >= 0 ? static_cast<std::uint64_t>(*read) : std::uint64_t{0};
    };
    auto const small = [&](DcmTagKey const& tag, std::uint64_t absent) {
        return static_cast<unsigned>(std::min<std::uint64_t>(unsignedValue(tag, absent), 0xFFFF));
    };
    PixelLayout layout;
    layout.columns = unsignedValue(DCM_Columns, 0);
    layout.rows = unsignedValue(DCM_Rows, 0);
    layout.frames = unsignedValue(DCM_NumberOfFrames, 1);
    layout.samplesPerPixel = small(DCM_SamplesPerPixel, 1);
    layout.bitsAllocated = small(DCM_BitsAllocated, 0);
    layout.bitsStored = small(DCM_BitsStored, layout.bitsAllocated);
    layout.highBit = small(DCM_HighBit, layout.bitsStored > 0 ? layout.bitsStored - 1 : 0);
    layout.isSigned = small(DCM_PixelRepresentation, 0) == 1;
    layout.lowIsWhite = photometricByName(text(DCM_PhotometricInterpretation)) == EPI_Monochrome1;
    if (!m_file) {
        layout.elementBytes = m_plain->pixelBytes();
        return layout;
    }
    DcmElement* element = nullptr;
    DcmDataset& dataset = *m_file->getDataset();
    if (dataset.findAndGetElement(DCM_PixelData, element).bad() || !element ||
        element->ident() != EVR_PixelData)
        return layout;
    auto& pixels = static_cast<DcmPixelData&>(*element);
    E_TransferSyntax const syntax = dataset.getOriginalXfer();
    DcmPixelSequence* fragments = nullptr;
    if (pixels.getEncapsulatedRepresentation(syntax, nullptr, fragments).bad() || !fragments) {
        layout.elementBytes = pixels.getLength(syntax);
        return layout;
    }
    layout.isEncapsulated = true;
    layout.fragments = fragments->card() > 0 ? fragments->card() - 1 : 0;
    for (unsigned long i = 1; i < fragments->card(); ++i) {
        DcmPixelItem* item = nullptr;
        if (fragments->getItem(item, i).good() && item) layout.elementBytes += item->getLength();
    }
    return layout;
}

DicomFile::Pixels const& DicomFile::pixels() const
{
    // Who has asked whether a file can be decoded asks next for its size.
    thread_local std::shared_ptr<PlainHeader const> last;
    thread_local Pixels lastPixels;
    if (!m_pixels && m_plain && m_plain == last) m_pixels = lastPixels;
    if (!m_pixels) {
        try {
            m_pixels = readPixels();
            if (m_plain && !m_file) {
                last = m_plain;
                lastPixels = *m_pixels;
            }
        } catch (std::exception const&) {
            m_pixels = Pixels();
            m_pixels->layout.frames = 0;
            m_pixels->fault = QStringLiteral("its description is damaged");
        }
    }
    return *m_pixels;
}

PixelLayout const& DicomFile::layout() const
{
    return pixels().layout;
}

QString DicomFile::pixelFault() const
{
    return pixels().fault;
}

int DicomFile::photometricInterpretation() const
{
    return pixels().photometric;
}

DicomFile::Pixels DicomFile::readPixels() const
{
    Pixels pixels;
    pixels.layout.frames = 0;
    pixels.photometric = EPI_Unknown;
    if (!isOpen()) return pixels;
    pixels.photometric = photometricByName(text(DCM_PhotometricInterpretation));
    if (m_file ? !hasPixelElement(*m_file->getDataset()) : !m_plain->hasPixels()) {
        pixels.fault = QStringLiteral("it has no pixels");
        return pixels;
    }
    pixels.layout = readLayout();
    if (pixels.layout.isEncapsulated) {
        E_TransferSyntax const syntax = m_file->getDataset()->getOriginalXfer();
        if (!DcmCodecList::canChangeCoding(syntax, EXS_LittleEndianExplicit)) {
            pixels.fault = QStringLiteral("its pixels are compressed by a method that is not known here (%1)")
                               .arg(QLatin1String(DcmXfer(syntax).getXferName()));
            return pixels;
        }
    }
    PixelFault const fault = hvdicom::pixelFault(pixels.layout);
    if (fault != PixelFault::None)
        pixels.fault = QLatin1String(describe(fault));
    else
        pixels.coding = sampleCoding(pixels.layout);
    return pixels;
}

bool DicomFile::isGrey() const
{
    return (pixels().photometric == EPI_Monochrome1 || pixels().photometric == EPI_Monochrome2) &&
           layout().samplesPerPixel == 1;
}

bool DicomFile::readFrame(std::uint64_t frame, void* target)
{
    if (!pixels().fault.isEmpty() || !isGrey() || frame >= layout().frames || !parsed()) return false;
    try {
        return layout().isEncapsulated ? readCompressed(frame, target) : readPlain(frame, target);
    } catch (std::exception const&) {
        return false;
    }
}

bool DicomFile::readFrame(std::uint64_t frame, CILImage& image)
{
    if (!pixels().fault.isEmpty() || !isGrey() || frame >= layout().frames || !parsed()) return false;
    HVSDataTypes const type = sampleBits() == 8 ? eTypeUInt8 : sampleBits() == 16 ? eTypeUInt16 : eTypeUInt32;
    if (!image.InitWithType(type, static_cast<long>(layout().columns), static_cast<long>(layout().rows)) ||
        !readFrame(frame, image.get_data()))
        return false;
    image.RefreshImageStats();
    return true;
}

bool DicomFile::readPlain(std::uint64_t frame, void* target)
{
    DcmElement* element = nullptr;
    if (m_file->getDataset()->findAndGetElement(DCM_PixelData, element).bad() || !element) return false;
    // Frames of less than a byte a sample follow one another without a gap. Words of two bytes are read
    // whole.
    std::uint64_t const firstBit = frame * frameBits(layout());
    std::uint64_t const first = firstBit / 8 & ~std::uint64_t{1};
    std::uint64_t const end = (firstBit + frameBits(layout()) + 7) / 8;
    std::uint64_t const length = end - first;
    auto const skipped = static_cast<unsigned>(firstBit - first * 8);
    bool const inPlace = skipped == 0 && layout().bitsAllocated == sampleBits();
    if (!inPlace) m_words.resize(static_cast<std::size_t>((length + 3) / 4));
    void* const raw = inPlace ? target : m_words.data();
    if (element->getPartialValue(raw, static_cast<Uint32>(first), static_cast<Uint32>(length), &m_cache)
            .bad())
        return false;
    if (inPlace && isPlain(pixels().coding, sampleBits())) return true;
    decodeSamples(pixels().coding, static_cast<unsigned char const*>(raw) + skipped / 8, skipped % 8,
                  static_cast<std::size_t>(samplesPerFrame(layout())), sampleBits(), target);
    return true;
}

bool DicomFile::readCompressed(std::uint64_t frame, void* target)
{
    DcmElement* element = nullptr;
    DcmDataset& dataset = *m_file->getDataset();
    if (dataset.findAndGetElement(DCM_PixelData, element).bad() || !element) return false;
    std::uint64_t const length = frameBytes(layout());
    if (length > 0xFFFFFFF0U) return false;
    m_words.resize(static_cast<std::size_t>((length + 7) / 4));
    Uint32 fragment = frame < m_fragmentOfFrame.size() ? m_fragmentOfFrame[frame] : 0;
    OFString colorModel;
    if (static_cast<DcmPixelData*>(element)
            ->getUncompressedFrame(&dataset, static_cast<Uint32>(frame), fragment, m_words.data(),
                                   static_cast<Uint32>(length + length % 2), colorModel, &m_cache)
            .bad())
        return false;
    if (m_fragmentOfFrame.size() <= frame) m_fragmentOfFrame.resize(frame + 1, 0);
    if (m_fragmentOfFrame.size() == frame + 1) m_fragmentOfFrame.push_back(fragment);
    decodeSamples(pixels().coding, m_words.data(), 0, static_cast<std::size_t>(samplesPerFrame(layout())),
                  sampleBits(), target);
    return true;
}

}  // namespace hvdicom
