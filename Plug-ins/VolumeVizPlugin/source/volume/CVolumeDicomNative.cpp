#include "volume/CVolumeDicomFrames.h"

#include "hvimage/CILImage.h"
#include "hvimage/IL_RESAMPLEMODES.h"
#include "hvutils/CHVUtilityFns.h"
#include "hvutils/shortenFolderNameForDisplay.h"
#include "volume/DicomMessages.h"
#include "volume/LoadProgress.h"

#include <QCursor>
#include <QFile>

#include <optional>

/// What the scanning pass of files of this workstation knows between two files.
struct CVolumeDicom::NativeScan
{
    QStringList accepted;
    bool dialogIsDue = true;
    viz::SlicePoint first{};
    viz::SourceRange range;
    CILImage image;
};

namespace {

constexpr float missingSpacing = 0.1F;  // mm

bool open(CDicomReader& reader, const QString& path)
{
    return CDicomReader::isDicom(QFile::encodeName(path).constData()) &&
           reader.initDicomImporter(path) == eStatusSuccess && reader.loadEntireDicomInfo() == eStatusSuccess;
}

bool readRange(CDicomReader& reader, unsigned frame, CILImage& image, viz::SourceRange& range)
{
    if (reader.readPixelInfo(&image, frame) != eStatusSuccess) return false;
    range = viz::SourceRange::ofFrame(image.getMin(), image.getMax());
    return true;
}

viz::SlicePoint positionOf(const CDicomReader& reader)
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    reader.getSliceLocation(x, y, z);
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
}

}  // namespace

bool CVolumeDicom::loadNativeSeries(const QStringList& files, unsigned first, unsigned last)
{
    std::optional<LoadProgress> progress(QString::fromLatin1(dicom_message::scanTitle));
    NativeScan scan;
    if (!scanNativeSeries(files, *progress, scan)) return false;
    m_frames = static_cast<std::uint32_t>(scan.accepted.size());
    if (m_frames == 0) return fail(dicom_message::nothingUsable);
    if (m_frames < 2) {
        CDicomReader reader;
        if (open(reader, files.first()) && reader.getTotalFrames() >= 2) {
            progress.reset();
            return loadNativeMultiFrame(files.first(), first, last);
        }
    }
    if (!prepareBlock(viz::SliceAxis::Axial, scan.range)) return false;
    progress->setTitle(QString::fromLatin1(dicom_message::loadTitle));
    if (!loadNativeSlices(scan.accepted, *progress)) return false;
    swapCounts(viz::SliceAxis::Axial);
    return true;
}

bool CVolumeDicom::scanNativeSeries(const QStringList& files, LoadProgress& progress, NativeScan& scan)
{
    const auto fileCount = static_cast<unsigned>(files.size());
    for (unsigned i = 0; i < fileCount; ++i) {
        const QString& path = files[static_cast<int>(i)];
        QString label = path;
        shortenFolderNameForDisplay(label);
        if (!progress.next(label, i, fileCount)) return fail(dicom_message::scanAborted);

        CDicomReader reader;
        if (!open(reader, path)) continue;
        if (scan.accepted.isEmpty()) {
            if (!takeNativeReference(reader, scan)) return false;
            scan.accepted << path;
            continue;
        }
        if (scan.accepted.size() == 1 && !setUpNativeDirection(path, fileCount, reader, scan)) return false;
        if (reader.getNumberofColumns() != m_columns || reader.getNumberofRows() != m_rows) continue;
        viz::SourceRange range;
        if (!readRange(reader, 0, scan.image, range)) return fail(dicom_message::noFrameMemory);
        scan.range.widen(range);
        scan.accepted << path;
    }
    return true;
}

bool CVolumeDicom::takeNativeReference(CDicomReader& reader, NativeScan& scan)
{
    if (!readRange(reader, 0, scan.image, scan.range)) return fail(dicom_message::noFrameMemory);
    readNativeGeometry(reader);
    scan.first = positionOf(reader);
    m_info = reader.getGroupElementInfo();
    return true;
}

void CVolumeDicom::readNativeGeometry(CDicomReader& reader)
{
    double row = 0.0;
    double column = 0.0;
    reader.getPixelSpacing(row, column);
    m_pixelSpacing[0] = row > 0.0 ? static_cast<float>(row) : missingSpacing;
    m_pixelSpacing[1] = column > 0.0 ? static_cast<float>(column) : missingSpacing;
    const double spacing = reader.getSliceSpacing();
    m_sliceSpacing = spacing > 0.0 ? static_cast<float>(spacing) : m_pixelSpacing[0];
    m_patientPosition = reader.getPatientPosition();
    m_imageType.clear();
    m_columns = static_cast<std::uint32_t>(reader.getNumberofColumns());
    m_rows = static_cast<std::uint32_t>(reader.getNumberofRows());
    m_loadColumns = m_columns;
    m_loadRows = m_rows;
    m_resolutionFactor = 1.0F;
}

