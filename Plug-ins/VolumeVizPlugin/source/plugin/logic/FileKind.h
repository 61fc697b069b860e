#pragma once

#include <QString>
#include <functional>

/// What a file holds.
enum class FileKind
{
    NotAVolume,
    Tiff,
    Raw,
    HostPicture,  ///< DICOM, but one of the host's own planar pictures
    Dicom,
};

/// Looks into a file. Each is asked only when the answers before it leave the kind open.
struct FileProbes
{
    std::function<bool(const QString&)> isTiff;
    std::function<bool(const QString&)> isHostPicture;
    std::function<bool(const QString&)> isDicom;
};

/// True for a path with ".raw" or ".vox" anywhere in it, ignoring case: also in the name of a folder.
bool isRawByName(const QString& path);

/// Kind of the file at `path`. TIFF content comes before the name of a RAW file, and that before any DICOM.
FileKind fileKind(const QString& path, const FileProbes& probes);
