#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 limit = 60000;  // milliseconds

bool isReady(const QString& log)
{
    QFile file(log);
    return file.open(QIODevice::ReadOnly) && file.readAll().contains(" is ready.");
}

/// From the start of the process to the entry of its log that says that the window is on screen and events
/// are handled, with the plug-ins loaded. The settings are those of a first start.
void emptyWindow(benchmark::State& state)
{
    for (auto _ : state) {
        const QTemporaryDir home;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HALVANE_HOME", home.path());
        environment.insert("HALVANE_PLUGIN_PATH", PLUGIN_FOLDER);
        QProcess program;
        program.setProcessEnvironment(environment);
        const QString log = home.filePath("session.log");

        QElapsedTimer clock;
        clock.start();
        program.start(HALVANE_PROGRAM, {"--log", log});
        while (!isReady(log) && clock.elapsed() < limit)
            QThread::msleep(1);
        state.SetIterationTime(static_cast<double>(clock.nsecsElapsed()) * 1e-9);
        const bool inTime = isReady(log);
        program.kill();
        program.waitForFinished();
        if (!inTime) {
            state.SkipWithError("the window did not come");
            return;
        }
    }
}
BENCHMARK(emptyWindow)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
