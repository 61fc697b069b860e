// The main of every test program that needs widgets or GL.

#include "support/QtWarnings.h"
#include "support/RenderQuestion.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QSurfaceFormat>
#include <QTemporaryDir>

#include <clocale>
#include <cstdio>

// Keeps driver libraries loaded until the leak check has named its frames: unloaded ones can't be suppressed.
extern "C" __attribute__((visibility("default"))) int dlclose(void*)
{
    return 0;
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleMock(&argc, argv);

    QTemporaryDir home;
    if (!home.isValid()) {
        std::fprintf(stderr, "no temporary folder can be made\n");
        return 1;
    }
    // Nothing that a test does touches the data of the person who runs it.
    if (!qEnvironmentVariableIsSet("HALVANE_HOME")) qputenv("HALVANE_HOME", home.path().toLocal8Bit());
    qunsetenv("QT_QPA_PLATFORMTHEME");
    qunsetenv("XDG_CURRENT_DESKTOP");

    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QSurfaceFormat format;
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setDepthBufferSize(24);
    format.setStencilBufferSize(8);
    format.setAlphaBufferSize(8);
    QSurfaceFormat::setDefaultFormat(format);

    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    std::setlocale(LC_NUMERIC, "C");
    viz_test::installQtWarningGuard();
    const viz_test::RenderQuestion renderQuestion{};
    return RUN_ALL_TESTS();
}
