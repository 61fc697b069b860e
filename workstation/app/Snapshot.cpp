#include "Snapshot.h"

#include "ApplicationServices.h"
#include "CommandLine.h"
#include "MainWindow.h"
#include "PictureFile.h"
#include "PressScript.h"
#include "UnattendedWatch.h"
#include "Workspace.h"

#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "lib/hvapi/scene/ViewControl.h"
#include "lib/hvapi/sequence/SequenceStore.h"

#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QSignalBlocker>
#include <QTabWidget>

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

/// A sequence without a 3D view shows its clicks, unless it has a volume that should be seen; empty then.
QString whyNoSequenceView(const MainWindow& window, const ApplicationServices& services)
{
    CHVSSequenceDataset* sequence = window.workspace().activeSequence();
    if (!sequence) return QStringLiteral("there is no 3D view");
    if (!SequenceStore::volumeFiles(*sequence).isEmpty()) return services.lastComplaint();
    if (sequence->getClickNumbers().isEmpty())
        return QStringLiteral("the sequence has neither a volume nor a click");
    return {};
}

/// The Sequence View with the first click, made as large as it needs and brought to the size.
QImage sequenceView(const MainWindow& window, QSize size)
{
    auto* tabs =
        CHVSSequenceWindow::getSequenceWindow(window.workspace().activeSequence())->findChild<QTabWidget*>();
    if (!tabs) return {};
    // Out of its hidden window for a moment, whose layout would give it another size.
    const QSignalBlocker quiet(tabs);
    QWidget* page = tabs->widget(0);
    const QString title = tabs->tabText(0);
    tabs->removeTab(0);
    page->setParent(nullptr);
    const QSize natural = page->sizeHint().expandedTo(QSize(900, 600));
    page->resize(size.scaled(natural, Qt::KeepAspectRatioByExpanding));
    const QImage picture = page->grab().toImage();
    tabs->insertTab(0, page, title);
    return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

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

    QImage picture;
    if (C3DScene* scene = window.activeScene()) {
        ViewControl view(*scene);
        view.setPreset(presetOf(line.view));
        view.fit();
        picture = view.picture(line.snapshotSize);
        if (picture.isNull())
            return {ExitCannotStart,
                    QStringLiteral("the picture can't be drawn: OpenGL is missing or refuses the size")};
    } else {
        const QString why = whyNoSequenceView(window, services);
        if (!why.isEmpty()) return loadFailure(line, why);
        picture = sequenceView(window, line.snapshotSize);
        if (picture.isNull()) return {ExitCannotStart, QStringLiteral("there is no Sequence View")};
    }
    QString reason;
    if (!PictureFile::write(picture, line.snapshotFile, reason)) return {ExitWriteFailed, reason};
    return {};
}
