#pragma once

#include <QDateTime>
#include <QString>

/// Name of a 3D scene that a load makes for itself: the user's name, then year, month, day, hour, minute and
/// second, each of two digits at least, then "_3DS".
QString sceneName(const QString& user, const QDateTime& time);
