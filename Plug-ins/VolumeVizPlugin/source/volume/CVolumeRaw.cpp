#include "volume/CVolumeRaw.h"

#include "hvimage/CILImage.h"
#include "hvutils/CHVUtilityFns.h"
#include "volume/CVolumeInfoDialog.h"
#include "volume/HostImage.h"
#include "volume/LoadProgress.h"
#include "volume/PaletteParent.h"
#include "volume/RawFile.h"
#include "volume/ReaderLog.h"
#include "volume/VoxelBlock.h"
#include "volume/logic/LoadSize.h"
#include "volume/logic/Quantise.h"

#include <QFile>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

bool fail(CHVSLog::Severity severity, const char* message)
{
    logReader(QString::fromLatin1(message), severity, __TIME__);
    return false;
}

bool failAborted()
{
    return fail(CHVSLog::eError, "Loading of volume data aborted.");
}

bool failNoMemory()
{
    return fail(CHVSLog::eError, "Unable to allocate memory for the contents of the volume file.");
}

QString frameLabel(unsigned frame)
{
    return QStringLiteral("Frame %1").arg(frame + 1);
}

QString number(float value)
{
    return QString::number(static_cast<double>(value), 'g');
}

void show(const viz::RawHeader& header, const QString& path, CVolumeInfoDialog& dialog)
{
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    dialog.setFileName(path);
    dialog.setBitDepth(QString::fromLatin1(header.depth));
    dialog.setColumns(header.columns);
    dialog.setRows(header.rows);
    dialog.setFrames(header.frames);
    dialog.setHeaderOffset(static_cast<int>(std::min(header.size, most)));
    dialog.setSignedState(header.isSigned ? 1 : 0);
    dialog.setRowSpacing(static_cast<double>(header.spacing.row));
    dialog.setColumnSpacing(static_cast<double>(header.spacing.column));
    dialog.setSliceSpacing(static_cast<double>(header.spacing.slice));
    dialog.setResolution(100);
}

void disableSettled(const viz::RawHeader& header, CVolumeInfoDialog& dialog)
{
    dialog.orientationGroup->setDisabled(true);
    dialog.widthBox->setDisabled(header.sizeSeen);
    dialog.heightBox->setDisabled(header.sizeSeen);
    dialog.framesBox->setDisabled(header.sizeSeen);
    dialog.dataTypeBox->setDisabled(header.depthSeen);
    dialog.signedBox->setDisabled(header.formatSeen);
    dialog.headerOffsetBox->setDisabled(header.size != 0);
}

// The user's word where the header leaves a question or memory is short.
bool settle(const viz::RawHeader& header, CVolumeInfoDialog& dialog)
{
    const bool memoryGood = dialog.updateMemoryStatus();
    if (memoryGood && header.isComplete()) return true;
    if (dialog.exec() != QDialog::Accepted)
        return fail(CHVSLog::eStatusLine, "Open Volume action canceled by user.");
    if (!dialog.isMemoryGood())
        return fail(CHVSLog::eError, "Volume loading aborted. Low memory encountered.");
    return true;
}

RawSource sourceFrom(const CVolumeInfoDialog& dialog)
{
    RawSource source;
    source.spacing = {dialog.getRowSpacing(), dialog.getColumnSpacing(), dialog.getSliceSpacing()};
    source.headerSize = dialog.getHeaderOffset();
    source.bits = dialog.getBitDepth();
    source.isSigned = dialog.isSigned();
    return source;
}

// First pass: the value range of the whole volume.
bool scan(RawFrames& frames, unsigned frameCount, LoadProgress& progress, CILImage& frame,
          viz::ValueRange& range)
{
    for (unsigned i = 0; i < frameCount; ++i) {
        if (!progress.next(frameLabel(i), i, frameCount)) return failAborted();
        const long samples = frames.read(frame);
        if (samples < 0) return failNoMemory();
        if (samples < frame.get_width() * frame.get_height())
            return fail(CHVSLog::eError, "Unable to load volume. Insufficient volume data.");
        frame.RefreshImageStats();
        range.widen(frame.getMin(), frame.getMax());
    }
    return true;
}

