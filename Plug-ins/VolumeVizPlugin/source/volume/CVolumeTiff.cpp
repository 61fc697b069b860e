#include "volume/CVolumeTiff.h"

#include "hvimage/CILImage.h"
#include "hvutils/CHVUtilityFns.h"
#include "hvutils/shortenFolderNameForDisplay.h"
#include "volume/CVolumeInfoDialog.h"
#include "volume/HostImage.h"
#include "volume/LoadProgress.h"
#include "volume/PaletteParent.h"
#include "volume/ReaderLog.h"
#include "volume/VoxelBlock.h"
#include "volume/logic/LoadSize.h"
#include "volume/logic/MemoryEstimate.h"
#include "volume/logic/VoxelLayout.h"

#include <QCursor>
#include <QFile>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

constexpr float defaultSpacing = 0.1F;  // mm

bool fail(CHVSLog::Severity severity, const char* message)
{
    logReader(QString::fromLatin1(message), severity, __TIME__);
    return false;
}

bool failAborted()
{
    return fail(CHVSLog::eError, "Loading of TIFF frame data aborted.");
}

bool failNotCompatible()
{
    return fail(CHVSLog::eError, "Unable to load volume. TIFF file not compatible.");
}

bool failNoMemory()
{
    return fail(CHVSLog::eError, "Unable to allocate memory for Volume data.");
}

QString fileLabel(QString path)
{
    shortenFolderNameForDisplay(path);
    return path;
}

QString pageLabel(unsigned page)
{
    return QStringLiteral("Frame %1").arg(page + 1);
}

QString number(float value)
{
    return QString::number(static_cast<double>(value), 'g');
}

int shown(std::uint32_t count)
{
    return static_cast<int>(std::min<std::uint32_t>(count, std::numeric_limits<int>::max()));
}

// A resolution serves as a distance in mm as it stands, whatever its unit.
float spacing(float resolution)
{
    return resolution > 0.0F ? resolution : defaultSpacing;
}

/// Value range of the pictures that have values.
struct CollectedRange
{
    viz::UnsignedRange range;
    bool any = false;

    void take(const CILImage& image)
    {
        if (image.get_data() == nullptr) return;
        const auto frame = viz::UnsignedRange::ofFrame(image.getMin(), image.getMax());
        if (any)
            range.widen(frame);
        else
            range = frame;
        any = true;
    }
};

bool isKnownType(const CILImage& image)
{
    const HVSDataTypes type = image.get_datatype();
    return type == eTypeUInt8 || type == eTypeUInt16 || type == eTypeUInt32;
}

}  // namespace

CVolumeTiff::CVolumeTiff(CHVVolumeVizPalette* owner)
    : m_owner(owner)
{}

CVolumeTiff::~CVolumeTiff()
{
    std::free(m_voxels);
}

bool CVolumeTiff::loadVolumeFiles(QStringList files, unsigned first, unsigned last)
{
    m_info.clear();
    m_loadedFiles.clear();
    if (files.isEmpty()) return false;
    return files.size() > 1 ? loadStack(files) : loadPages(files.first(), first, last);
}

// ---- one frame a file ----

bool CVolumeTiff::loadStack(const QStringList& files)
{
    LoadProgress progress(QStringLiteral("Scanning through TIFF data..."));
    viz::UnsignedRange range;
    viz::LoadSize size;
    std::vector<bool> accepted(static_cast<std::size_t>(files.size()));
    if (!scanStack(files, progress, range, size, accepted)) return false;
    if (m_loadedFiles.isEmpty()) return failNotCompatible();

    m_frames = static_cast<std::uint32_t>(m_loadedFiles.size());
    addInfo(QStringLiteral("SpacingBetweenSlices"), number(m_sliceSpacing));
    addInfo(QStringLiteral("NumberOfFrames"), QString::number(m_frames));
    if (!allocate(range, size)) return failNoMemory();
    progress.setTitle(QStringLiteral("Loading TIFF frame data..."));
    return fillFromStack(files, progress, size, accepted);
}

