// A change of the frame in the import dialog, 512 x 512 pixels of 16 bits, files in the page cache, to the
// end of the paint; at most 30 ms.
//
//   Time            from the new value of the slider to the painted window
//   times_yardstick the same over the yardstick's time: the file's bytes read once, a ready picture of this
//   size
//                   drawn as large as the preview
//   worst_ms        the slowest frame

#include "browse/C3DCVImportDialog.h"
#include "browse/CVolBrowseEvents.h"
#include "browse/CVolBrowserInfo.h"
#include "support/DiskSequence.h"
#include "support/dicom/DicomBuilder.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>

namespace {

constexpr int side = 512;
constexpr int frames = 24;

int sample(int x, int y, int z)
{
    return (x * 37 + y * 91 + z * 997) & 4095;
}

enum class Kind
{
    DicomSeries,
    DicomMultiFrame,
    NativeSeries,
    TiffStack
};

DicomBuilder slices(int first, int count)
{
    std::vector<std::int64_t> values;
    values.reserve(static_cast<std::size_t>(side) * side * static_cast<std::size_t>(count));
    for (int z = first; z < first + count; ++z)
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                values.push_back(sample(x, y, z));
    DicomBuilder builder;
    builder.size(side, side, static_cast<unsigned>(count)).bits(16, 12).samples(std::move(values));
    return builder;
}

bool write(const QString& folder, Kind kind)
{
    if (kind == Kind::DicomMultiFrame) return slices(0, frames).write(folder + "/all.dcm");
    for (int z = 0; z < frames; ++z) {
        const QString name = QString("%1/%2").arg(folder).arg(z, 3, 10, QLatin1Char('0'));
        bool isWritten = false;
        if (kind == Kind::TiffStack) {
            const auto value = [z](int x, int y) { return sample(x, y, z); };
            isWritten = disk_sequence::put(name + ".tif", disk_sequence::tiff(side, side, value));
        } else {
            DicomBuilder one = slices(z, 1);
            if (kind == Kind::NativeSeries) one.implementation("Halvane 1.0");
            isWritten = one.write(name + ".dcm");
        }
        if (!isWritten) return false;
    }
    return true;
}

void select(C3DCVImportDialog& dialog, const QString& folder, Kind kind)
{
    auto info = std::make_unique<CVolBrowserInfo>();
    info->m_folder = folder;
    info->m_type = kind == Kind::TiffStack ? QStringLiteral("TIFF") : QStringLiteral("DICOM");
    info->m_files = QDir(folder).entryList(QDir::Files, QDir::Name);
    info->m_fileCount = info->m_files.size();
    CVolBrowseStartEvent start(QString{});
    CVolBrowseOneFileCompltdEvent found(std::move(info));
    CVolBrowseEndEvent end(QString{});
    QCoreApplication::sendEvent(&dialog, &start);
    QCoreApplication::sendEvent(&dialog, &found);
    QCoreApplication::sendEvent(&dialog, &end);
}

double yardstick(const QString& folder, QSize const& size)
{
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
    const QImage picture(side, side, QImage::Format_RGB32);
    QImage target(size, QImage::Format_RGB32);
    QElapsedTimer clock;
    clock.start();
    QFile file(files.first().filePath());
    if (!file.open(QIODevice::ReadOnly)) return 0.0;
    const QByteArray bytes = file.read(qint64{side} * side * 2 + 4096);
    QPainter painter(&target);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target.rect(), picture);
    painter.end();
    benchmark::DoNotOptimize(bytes.constData());
    benchmark::DoNotOptimize(target.constBits());
    return static_cast<double>(clock.nsecsElapsed()) * 1e-9;
}

void changeOfFrame(benchmark::State& state, Kind kind)
{
    const QTemporaryDir folder;
    if (!write(folder.path(), kind)) {
        state.SkipWithError("the files could not be written");
        return;
    }
    C3DCVImportDialog dialog;
    dialog.resize(1100, 760);
    dialog.show();
    while (!dialog.windowHandle() || !dialog.windowHandle()->isExposed())
        QCoreApplication::processEvents();
    select(dialog, folder.path(), kind);
    QCoreApplication::processEvents();
    auto* const view = dialog.findChild<QWidget*>("m_pPreview");
    const int last = dialog.m_pFrameSlider->maximum();

    double bare = 0.0;
    double whole = 0.0;
    double worst = 0.0;
    int frame = 1;
    for (auto _ : state) {
        frame = frame == last ? 1 : frame + 1;
        QElapsedTimer clock;
        clock.start();
        dialog.m_pFrameSlider->setValue(frame);
        view->repaint();
        const double seconds = static_cast<double>(clock.nsecsElapsed()) * 1e-9;
        state.SetIterationTime(seconds);
        whole += seconds;
        worst = std::max(worst, seconds);
        QCoreApplication::processEvents();
        bare += yardstick(folder.path(), view->size());
    }
    if (last != frames) state.SkipWithError("not all frames are there");
    state.counters["times_yardstick"] = whole / bare;
    state.counters["worst_ms"] = worst * 1e3;
}

void add(const char* name, Kind kind)
{
    benchmark::RegisterBenchmark(name, [kind](benchmark::State& state) { changeOfFrame(state, kind); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(120);
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    add("frame/dicom_series", Kind::DicomSeries);
    add("frame/dicom_multi_frame", Kind::DicomMultiFrame);
    add("frame/own_series", Kind::NativeSeries);
    add("frame/tiff_stack", Kind::TiffStack);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
