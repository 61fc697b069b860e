// Frames of 1200 x 900 pixels into each type of movie, by the exporter's queue; `peak_MB` is what a movie of
// 600 frames takes above one of 60.

#include "hvapi/export/CHVSMovieExporter.h"
#include "support/ProcessMeter.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

namespace {

constexpr int kWidth = 1200;
constexpr int kHeight = 900;

/// A grey disc that grows, over a ramp.
QImage frame(int i)
{
    QImage picture(kWidth, kHeight, QImage::Format_RGB32);
    for (int y = 0; y < kHeight; ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < kWidth; ++x)
            row[x] = qRgb(x / 5, x / 5, y / 4);
    }
    QPainter painter(&picture);
    painter.setBrush(Qt::gray);
    painter.drawEllipse(QPoint(kWidth / 2, kHeight / 2), 50 + i % 300, 50 + i % 300);
    return picture;
}

bool write(const QString& path, int frames)
{
    sMovieDetails details;
    details.m_nWidth = kWidth;
    details.m_nHeight = kHeight;
    details.m_nFramesPerSecond = 15;
    CHVSMovieExporter movie;
    if (movie.createMovie(details, path) != eStatusSuccess) return false;
    for (int i = 0; i < frames; ++i) {
        QImage picture = frame(i);
        if (movie.appendFrame(picture.bits(), HVS_MOVIE_BUFFER_RGB32, picture) != eStatusSuccess)
            return false;
    }
    movie.closeMovie();
    return true;
}

void movie(benchmark::State& state, const char* extension)
{
    constexpr int kFrames = 60;
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("movie.%1").arg(QLatin1String(extension)));
    forgetPeak();
    for (auto _ : state)
        if (!write(path, kFrames)) state.SkipWithError("the movie could not be written");
    const double shortPeak = memory("VmHWM:");
    forgetPeak();
    write(path, 10 * kFrames);
    state.counters["peak_MB"] = memory("VmHWM:") - shortPeak;
    state.counters["frames_per_second"] =
        benchmark::Counter(static_cast<double>(kFrames * state.iterations()), benchmark::Counter::kIsRate);
}

BENCHMARK_CAPTURE(movie, mp4, "mp4")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK_CAPTURE(movie, avi, "avi")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK_CAPTURE(movie, mpg, "mpg")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

}  // namespace
