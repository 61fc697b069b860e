#pragma once

#include "hvutils/hvutils_global.h"

#include <QString>

// Stored settings, kept between sessions. Obtained from CHVPreference::getSettings(). GUI thread only.
class HVUTILS_EXPORT CHVSSettings
{
public:
    // Folder in which the user last opened or saved a file; the user's home folder at first, and whenever the
    // stored folder no longer exists.
    QString getRecentFilePath();

    // Remembers a folder, or the folder of a file.
    void setRecentFilePath(QString path);

    // Folder in which a browse for data begins; the recent folder when none was set.
    QString getBrowsePath();

private:
    CHVSSettings() = default;
    ~CHVSSettings() = default;
    Q_DISABLE_COPY(CHVSSettings)
    friend class CHVPreference;
};
