#pragma once

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvimage/CILImage.h"
#include "lib/hvapi/sequence/SequenceContents.h"
#include "lib/hvapi/sequence/SequenceDescription.h"

#include <QPointer>
#include <QStringList>

#include <map>
#include <memory>
#include <vector>

struct CHVSDataset::Private
{
    QString clickNumber;
    QPointer<CHVSSequenceDataset> sequence;
    QString folder;  ///< with trailing "/"; empty when it was never on disk
    std::unique_ptr<CPLClickInfo> info;
    QMap<tag_eimagetype, QString> imageFiles;
    /// Read when they are first asked for; null for what could not be read.
    std::map<tag_eimagetype, std::unique_ptr<CILImage>> images;

    /// Takes folder, info and images; the number stays.
    void take(ClickContents contents);

    static Private& of(CHVSDataset& dataset) { return *dataset.d; }
};

struct CHVSSequenceDataset::Private
{
    SequenceDescription description;
    QStringList loadedVolumetricData;
    bool volumeChanged = false;  ///< the list is not what stands in the file
    std::unique_ptr<CPLSequenceInfo> info;
    bool acquisitionInProgress = false;
    bool closing = false;
    C3DSGManager graph;
    std::vector<std::unique_ptr<CHVSDataset>> datasets;

    static Private& of(CHVSSequenceDataset& sequence) { return *sequence.d; }
    static Private const& of(CHVSSequenceDataset const& sequence) { return *sequence.d; }
};
