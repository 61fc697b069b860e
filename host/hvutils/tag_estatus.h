#pragma once

// Status of a host operation. 0 is success, every other value a failure. Callers test against 0; the named
// values are those for which CHVSErrorHandler::errorMessage has a text of its own.
enum tag_estatus : int
{
    eStatusSuccess = 0,
    eStatusFailed = 1,                   // a failure without a closer reason
    eStatusUnsupportedFile = 11,         // the file is of no kind that can be opened as a volume
    eStatusFileNotWritable = 64,         // a file or its folder cannot be written
    eStatusFileNotReadable = 65,         // a file or folder is missing or cannot be read
    eStatusVolumeNotLoaded = 66,         // the voxels were read but could not be taken over into the scene
    eStatusMovieFormatUnavailable = 76,  // the system cannot write the movie in this format
    eStatusPlanarImageFile = 87          // a DICOM file with planar images of this product, not a volume
};

using ESTATUS = tag_estatus;
