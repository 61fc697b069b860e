#include "hvdicom/CHVDcmImage.h"

#include "DcmtkLog.h"
#include "DicomFile.h"
#include "HeaderMemory.h"

#include <QFile>
#include <new>
#include <utility>
#include <vector>

class CHVDcmImage::Private
{
public:
    hvdicom::DicomFile file;
    std::vector<std::uint32_t> frame;  // the last one given away
};

CHVDcmImage::CHVDcmImage()
    : d(std::make_unique<Private>())
{}

CHVDcmImage::~CHVDcmImage() = default;

bool CHVDcmImage::isDICOM(char const* path)
{
    std::shared_ptr<hvdicom::PlainHeader const> plain = hvdicom::plainHeader(path);
    if (!plain && !hvdicom::isDicomFile(path)) return false;
    hvdicom::DicomFile file;
    return file.open(path, std::move(plain)) && file.pixelFault().isEmpty();
}

bool CHVDcmImage::LoadFromDICOMFile(QString path)
{
    d->frame.clear();
    if (!d->file.open(QFile::encodeName(path))) {
        hvdicom::logFileFault(path, QStringLiteral("it is no DICOM file, or is damaged"));
        return false;
    }
    if (d->file.pixelFault().isEmpty()) return true;
    hvdicom::logFileFault(path, d->file.pixelFault());
    return false;
}

unsigned long CHVDcmImage::getWidth() const
{
    return d->file.layout().columns;
}

unsigned long CHVDcmImage::getHeight() const
{
    return d->file.layout().rows;
}

int CHVDcmImage::getDepth() const
{
    return d->file.layout().bitsStored > 0 ? static_cast<int>(d->file.sampleBits()) : 0;
}

int CHVDcmImage::getActualDepth() const
{
    return static_cast<int>(d->file.layout().bitsStored);
}

unsigned long CHVDcmImage::getFrameCount() const
{
    return d->file.pixelFault().isEmpty() ? d->file.layout().frames : 0;
}

void* CHVDcmImage::get_data(unsigned long frame)
{
    hvdicom::PixelLayout const& layout = d->file.layout();
    if (frame < 1 || getFrameCount() == 0) return nullptr;
    std::uint64_t const bytes = hvdicom::samplesPerFrame(layout) * (d->file.sampleBits() / 8);
    try {
        d->frame.resize(static_cast<std::size_t>((bytes + 3) / 4));
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
    return d->file.readFrame(frame - 1, static_cast<void*>(d->frame.data())) ? d->frame.data() : nullptr;
}

bool CHVDcmImage::getDicomImage(unsigned long frame, CILImage& image)
{
    return frame >= 1 && d->file.readFrame(frame - 1, image);
}

QMap<QString, SGroupElemInfo> CHVDcmImage::getGroupElementInfo() const
{
    return d->file.elements();
}

int CHVDcmImage::getPhotometricInterpretation() const
{
    return d->file.photometricInterpretation();
}

QString CHVDcmImage::getTagValue(QString group, QString element) const
{
    bool isGroup = false;
    bool isElement = false;
    DcmTagKey const tag(group.toUShort(&isGroup, 16), element.toUShort(&isElement, 16));
    return isGroup && isElement ? d->file.values(tag) : QString();
}

QList<QMap<QString, SGroupElemInfo>> CHVDcmImage::getHeaderTagSequence(unsigned short group,
                                                                       unsigned short element) const
{
    return d->file.items(DcmTagKey(group, element));
}
