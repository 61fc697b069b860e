// Whole loads of 512 x 512 x 300 DICOM samples of 16 bits, beside a bare loop of the library that decodes
// them.
//
//   Time           CPU time of the load, less the memory check of its dialog
//   times_bare     the same over the bare loop's time in the same iteration: for files of any origin the
//                  library's calls that the reader makes, twice, and nothing else; at most 1.25
//   passes         the reader's own passes over the samples (range of values, mapping to 8 bits, layout),
//   made
//                  once more on their own, over the time of the bare loop; at most 0.15
//   peak_over_MB   highest resident memory of the load, less what is held on purpose: the block, the parsed
//   files
//                  of a series (of a file of many frames the larger of the two) and one frame; at most 30. Of
//                  the workstation's own files the second pass only, the first having the memory check in it
//   check_ms       the memory check, which lets the graphics driver allocate a texture of the volume's size

#include "hvimage/CILImage.h"
#include "support/ProcessMeter.h"
#include "support/dicom/DicomBuilder.h"
#include "volume/CVolumeDicom.h"
#include "volume/CVolumeInfoDialog.h"
#include "volume/VoxelBlock.h"
#include "volume/logic/FrameWriter.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcfilefo.h>
#include <dcmtk/dcmimgle/dcmimage.h>

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr unsigned side = 512;
constexpr unsigned slices = 300;
constexpr unsigned allFrames = 0xFFFFFFFF;
constexpr double megabyte = 1024.0 * 1024.0;
constexpr double frameBytes = 2.0 * side * side;
constexpr double blockBytes = double{side} * side * slices;

std::int64_t sample(unsigned x, unsigned y, unsigned slice)
{
    return (x * 7 + y * 13 + slice * 29 + x * y % 61) % 4096;
}

// Files of one kind, written when they are first asked for.
class Files
{
public:
    explicit Files(const DicomBuilder& builder, bool many = false)
    {
        if (many) {
            DicomBuilder one = builder;
            std::vector<std::int64_t> samples;
            samples.reserve(std::size_t{side} * side * slices);
            for (unsigned slice = 0; slice < slices; ++slice)
                for (unsigned y = 0; y < side; ++y)
                    for (unsigned x = 0; x < side; ++x)
                        samples.push_back(sample(x, y, slice));
            const QString path = m_folder.filePath(QStringLiteral("frames.dcm"));
            if (one.size(side, side, slices).samples(std::move(samples)).write(path)) paths << path;
        } else {
            paths =
                writeDicomSeries(m_folder.path(), builder, side, side, slices, {0, 0, 0}, {1, 1, 1}, sample);
        }
    }

    QStringList paths;

private:
    QTemporaryDir m_folder;
};

// The library's calls alone.
double bareSeconds(const QStringList& paths)
{
    const double start = cpuSeconds();
    for (const QString& path : paths) {
        DcmFileFormat file;
        file.loadFile(QFile::encodeName(path).constData());
        DcmDataset* const data = file.getDataset();
        data->loadAllDataIntoMemory();
        DicomImage image(data, data->getOriginalXfer(), 1UL, 0UL, 0UL);
        for (unsigned long frame = 0; frame < image.getFrameCount(); ++frame)
            benchmark::DoNotOptimize(image.getOutputData(16, frame, 0));
    }
    return cpuSeconds() - start;
}

double checkSeconds()
{
    CVolumeInfoDialog dialog;
    dialog.setColumns(side);
    dialog.setRows(side);
    dialog.setFrames(slices);
    const double start = cpuSeconds();
    dialog.updateMemoryStatus();
    return cpuSeconds() - start;
}

