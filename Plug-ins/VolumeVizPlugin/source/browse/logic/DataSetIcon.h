#pragma once

#include <QString>

/// Resource path of the icon of a data set: of its type ("DICOM", or anything else for TIFF, ignoring case),
/// and for one file or several.
QString dataSetIcon(const QString& type, int fileCount);
