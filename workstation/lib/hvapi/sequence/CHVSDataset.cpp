#include "hvapi/sequence/CHVSDataset.h"

#include "lib/hvapi/sequence/DatasetIndex.h"
#include "lib/hvapi/sequence/SequenceData.h"

QHash<QString, CHVSDataset*>& datasetIndex()
{
    static QHash<QString, CHVSDataset*> index;
    return index;
}

CHVSDataset::CHVSDataset(std::unique_ptr<Private> data)
    : d(std::move(data))
{
    datasetIndex().insert(d->clickNumber, this);
}

CHVSDataset::~CHVSDataset()
{
    datasetIndex().remove(d->clickNumber);
}

CHVSDataset* CHVSDataset::getDataset(QString const& clickNumber)
{
    return datasetIndex().value(clickNumber);
}

bool CHVSDataset::isPartOfSequence()
{
    return !d->sequence.isNull();
}

CHVSSequenceDataset* CHVSDataset::getSequenceDataset()
{
    return d->sequence;
}
