#pragma once

#include "hvutils/hvutils_global.h"

#include <QString>

class CHVPreferenceSignalHandler;
class CHVSSettings;
class CPLPreferenceUser;
struct S3DViewSettings;

// Preferences of the workstation and of its active user. GUI thread only.
class HVUTILS_EXPORT CHVPreference
{
public:
    CHVPreference() = delete;

    // Folder for data that the program keeps between and during sessions, absolute, with "/" and without one
    // at its end. It exists when this returns, unless the disk refuses.
    static QString getProgramDataPath();

    // Name and version of the program in one line. Never empty.
    static QString getVerString();

    // Short name of the active user, fit to be part of a file name. Never empty.
    static QString getActiveUserName();

    // The active user; null when nobody is logged in. Owned by the host, valid until activeUserChanged().
    static CPLPreferenceUser* getActiveUser();

    // Stored settings. Never null; owned by the host, lives as long as the program.
    static CHVSSettings* getSettings();

    // Emitter of activeUserChanged() and updatePreferenceSetting(). Never null; owned by the host.
    static CHVPreferenceSignalHandler* getSignalHandler();

    // Copies the preferences of the 3D views.
    static void get3DViewPreferences(S3DViewSettings& settings);

    // Size in pixels that a new window should have, by the room on the main screen: of the whole workspace,
    // or of a dialog.
    static void getWindowsPreferredSize(int& width, int& height, bool dialog);
};
