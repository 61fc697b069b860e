#pragma once

#include "hvapi/hvapi_global.h"
#include "hvdicom/CDicomReader.h"

/// Reader of single DICOM images that are to become datasets of the host.
class HVAPI_EXPORT CDicomImporter : public CDicomReader
{
public:
    CDicomImporter();
    ~CDicomImporter() override;

    /// The test of a file by its path stays within reach beside the one below.
    using CDicomReader::isDicom;

    /// After a successful initDicomImporter: with `bNativeOnly`, true only for the host's own image format;
    /// without it, true for every DICOM file.
    virtual bool isDicom(bool bNativeOnly);
};
