#pragma once

#include "hvutils/hvutils_global.h"

#include <QObject>

// Tells of changed preferences. The application emits, anybody may listen.
class HVUTILS_EXPORT CHVPreferenceSignalHandler : public QObject
{
    Q_OBJECT

public:
    explicit CHVPreferenceSignalHandler(QObject* parent = nullptr);
    ~CHVPreferenceSignalHandler() override;

signals:
    void activeUserChanged();        // CHVPreference::getActiveUserName answers another name now
    void updatePreferenceSetting();  // any other preference has changed
};
