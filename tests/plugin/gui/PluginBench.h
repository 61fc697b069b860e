#pragma once

#include "gui/RecordingHost.h"

#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "lib/hvapi/sequence/SequenceDescription.h"
#include "plugin/CHVVolumeVizPalette.h"
#include "plugin/CHVVolumeVizPlugin.h"
#include "support/ModalWatcher.h"

#include <QMdiArea>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

class CGLVolume;
class SetMeter;
class QMimeData;
class C3DScene;
class CHVSSequenceWindow;

/// What a RAW file of the bench holds; 8 bits, unsigned. A multiple of 20 loads at its full size.
struct RawFileSpec
{
    int side = 20;  ///< columns, and rows
    int frames = 6;
    unsigned char first = 10;  ///< value of the first voxel; the next ones count up, 100 values, then again
};

/// The plug-in in a small host: a workspace, real sequences with real windows, and the signals between them.
class PluginBench : public testing::Test
{
protected:
    PluginBench();
    ~PluginBench() override;

    /// Opens a sequence with its window in the workspace; the plug-in hears of it.
    CHVSSequenceDataset* open(const QString& id, SequenceKind kind = SequenceKind::Scene3D);
    /// The same, and makes it the current sequence.
    CHVSSequenceDataset* openCurrent(const QString& id, SequenceKind kind = SequenceKind::Scene3D);
    void close(CHVSSequenceDataset* sequence);

    static CHVSSequenceWindow* windowOf(CHVSSequenceDataset* sequence);
    static C3DScene* sceneOf(CHVSSequenceDataset* sequence);
    static CGLVolume* nodeOf(CHVSSequenceDataset* sequence);

    /// Writes a RAW file with a whole header, which loads without a question. Gives its path.
    QString writeRaw(const QString& name, const RawFileSpec& spec = {});
    /// Writes `content` as it is.
    QString writeFile(const QString& name, const QByteArray& content);
    QString dumpPath(const QString& sequenceId) const;
    /// Drags the files over the palette and drops them there, as a window system does. With no path, an
    /// address of the web is dropped. False when the palette refuses the drag.
    static bool dropOn(QWidget* palette, const QStringList& paths);
    static bool dropOn(QWidget* palette, const QMimeData& data);
    static QByteArray readFile(const QString& path);

    const SVolVizControls& record(const QString& id);

    RecordingHost host;
    viz_test::ModalWatcher modal;  ///< an unexpected window fails the test and is closed
    QTemporaryDir files;
    QMdiArea workspace;
    CHVVolumeVizPlugin plugin;
    CHVVolumeVizPalette* palette = nullptr;
    SetMeter* meter = nullptr;  ///< the palette's stopwatch; every frame is a fast one at first
    QList<bool> validity;       ///< what the plug-in told the host of the palette, in order
};
