#include "volume/CVolumeDicomFrames.h"

#include "hvdicom/CHVDcmImage.h"
#include "hvimage/CILImage.h"
#include "volume/DicomAttributes.h"
#include "volume/DicomMessages.h"
#include "volume/LoadProgress.h"
#include "volume/TissueLimit.h"
#include "volume/logic/HistogramLimits.h"
#include "volume/logic/SampleHistogram.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcfilefo.h>

#include <limits>

namespace {

constexpr unsigned histogramBins = 65535;
constexpr double brightestPercent = 0.15;
constexpr double widening = 35.0;

// By the depth of the samples alone.
bool rangeOfDepth(int depth, viz::SourceRange& range)
{
    if (depth != 8 && depth != 16) return false;
    range = {0, depth == 8 ? 255 : 65535};
    return true;
}

void count(const CILImage& image, viz::SampleHistogram& histogram)
{
    const auto pixels =
        static_cast<std::size_t>(image.get_width()) * static_cast<std::size_t>(image.get_height());
    if (image.get_datatype() == eTypeUInt8)
        histogram.add(static_cast<const std::uint8_t*>(image.get_data()), pixels);
    else if (image.get_datatype() == eTypeUInt16)
        histogram.add(static_cast<const std::uint16_t*>(image.get_data()), pixels);
}

// The upper end of the values: below metal and other few bright samples, unless the user wants those.
std::int64_t upperEnd(const std::vector<std::uint32_t>& histogram, std::int64_t highest)
{
    const TissueLimit tissue = activeTissueLimit();
    unsigned low = 0;
    unsigned high = histogramBins - 1;
    viz::findHistogramLimits(histogramBins, histogram.data(), 0.0, brightestPercent, widening, low, high);
    const std::int64_t clipped = viz::upperClip(high, tissue.voxel, tissue.b, highest);
    return prefersMetal() ? highest : clipped;
}

HVSDataTypes typeOfDepth(int depth)
{
    return depth > 16 ? eTypeUInt32 : depth > 8 ? eTypeUInt16 : eTypeUInt8;
}

}  // namespace

bool CVolumeDicom::loadMultiFrame(const QString& path, unsigned first, unsigned last)
{
    m_multiFrame = true;
    if (path.isEmpty()) return false;
    m_images.push_back(std::make_unique<ImageDesc>());
    DcmFileFormat& file = *m_images.front()->m_file;
    CHVDcmImage source;
    if (!parseFile(path, file) || !source.LoadFromDICOMFile(path)) return fail(dicom_message::notCompatible);
    m_info = source.getGroupElementInfo();
    m_frames = static_cast<std::uint32_t>(source.getFrameCount());
    setNumberOfFrames(m_frames);
    FrameRange frames(first, last, m_frames);
    if (frames.isEmpty()) return fail(dicom_message::noFrames);
    m_frames = frames.count();
    m_loadedFiles << path;

    const viz::SliceAxis axis = findFrameAxis(frames);
    m_frames = frames.count();
    checkFeetFirst(axis);
    if (!readFrameSizes()) return false;

    viz::SourceRange range;
    const auto told = dicomPixelRange(file);
    if (told) {
        range = {told->smallest, told->largest};
    } else if (!m_makerData || !rangeOfDepth(source.getDepth(), range)) {
        CILImage image;
        if (!source.getDicomImage(1, image)) return fail(dicom_message::notCompatible);
        range = viz::SourceRange::ofFrame(image.getMin(), image.getMax());
    }
    if (!showVolumeInfo(path, 1)) return false;

    LoadProgress progress(QString::fromLatin1(dicom_message::scanTitle));
    std::vector<std::uint32_t> histogram(histogramBins + 1, 0);
    if (!told && !scanFrames(source, frames, progress, range, histogram)) return false;
    range.highest = upperEnd(histogram, range.highest);
    if (!prepareBlock(axis, range)) return false;

    progress.setTitle(QString::fromLatin1(dicom_message::loadTitle));
    if (!loadFrames(source, frames, axis, progress)) return false;
    swapCounts(axis);
    return true;
}

