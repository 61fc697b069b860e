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

    /// After a successful initDicomImporter, without any other call before. With `bNativeOnly`, true only for
    /// the host's own planar images: files whose Implementation Version Name contains "Halvane" or "HVS3D",
    /// that are Secondary Capture images (1.2.840.10008.5.1.4.1.1.7) of one frame, and in which the private
    /// creator (0029,0010) is "HALVANE PLANAR IMAGE". A slice of a CT or MR series is never one, whoever
    /// wrote it. Without `bNativeOnly`, true for every DICOM file that can be parsed.
    virtual bool isDicom(bool bNativeOnly);
};
