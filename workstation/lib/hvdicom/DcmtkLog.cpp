#include "DcmtkLog.h"

#include "hvutils/CHVSLog.h"
#include "logic/LogText.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdicent.h>
#include <dcmtk/dcmdata/dcdict.h>
#include <dcmtk/oflog/oflog.h>
#include <dcmtk/oflog/spi/logevent.h>

#include <QFileInfo>
#include <QStringList>
#include <mutex>

namespace hvdicom {

namespace log4cplus = dcmtk::log4cplus;

namespace {

bool isAttributeName(QString const& word)
{
    QByteArray const name = word.toLatin1();
    bool const known = dcmDataDict.rdlock().findEntry(name.constData()) != nullptr;
    dcmDataDict.rdunlock();
    return known;
}

class LogAppender : public log4cplus::Appender
{
public:
    ~LogAppender() override { destructorImpl(); }
    void close() override { closed = true; }

protected:
    void append(log4cplus::spi::InternalLoggingEvent const& event) override
    {
        QString const text =
            withoutQuotedValues(QString::fromUtf8(event.getMessage().c_str()).simplified(), isAttributeName);
        if (isRecent(text)) return;
        long const severity =
            event.getLogLevel() >= OFLogger::ERROR_LOG_LEVEL ? CHVSLog::eWarning : CHVSLog::eInformation;
        getLogObject()->log(text, QString::fromUtf8(event.getLoggerName().c_str()), 0, QString(), severity,
                            false);
    }

private:
    // A series says the same for each of its files.
    bool isRecent(QString const& text)
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        if (m_recent.contains(text)) return true;
        m_recent << text;
        if (m_recent.size() > mostRecent) m_recent.removeFirst();
        return false;
    }

    static constexpr int mostRecent = 64;
    std::mutex m_mutex;
    QStringList m_recent;
};

}  // namespace

void routeDcmtkLog()
{
    OFLog::configure(OFLogger::WARN_LOG_LEVEL);
    log4cplus::Logger root = log4cplus::Logger::getRoot();
    root.removeAllAppenders();
    root.addAppender(log4cplus::SharedAppenderPtr(new LogAppender));
}

void endDcmtkLog()
{
    log4cplus::Logger root = log4cplus::Logger::getRoot();
    root.setLogLevel(log4cplus::OFF_LOG_LEVEL);
    root.removeAllAppenders();
}

void logFileFault(QString const& path, QString const& reason)
{
    getLogObject()->log(QStringLiteral("%1: %2").arg(QFileInfo(path).fileName(), reason),
                        QStringLiteral("hvdicom"), 0, QString(), CHVSLog::eWarning, false);
}

}  // namespace hvdicom