// What the reader does with decoded samples: range, mapping, layout.
double passesSeconds(viz::SliceAxis axis)
{
    std::vector<std::uint16_t> samples;
    samples.reserve(std::size_t{side} * side);
    for (unsigned y = 0; y < side; ++y)
        for (unsigned x = 0; x < side; ++x)
            samples.push_back(static_cast<std::uint16_t>(sample(x, y, 0)));
    CILImage image;
    image.initWithData(eTypeUInt16, side, side, samples.data());
    const double start = cpuSeconds();
    unsigned char* const block = allocateVoxels(std::size_t{side} * side * slices);
    viz::FrameWriter writer(axis, {side, side, slices}, {0, 255.0F / 4095.0F, false}, block);
    for (unsigned slice = 0; slice < slices; ++slice) {
        image.RefreshImageStats();
        benchmark::DoNotOptimize(image.getMax());
        writer.add(static_cast<const std::uint16_t*>(image.get_data()));
    }
    writer.finish();
    const double seconds = cpuSeconds() - start;
    std::free(block);
    return seconds;
}

// What a load may hold at once beside a frame.
double heldBytes(const QStringList& paths, bool native)
{
    double files = 0;
    for (const QString& path : paths)
        files += static_cast<double>(QFileInfo(path).size());
    if (native) return blockBytes;
    return paths.size() > 1 ? blockBytes + files : std::max(blockBytes, files);
}

// Highest resident memory of a load, in megabytes on top of what was there before.
class PeakMeter : public QObject
{
public:
    PeakMeter()
        : m_before(memory("VmRSS:"))
    {
        forgetPeak();
        qApp->installEventFilter(this);
    }

    double secondPass() const { return memory("VmHWM:") - m_before; }
    double bothPasses() const { return std::max(m_scan - m_before, secondPass()); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::WindowTitleChange &&
            static_cast<QWidget*>(watched)->windowTitle().startsWith(QLatin1String("Loading"))) {
            m_scan = memory("VmHWM:");
            forgetPeak();
        }
        return false;
    }

private:
    double m_before;
    double m_scan = 0;
};

struct Kind
{
    viz::SliceAxis axis = viz::SliceAxis::Axial;
    bool native = false;
};

void load(benchmark::State& state, const QStringList& paths, const Kind& kind = {})
{
    double bare = 0;
    double loads = 0;
    double checks = 0;
    double passes = 0;
    double peak = 0;
    for ([[maybe_unused]] auto _ : state) {
        bare += bareSeconds(paths) + bareSeconds(paths);
        passes += passesSeconds(kind.axis);
        const double check = checkSeconds();
        CVolumeDicom reader(nullptr);
        const PeakMeter meter;
        const double start = cpuSeconds();
        if (!reader.loadVolumeFiles(paths, allFrames, allFrames, false))
            return state.SkipWithError("the reader refused the files; see the log");
        const double seconds = cpuSeconds() - start - check;
        peak = std::max(peak, kind.native ? meter.secondPass() : meter.bothPasses());
        checks += check;
        loads += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["times_bare"] = loads / bare;
    state.counters["passes"] = passes / bare;
    state.counters["peak_over_MB"] = peak - (heldBytes(paths, kind.native) + frameBytes) / megabyte;
    state.counters["check_ms"] = checks * 1000.0 / static_cast<double>(state.iterations());
}

DicomBuilder axial()
{
    return DicomBuilder().bits(16, 16);
}

void series(benchmark::State& state)
{
    static const Files files(axial());
    load(state, files.paths);
}

void sagittal(benchmark::State& state)
{
    static const Files files(axial().orientation({0, 1, 0}, {0, 0, -1}));
    load(state, files.paths, {viz::SliceAxis::Sagittal, false});
}

void manyFrames(benchmark::State& state)
{
    static const Files files(axial(), true);
    load(state, files.paths);
}

void nativeSeries(benchmark::State& state)
{
    static const Files files(axial().implementation("Halvane"));
    load(state, files.paths, {viz::SliceAxis::Axial, true});
}

void nativeFrames(benchmark::State& state)
{
    static const Files files(axial().implementation("Halvane"), true);
    load(state, files.paths, {viz::SliceAxis::Axial, true});
}

BENCHMARK(series)->Name("dicom_load/series")->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(sagittal)
    ->Name("dicom_load/sagittal")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK(manyFrames)
    ->Name("dicom_load/frames")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK(nativeSeries)
    ->Name("dicom_load/native_series")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK(nativeFrames)
    ->Name("dicom_load/native_frames")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

}  // namespace
