#include "volume/CVolumeDicom.h"

#include "hvdicom/CHVDcmImage.h"
#include "hvimage/CILImage.h"
#include "hvutils/CHVUtilityFns.h"
#include "hvutils/shortenFolderNameForDisplay.h"
#include "volume/DicomAttributes.h"
#include "volume/DicomMessages.h"
#include "volume/DicomPicture.h"
#include "volume/HeapRoom.h"
#include "volume/LoadProgress.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcfilefo.h>

#include <QCursor>
#include <QFileInfo>

#include <optional>
#include <utility>

/// What the scanning pass knows between two files.
struct CVolumeDicom::Scan
{
    unsigned accepted = 0;  // files that count, unreadable ones among them
    viz::SliceAxis axis = viz::SliceAxis::Axial;
    bool dialogIsDue = true;
    bool hasDirection = false;
    bool synthetic = false;  // positions are made up from the spacing
    viz::SlicePoint first{};
    viz::SourceRange range;
    CILImage image;  // for all files: its memory is used again
};

namespace {

constexpr unsigned largest8Bit = 255;
constexpr unsigned largest16Bit = 65535;

// What the files take on the disk, and so about in memory.
std::uint64_t bytesOf(const QStringList& files)
{
    std::uint64_t bytes = 0;
    for (const QString& path : files)
        if (const QFileInfo file(path); file.isFile()) bytes += static_cast<std::uint64_t>(file.size());
    return bytes;
}

enum class RangeFault
{
    None,
    NotMonochrome,
    TooShort,
    TooDeep,
    NotDecoded,
    NoMemory
};

// @param frames  frames to decode; 0 for all
// @param image   room for the decoded samples
RangeFault rangeOf(DcmFileFormat& file, unsigned long frames, bool makerData, CILImage& image,
                   viz::SourceRange& range)
{
    if (const auto told = dicomPixelRange(file)) {
        range = {told->smallest, told->largest};
        return RangeFault::None;
    }
    const DicomPicture picture(file, frames);
    if (picture.state() == DicomPicture::State::TooLarge) return RangeFault::NoMemory;
    if (picture.state() == DicomPicture::State::TooShort) return RangeFault::TooShort;
    if (!picture.isMonochrome()) return RangeFault::NotMonochrome;
    if (makerData && picture.depth() == 8) {
        range = {0, largest8Bit};
        return RangeFault::None;
    }
    if (makerData && picture.depth() == 16) {
        range = {0, largest16Bit};
        return RangeFault::None;
    }
    if (picture.depth() > 32) return RangeFault::TooDeep;
    if (!picture.copyTo(image)) return RangeFault::NotDecoded;
    image.RefreshImageStats();
    range = viz::SourceRange::ofFrame(image.getMin(), image.getMax());
    return RangeFault::None;
}

const char* messageOf(RangeFault fault, DcmFileFormat& file)
{
    switch (fault) {
    case RangeFault::NotMonochrome:
        return dicom_message::notMonochrome;
    case RangeFault::NotDecoded:
        if (!dicomSide(file, DCM_Columns)) return dicom_message::noColumns;
        if (!dicomSide(file, DCM_Rows)) return dicom_message::noRows;
        return dicom_message::noFrameMemory;
    case RangeFault::NoMemory:
        return dicom_message::noFrameMemory;
    default:
        return dicom_message::notCompatible;
    }
}

}  // namespace

bool CVolumeDicom::loadSeries(const QStringList& files, unsigned first, unsigned last)
{
    std::optional<LoadProgress> progress(QString::fromLatin1(dicom_message::scanTitle));
    Scan scan;
    m_columns = 0;
    m_rows = 0;
    if (files.size() > 1) m_room = std::make_unique<HeapRoom>(bytesOf(files));
    if (!scanSeries(files, *progress, scan)) return false;
    if (m_images.empty()) return fail(dicom_message::nothingUsable);

    m_frames = static_cast<std::uint32_t>(m_images.size());
    if (m_frames < 2 && dicomFrames(*m_images.front()->m_file) > 1) {
        m_images.clear();
        progress.reset();
        return loadMultiFrame(files.first(), first, last);
    }
    sortSlices();
    m_sliceSpacing =
        viz::meanSpacing(m_images.front()->m_position, m_images.back()->m_position, m_images.size());
    if (!prepareBlock(scan.axis, scan.range)) return false;

    progress->setTitle(QString::fromLatin1(dicom_message::loadTitle));
    if (!loadSlices(files, scan.axis, *progress)) return false;
    swapCounts(scan.axis);
    return true;
}

bool CVolumeDicom::scanSeries(const QStringList& files, LoadProgress& progress, Scan& scan)
{
    const auto fileCount = static_cast<unsigned>(files.size());
    for (unsigned i = 0; i < fileCount; ++i) {
        const QString& path = files[static_cast<int>(i)];
        QString label = path;
        shortenFolderNameForDisplay(label);
        if (!progress.next(label, i, fileCount)) return fail(dicom_message::scanAborted);

        auto image = std::make_unique<ImageDesc>();
        if (!parseFile(path, *image->m_file) || image->m_file->getDataset()->loadAllDataIntoMemory().bad()) {
            ++scan.accepted;  // kept: a first file that is no DICOM leaves no reference to the others
            continue;
        }
        bool kept = true;
        if (scan.accepted == 0) {
            if (!takeReference(path, *image, fileCount == 1, scan)) return false;
        } else {
            // An unreadable second file leaves the direction to the next one.
            if ((scan.accepted == 1 || !scan.hasDirection) && !setUpDirection(path, fileCount, *image, scan))
                return false;
            if (!takeLater(*image, scan, kept)) return false;
        }
        if (!kept) continue;
        m_images.push_back(std::move(image));
        ++scan.accepted;
    }
    return true;
}

