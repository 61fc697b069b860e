#pragma once

#include "plugin/logic/FileKind.h"

#include <QPointer>
#include <QStringList>

class CHVSSequenceDataset;
class CHVSSequenceWindow;
class CHVVolumeVizPalette;
class CGLVolume;
class VolumeReader;
struct SVolVizControls;

/// What one way of asking for a volume does differently from another.
struct LoadRequest
{
    /// Where the list of files comes from.
    enum class Source
    {
        Given,       ///< `files`, in their order
        Remembered,  ///< the palette's own list, sorted
        AskUser,     ///< a file dialog, its answer sorted
    };

    Source source = Source::Given;
    QStringList files;

    bool setsLimits = false;  ///< the palette remembers the limits: first and last frame, -1 for all
    int lowerLimit = -1;
    int upperLimit = -1;

    bool waitsForAcquisition = false;   ///< refused while data are being acquired
    bool showsWindow = false;           ///< a minimised window comes back
    bool namesMissingFile = false;      ///< a missing file is told as missing, not as unreadable
    bool forgetsRawSize = false;        ///< the node forgets the size of its former raw load
    bool tellsWindowOfFailure = false;  ///< the window's 3D view hears of a failed read
};

/// One load of a volume into the palette's current sequence: from the list of files to the drawn node, the
/// filled record and the voxels on disk. Made for one load, on the stack.
///
/// Readers keep the event loop turning, so the sequence, its window and its node can go away in between: they
/// are asked for anew after the read.
class VolumeLoad
{
public:
    VolumeLoad(CHVVolumeVizPalette& palette, const LoadRequest& request);

    /// True when the volume was loaded. Failures are told to the user or to the log on the way.
    bool run();

private:
    bool sequenceIsReady();
    bool takeFileList();
    QStringList askForFiles() const;
    bool fileIsAVolume();
    bool read(VolumeReader* reader);
    bool handOver(VolumeReader& reader);
    void fillRecord(CGLVolume& node);
    void dumpVoxels(CGLVolume& node) const;
    void showVolume();
    bool isStillCurrent(const CGLVolume* volume) const;
    void markModified();

    CHVSSequenceWindow* window() const;
    CGLVolume* node() const;

    CHVVolumeVizPalette& m_palette;
    const LoadRequest m_request;
    QString m_file;  ///< the first file: it decides on the reader
    FileKind m_kind = FileKind::NotAVolume;
    QStringList m_loadedFiles;  ///< the files that the volume came from
};