bool CVolumeDicom::setUpNativeDirection(const QString& path, unsigned fileCount, CDicomReader& reader,
                                        NativeScan& scan)
{
    const viz::SlicePoint second = positionOf(reader);
    const float distance = viz::length(viz::difference(second, scan.first));
    m_sliceSpacing = distance == 0.0F ? m_pixelSpacing[0] : distance;
    m_direction = viz::seriesDirection(scan.first, second, m_sliceSpacing).unit;
    checkFeetFirst(viz::SliceAxis::Axial);

    CHVUtilityFns::restoreCursor();
    if (scan.dialogIsDue && !showVolumeInfo(path, fileCount)) return false;
    scan.dialogIsDue = false;
    CHVUtilityFns::setCursor(Qt::WaitCursor);
    return true;
}

// A frame of 8 bits fills the whole frame of the block, padding and all; one of more than 16 bits is left
// out.
bool CVolumeDicom::addNativeFrame(CILImage& image, const viz::LoadSize& size, viz::FrameWriter& writer) const
{
    if (image.get_datatype() != eTypeUInt8 && image.get_datatype() != eTypeUInt16) {
        writer.skip();
        return true;
    }
    if (m_feetFirst) image.Mirror();
    if (image.get_datatype() == eTypeUInt8) {
        viz::LoadSize whole = size;
        whole.reducedColumns = size.columns;
        whole.reducedRows = size.rows;
        return addFrame(image, whole, false, writer);
    }
    return addFrame(image, size, false, writer);
}

bool CVolumeDicom::loadNativeSlices(const QStringList& files, LoadProgress& progress)
{
    const viz::LoadSize size = loadSize();
    viz::FrameWriter writer(viz::SliceAxis::Axial, stackCounts(),
                            {static_cast<std::uint32_t>(m_minValue), m_valueScale, false}, m_voxels);
    CILImage image;
    for (unsigned i = 0; i < m_frames; ++i) {
        const QString& path = files[static_cast<int>(i)];
        QString label = path;
        shortenFolderNameForDisplay(label);
        if (!progress.next(label, i, m_frames)) return fail(dicom_message::loadAborted);
        CDicomReader reader;
        if (!open(reader, path)) return fail(dicom_message::notCompatible);
        if (i == 0) setNumberOfFrames(m_frames);
        if (reader.readPixelInfo(&image, 0) != eStatusSuccess) return fail(dicom_message::noFrameMemory);
        if (!addNativeFrame(image, size, writer)) return false;
        m_loadedFiles << path;
    }
    writer.finish();
    return true;
}

bool CVolumeDicom::loadNativeMultiFrame(const QString& path, unsigned first, unsigned last)
{
    m_multiFrame = true;
    if (!open(m_reader, path)) return false;
    m_frames = static_cast<std::uint32_t>(m_reader.getTotalFrames());
    if (m_frames == 0) return fail(dicom_message::notCompatible);
    m_info = m_reader.getGroupElementInfo();
    setNumberOfFrames(m_frames);
    FrameRange frames(first, last, m_frames);
    if (frames.isEmpty()) return fail(dicom_message::noFrames);
    m_loadedFiles << path;
    readNativeGeometry(m_reader);
    const viz::SliceAxis axis = findNativeFrameAxis(frames);
    m_frames = frames.count();
    checkFeetFirst(axis);

    CILImage image;
    viz::SourceRange range;
    if (!readRange(m_reader, 0, image, range)) return fail(dicom_message::noFrameMemory);
    if (!showVolumeInfo(path, 1)) return false;

    LoadProgress progress(QString::fromLatin1(dicom_message::scanTitle));
    for (std::uint32_t frame = frames.first; frame <= frames.last; ++frame) {
        const QString label = QStringLiteral("Validating Frame %1").arg(frame + 1);
        if (!progress.next(label, frame - frames.first, frames.count()))
            return fail(dicom_message::scanAborted);
        viz::SourceRange ofFrame;
        if (!readRange(m_reader, frame, image, ofFrame)) return fail(dicom_message::noFrameMemory);
        range.widen(ofFrame);
    }
    if (!prepareBlock(viz::SliceAxis::Axial, range)) return false;

    progress.setTitle(QString::fromLatin1(dicom_message::loadTitle));
    const viz::LoadSize size = loadSize();
    viz::FrameWriter writer(viz::SliceAxis::Axial, stackCounts(),
                            {static_cast<std::uint32_t>(m_minValue), m_valueScale, false}, m_voxels);
    for (std::uint32_t frame = frames.first; frame <= frames.last; ++frame) {
        const QString label = QStringLiteral("Loading Frame %1").arg(frame + 1);
        if (!progress.next(label, frame - frames.first, frames.count()))
            return fail(dicom_message::scanAborted);
        if (m_reader.readPixelInfo(&image, frame) != eStatusSuccess)
            return fail(dicom_message::noFrameMemory);
        if (!addNativeFrame(image, size, writer)) return false;
    }
    writer.finish();
    swapCounts(axis);
    return true;
}

// Also sets the direction. A stack across x always comes whole.
viz::SliceAxis CVolumeDicom::findNativeFrameAxis(FrameRange& frames)
{
    m_slicePosition = static_cast<float>(m_reader.getSlicePosition());
    const auto found = viz::axisOfLocation(positionOf(m_reader), m_slicePosition);
    if (found == viz::SliceAxis::Sagittal) frames.takeAll();
    m_direction = {};
    if (found) m_direction[static_cast<std::size_t>(*found)] = 1.0F;
    return found.value_or(viz::SliceAxis::Axial);
}
