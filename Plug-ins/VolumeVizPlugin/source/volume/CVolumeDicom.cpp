#include "volume/CVolumeDicom.h"

#include "hvimage/CILImage.h"
#include "volume/CVolumeInfoDialog.h"
#include "volume/DicomAttributes.h"
#include "volume/DicomMessages.h"
#include "volume/HeapRoom.h"
#include "volume/HostImage.h"
#include "volume/PaletteParent.h"
#include "volume/ReaderLog.h"
#include "volume/VoxelBlock.h"
#include "volume/logic/NumberText.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcfilefo.h>

#include <algorithm>
#include <cstdlib>
#include <exception>

namespace {

QString number(float value)
{
    return QString::number(static_cast<double>(value), 'g');
}

template <typename Sample>
void addSamples(const CILImage& image, viz::FrameWriter& writer)
{
    writer.add(static_cast<const Sample*>(image.get_data()));
}

}  // namespace

CVolumeDicom::ImageDesc::ImageDesc()
    : m_file(new DcmFileFormat)
{}

CVolumeDicom::ImageDesc::~ImageDesc()
{
    delete m_file;
}

CVolumeDicom::CVolumeDicom(CHVVolumeVizPalette* owner)
    : m_owner(owner)
{}

CVolumeDicom::~CVolumeDicom()
{
    if (m_genericPath) m_images.clear();
    std::free(m_voxels);
}

bool CVolumeDicom::loadVolumeFiles(QStringList files, unsigned first, unsigned last, bool makerData)
{
    m_images.clear();
    m_room.reset();
    m_info.clear();
    m_loadedFiles.clear();
    m_direction = {};
    m_manufacturer.clear();
    m_feetFirst = false;
    m_multiFrame = false;
    m_makerData = makerData;
    if (files.isEmpty()) return fail(dicom_message::nothingUsable);
    try {
        m_genericPath = !isNative(files.first());
        if (!m_genericPath) return loadNativeSeries(files, first, last);
        if (loadSeries(files, first, last)) return true;
    } catch (const std::exception&) {
        fail(dicom_message::exceptionInScan);
    }
    m_images.clear();
    return false;
}

bool CVolumeDicom::fail(const char* message) const
{
    logReader(QString::fromLatin1(message), CHVSLog::eError, __TIME__);
    return false;
}

// Files that this workstation wrote say so in their header.
bool CVolumeDicom::isNative(const QString& path) const
{
    CDicomReader reader;
    if (reader.initDicomImporter(path) != eStatusSuccess) return false;
    reader.loadEntireDicomInfo();
    const QString writer = reader.getImplementationVersionName();
    return writer.contains(QLatin1String("HVS3D")) || writer.contains(QLatin1String("Halvane"));
}

void CVolumeDicom::setNumberOfFrames(unsigned frames)
{
    const QString key = QStringLiteral("0028, 0008");
    if (!m_info.contains(key)) {
        SGroupElemInfo entry;
        entry.group = QStringLiteral("0028");
        entry.element = QStringLiteral("0008");
        entry.name = QStringLiteral("NumberOfFrames");
        m_info.insert(key, entry);
    }
    m_info[key].value = QString::number(frames);
}

void CVolumeDicom::checkFeetFirst(viz::SliceAxis axis)
{
    m_feetFirst = m_patientPosition.contains(QLatin1String("FF"));
    if (!m_feetFirst) return;
    float& along = m_direction[static_cast<std::size_t>(axis)];
    along = -along;
    const QString message =
        QStringLiteral("Original Position is Feet First (%1  %2  direction %3 %4 %5 alignmentAxis %6 ). "
                       "Halvane rotated and realigned view to Head First.")
            .arg(m_patientPosition, m_imageType, number(m_direction[0]), number(m_direction[1]),
                 number(m_direction[2]), QString::number(static_cast<int>(axis)));
    logReader(message, CHVSLog::eInformation, __TIME__);
}

