#include "hvutils/CHVPreference.h"

#include "hvutils/CHVPreferenceSignalHandler.h"
#include "hvutils/CHVSSettings.h"
#include "lib/hvutils/HostServices.h"

#include <QDir>

CHVPreferenceSignalHandler::CHVPreferenceSignalHandler(QObject* parent)
    : QObject(parent)
{}

CHVPreferenceSignalHandler::~CHVPreferenceSignalHandler() = default;

QString CHVPreference::getProgramDataPath()
{
    QString path = HostServices::instance().programDataPath();
    QDir().mkpath(path);
    return path;
}

QString CHVPreference::getVerString()
{
    return QStringLiteral("Halvane " HALVANE_VERSION);
}

QString CHVPreference::getActiveUserName()
{
    return HostServices::instance().activeUserName();
}

CHVSSettings* CHVPreference::getSettings()
{
    static CHVSSettings settings;
    return &settings;
}

CHVPreferenceSignalHandler* CHVPreference::getSignalHandler()
{
    static CHVPreferenceSignalHandler handler;
    return &handler;
}
