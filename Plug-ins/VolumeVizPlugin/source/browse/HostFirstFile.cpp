#include "HostFirstFile.h"

#include "hvapi/sequence/CDicomImporter.h"
#include "hvdicom/CHVDcmImage.h"
#include "hvimage/CILImage.h"

#include <QFile>
#include <QFileInfo>

HostFirstFile::HostFirstFile(const QString& folder, const QString& name)
    : m_folder(folder)
    , m_path(folder + QLatin1Char('/') + name)
    , m_fileName(QFile::encodeName(m_path))
{}

bool HostFirstFile::isPicture()
{
    return CILImage::canInitFromFile(m_fileName.constData()) != 0;
}

bool HostFirstFile::isImportable()
{
    CDicomImporter importer;
    return importer.initDicomImporter(m_path) == 0 && importer.isDicom(true);
}

bool HostFirstFile::isDecodableDicom()
{
    return CHVDcmImage::isDICOM(m_fileName.constData());
}

bool HostFirstFile::isDicom()
{
    return CDicomReader::isDicom(m_fileName.constData());
}

bool HostFirstFile::isBeside(const QString& fileName)
{
    return QFileInfo(m_folder + QLatin1Char('/') + fileName).isFile();
}

std::optional<DicomFacts> HostFirstFile::readDicom()
{
    CDicomReader reader;
    if (reader.initDicomImporter(m_path) != 0 || reader.loadEntireDicomInfo() != 0) return std::nullopt;
    DicomFacts facts;
    facts.photometricInterpretation = reader.getPhotometricInterpretation();
    facts.totalFrames = reader.getTotalFrames();
    facts.depth = reader.getDepth();
    facts.modality = reader.getModalityName();
    facts.columns = reader.getNumberofColumns();
    facts.rows = reader.getNumberofRows();
    facts.sliceSpacing = reader.getSliceSpacing();
    facts.sliceThickness = reader.getSliceThickness();
    return facts;
}

std::optional<DicomImageFacts> HostFirstFile::readDicomImage()
{
    CHVDcmImage image;
    if (!image.LoadFromDICOMFile(m_path)) return std::nullopt;
    DicomImageFacts facts;
    facts.photometricInterpretation = image.getPhotometricInterpretation();
    facts.frameCount = image.getFrameCount();
    facts.actualDepth = image.getActualDepth();
    facts.width = image.getWidth();
    facts.height = image.getHeight();
    facts.modality = image.getTagValue(QStringLiteral("0008"), QStringLiteral("0060"));
    facts.pixelSpacing = image.getTagValue(QStringLiteral("0028"), QStringLiteral("0030"));
    facts.spacingBetweenSlices = image.getTagValue(QStringLiteral("0018"), QStringLiteral("0088"));
    facts.sliceThickness = image.getTagValue(QStringLiteral("0018"), QStringLiteral("0050"));
    facts.manufacturer = image.getTagValue(QStringLiteral("0008"), QStringLiteral("0070"));
    for (const auto& item : image.getHeaderTagSequence(0x0018, 0xA001))
        facts.contributingManufacturers << item.value(QStringLiteral("0008, 0070")).value;
    return facts;
}

TiffFacts HostFirstFile::readTiff()
{
    // A picture that the host cannot show still makes its folder a TIFF folder: it has no size then.
    CILImage image;
    image.LoadFromTIFFFile(m_fileName.constData(), 0);
    TiffFacts facts;
    facts.imageCount = image.getImageCount();
    facts.bytesPerSample = CILImageBase::get_reqsizefortype(image.get_datatype());
    facts.width = image.getWidth();
    facts.height = image.getHeight();
    return facts;
}
