#pragma once

#include "hvapi/values/tag_eimagetype.h"
#include "hvparser/CPLClickInfo.h"
#include "hvparser/CPLSequenceInfo.h"
#include "lib/hvapi/scene/logic/OpticalVoxels.h"

#include <QMap>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

/// A click as it lies on disk.
struct ClickContents
{
    QString number;
    QString folder;  ///< with trailing "/"
    std::unique_ptr<CPLClickInfo> info;
    QMap<tag_eimagetype, QString> images;  ///< files of the images that the info names
};

/// What stands behind a sequence that was opened from disk.
struct SequenceContents
{
    std::unique_ptr<CPLSequenceInfo> info;
    std::vector<ClickContents> clicks;  ///< in order of acquisition
    std::optional<hvscene::OpticalVoxels> optical;
};
