// The RAW reader's two passes over 512 x 512 x 300 samples of 16 bits, beside what the machine can do.
//
//   Time          CPU time of the two passes, after the header, the dialog and the memory check
//   times_limit   the same over the yardstick's time in the same iteration; at most 1.8
//   peak_over_MB  highest resident memory during the passes, less the block and one frame; at most 30

#include "Yardstick.h"
#include "support/ProcessMeter.h"
#include "volume/CVolumeRaw.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int side = 512;
constexpr int frames = 300;
constexpr std::size_t pixels = std::size_t{side} * side;
constexpr double megabyte = 1024.0 * 1024.0;

struct TestFile
{
    QTemporaryDir folder;
    QByteArray path;
    long offset = 0;

    TestFile()
    {
        const QByteArray header = "VolumeSize 512 512 300\nVoxelSize 16\nField Density Format u\n##\f\n";
        offset = header.size();
        const QString name = folder.filePath(QStringLiteral("volume.raw"));
        path = QFile::encodeName(name);
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly)) return;
        file.write(header);
        std::vector<std::uint16_t> frame(pixels);
        std::uint32_t random = 1;
        for (int i = 0; i < frames; ++i) {
            for (auto& sample : frame) {
                random = random * 1664525U + 1013904223U;
                sample = static_cast<std::uint16_t>((random >> 20) + 100);
            }
            file.write(reinterpret_cast<const char*>(frame.data()), static_cast<qint64>(pixels) * 2);
        }
    }
};

const TestFile& testFile()
{
    static const TestFile file;
    return file;
}

double limitSeconds()
{
    const double start = cpuSeconds();
    benchmark::DoNotOptimize(loadAtTheLimit(testFile().path.constData(), testFile().offset, pixels, frames));
    return cpuSeconds() - start;
}

void limit(benchmark::State& state)
{
    limitSeconds();
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(limitSeconds());
}

struct Passes
{
    double seconds = 0;
    double peakOver = 0;
    bool good = false;
};

Passes loadOnce()
{
    Passes passes;
    double start = 0;
    double resident = 0;
    // The reader lets events through for the first time when its first frame is announced.
    QTimer::singleShot(0, [&] {
        forgetPeak();
        resident = memory("VmRSS:");
        start = cpuSeconds();
    });
    CVolumeRaw reader(nullptr);
    passes.good = reader.loadVolumeFile(testFile().path.constData());
    passes.seconds = cpuSeconds() - start;
    passes.peakOver =
        memory("VmHWM:") - resident - static_cast<double>(pixels * frames + pixels * 2) / megabyte;
    return passes;
}

void rawReader(benchmark::State& state)
{
    limitSeconds();
    double loading = 0;
    double limits = 0;
    double peak = 0;
    for ([[maybe_unused]] auto _ : state) {
        limits += limitSeconds();
        const Passes passes = loadOnce();
        if (!passes.good) return state.SkipWithError("the reader refused the file; see the log");
        loading += passes.seconds;
        peak = std::max(peak, passes.peakOver);
        state.SetIterationTime(passes.seconds);
    }
    state.counters["times_limit"] = loading / limits;
    state.counters["peak_over_MB"] = peak;
}

BENCHMARK(limit)->Name("raw_load/limit")->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(rawReader)->Name("raw_load/reader")->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

}  // namespace
