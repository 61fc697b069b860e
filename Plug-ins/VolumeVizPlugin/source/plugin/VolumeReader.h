#pragma once

#include "plugin/logic/FileKind.h"

#include <QString>
#include <QStringList>
#include <memory>

class CGLVolume;
class CHVVolumeVizPalette;

/// One of the readers, in the terms of a load. Made for one load.
class VolumeReader
{
public:
    virtual ~VolumeReader() = default;

    /// Reads the files; the reader itself tells what goes wrong. `first` and `last` are frames from 0, -1 for
    /// all.
    virtual bool read(const QStringList& files, int first, int last) = 0;
    /// Gives the voxels to the node, which takes a copy. False when it refuses them.
    virtual bool giveTo(CGLVolume& node) = 0;
    /// Files that the volume came from.
    virtual QStringList loadedFiles() const = 0;
    /// The maker's name in the files; empty where they have none.
    virtual QString manufacturer() const { return {}; }

    /// The reader of a kind, with its dialogs over `palette`; null for a kind that is no volume.
    static std::unique_ptr<VolumeReader> of(FileKind kind, CHVVolumeVizPalette* palette);

protected:
    VolumeReader() = default;

private:
    Q_DISABLE_COPY(VolumeReader)
};

/// Kind of the file at `path`, by its content and its name.
FileKind kindOfFile(const QString& path);
