#include "Snapshot.h"

#include "ApplicationServices.h"
#include "CommandLine.h"
#include "MainWindow.h"
#include "PictureFile.h"
#include "PressScript.h"
#include "UnattendedWatch.h"

#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "hvapi/scene/C3DScene.h"
#include "lib/hvapi/scene/ViewControl.h"

#include <QApplication>
#include <QDialog>
#include <QImage>

namespace {

hvscene::ViewPreset presetOf(CommandLine::View view)
{
    switch (view) {
    case CommandLine::View::Front:
        return hvscene::ViewPreset::Front;
    case CommandLine::View::Side:
        return hvscene::ViewPreset::Side;
    case CommandLine::View::Top:
        return hvscene::ViewPreset::Top;
    case CommandLine::View::Iso:
        break;
    }
    return hvscene::ViewPreset::Iso;
}

SnapshotResult loadFailure(const CommandLine& line, const QString& reason)
{
    QString text = QStringLiteral("'%1' could not be loaded").arg(line.paths.first());
    if (!reason.isEmpty()) text += QStringLiteral(": ") + reason;
    return {ExitLoadFailed, text};
}

bool pressNext(const MainWindow& window, PressScript& script)
{
    if (QWidget* modal = QApplication::activeModalWidget()) return script.pressIn(*modal);
    for (const LoadedPlugin& plugin : window.plugins().plugins()) {
        QWidget* palette = plugin.instance->getPaletteWidget();
        if (palette && script.pressIn(*palette)) return true;
    }
    return false;
}

/// A dialog that a press has opened has had its say.
void closeDialogs()
{
    while (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
}

/// While it lives a hidden view draws the frames that are asked of it, in the size of the picture: what
/// decides by the time of a frame gets one.
class FramesOfHiddenViews
{
public:
    explicit FramesOfHiddenViews(QSize size) { ViewControl::setHiddenFrameSize(size); }
    ~FramesOfHiddenViews() { ViewControl::setHiddenFrameSize(QSize()); }
    FramesOfHiddenViews(const FramesOfHiddenViews&) = delete;
    FramesOfHiddenViews& operator=(const FramesOfHiddenViews&) = delete;
};

}  // namespace

SnapshotResult takeSnapshot(MainWindow& window, ApplicationServices& services, const CommandLine& line)
{
    PressScript script(line.presses);
    const UnattendedWatch watch(&script);
    const FramesOfHiddenViews frames(line.snapshotSize);
    const MainWindow::OpenResult result = window.open(line.paths);
    if (watch.wasAsked()) return {ExitNeedsValues, watch.demand()};
    if (result == MainWindow::OpenResult::NoReader)
        return {ExitCannotStart, QStringLiteral("there is no plug-in that loads volumes")};
    if (result == MainWindow::OpenResult::Failed) return loadFailure(line, services.lastComplaint());

    while (!script.isDone())
        if (!pressNext(window, script))
            return {ExitUsage, QStringLiteral("'%1' can't be pressed").arg(script.next())};
    closeDialogs();

    C3DScene* scene = window.activeScene();
    if (!scene) return loadFailure(line, QStringLiteral("there is no 3D view"));
    ViewControl view(*scene);
    view.setPreset(presetOf(line.view));
    view.fit();
    const QImage picture = view.picture(line.snapshotSize);
    if (picture.isNull())
        return {ExitCannotStart,
                QStringLiteral("the picture can't be drawn: OpenGL is missing or refuses the size")};
    QString reason;
    if (!PictureFile::write(picture, line.snapshotFile, reason)) return {ExitWriteFailed, reason};
    return {};
}
