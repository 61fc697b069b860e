#pragma once

#include "hvapi/hvapi_global.h"
#include "lib/hvapi/sequence/SequenceContents.h"
#include "lib/hvapi/sequence/SequenceDescription.h"

#include <QList>
#include <QObject>

class CHVSDataset;
class CHVSSequenceDataset;
class CHVSSequenceWindow;

/// All open sequences of the process, and the operations by which the application opens and closes them. GUI
/// thread only. Sequences that are left are closed, without asking anybody, when the application object goes.
///
/// Opening: open() makes the sequence and its window, emits windowCreated (the application wraps the window
/// in a sub-window and shows it), then sequenceAdded (the application tells the plug-ins). Closing: close()
/// marks the window as closing, lets the sequence emit saveExistingAnalysisResult, emits
/// sequenceAboutToBeRemoved while sequence and window still exist (the application tells the plug-ins),
/// deletes window and sequence, and emits sequenceRemoved (the application removes the empty sub-window and
/// tells the plug-ins of the next active sequence, or of null).
class HVAPI_EXPORT SequenceRegistry : public QObject
{
    Q_OBJECT

public:
    static SequenceRegistry& instance();

    /// An id names a folder: not empty, not "." or "..", without "/", "\", ":" and control characters, no
    /// blank at its ends, no longer than 200 bytes in UTF-8.
    static bool isValidId(QString const& id);

    /// The next free id: `wish` itself, or with "_2", "_3", ... behind it. Empty if `wish` is no valid id.
    QString freeId(QString const& wish) const;

    /// Makes a sequence and its window. Null, and nothing done, if the id is not valid or taken (case
    /// ignored).
    CHVSSequenceDataset* open(SequenceDescription const& description);
    /// The same for a sequence on disk.
    CHVSSequenceDataset* open(SequenceDescription const& description, SequenceContents contents);

    /// Makes a sequence without a window and emits sequenceAdded. Null as for open().
    CHVSSequenceDataset* add(SequenceDescription const& description);

    /// Closes a sequence as told above. False for a pointer that is no open sequence and for a sequence that
    /// is being closed already. Must not be called from code of the window itself: it is gone afterwards.
    bool close(CHVSSequenceDataset* sequence);

    /// In order of opening.
    QList<CHVSSequenceDataset*> sequences() const;
    bool contains(CHVSSequenceDataset const* sequence) const;
    /// Case ignored; null when there is none.
    CHVSSequenceDataset* find(QString const& id) const;

    SequenceDescription description(CHVSSequenceDataset const* sequence) const;
    /// Changes everything but the id and the members, and emits sequencePropertyChanged of the sequence.
    void change(CHVSSequenceDataset* sequence, SequenceDescription const& description);
    /// Clicks of the sequence are being acquired.
    void setAcquisitionInProgress(CHVSSequenceDataset* sequence, bool inProgress);
    /// Files of the volume loaded into the sequence.
    QStringList loadedVolumetricData(CHVSSequenceDataset const* sequence) const;

    /// Makes a dataset that belongs to no sequence. Null if the click number is empty or taken.
    CHVSDataset* addDataset(QString const& clickNumber);
    /// Emits datasetAboutToBeRemoved and deletes it. Only for datasets of addDataset.
    void removeDataset(CHVSDataset* dataset);

signals:
    void windowCreated(CHVSSequenceWindow* window);
    void sequenceAdded(CHVSSequenceDataset* sequence);
    void sequenceAboutToBeRemoved(CHVSSequenceDataset* sequence);
    void sequenceRemoved(QString id);
    void datasetAboutToBeRemoved(CHVSDataset* dataset);
    /// setLoadedVolumetricData was called on the sequence.
    void loadedVolumetricDataChanged(CHVSSequenceDataset* sequence);

private:
    SequenceRegistry();

    CHVSSequenceDataset* create(SequenceDescription const& description);
    void clear();

    QList<CHVSSequenceDataset*> m_sequences;
};
