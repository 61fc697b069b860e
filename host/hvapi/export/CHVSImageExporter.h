#pragma once

#include "hvapi/hvapi_global.h"

#include <QImage>
#include <QString>

/// Writes a picture in the format that the suffix of the path names.
class HVAPI_EXPORT CHVSImageExporter
{
public:
    /// True on success.
    static bool saveImage(QImage& image, QString& path);
};
