// How long the user waits for a picture: from the drop of a DICOM series of 512 x 512 x 300 samples of 16
// bits on the palette to the first frame of its volume, in stages.
//
//   Time       wall time of all of it
//   scan_ms    first pass over the files, the memory check of its dialog with it
//   load_ms    second pass, to the block of 8 bits
//   node_ms    the node's copy, the colours, the copy on the disk
//   frame_ms   first frame, with the texture; next_ms: one more frame

#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVSProgressBar.h"
#include "lib/hvapi/sequence/SequenceDescription.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvutils/HostServices.h"
#include "plugin/CHVVolumeVizPalette.h"
#include "plugin/CHVVolumeVizPlugin.h"
#include "support/dicom/DicomBuilder.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QEvent>
#include <QMdiArea>
#include <QMessageBox>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr unsigned side = 512;
constexpr unsigned slices = 300;

/// When the stages of a load end, in milliseconds from start() on; 0 for one that has not come yet.
class Stages : public QObject
{
public:
    Stages() { qApp->installEventFilter(this); }

    void start()
    {
        scanned = loaded = drawing = drawn = 0;
        m_clock.start();
    }
    double now() const { return static_cast<double>(m_clock.nsecsElapsed()) * 1e-6; }

    double scanned = 0;
    double loaded = 0;
    double drawing = 0;  // the first frame begins
    double drawn = 0;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (auto* const progress = qobject_cast<CHVSProgressBar*>(watched)) {
            const bool loads = progress->windowTitle().startsWith(QLatin1String("Loading"));
            if (event->type() == QEvent::WindowTitleChange && loads) scanned = now();
            if (event->type() == QEvent::Hide && loads) loaded = now();
        }
        if (event->type() == QEvent::Paint && loaded > 0 && drawing == 0 &&
            qobject_cast<C3DScene*>(watched)) {
            drawing = now();
            connect(static_cast<C3DScene*>(watched), &QOpenGLWidget::frameSwapped, this, [this] {
                if (drawn == 0) drawn = now();
            });
        }
        return false;
    }

private:
    QElapsedTimer m_clock;
};

/// Answers every question with its safe button, so that nothing waits.
class Host : public HostServices
{
public:
    Host()
    {
        install(this);
        // A slow card brings the question whether quality is wanted nevertheless: no.
        QObject::connect(&m_boxes, &QTimer::timeout, &m_boxes, [] {
            if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                box->reject();
        });
        m_boxes.start(2);
    }
    ~Host() override { install(nullptr); }
    int ask(HostQuestion const& question) override
    {
        complaint = question.text.toStdString();
        return safeAnswer(question);
    }
    void log(HostLogEntry const& entry) override
    {
        if (entry.severity >= 2 && entry.severity != 16) complaint = entry.message.toStdString();
    }
    std::string complaint;

private:
    QTimer m_boxes;
};

/// A workspace with one empty sequence in a window of its own.
class Bench
{
public:
    Bench()
    {
        m_workspace.resize(400, 320);
        m_workspace.show();
        plugin.initPlugin();
        palette = qobject_cast<CHVVolumeVizPalette*>(plugin.getPaletteWidget());
        SequenceRegistry& registry = SequenceRegistry::instance();
        QObject::connect(&registry, &SequenceRegistry::windowCreated, &m_workspace,
                         [this](CHVSSequenceWindow* window) {
                             auto* const frame = new CHVSMdiSubWindow;
                             frame->setWidget(window);
                             m_workspace.addSubWindow(frame);
                             frame->resize(300, 260);
                             frame->show();
                         });
        QObject::connect(&registry, &SequenceRegistry::sequenceAdded, &plugin,
                         &CHVVolumeVizPlugin::onSignalSequenceAdded);
        QObject::connect(&registry, &SequenceRegistry::sequenceAboutToBeRemoved, &plugin,
                         &CHVVolumeVizPlugin::onSignalSequenceRemoved);
        SequenceDescription description;
        description.id = QStringLiteral("scan");
        m_sequence = registry.open(description);
        plugin.onSignalSequenceChanged(m_sequence);
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents();
    }
    ~Bench() { SequenceRegistry::instance().close(m_sequence); }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    C3DScene* scene() const
    {
        CHVSSequenceWindow* const window = CHVSSequenceWindow::getSequenceWindow(m_sequence);
        return window ? window->get3DScene() : nullptr;
    }

    bool drop(const QStringList& paths) const
    {
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls.append(QUrl::fromLocalFile(path));
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(20, 40), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(palette, &enter);
        QDropEvent event(QPointF(20, 40), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(palette, &event);
        const SVolVizControls* const record = palette->recordOf(QStringLiteral("scan"));
        return record && record->bVolumeLoaded;
    }

    CHVVolumeVizPlugin plugin;
    CHVVolumeVizPalette* palette = nullptr;

private:
    QMdiArea m_workspace;
    CHVSSequenceDataset* m_sequence = nullptr;
};

void dropToFirstFrame(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QStringList paths =
        writeDicomSeries(folder.path(), DicomBuilder().bits(16, 16), side, side, slices, {0, 0, 0}, {0, 0, 1},
                         [](unsigned x, unsigned y, unsigned slice) {
                             return (x * 7 + y * 13 + slice * 29 + x * y % 61) % 4096;
                         });
    double scan = 0;
    double load = 0;
    double node = 0;
    double frame = 0;
    double next = 0;
    for ([[maybe_unused]] auto _ : state) {
        Host host;
        const Bench bench;
        Stages stages;
        stages.start();
        if (!bench.drop(paths)) return state.SkipWithError(("refused: " + host.complaint).c_str());
        while (stages.drawn == 0 && stages.now() < 60000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        if (stages.drawn == 0) return state.SkipWithError("no frame came");
        scan += stages.scanned;
        load += stages.loaded - stages.scanned;
        node += stages.drawing - stages.loaded;
        frame += stages.drawn - stages.drawing;
        state.SetIterationTime(stages.drawn * 1e-3);

        const double before = stages.now();
        bench.scene()->refresh();
        next += stages.now() - before;
    }
    const auto count = static_cast<double>(state.iterations());
    state.counters["scan_ms"] = scan / count;
    state.counters["load_ms"] = load / count;
    state.counters["node_ms"] = node / count;
    state.counters["frame_ms"] = frame / count;
    state.counters["next_ms"] = next / count;
}
BENCHMARK(dropToFirstFrame)
    ->Name("first_frame/dicom_series")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

}  // namespace
