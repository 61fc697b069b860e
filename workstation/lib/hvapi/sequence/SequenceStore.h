#pragma once

#include "hvapi/hvapi_global.h"
#include "hvutils/tag_estatus.h"

#include <QString>
#include <QStringList>

class CHVSSequenceDataset;

/// Sequences in folders: "SequenceInfo.txt", a folder for each click with "ClickInfo.txt" and its images, and
/// "CT Data" for a volume. The layout is told in docs/formats/sequence.md. GUI thread only; what fails is
/// logged.
namespace SequenceStore {

/// The file "SequenceInfo.txt" that `path` names, by itself or as the folder it lies in; empty when it names
/// none.
HVAPI_EXPORT QString infoFile(QString const& path);

/// Opens the sequence of a "SequenceInfo.txt" or of its folder, with its window. One that is open already is
/// given back as it is. A click that is missing or unreadable is left out and logged. Null on failure;
/// `status` gets the reason.
HVAPI_EXPORT CHVSSequenceDataset* open(QString const& path, tag_estatus& status);

/// Writes "SequenceInfo.txt" of a sequence that has a folder: its type and the files of its volume.
/// Everything else in the file stays. A failure leaves the file as it was.
HVAPI_EXPORT tag_estatus save(CHVSSequenceDataset& sequence);

/// Makes a new folder, called as the sequence is and with a number behind that where it is taken, in the
/// folder `parent`, and writes the sequence there with all files of its clicks. The sequence then lives
/// there. On failure nothing of the new folder is left.
HVAPI_EXPORT tag_estatus saveIn(CHVSSequenceDataset& sequence, QString const& parent);

/// The volume that belongs to a sequence on disk, absolute: the files that were loaded when it was saved, if
/// all are there, else those of "CT Data" in the order of hvdicom::filesOfVolume(). Empty when there is none.
HVAPI_EXPORT QStringList volumeFiles(CHVSSequenceDataset& sequence);

/// Tells that the volume which was loaded last is the one that belongs to the sequence anyway, as
/// volumeFiles() names it: nothing is to be saved for it.
HVAPI_EXPORT void acceptVolume(CHVSSequenceDataset& sequence);

/// Whether closing the sequence would lose something that save() or saveIn() would keep: the name of another
/// volume than it was opened with, or, where it has no folder, its volume or its clicks. Results of tools are
/// the tools' own affair.
HVAPI_EXPORT bool hasUnsavedChanges(CHVSSequenceDataset& sequence);

}  // namespace SequenceStore