// Also sets the direction. A stack across x always comes whole.
viz::SliceAxis CVolumeDicom::findFrameAxis(FrameRange& frames)
{
    DcmFileFormat& file = *m_images.front()->m_file;
    const viz::SlicePoint position = dicomPosition(file);
    m_slicePosition = dicomDecimal(file, DCM_SliceLocation).value_or(0.0F);
    const auto orientation = dicomOrientation(file);
    const bool acrossX = orientation ? orientation->alongRow[0] == orientation->alongColumn[0]
                                     : position[0] == m_slicePosition;
    const auto found =
        orientation ? viz::axisOfOrientation(*orientation) : viz::axisOfLocation(position, m_slicePosition);
    const float distance = static_cast<float>(m_frames - 1) * m_sliceSpacing;
    if (acrossX) frames.takeAll();
    m_direction = {};
    if (found) m_direction[static_cast<std::size_t>(*found)] = distance < 0.0F ? -1.0F : 1.0F;
    return found.value_or(viz::SliceAxis::Axial);
}

bool CVolumeDicom::readFrameSizes()
{
    DcmFileFormat& file = *m_images.front()->m_file;
    const auto columns = dicomSide(file, DCM_Columns);
    if (!columns) return fail(dicom_message::noColumns);
    const auto rows = dicomSide(file, DCM_Rows);
    if (!rows) return fail(dicom_message::noRows);
    m_columns = *columns;
    m_rows = *rows;
    const DicomPixelSpacing spacing = dicomPixelSpacing(file);
    m_pixelSpacing[0] = spacing.rows;
    m_pixelSpacing[1] = spacing.columns;
    m_sliceSpacing = dicomSliceSpacing(file, m_pixelSpacing[0]);
    return true;
}

bool CVolumeDicom::scanFrames(CHVDcmImage& source, const FrameRange& frames, LoadProgress& progress,
                              viz::SourceRange& range, std::vector<std::uint32_t>& histogram)
{
    viz::SampleHistogram samples;
    CILImage image;
    for (std::uint32_t frame = frames.first; frame <= frames.last; ++frame) {
        const QString label = QStringLiteral("Validating Frame %1").arg(frame + 1);
        if (!progress.next(label, frame - frames.first, frames.count()))
            return fail(dicom_message::scanAborted);
        viz::SourceRange ofFrame;
        if (!m_makerData || !rangeOfDepth(source.getDepth(), ofFrame)) {
            if (!source.getDicomImage(frame + 1, image)) return fail(dicom_message::noFrameMemory);
            count(image, samples);
            ofFrame = viz::SourceRange::ofFrame(image.getMin(), image.getMax());
        }
        range.widen(ofFrame);
    }
    histogram = samples.bins();
    return true;
}

bool CVolumeDicom::loadFrames(CHVDcmImage& source, const FrameRange& frames, viz::SliceAxis axis,
                              LoadProgress& progress)
{
    const int depth = source.getActualDepth();
    const HVSDataTypes type = typeOfDepth(depth);
    if (depth < 1 || depth > 32 || CILImageBase::get_reqsizefortype(type) * 8 != source.getDepth())
        return fail(dicom_message::notCompatible);
    const viz::LoadSize size = loadSize();
    viz::FrameWriter writer(axis, stackCounts(), {static_cast<std::uint32_t>(m_minValue), m_valueScale, true},
                            m_voxels);
    CILImage image;
    for (std::uint32_t frame = frames.first; frame <= frames.last; ++frame) {
        const QString label = QStringLiteral("Loading Frame %1").arg(frame + 1);
        if (!progress.next(label, frame - frames.first, frames.count()))
            return fail(dicom_message::scanAborted);
        void* const data = source.get_data(frame + 1);
        if (data == nullptr) return fail(dicom_message::notCompatible);
        if (!image.initWithData(type, static_cast<long>(source.getWidth()),
                                static_cast<long>(source.getHeight()), data))
            return fail(dicom_message::noFrameMemory);
        // Kept: frames of more than 8 bits are not mirrored.
        if (m_feetFirst && type == eTypeUInt8) image.Mirror();
        if (!addFrame(image, size, axis != viz::SliceAxis::Axial, writer)) return false;
    }
    writer.finish();
    return true;
}
