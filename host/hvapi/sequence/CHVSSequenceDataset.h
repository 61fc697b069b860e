#pragma once

#include "hvapi/hvapi_global.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class C3DSGManager;
class CHVSDataset;
class CPLSequenceInfo;

/// One sequence of the host: optical clicks, CT data or a 3D scene alone. The host owns sequences and their
/// scene graphs.
class HVAPI_EXPORT CHVSSequenceDataset : public QObject
{
    Q_OBJECT

public:
    struct Private;

    /// For the host.
    explicit CHVSSequenceDataset(std::unique_ptr<Private> data);
    ~CHVSSequenceDataset() override;

    /// The sequence of that id, case ignored; null when there is none. The test of whether a stored id is
    /// still valid.
    static CHVSSequenceDataset* getSequenceDataset(QString id);

    /// The id: never empty, no "." or "..", no path separator, so that it can name a folder.
    QString getSequenceID();

    /// The scene graph; null before a 3D scene exists.
    C3DSGManager* get3DSGManager();

    /// Folder of the sequence on disk with trailing "/"; empty for an unsaved sequence.
    QString getSequenceInfoPath();
    /// The parsed "SequenceInfo.txt", or null. Owned by the sequence.
    CPLSequenceInfo* getSequenceInfo();

    /// A sequence of optical images for light-source analysis.
    bool isSLASequence();
    /// A sequence with CT data; with `bWithImages` only if it has clicks as well.
    bool isCTSequence(bool bWithImages);
    /// A sequence that holds a 3D scene and nothing else.
    bool is3DSceneOnlySequence();
    /// A collection of datasets that were not acquired together.
    bool isLoadedAsAGroup();
    /// True while clicks of this sequence are being acquired.
    bool isDatasetAcquisitionInProgress();

    /// Records the files of the loaded volume; an empty list clears.
    void setLoadedVolumetricData(QStringList files);

    /// Records the result `name` under `tag`, to be restored when a 3D-scene sequence is opened again.
    void addRestoreResult(QString tag, QString name);

    /// Click numbers of the members, in order of acquisition.
    QStringList getClickNumbers();
    /// The members, in order of acquisition.
    QList<CHVSDataset*> getDatasets();

signals:
    /// Unsaved analysis results must be settled now, since the sequence is about to be closed or saved.
    void saveExistingAnalysisResult();
    /// The sequence changed under its id.
    void updateOnChangeSequence();
    void sequencePropertyChanged(CHVSSequenceDataset* sequence);

private:
    std::unique_ptr<Private> d;
};
