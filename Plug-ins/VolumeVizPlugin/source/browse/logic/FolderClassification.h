#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What the reader of DICOM files of any kind tells of a file.
struct DicomFacts
{
    QString photometricInterpretation;  ///< as text, "MONOCHROME2"
    unsigned long totalFrames = 0;
    int depth = 0;  ///< bits
    QString modality;
    unsigned long columns = 0;
    unsigned long rows = 0;
    double sliceSpacing = 0;    ///< mm
    double sliceThickness = 0;  ///< mm
};

/// What the reader of DICOM pictures tells of a file whose pixels it can decode.
struct DicomImageFacts
{
    int photometricInterpretation = 0;  ///< 2 lowest value white, 3 lowest value black
    unsigned long frameCount = 0;
    int actualDepth = 0;  ///< bits
    unsigned long width = 0;
    unsigned long height = 0;
    QString modality;              ///< (0008,0060)
    QString pixelSpacing;          ///< (0028,0030)
    QString spacingBetweenSlices;  ///< (0018,0088)
    QString sliceThickness;        ///< (0018,0050)
    QString manufacturer;          ///< (0008,0070)
    /// The same of each item of the Contributing Equipment Sequence (0018,A001).
    QStringList contributingManufacturers;
};

/// What the reader of TIFF files tells of the first picture of a file.
struct TiffFacts
{
    int imageCount = 0;
    int bytesPerSample = 0;
    long width = 0;
    long height = 0;
};

/// The first file of a folder, through the readers of the host. Each is asked only where the answers before
/// leave the matter open.
class FirstFile
{
public:
    virtual ~FirstFile() = default;

    virtual bool isPicture() = 0;         ///< a picture file of the image library, which is a TIFF here
    virtual bool isImportable() = 0;      ///< a planar DICOM image that becomes a dataset of its own
    virtual bool isDecodableDicom() = 0;  ///< DICOM with pixels that can be decoded
    virtual bool isDicom() = 0;           ///< DICOM of any kind
    virtual bool isBeside(const QString& fileName) = 0;  ///< a file of that name lies in its folder

    virtual std::optional<DicomFacts> readDicom() = 0;
    virtual std::optional<DicomImageFacts> readDicomImage() = 0;
    virtual TiffFacts readTiff() = 0;
};

/// The files of a folder that pass the name filters.
struct FolderFacts
{
    int fileCount = 0;
    QString firstFileName;  ///< without the path
};

/// A folder that holds volumetric data.
struct FolderClass
{
    bool isTiff = false;
    QString slices;
    QString dataType;
    QString modality;
    QString dimension;
    QString pixelSpacing;
    QString sliceSpacing;
    bool sortByPosition = false;  ///< the files have to be brought into the order of their slices
};

/// Decides by the first file whether a folder holds volumetric data; nothing when it does not.
std::optional<FolderClass> classifyFolder(FirstFile& file, const FolderFacts& folder);

/// True when a name is a number, apart from dots and "dcm".
bool isNumberedName(const QString& name);
