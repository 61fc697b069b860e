#include "plugin/logic/FileKind.h"

FileKind fileKindByName(const QString& path)
{
    const bool raw = path.contains(QLatin1String(".raw"), Qt::CaseInsensitive) ||
                     path.contains(QLatin1String(".vox"), Qt::CaseInsensitive);
    return raw ? FileKind::Raw : FileKind::NotAVolume;
}
