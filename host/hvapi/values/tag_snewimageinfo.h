#pragma once

#include "hvapi/values/tag_eimagetype.h"

#include <QString>

/// An image that is to be added to a dataset.
struct tag_snewimageinfo
{
    QString m_strFilePath;                         ///< where the image was saved
    tag_eimagetype m_eImageType = IMAGETYPE_XRAY;  ///< its kind
    int m_nDataType = 0;                           ///< its pixel type, a value of HVSDataTypes
    QString m_strUserName;                         ///< who made it; may be empty
};
