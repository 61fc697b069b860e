#pragma once

#include "hvapi/hvapi_global.h"
#include "hvapi/values/tag_eimagetype.h"
#include "hvapi/values/tag_snewimageinfo.h"

#include <QObject>
#include <QString>

#include <memory>

class CHVSImageDetails;
class CHVSImageList;
class CHVSSequenceDataset;
class CILImage;
class CPLClickInfo;

/// One acquisition ("click"): its images and its information, alone or as a member of a sequence. The host
/// owns datasets and all that their operations return.
class HVAPI_EXPORT CHVSDataset : public QObject
{
    Q_OBJECT

public:
    struct Private;

    /// For the host.
    explicit CHVSDataset(std::unique_ptr<Private> data);
    ~CHVSDataset() override;

    /// The dataset of that click number, or null.
    static CHVSDataset* getDataset(QString const& clickNumber);

    /// True while the dataset belongs to a sequence that exists.
    bool isPartOfSequence();
    /// That sequence, or null.
    CHVSSequenceDataset* getSequenceDataset();

    /// The pixels of the image of that kind, or null.
    CILImage* getCoreImage(tag_eimagetype type);
    /// The image of that kind with its window, or null.
    CHVSImageDetails* getImage(tag_eimagetype type);
    /// The images as they were before any change, or null.
    CHVSImageList* getBackupImageList();
    /// Field of view of the image of that kind, in cm; 0 without such an image.
    double getFOVForImage(tag_eimagetype type);
    /// True when the dataset has an x-ray image.
    bool isXrayDataset();

    /// The parsed "ClickInfo.txt", or null.
    CPLClickInfo* getClickInfo();
    /// Folder of the dataset on disk, with trailing "/".
    QString getFolderPath();

    /// Adds an image that was saved to disk.
    void addNewImage(tag_snewimageinfo& info);
    void setNewImageAdded(bool added);
    /// Marks unsaved changes.
    void setModified(bool modified);

private:
    std::unique_ptr<Private> d;
};
