#include "gui/PluginBench.h"

#include "gui/SetMeter.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVPreference.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/windows/WindowRegistry.h"
#include "plugin/logic/TempFolders.h"
#include "render/CGLVolume.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QTest>

PluginBench::PluginBench()
{
    workspace.resize(640, 480);
    workspace.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&workspace));

    plugin.initPlugin();
    QObject::connect(&plugin, &CHVToolPalettePluginBase::updatePluginValidity, &plugin,
                     [this](QWidget* widget, bool valid) {
                         EXPECT_EQ(widget, palette);
                         validity.append(valid);
                     });
    palette = qobject_cast<CHVVolumeVizPalette*>(plugin.getPaletteWidget());
    auto set = std::make_unique<SetMeter>();
    meter = set.get();
    palette->setRenderMeter(std::move(set));

    SequenceRegistry& sequences = SequenceRegistry::instance();
    QObject::connect(&sequences, &SequenceRegistry::windowCreated, &workspace,
                     [this](CHVSSequenceWindow* window) {
                         auto* frame = new CHVSMdiSubWindow;
                         frame->setWidget(window);
                         workspace.addSubWindow(frame);
                         frame->resize(200, 160);
                         frame->show();
                     });
    QObject::connect(&sequences, &SequenceRegistry::sequenceAdded, &plugin,
                     &CHVVolumeVizPlugin::onSignalSequenceAdded);
    QObject::connect(&sequences, &SequenceRegistry::sequenceAboutToBeRemoved, &plugin,
                     &CHVVolumeVizPlugin::onSignalSequenceRemoved);
    QObject::connect(&WindowRegistry::instance(), &WindowRegistry::view3DChanged, &plugin,
                     [this](CHVSSequenceWindow*, bool clear) { plugin.onSignal3DViewChanged(clear); });
}

PluginBench::~PluginBench()
{
    const QList<CHVSSequenceDataset*> open = SequenceRegistry::instance().sequences();
    for (CHVSSequenceDataset* sequence : open)
        close(sequence);
}

CHVSSequenceDataset* PluginBench::open(const QString& id, SequenceKind kind)
{
    SequenceDescription description;
    description.id = id;
    description.kind = kind;
    CHVSSequenceDataset* sequence = SequenceRegistry::instance().open(description);
    EXPECT_NE(sequence, nullptr) << id.toStdString();
    return sequence;
}

CHVSSequenceDataset* PluginBench::openCurrent(const QString& id, SequenceKind kind)
{
    CHVSSequenceDataset* sequence = open(id, kind);
    plugin.onSignalSequenceChanged(sequence);
    return sequence;
}

void PluginBench::close(CHVSSequenceDataset* sequence)
{
    SequenceRegistry::instance().close(sequence);
}

CHVSSequenceWindow* PluginBench::windowOf(CHVSSequenceDataset* sequence)
{
    return CHVSSequenceWindow::getSequenceWindow(sequence);
}

C3DScene* PluginBench::sceneOf(CHVSSequenceDataset* sequence)
{
    return windowOf(sequence)->get3DScene();
}

CGLVolume* PluginBench::nodeOf(CHVSSequenceDataset* sequence)
{
    C3DSGManager* graph = sequence->get3DSGManager();
    return graph ? qobject_cast<CGLVolume*>(graph->getNode("GLVolume")) : nullptr;
}

QString PluginBench::writeRaw(const QString& name, const RawFileSpec& spec)
{
    QByteArray content = QByteArray("VolumeSize ") + QByteArray::number(spec.side) + " " +
                         QByteArray::number(spec.side) + " " + QByteArray::number(spec.frames) +
                         "\nVoxelSize 8\nVolumeScale 0.1 0.2 0.3\nField 1 Format u\n##\f\n";
    const int count = spec.side * spec.side * spec.frames;
    for (int i = 0; i < count; ++i)
        content.append(static_cast<char>(spec.first + i % 100));
    return writeFile(name, content);
}

QString PluginBench::writeFile(const QString& name, const QByteArray& content)
{
    QString path = files.filePath(name);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(content);
    return path;
}

bool PluginBench::dropOn(QWidget* palette, const QStringList& paths)
{
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls.append(QUrl::fromLocalFile(path));
    if (urls.isEmpty()) urls.append(QUrl("http://host/a.raw"));
    QMimeData data;
    data.setUrls(urls);
    return dropOn(palette, data);
}

bool PluginBench::dropOn(QWidget* palette, const QMimeData& data)
{
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(QPoint(20, 40), actions, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(palette, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(QPointF(20, 40), actions, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(palette, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

QString PluginBench::dumpPath(const QString& sequenceId) const
{
    return voxelDumpPath(CHVPreference::getProgramDataPath(), sequenceId);
}

QByteArray PluginBench::readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const SVolVizControls& PluginBench::record(const QString& id)
{
    static const SVolVizControls none;
    const SVolVizControls* found = palette->recordOf(id);
    EXPECT_NE(found, nullptr) << "no record of " << id.toStdString();
    return found ? *found : none;
}
