#include "hvapi/sequence/CHVSSequenceDataset.h"

#include "lib/hvapi/sequence/SequenceData.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"

CHVSSequenceDataset::CHVSSequenceDataset(std::unique_ptr<Private> data)
    : d(std::move(data))
{}

CHVSSequenceDataset::~CHVSSequenceDataset() = default;

CHVSSequenceDataset* CHVSSequenceDataset::getSequenceDataset(QString id)
{
    return SequenceRegistry::instance().find(id);
}

QString CHVSSequenceDataset::getSequenceID()
{
    return d->description.id;
}

C3DSGManager* CHVSSequenceDataset::get3DSGManager()
{
    return &d->graph;
}

QString CHVSSequenceDataset::getSequenceInfoPath()
{
    return d->description.infoPath;
}

CPLSequenceInfo* CHVSSequenceDataset::getSequenceInfo()
{
    return d->info.get();
}

bool CHVSSequenceDataset::isSLASequence()
{
    return d->description.kind == SequenceKind::Sla;
}

bool CHVSSequenceDataset::isCTSequence(bool bWithImages)
{
    return d->description.kind == SequenceKind::Ct &&
           (!bWithImages || !d->description.clickNumbers.isEmpty());
}

bool CHVSSequenceDataset::is3DSceneOnlySequence()
{
    return d->description.kind == SequenceKind::Scene3D;
}

bool CHVSSequenceDataset::isLoadedAsAGroup()
{
    return d->description.loadedAsGroup;
}

bool CHVSSequenceDataset::isDatasetAcquisitionInProgress()
{
    return d->acquisitionInProgress;
}

void CHVSSequenceDataset::setLoadedVolumetricData(QStringList files)
{
    d->loadedVolumetricData = std::move(files);
    // a load clears the list before it names its files: a file without a volume does not change by that
    d->volumeChanged = d->volumeChanged || !d->loadedVolumetricData.isEmpty();
    emit SequenceRegistry::instance().loadedVolumetricDataChanged(this);
}

QStringList CHVSSequenceDataset::getClickNumbers()
{
    return d->description.clickNumbers;
}

QList<CHVSDataset*> CHVSSequenceDataset::getDatasets()
{
    QList<CHVSDataset*> members;
    members.reserve(static_cast<int>(d->datasets.size()));
    for (auto const& member : d->datasets)
        members.append(member.get());
    return members;
}