// First pass: which files belong to the volume, and the value range of all of them.
bool CVolumeTiff::scanStack(const QStringList& files, LoadProgress& progress, viz::UnsignedRange& range,
                            viz::LoadSize& size, std::vector<bool>& accepted)
{
    CILImage image;
    CollectedRange collected;
    bool settled = false;
    for (int i = 0; i < files.size(); ++i) {
        const QString& name = files[i];
        if (!progress.next(fileLabel(name), static_cast<unsigned>(i), static_cast<unsigned>(files.size())))
            return failAborted();
        const QByteArray path = QFile::encodeName(name);
        if (CILImage::canInitFromFile(path.constData()) == 0) continue;
        static_cast<void>(image.LoadFromTIFFFile(path.constData(), 0));
        if (m_loadedFiles.isEmpty()) {
            // A file whose directory says nothing can't be what the others are measured by.
            if (image.getOriginalWidth() == 0 || image.getOriginalHeight() == 0) continue;
            describe(image);
            size = {m_columns, m_rows, m_columns, m_rows, m_resolutionFactor};
        } else {
            if (m_loadedFiles.size() == 1) {
                // Frames have no positions of their own: the second one stands behind the first.
                m_sliceSpacing = m_spacingX;
                m_direction[2] = 1.0F;
                CHVUtilityFns::restoreCursor();
                if (!settled && !showVolumeInfo(name, static_cast<unsigned>(files.size()), size))
                    return false;
                CHVUtilityFns::setCursor(Qt::WaitCursor);
                settled = true;
            }
            if (!isOfReferenceSize(image)) continue;
        }
        collected.take(image);
        m_loadedFiles << name;
        accepted[static_cast<std::size_t>(i)] = true;
    }
    range = collected.range;
    return true;
}

// Second pass. Names are taken by their place in the list, also where the scan has skipped one: the frame of
// a skipped file stays empty, and as many names at the end are not read.
bool CVolumeTiff::fillFromStack(const QStringList& files, LoadProgress& progress, const viz::LoadSize& size,
                                const std::vector<bool>& accepted)
{
    CILImage image;
    CILImage working;
    for (unsigned i = 0; i < m_frames; ++i) {
        const QString& name = files[static_cast<int>(i)];
        if (!progress.next(fileLabel(name), i, m_frames)) return failAborted();
        static_cast<void>(image.LoadFromTIFFFile(QFile::encodeName(name).constData(), 0));
        if (!isOfReferenceSize(image)) {
            // A frame that was counted must not be missing without a word.
            if (accepted[i] && image.getOriginalWidth() == 0) return failNotCompatible();
            continue;
        }
        if (!isKnownType(image)) return failNotCompatible();
        if (!store(image, working, i, size)) return failNoMemory();
    }
    return true;
}

// ---- all frames in one file ----

bool CVolumeTiff::loadPages(const QString& file, unsigned first, unsigned last)
{
    const QByteArray path = QFile::encodeName(file);
    m_multiFrame = 0;
    CILImage image;
    static_cast<void>(image.LoadFromTIFFFile(path.constData(), 0));
    const auto pages = static_cast<unsigned>(image.getImageCount());
    if (first == allFrames || last == allFrames) {
        first = 0;
        last = pages - 1;
    }
    if (pages == 0 || first > last || last >= pages || image.getOriginalWidth() == 0 ||
        image.getOriginalHeight() == 0)
        return failNotCompatible();
    m_frames = last - first + 1;
    describe(image);
    CollectedRange collected;
    collected.take(image);
    addInfo(QStringLiteral("NumberOfFrames"), QString::number(m_frames));
    addInfo(QStringLiteral("SpacingBetweenSlices"), number(m_sliceSpacing));
    m_direction[2] = 1.0F;

    viz::LoadSize size;
    CHVUtilityFns::restoreCursor();
    if (!showVolumeInfo(file, m_frames, size)) return false;
    CHVUtilityFns::setCursor(Qt::WaitCursor);

    LoadProgress progress(QStringLiteral("Scanning through Tiff data..."));
    for (unsigned i = 0; i < m_frames; ++i) {
        if (!progress.next(pageLabel(first + i), i, m_frames)) return failAborted();
        if (image.getFrameData(static_cast<int>(first + i)) != nullptr) collected.take(image);
    }
    if (!allocate(collected.range, size)) return failNoMemory();
    progress.setTitle(QStringLiteral("Loading Tiff frame data..."));
    if (!fillFromPages(image, first, progress, size)) return false;
    m_loadedFiles << file;
    return true;
}

bool CVolumeTiff::fillFromPages(CILImage& image, unsigned first, LoadProgress& progress,
                                const viz::LoadSize& size)
{
    CILImage working;
    for (unsigned i = 0; i < m_frames; ++i) {
        if (!progress.next(pageLabel(first + i), i, m_frames)) return failAborted();
        static_cast<void>(image.getFrameData(static_cast<int>(first + i)));
        if (!isKnownType(image)) return failNotCompatible();
        // A page of another size has no place in the block; its frame stays empty, as in a stack.
        if (!isOfReferenceSize(image)) continue;
        if (!store(image, working, i, size)) return failNoMemory();
    }
    return true;
}

// ---- both ----

