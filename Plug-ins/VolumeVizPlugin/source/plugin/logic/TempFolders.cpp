#include "plugin/logic/TempFolders.h"

namespace {

bool isPlainName(const QString& id)
{
    return !id.isEmpty() && id != QLatin1String(".") && id != QLatin1String("..") &&
           !id.contains(QLatin1Char('/')) && !id.contains(QLatin1Char('\\')) && !id.contains(QChar::Null);
}

}  // namespace

QString tempRoot(const QString& programDataPath)
{
    return programDataPath + QStringLiteral("/3DCVTempData");
}

QString sequenceTempFolder(const QString& programDataPath, const QString& sequenceId)
{
    if (!isPlainName(sequenceId)) return {};
    return tempRoot(programDataPath) + QLatin1Char('/') + sequenceId;
}

QString voxelDumpPath(const QString& programDataPath, const QString& sequenceId)
{
    const QString folder = sequenceTempFolder(programDataPath, sequenceId);
    return folder.isNull() ? QString() : folder + QStringLiteral("/VolumeData.dat");
}