// Second pass: every sample becomes a voxel.
bool load(RawFrames& frames, unsigned frameCount, LoadProgress& progress, CILImage& frame,
          const viz::LoadSize& size, const viz::ValueRange& range, std::uint8_t* voxels)
{
    const std::size_t pixels = std::size_t{size.columns} * size.rows;
    const float scale = viz::valueScale(range);
    for (unsigned i = 0; i < frameCount; ++i, voxels += pixels) {
        if (!progress.next(frameLabel(i), i, frameCount)) return failAborted();
        if (frames.read(frame) < 0 || !fitFrame(frame, size)) return failNoMemory();
        const void* const data = frame.get_data();
        if (frame.get_datatype() == eTypeUInt16)
            viz::quantise(static_cast<const std::uint16_t*>(data), pixels, range.lowest, scale, voxels);
        else
            viz::quantise(static_cast<const std::uint8_t*>(data), pixels, range.lowest, scale, voxels);
    }
    return true;
}

}  // namespace

CVolumeRaw::CVolumeRaw(CHVVolumeVizPalette* owner)
    : m_owner(owner)
{}

CVolumeRaw::~CVolumeRaw()
{
    std::free(m_voxels);
}

bool CVolumeRaw::loadVolumeFile(const char* path)
{
    CHVUtilityFns::restoreCursor();
    RawSource source;
    return describe(path, source) && readVoxels(path, source);
}

bool CVolumeRaw::describe(const char* path, RawSource& source)
{
    CVolumeInfoDialog dialog(parentWidget(m_owner), "Volume File Information", true);
    const QString name = QFile::decodeName(path);
    viz::RawHeader header;
    if (QFile::exists(name) && !readRawHeader(name, header))
        return fail(CHVSLog::eStatusLine, "Unable to open the selected volume file.");
    show(header, name, dialog);
    disableSettled(header, dialog);
    if (!settle(header, dialog)) return false;

    source = sourceFrom(dialog);
    m_columns = static_cast<std::uint32_t>(dialog.getColumns());
    m_rows = static_cast<std::uint32_t>(dialog.getRows());
    m_frames = static_cast<std::uint32_t>(dialog.getFrames());
    m_resolutionFactor = viz::resolutionFactor(dialog.getResolution());

    addInfo(QStringLiteral("PixelSpacing"),
            QStringLiteral("%1, %2").arg(number(source.spacing.column), number(source.spacing.row)));
    addInfo(QStringLiteral("NumberOfFrames"), QString::number(m_frames));
    addInfo(QStringLiteral("Rows"), QString::number(m_rows));
    addInfo(QStringLiteral("Columns"), QString::number(m_columns));
    addInfo(QStringLiteral("SpacingBetweenSlices"), number(source.spacing.slice));
    return true;
}

bool CVolumeRaw::readVoxels(const char* path, const RawSource& source)
{
    const viz::LoadSize size = viz::loadSize(m_columns, m_rows, m_resolutionFactor, roundToNearest);
    m_loadColumns = size.columns;
    m_loadRows = size.rows;
    m_resolutionFactor = size.factor;

    LoadProgress progress(QStringLiteral("Scanning through Volume data..."));
    RawFrames frames(path, source, m_columns, m_rows);
    if (!frames.isOpen()) return fail(CHVSLog::eStatusLine, "Unable to read the selected volume file.");
    CILImage frame;
    viz::ValueRange range;
    if (!scan(frames, m_frames, progress, frame, range)) return false;

    std::free(m_voxels);
    m_voxels = allocateVoxels(std::size_t{m_loadColumns} * m_loadRows * m_frames);
    if (m_voxels == nullptr) return failNoMemory();
    range.separate();
    m_minValue = range.lowest;
    m_maxValue = range.highest;
    m_valueScale = viz::valueScale(range);
    const auto extent = viz::rawExtents(source.spacing, m_columns, m_rows, m_frames, size);
    std::copy(extent.begin(), extent.end(), m_extent);

    frames.rewind();
    progress.setTitle(QStringLiteral("Loading volume data..."));
    return load(frames, m_frames, progress, frame, size, range, m_voxels);
}

void CVolumeRaw::addInfo(const QString& name, const QString& value)
{
    SGroupElemInfo entry;
    entry.name = name;
    entry.value = value;
    m_info.insert(name, entry);
}
