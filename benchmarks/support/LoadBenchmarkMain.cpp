// The main of every benchmark of a load: the readers show dialogs and ask the driver for memory.

#include <QApplication>
#include <QSurfaceFormat>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    qputenv("HALVANE_HOME", home.path().toLocal8Bit());
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QSurfaceFormat format;
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    QSurfaceFormat::setDefaultFormat(format);
    const QApplication application(argc, argv);

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
