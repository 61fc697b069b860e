#pragma once

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "lib/hvapi/sequence/SequenceDescription.h"

#include <QPointer>
#include <QStringList>

#include <memory>
#include <vector>

struct CHVSDataset::Private
{
    QString clickNumber;
    QPointer<CHVSSequenceDataset> sequence;
};

struct CHVSSequenceDataset::Private
{
    SequenceDescription description;
    QStringList loadedVolumetricData;
    bool acquisitionInProgress = false;
    bool closing = false;
    C3DSGManager graph;
    std::vector<std::unique_ptr<CHVSDataset>> datasets;

    static Private& of(CHVSSequenceDataset& sequence) { return *sequence.d; }
    static Private const& of(CHVSSequenceDataset const& sequence) { return *sequence.d; }
};
