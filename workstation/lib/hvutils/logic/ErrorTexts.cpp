#include "lib/hvutils/logic/ErrorTexts.h"

namespace hvutils {

QString errorText(tag_estatus status)
{
    switch (status) {
    case eStatusUnsupportedFile:
        return QStringLiteral("This file cannot be opened as a volume.\n"
                              "Volumes are read from DICOM and TIFF files, and from RAW files (.raw, .vox).");
    case eStatusFileNotWritable:
        return QStringLiteral("The file cannot be written.\n"
                              "Please check that you may write to its folder, and that the file is neither "
                              "write-protected nor open in another program.");
    case eStatusFileNotReadable:
        return QStringLiteral("The file or folder cannot be read.\n"
                              "Please check that it exists and that you may read it.");
    case eStatusVolumeNotLoaded:
        return QStringLiteral("The volume cannot be shown.\n"
                              "There is not enough memory for it, or its size is not valid. A lower slice "
                              "resolution takes less memory.");
    case eStatusMovieFormatUnavailable:
        return QStringLiteral("The movie cannot be written in this format on this computer.\n"
                              "Please choose another file type.");
    case eStatusPlanarImageFile:
        return QStringLiteral("This DICOM file holds planar images of this product, not a volume.\n"
                              "Please open it as an image instead.");
    case eStatusSuccess:
    case eStatusFailed:
        break;
    }
    return QStringLiteral("The operation failed (code %1).").arg(static_cast<int>(status));
}

}  // namespace hvutils
