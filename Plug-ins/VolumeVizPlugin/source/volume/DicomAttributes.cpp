#include "volume/DicomAttributes.h"

#include "hvdicom/CDicomReader.h"
#include "volume/logic/NumberText.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcfilefo.h>

#include <QFile>
#include <QFileInfo>

#include <limits>
#include <string_view>

namespace {

constexpr std::int64_t longestSide = 65535;

std::optional<OFString> valueOf(DcmFileFormat& file, const DcmTagKey& tag, unsigned long position)
{
    OFString value;
    const OFCondition found = file.getDataset()->findAndGetOFString(tag, value, position, OFFalse);
    if (found.bad()) return std::nullopt;
    return value;
}

std::string_view viewOf(const OFString& text)
{
    return {text.data(), text.size()};
}

}  // namespace

bool parseFile(const QString& path, DcmFileFormat& file)
{
    if (!QFileInfo(path).isFile()) return false;  // a pipe or a device might never end
    const QByteArray name = QFile::encodeName(path);
    if (!CDicomReader::isDicom(name.constData())) return false;
    const OFCondition loaded =
        file.loadFile(name.constData(), EXS_Unknown, EGL_noChange, 4096, ERM_autoDetect);
    return loaded.good() && file.getDataset() != nullptr;
}

QString dicomText(DcmFileFormat& file, const DcmTagKey& tag, unsigned long position)
{
    const auto value = valueOf(file, tag, position);
    return value ? QString::fromLatin1(value->data(), static_cast<int>(value->size())) : QString();
}

std::optional<float> dicomDecimal(DcmFileFormat& file, const DcmTagKey& tag, unsigned long position)
{
    const auto value = valueOf(file, tag, position);
    return value ? viz::leadingDecimal(viewOf(*value)) : std::nullopt;
}

std::optional<std::int64_t> dicomInteger(DcmFileFormat& file, const DcmTagKey& tag)
{
    const auto value = valueOf(file, tag, 0);
    return value ? viz::leadingInteger(viewOf(*value)) : std::nullopt;
}

std::optional<std::uint32_t> dicomSide(DcmFileFormat& file, const DcmTagKey& tag)
{
    const auto side = dicomInteger(file, tag);
    if (!side || *side < 1 || *side > longestSide) return std::nullopt;
    return static_cast<std::uint32_t>(*side);
}

std::uint32_t dicomFrames(DcmFileFormat& file)
{
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    const std::int64_t frames = dicomInteger(file, DCM_NumberOfFrames).value_or(1);
    return frames < 1 || frames > most ? 1 : static_cast<std::uint32_t>(frames);
}

viz::SlicePoint dicomPosition(DcmFileFormat& file)
{
    viz::SlicePoint position{};
    for (unsigned long i = 0; i < position.size(); ++i)
        position[i] = dicomDecimal(file, DCM_ImagePositionPatient, i).value_or(0.0F);
    return position;
}

std::optional<viz::SliceOrientation> dicomOrientation(DcmFileFormat& file)
{
    viz::SliceOrientation orientation;
    for (unsigned long i = 0; i < 6; ++i) {
        const auto value = dicomDecimal(file, DCM_ImageOrientationPatient, i);
        if (!value) return std::nullopt;
        (i < 3 ? orientation.alongRow[i] : orientation.alongColumn[i - 3]) = *value;
    }
    return orientation;
}

DicomPixelSpacing dicomPixelSpacing(DcmFileFormat& file)
{
    DicomPixelSpacing spacing;
    spacing.rows = dicomDecimal(file, DCM_PixelSpacing, 0).value_or(spacing.rows);
    spacing.columns = dicomDecimal(file, DCM_PixelSpacing, 1).value_or(spacing.columns);
    return spacing;
}

float dicomSliceSpacing(DcmFileFormat& file, float otherwise)
{
    if (const auto spacing = dicomDecimal(file, DCM_SpacingBetweenSlices)) return *spacing;
    return dicomDecimal(file, DCM_SliceThickness).value_or(otherwise);
}

std::optional<DicomPixelRange> dicomPixelRange(DcmFileFormat& file)
{
    const auto smallest = dicomInteger(file, DCM_SmallestImagePixelValue);
    const auto largest = dicomInteger(file, DCM_LargestImagePixelValue);
    if (!smallest || !largest) return std::nullopt;
    return DicomPixelRange{*smallest, *largest};
}