// What the first picture says of all.
void CVolumeTiff::describe(const CILImage& image)
{
    m_spacingX = spacing(image.getXResolution());
    m_spacingY = spacing(image.getYResolution());
    m_sliceSpacing = m_spacingX;
    m_columns = static_cast<std::uint32_t>(image.getOriginalWidth());
    m_rows = static_cast<std::uint32_t>(image.getOriginalHeight());
    m_loadColumns = m_columns;
    m_loadRows = m_rows;
    m_resolutionFactor = 1.0F;
    addInfo(QStringLiteral("PixelSpacing"),
            QStringLiteral("%1, %2").arg(number(m_spacingY), number(m_spacingX)));
    addInfo(QStringLiteral("Columns"), QString::number(m_columns));
    addInfo(QStringLiteral("Rows"), QString::number(m_rows));
}

// The user's word where memory is short; the size to load in any case.
bool CVolumeTiff::showVolumeInfo(const QString& path, unsigned frames, viz::LoadSize& size)
{
    CVolumeInfoDialog dialog(parentWidget(m_owner), "Volume File Information", true);
    dialog.fileGroup->setDisabled(true);
    dialog.setFileName(path);
    dialog.setValidateFile(false);
    dialog.setColumns(shown(m_columns));
    dialog.setRows(shown(m_rows));
    dialog.setFrames(shown(frames));
    dialog.setHeaderOffset(0);
    dialog.setRowSpacing(static_cast<double>(m_spacingX));
    dialog.setColumnSpacing(static_cast<double>(m_spacingY));
    dialog.setSliceSpacing(static_cast<double>(m_sliceSpacing));
    dialog.setResolution(100);
    dialog.orientationGroup->setDisabled(true);
    if (!dialog.updateMemoryStatus()) {
        if (dialog.exec() != QDialog::Accepted)
            return fail(CHVSLog::eStatusLine, "Open Volume action canceled by user.");
        if (!dialog.isMemoryGood())
            return fail(CHVSLog::eError, "Volume loading aborted. Low memory encountered.");
    }
    m_spacingX = dialog.getRowSpacing();
    m_spacingY = dialog.getColumnSpacing();
    m_sliceSpacing = dialog.getSliceSpacing();
    size = viz::loadSize(m_columns, m_rows, viz::resolutionFactor(dialog.getResolution()), roundToNearest);
    m_loadColumns = size.columns;
    m_loadRows = size.rows;
    m_resolutionFactor = size.factor;
    return true;
}

bool CVolumeTiff::isOfReferenceSize(const CILImage& image) const
{
    return image.getOriginalWidth() == static_cast<long>(m_columns) &&
           image.getOriginalHeight() == static_cast<long>(m_rows);
}

bool CVolumeTiff::allocate(viz::UnsignedRange range, const viz::LoadSize& size)
{
    m_extent[0] = m_spacingY * static_cast<float>(m_columns);
    m_extent[1] = m_spacingX * static_cast<float>(m_rows);
    m_extent[2] = m_sliceSpacing * static_cast<float>(m_frames);
    if (size.changesFrame()) {
        m_extent[0] = viz::paddedExtent(m_extent[0], size.reducedColumns, size.columns);
        m_extent[1] = viz::paddedExtent(m_extent[1], size.reducedRows, size.rows);
    }
    range.separate();
    m_minValue = static_cast<std::int32_t>(range.lowest);
    m_maxValue = static_cast<std::int32_t>(range.highest);
    m_valueScale = viz::valueScale(range);

    std::free(m_voxels);
    m_voxels = allocateVoxels(viz::volumeBytes(m_loadColumns, m_loadRows, shown(m_frames)));
    return m_voxels != nullptr;
}

// Brings a picture of the reference size and a known type into the block; false when memory does not suffice.
bool CVolumeTiff::store(CILImage& image, CILImage& working, unsigned frame, const viz::LoadSize& size)
{
    CILImage* source = &image;
    if (size.changesFrame()) {
        // The pages of one file are read into one image, which keeps its size for them.
        if (!working.initWithData(image.get_datatype(), image.getWidth(), image.getHeight(),
                                  image.get_data()) ||
            !fitFrame(working, size))
            return false;
        source = &working;
    }
    const auto lowest = static_cast<std::uint32_t>(m_minValue);
    const viz::VoxelLayout layout = viz::axialLayout(frame, m_loadColumns, m_loadRows, m_frames);
    const auto write = [&](const auto* pixels) {
        viz::storeFrame(pixels, m_loadColumns, m_loadRows, lowest, m_valueScale, layout, m_voxels);
    };
    const void* const pixels = source->get_data();
    if (source->get_datatype() == eTypeUInt8)
        write(static_cast<const std::uint8_t*>(pixels));
    else if (source->get_datatype() == eTypeUInt16)
        write(static_cast<const std::uint16_t*>(pixels));
    else
        write(static_cast<const std::uint32_t*>(pixels));
    return true;
}

void CVolumeTiff::addInfo(const QString& name, const QString& value)
{
    SGroupElemInfo entry;
    entry.name = name;
    entry.value = value;
    m_info.insert(name, entry);
}
