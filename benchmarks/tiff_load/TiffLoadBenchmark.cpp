// The TIFF reader over 512 x 512 x 300 samples of 16 bits, as a stack of files and as pages of one file,
// beside what the machine and libtiff can do.
//
//   Time          CPU time of both passes, without the volume information dialog and its memory check, which
//                 the reader brackets by restoring the cursor and setting it again
//   times_limit   the same over the yardstick's time in the same iteration; at most 1.9 (stack) and 2.2
//   (pages) times_decode  the same over the time in which libtiff decodes every picture once peak_over_MB
//   highest resident memory during the passes, less the block and one frame; at most 30

#include "Yardstick.h"
#include "lib/hvutils/HostServices.h"
#include "support/ProcessMeter.h"
#include "volume/CVolumeTiff.h"

#include <QApplication>
#include <QCursor>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <vector>

#include <tiffio.h>

namespace {

constexpr unsigned side = 512;
constexpr unsigned frames = 300;
constexpr std::size_t pixels = std::size_t{side} * side;
constexpr double megabyte = 1024.0 * 1024.0;
constexpr int iterations = 12;

// The volume as files on disk, in libtiff's own choice of strips.
struct Files
{
    QTemporaryDir folder;
    PlainFrames places;
    QStringList names;

    explicit Files(bool stack)
    {
        places.columns = side;
        places.rows = side;
        std::vector<std::uint16_t> frame(pixels);
        std::uint32_t random = 1;
        TIFF* file = nullptr;
        for (unsigned i = 0; i < frames; ++i) {
            for (auto& sample : frame) {
                random = random * 1664525U + 1013904223U;
                sample = static_cast<std::uint16_t>((random >> 20) + 100);
            }
            if (file == nullptr) {
                names << folder.filePath(QStringLiteral("slice%1.tif").arg(i, 4, 10, QLatin1Char('0')));
                places.files.push_back(QFile::encodeName(names.last()).toStdString());
                file = TIFFOpen(places.files.back().c_str(), "w");
                if (file == nullptr) return;
            }
            writePage(file, frame);
            if (stack || i + 1 == frames) {
                TIFFClose(file);
                file = nullptr;
            }
        }
        for (const std::string& name : places.files)
            findFrames(name);
    }

private:
    static void writePage(TIFF* file, std::vector<std::uint16_t>& frame)
    {
        TIFFSetField(file, TIFFTAG_IMAGEWIDTH, side);
        TIFFSetField(file, TIFFTAG_IMAGELENGTH, side);
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 16);
        TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, 1);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
        TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(file, 0));
        for (unsigned y = 0; y < side; ++y)
            TIFFWriteScanline(file, frame.data() + std::size_t{y} * side, y, 0);
        TIFFWriteDirectory(file);
    }

    void findFrames(const std::string& name)
    {
        TIFF* const file = TIFFOpen(name.c_str(), "r");
        if (file == nullptr) return;
        do
            places.offsets.push_back(static_cast<long>(TIFFGetStrileOffset(file, 0)));
        while (TIFFReadDirectory(file) != 0);
        TIFFClose(file);
    }
};

const Files& stackFiles()
{
    static const Files files(true);
    return files;
}

const Files& pageFile()
{
    static const Files files(false);
    return files;
}

template <typename Work>
double secondsOf(Work work)
{
    const double start = cpuSeconds();
    benchmark::DoNotOptimize(work());
    return cpuSeconds() - start;
}

double limitSeconds(const Files& files)
{
    return secondsOf([&] { return loadAtTheLimit(files.places); });
}

double decodeSeconds(const Files& files)
{
    return secondsOf([&] { return decodeBarely(files.places); });
}

struct Load
{
    double seconds = 0;
    double peakOver = 0;
    bool good = false;
};

/// A clock that stands still while the reader asks its user.
class Clock : public HostServices
{
public:
    Clock() { install(this); }

    void start()
    {
        forgetPeak();
        m_resident = memory("VmRSS:");
        m_start = cpuSeconds();
    }

    void stop()
    {
        m_seconds += cpuSeconds() - m_start;
        m_peak = std::max(m_peak, memory("VmHWM:") - m_resident);
    }

    double seconds() const { return m_seconds; }
    double peak() const { return m_peak; }  // megabytes that came on top

    void restoreCursor() override
    {
        if (m_start > 0) stop();
    }
    void setCursor(QCursor const&) override { start(); }

private:
    double m_start = 0;
    double m_seconds = 0;
    double m_resident = 0;
    double m_peak = 0;
};

Load loadOnce(const Files& files)
{
    Load load;
    Clock clock;
    // A stack is announced, file by file, before the question; pages after it.
    if (files.names.size() > 1) QTimer::singleShot(0, [&] { clock.start(); });
    CVolumeTiff reader(nullptr);
    load.good = reader.loadVolumeFiles(files.names, CVolumeTiff::allFrames, CVolumeTiff::allFrames);
    clock.stop();
    load.seconds = clock.seconds();
    load.peakOver = clock.peak() - static_cast<double>(pixels * frames + pixels * 2) / megabyte;
    return load;
}

void yardstick(benchmark::State& state, const Files& (*files)(), double (*seconds)(const Files&))
{
    seconds(files());
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(seconds(files()));
}

void reader(benchmark::State& state, const Files& (*files)())
{
    limitSeconds(files());
    if (!loadOnce(files()).good) return state.SkipWithError("the reader refused the files; see the log");
    double loading = 0;
    double limits = 0;
    double decodes = 0;
    double peak = std::numeric_limits<double>::lowest();
    for ([[maybe_unused]] auto _ : state) {
        limits += limitSeconds(files());
        decodes += decodeSeconds(files());
        const Load load = loadOnce(files());
        loading += load.seconds;
        peak = std::max(peak, load.peakOver);
        state.SetIterationTime(load.seconds);
    }
    state.counters["times_limit"] = loading / limits;
    state.counters["times_decode"] = loading / decodes;
    state.counters["peak_over_MB"] = peak;
}

#define TIFF_BENCHMARK(what, name, ...)                                                                      \
    BENCHMARK_CAPTURE(what, name, __VA_ARGS__)                                                               \
        ->Name("tiff_load/" #name)                                                                           \
        ->UseManualTime()                                                                                    \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->Iterations(iterations)

TIFF_BENCHMARK(yardstick, stack_limit, stackFiles, limitSeconds);
TIFF_BENCHMARK(yardstick, stack_libtiff_decode, stackFiles, decodeSeconds);
TIFF_BENCHMARK(reader, stack_reader, stackFiles);
TIFF_BENCHMARK(yardstick, pages_limit, pageFile, limitSeconds);
TIFF_BENCHMARK(yardstick, pages_libtiff_decode, pageFile, decodeSeconds);
TIFF_BENCHMARK(reader, pages_reader, pageFile);

}  // namespace
