#pragma once

#include "hvutils/hvutils_global.h"

#include <QString>
#include <memory>

// A user of the workstation.
class HVUTILS_EXPORT CPLPreferenceUser
{
public:
    explicit CPLPreferenceUser(QString const& name);
    ~CPLPreferenceUser();

    QString getUserName() const;

private:
    Q_DISABLE_COPY(CPLPreferenceUser)
    class Private;
    std::unique_ptr<Private> d;
};
