#pragma once

#include "hvapi/hvapi_global.h"

#include <QString>
#include <QThread>

/// Keeps the host's progress display moving while work runs that cannot report its own progress. Started by
/// QThread::start.
class HVAPI_EXPORT CAutoProgressUpdate : public QThread
{
    Q_OBJECT

public:
    /// `text` is shown as the process message.
    explicit CAutoProgressUpdate(QString text);
    ~CAutoProgressUpdate() override;

    /// Ends the updates and waits until the thread has ended.
    void stop();

protected:
    void run() override;

private:
    QString m_strText;
};
