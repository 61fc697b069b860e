#include "hvapi/sequence/CHVSDataset.h"

#include "hvutils/CHVSLog.h"
#include "lib/hvapi/sequence/DatasetIndex.h"
#include "lib/hvapi/sequence/SequenceData.h"
#include "lib/hvapi/sequence/SequenceReader.h"

#include <QDir>
#include <QFile>

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

CILImage* CHVSDataset::getCoreImage(tag_eimagetype type)
{
    auto const known = d->images.find(type);
    if (known != d->images.end()) return known->second.get();
    QString const file = d->imageFiles.value(type);
    if (file.isEmpty()) return nullptr;
    auto image = std::make_unique<CILImage>();
    if (!image->LoadFromTIFFFile(QFile::encodeName(file).constData(), 0)) {
        image.reset();
        getLogObject()->log(
            QStringLiteral("The image '%1' cannot be shown.").arg(QDir::toNativeSeparators(file)), QString(),
            0, QString(), CHVSLog::eWarning, false);
    }
    return (d->images[type] = std::move(image)).get();
}

double CHVSDataset::getFOVForImage(tag_eimagetype type)
{
    double fieldOfView = 0.0;
    if (d->info) d->info->getValue(imageSection(type), sequence_names::fieldOfViewKey, &fieldOfView);
    return fieldOfView;
}

bool CHVSDataset::isXrayDataset()
{
    return d->imageFiles.contains(IMAGETYPE_XRAY);
}

CPLClickInfo* CHVSDataset::getClickInfo()
{
    return d->info.get();
}

QString CHVSDataset::getFolderPath()
{
    return d->folder;
}

void CHVSDataset::Private::take(ClickContents contents)
{
    folder = std::move(contents.folder);
    info = std::move(contents.info);
    imageFiles = std::move(contents.images);
}
