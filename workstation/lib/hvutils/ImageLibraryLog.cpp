#include "hvutils/CHVSLog.h"
#include "lib/hvimage/ImageMessages.h"

namespace {

// What the image library says of a file goes to the session's log.
void logImageMessage(ImageMessage kind, QString const& text)
{
    getLogObject()->log(text, QStringLiteral("hvimage"), 0, QString(),
                        kind == ImageMessage::Warning ? CHVSLog::eWarning : CHVSLog::eInformation, false);
}

struct Connection
{
    Connection() { setImageMessageSink(&logImageMessage); }
    ~Connection() { setImageMessageSink(nullptr); }
};

Connection const connection;

}  // namespace
