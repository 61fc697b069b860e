#include "hvutils/CHVPreference.h"

#include "hvutils/CHVPreferenceSignalHandler.h"
#include "hvutils/CHVSSettings.h"
#include "lib/hvutils/HostServices.h"

#include "hvutils/S3DViewSettings.h"

#include <QDir>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>

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

void CHVPreference::get3DViewPreferences(S3DViewSettings& settings)
{
    const QSettings& stored = HostServices::instance().settings();
    const S3DViewSettings standard;
    settings.nFontPointSize =
        stored.value(QStringLiteral("3DView/FontPointSize"), standard.nFontPointSize).toInt();
    settings.strFontFamily =
        stored.value(QStringLiteral("3DView/FontFamily"), standard.strFontFamily).toString();
    settings.strTissueRange =
        stored.value(QStringLiteral("3DView/TissueRange"), QStringLiteral("Tissue")).toString();
}

void CHVPreference::getWindowsPreferredSize(int& width, int& height, bool dialog)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QSize room = screen ? screen->availableSize() : QSize(1280, 800);
    width = dialog ? room.width() * 2 / 3 : room.width() * 9 / 10;
    height = dialog ? room.height() * 2 / 3 : room.height() * 9 / 10;
}