// The first file says what the volume is like.
bool CVolumeDicom::takeReference(const QString& path, ImageDesc& image, bool alone, Scan& scan)
{
    DcmFileFormat& file = *image.m_file;
    // One file of many frames is left to its own path, which finds the range of all of them.
    const unsigned long frames = alone && dicomFrames(file) > 1 ? 1 : 0;
    const RangeFault fault = rangeOf(file, frames, m_makerData, scan.image, scan.range);
    if (fault != RangeFault::None) return fail(messageOf(fault, file));

    const DicomPixelSpacing spacing = dicomPixelSpacing(file);
    m_pixelSpacing[0] = spacing.rows;
    m_pixelSpacing[1] = spacing.columns;
    scan.first = dicomPosition(file);
    m_manufacturer = dicomText(file, DCM_Manufacturer);
    m_patientPosition = dicomText(file, DCM_PatientPosition);
    m_imageType = dicomText(file, DCM_ImageType, 2);
    m_sliceSpacing = dicomSliceSpacing(file, m_pixelSpacing[0]);

    const auto orientation = dicomOrientation(file);
    scan.axis = (orientation ? viz::axisOfOrientation(*orientation) : viz::axisOfImageType(m_imageType))
                    .value_or(scan.axis);

    const auto columns = dicomSide(file, DCM_Columns);
    if (!columns) return fail(dicom_message::noColumns);
    const auto rows = dicomSide(file, DCM_Rows);
    if (!rows) return fail(dicom_message::noRows);
    m_columns = *columns;
    m_rows = *rows;
    m_loadColumns = m_columns;
    m_loadRows = m_rows;
    m_resolutionFactor = 1.0F;

    CHVDcmImage host;
    host.LoadFromDICOMFile(path);
    m_info = host.getGroupElementInfo();
    return true;
}

bool CVolumeDicom::setUpDirection(const QString& path, unsigned fileCount, const ImageDesc& image, Scan& scan)
{
    const viz::SeriesDirection series =
        viz::seriesDirection(scan.first, dicomPosition(*image.m_file), m_sliceSpacing);
    m_direction = series.unit;
    scan.hasDirection = true;
    scan.synthetic = scan.synthetic || series.synthetic;
    if (!m_images.empty()) m_images.front()->m_position = 0.0F;
    checkFeetFirst(scan.axis);

    CHVUtilityFns::restoreCursor();
    if (scan.dialogIsDue && !showVolumeInfo(path, fileCount)) return false;
    scan.dialogIsDue = false;
    CHVUtilityFns::setCursor(Qt::WaitCursor);
    return true;
}

// @param kept  false when the file is left out without a word
bool CVolumeDicom::takeLater(ImageDesc& image, Scan& scan, bool& kept)
{
    DcmFileFormat& file = *image.m_file;
    viz::SlicePoint position = dicomPosition(file);
    if (scan.synthetic) position[2] = static_cast<float>(scan.accepted) * m_sliceSpacing;
    image.m_position = viz::slicePosition(m_direction, scan.first, position);

    const auto columns = dicomSide(file, DCM_Columns);
    const auto rows = dicomSide(file, DCM_Rows);
    kept = columns && rows && *columns == m_columns && *rows == m_rows;
    if (!kept) return true;

    viz::SourceRange range;
    const RangeFault fault = rangeOf(file, 0, m_makerData, scan.image, range);
    kept = fault == RangeFault::None;
    if (fault == RangeFault::NotMonochrome || fault == RangeFault::TooShort) return true;
    if (!kept) return fail(messageOf(fault, file));
    scan.range.widen(range);
    return true;
}

void CVolumeDicom::sortSlices()
{
    std::vector<float> positions;
    positions.reserve(m_images.size());
    for (const auto& image : m_images)
        positions.push_back(image->m_position);
    std::vector<std::unique_ptr<ImageDesc>> sorted;
    sorted.reserve(m_images.size());
    for (const std::size_t index : viz::sliceOrder(positions))
        sorted.push_back(std::move(m_images[index]));
    m_images = std::move(sorted);
}

bool CVolumeDicom::loadSlices(const QStringList& files, viz::SliceAxis axis, LoadProgress& progress)
{
    const viz::LoadSize size = loadSize();
    const bool flipped = axis != viz::SliceAxis::Axial;
    viz::FrameWriter writer(axis, stackCounts(),
                            {static_cast<std::uint32_t>(m_minValue), m_valueScale, false}, m_voxels);
    CILImage frame;
    for (unsigned i = 0; i < m_frames; ++i) {
        // The names run in the order of the list, not in that of the slices.
        const QString& path = files[static_cast<int>(i)];
        QString label = path;
        shortenFolderNameForDisplay(label);
        if (!progress.next(label, i, m_frames)) return fail(dicom_message::loadAborted);

        const DicomPicture picture(*m_images[i]->m_file);
        if (i == 0) setNumberOfFrames(m_frames);
        if (picture.state() == DicomPicture::State::TooLarge) return fail(dicom_message::noFrameMemory);
        if (picture.depth() < 1 || picture.depth() > 32) return fail(dicom_message::notCompatible);
        if (!picture.copyTo(frame)) return fail(dicom_message::noFrameMemory);
        if (m_feetFirst) frame.Mirror();
        if (!addFrame(frame, size, flipped, writer)) return false;
        m_loadedFiles << path;
    }
    writer.finish();
    return true;
}
