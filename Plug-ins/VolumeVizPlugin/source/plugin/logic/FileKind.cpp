#include "plugin/logic/FileKind.h"

bool isRawByName(const QString& path)
{
    return path.contains(QLatin1String(".raw"), Qt::CaseInsensitive) ||
           path.contains(QLatin1String(".vox"), Qt::CaseInsensitive);
}

FileKind fileKind(const QString& path, const FileProbes& probes)
{
    if (probes.isTiff(path)) return FileKind::Tiff;
    if (isRawByName(path)) return FileKind::Raw;
    if (probes.isHostPicture(path)) return FileKind::HostPicture;
    return probes.isDicom(path) ? FileKind::Dicom : FileKind::NotAVolume;
}
