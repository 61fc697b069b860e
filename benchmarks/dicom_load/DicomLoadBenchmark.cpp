// Whole loads of 512 x 512 x 300 DICOM samples of 16 bits, beside a bare loop of the library that decodes
// them.
//
//   Time           CPU time of the load, less the memory check of its dialog
//   times_bare     the same over the bare loop's time in the same iteration: for files of any origin the
//                  library's calls that the reader makes, twice, and nothing else; at most 1.25
//   check_ms       the memory check, which lets the graphics driver allocate a texture of the volume's size

#include "support/ProcessMeter.h"
#include "support/dicom/DicomBuilder.h"
#include "volume/CVolumeDicom.h"
#include "volume/CVolumeInfoDialog.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcfilefo.h>
#include <dcmtk/dcmimgle/dcmimage.h>

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

constexpr unsigned side = 512;
constexpr unsigned slices = 300;
constexpr unsigned allFrames = 0xFFFFFFFF;

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

void load(benchmark::State& state, const QStringList& paths)
{
    double bare = 0;
    double loads = 0;
    double checks = 0;
    for ([[maybe_unused]] auto _ : state) {
        bare += bareSeconds(paths) + bareSeconds(paths);
        const double check = checkSeconds();
        CVolumeDicom reader(nullptr);
        const double start = cpuSeconds();
        if (!reader.loadVolumeFiles(paths, allFrames, allFrames, false))
            return state.SkipWithError("the reader refused the files; see the log");
        const double seconds = cpuSeconds() - start - check;
        checks += check;
        loads += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["times_bare"] = loads / bare;
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
    load(state, files.paths);
}

void manyFrames(benchmark::State& state)
{
    static const Files files(axial(), true);
    load(state, files.paths);
}

void nativeSeries(benchmark::State& state)
{
    static const Files files(axial().implementation("Halvane"));
    load(state, files.paths);
}

void nativeFrames(benchmark::State& state)
{
    static const Files files(axial().implementation("Halvane"), true);
    load(state, files.paths);
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
