#include "hvutils/CHVSSettings.h"

#include "lib/hvutils/HostServices.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace {

char const* const recentFolderKey = "folders/recent";
char const* const browseFolderKey = "folders/browse";

QString storedFolder(char const* key)
{
    QString const folder = HostServices::instance().settings().value(key).toString();
    return !folder.isEmpty() && QFileInfo(folder).isDir() ? folder : QString();
}

}  // namespace

QString CHVSSettings::getRecentFilePath()
{
    QString const folder = storedFolder(recentFolderKey);
    return folder.isEmpty() ? QDir::homePath() : folder;
}

void CHVSSettings::setRecentFilePath(QString path)
{
    QFileInfo const info(path);
    QString const folder = info.isDir() ? info.absoluteFilePath() : info.absolutePath();
    HostServices::instance().settings().setValue(recentFolderKey, folder);
}

QString CHVSSettings::getBrowsePath()
{
    QString const folder = storedFolder(browseFolderKey);
    return folder.isEmpty() ? getRecentFilePath() : folder;
}
