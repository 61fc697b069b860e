#include "FolderClassification.h"

#include <algorithm>

namespace {

QString bitsText(int bits)
{
    return QStringLiteral("%1-bit").arg(bits);
}

template <class Number>
QString sizeText(Number width, Number height)
{
    return QStringLiteral("%1 x %2").arg(width).arg(height);
}

bool isSiemens(const DicomImageFacts& image)
{
    const auto names = [](const QString& maker) { return maker.contains(QLatin1String("Siemens")); };
    return names(image.manufacturer) ||
           std::any_of(image.contributingManufacturers.begin(), image.contributingManufacturers.end(), names);
}

// Pixel spacing shows the distance of slices here, and slice spacing their thickness.
std::optional<FolderClass> classOfDicom(FirstFile& file, const FolderFacts& folder)
{
    const std::optional<DicomFacts> facts = file.readDicom();
    if (!facts ||
        !facts->photometricInterpretation.contains(QLatin1String("Monochrome"), Qt::CaseInsensitive))
        return std::nullopt;
    FolderClass found;
    found.slices =
        folder.fileCount > 1 ? QString::number(folder.fileCount) : QString::number(facts->totalFrames);
    found.dataType = bitsText(facts->depth);
    found.modality = facts->modality;
    found.dimension = sizeText(facts->columns, facts->rows);
    found.pixelSpacing = QString::number(facts->sliceSpacing);
    found.sliceSpacing = QString::number(facts->sliceThickness);
    return found;
}

std::optional<FolderClass> classOfDicomImage(FirstFile& file, const FolderFacts& folder)
{
    const std::optional<DicomImageFacts> facts = file.readDicomImage();
    if (!facts || (facts->photometricInterpretation != 2 && facts->photometricInterpretation != 3))
        return std::nullopt;
    FolderClass found;
    found.slices =
        folder.fileCount < 2 ? QString::number(facts->frameCount) : QString::number(folder.fileCount);
    found.dataType = bitsText(facts->actualDepth);
    found.modality = facts->modality;
    found.dimension = sizeText(facts->width, facts->height);
    found.pixelSpacing = facts->pixelSpacing;
    found.sliceSpacing = facts->spacingBetweenSlices;
    if (found.sliceSpacing.isEmpty()) found.sliceSpacing = facts->sliceThickness;
    if (found.sliceSpacing.isEmpty()) found.sliceSpacing = found.pixelSpacing;
    found.sortByPosition = isSiemens(*facts) && isNumberedName(folder.firstFileName);
    return found;
}

// A picture beside one of the two files belongs to an optical sequence of the host.
std::optional<FolderClass> classOfTiff(FirstFile& file, const FolderFacts& folder)
{
    if (file.isBeside(QStringLiteral("SequenceInfo.txt")) || file.isBeside(QStringLiteral("ClickInfo.txt")))
        return std::nullopt;
    const TiffFacts facts = file.readTiff();
    FolderClass found;
    found.isTiff = true;
    found.slices = QString::number(folder.fileCount < 2 ? facts.imageCount : folder.fileCount);
    found.dataType = bitsText(8 * facts.bytesPerSample);
    found.dimension = sizeText(facts.width, facts.height);
    return found;
}

}  // namespace

std::optional<FolderClass> classifyFolder(FirstFile& file, const FolderFacts& folder)
{
    if (file.isPicture()) return classOfTiff(file, folder);
    const bool isImportable = file.isImportable();
    if (file.isDecodableDicom()) return classOfDicomImage(file, folder);
    if (isImportable || file.isDicom()) return classOfDicom(file, folder);
    return std::nullopt;
}

bool isNumberedName(const QString& name)
{
    QString rest = name;
    rest.remove(QLatin1Char('.'));
    rest.remove(QLatin1String("dcm"));
    return !rest.isEmpty() && std::all_of(rest.begin(), rest.end(), [](QChar c) { return c.isDigit(); });
}