bool CVolumeDicom::showVolumeInfo(const QString& path, unsigned fileCount)
{
    unsigned frames = fileCount;
    if (fileCount < 2) {
        unsigned long inFile = 0;
        if (m_genericPath) {
            if (!m_images.empty()) inFile = dicomFrames(*m_images.front()->m_file);
        } else {
            CDicomReader reader;
            reader.initDicomImporter(path);
            reader.loadEntireDicomInfo();
            inFile = reader.getTotalFrames();
        }
        if (!m_genericPath || inFile > 1) frames = static_cast<unsigned>(inFile);
    }
    const auto shown = [](unsigned count) { return static_cast<int>(std::min(count, 0x7FFFFFFFU)); };

    CVolumeInfoDialog dialog(parentWidget(m_owner), "Volume File Information", true);
    dialog.setValidateFile(false);
    dialog.setFileName(path.left(path.lastIndexOf(QLatin1Char('/')) - 1));
    dialog.fileGroup->setDisabled(true);
    dialog.setColumns(shown(m_columns));
    dialog.setRows(shown(m_rows));
    dialog.setFrames(shown(frames));
    dialog.setHeaderOffset(0);
    dialog.setRowSpacing(static_cast<double>(m_pixelSpacing[0]));
    dialog.setColumnSpacing(static_cast<double>(m_pixelSpacing[1]));
    dialog.setSliceSpacing(static_cast<double>(m_sliceSpacing));
    dialog.setResolution(100);
    dialog.orientationGroup->setDisabled(true);

    if (!dialog.updateMemoryStatus()) {
        if (dialog.exec() != QDialog::Accepted) {
            logReader(QStringLiteral("Open Volume action canceled by user."), CHVSLog::eStatusLine, __TIME__);
            return false;
        }
        if (!dialog.isMemoryGood()) return fail("Volume loading aborted. Low memory encountered.");
    }

    m_pixelSpacing[0] = dialog.getRowSpacing();
    m_pixelSpacing[1] = dialog.getColumnSpacing();
    m_sliceSpacing = dialog.getSliceSpacing();
    const viz::LoadSize size =
        viz::loadSize(m_columns, m_rows, viz::resolutionFactor(dialog.getResolution()), roundToNearest);
    m_loadColumns = size.columns;
    m_loadRows = size.rows;
    m_resolutionFactor = size.factor;
    return true;
}

// What the slider left, with the picture's own size computed afresh from the final factor.
viz::LoadSize CVolumeDicom::loadSize() const
{
    const auto reduced = [this](std::uint32_t side) {
        return static_cast<unsigned>(
            roundToNearest(static_cast<double>(static_cast<float>(side) * m_resolutionFactor)));
    };
    return {m_loadColumns, m_loadRows, reduced(m_columns), reduced(m_rows), m_resolutionFactor};
}

bool CVolumeDicom::prepareBlock(viz::SliceAxis extentAxis, const viz::SourceRange& range)
{
    const std::uint64_t bytes = viz::saturatedProduct({m_loadColumns, m_loadRows, m_frames});
    std::free(m_voxels);
    m_voxels = allocateVoxels(bytes);
    if (m_voxels == nullptr) return fail(dicom_message::noVolumeMemory);

    const viz::UnsignedRange patterns = range.patterns();
    m_minValue = static_cast<std::int32_t>(patterns.lowest);
    m_maxValue = static_cast<std::int32_t>(patterns.highest);
    m_valueScale = viz::valueScale(patterns);

    float columns = m_pixelSpacing[1] * static_cast<float>(m_columns);
    float rows = m_pixelSpacing[0] * static_cast<float>(m_rows);
    if (m_resolutionFactor != 1.0F) {
        const viz::LoadSize size = loadSize();
        columns = viz::paddedExtent(columns, size.reducedColumns, size.columns);
        rows = viz::paddedExtent(rows, size.reducedRows, size.rows);
    }
    const auto extent =
        viz::extentsAcross(extentAxis, columns, rows, m_sliceSpacing * static_cast<float>(m_frames));
    std::copy(extent.begin(), extent.end(), m_extent);
    m_sliceDirection = viz::sliceExtentOf(extentAxis);
    m_sliceCount = m_frames;
    return true;
}

// Brings a frame to the size of the block's frames and writes it.
bool CVolumeDicom::addFrame(CILImage& image, const viz::LoadSize& size, bool flipped,
                            viz::FrameWriter& writer) const
{
    if (image.get_width() != static_cast<long>(m_columns) || image.get_height() != static_cast<long>(m_rows))
        return fail(dicom_message::notCompatible);
    if (!fitFrame(image, size)) return fail(dicom_message::noFrameMemory);
    if (flipped) image.Flip();
    if (image.get_datatype() == eTypeUInt8)
        addSamples<std::uint8_t>(image, writer);
    else if (image.get_datatype() == eTypeUInt16)
        addSamples<std::uint16_t>(image, writer);
    else if (image.get_datatype() == eTypeUInt32)
        addSamples<std::uint32_t>(image, writer);
    else
        return fail(dicom_message::notCompatible);
    return true;
}

void CVolumeDicom::swapCounts(viz::SliceAxis axis)
{
    const viz::BlockCounts counts = viz::countsAcross(axis, stackCounts());
    m_loadColumns = counts.columns;
    m_loadRows = counts.rows;
    m_frames = counts.frames;
}

float CVolumeDicom::getNominalSliceSpacing() const
{
    for (const char* const key : {"0018, 0088", "0018, 0050"}) {
        const QByteArray text = m_info.value(QLatin1String(key)).value.toLatin1();
        const std::string_view view(text.constData(), static_cast<std::size_t>(text.size()));
        if (const auto spacing = viz::leadingDecimal(view)) return *spacing;
    }
    return m_pixelSpacing[0];
}
