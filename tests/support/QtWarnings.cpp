#include "support/QtWarnings.h"

#include <gtest/gtest.h>

#include <QMap>
#include <QMutex>
#include <QtGlobal>

#include <cstdio>

namespace viz_test {
namespace {

struct Expected
{
    int holders = 0;
    int seen = 0;
};

QMutex g_mutex;
QMap<QString, Expected>& expectedTexts()
{
    static QMap<QString, Expected> texts;
    return texts;
}

// Lines that the platform writes on a bare virtual display; they say nothing about this program.
bool isPlatformNoise(const QString& message)
{
    static const char* const noise[] = {"XDG_RUNTIME_DIR", "SetInputFocus", "QStandardPaths",
                                        "propagateSizeHints"};
    for (const char* text : noise)
        if (message.contains(QLatin1String(text))) return true;
    return false;
}

bool isExpected(const QString& message)
{
    const QMutexLocker lock(&g_mutex);
    for (auto it = expectedTexts().begin(); it != expectedTexts().end(); ++it) {
        if (it->holders > 0 && message.contains(it.key())) {
            ++it->seen;
            return true;
        }
    }
    return false;
}

void onMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    if (type != QtWarningMsg && type != QtCriticalMsg) return;
    if (isExpected(message) || isPlatformNoise(message)) return;
    ADD_FAILURE() << "Qt warning: " << message.toStdString();
}

}  // namespace

ExpectQtWarning::ExpectQtWarning(const QString& text)
    : m_text(text)
{
    const QMutexLocker lock(&g_mutex);
    ++expectedTexts()[m_text].holders;
}

ExpectQtWarning::~ExpectQtWarning()
{
    const QMutexLocker lock(&g_mutex);
    auto it = expectedTexts().find(m_text);
    if (it != expectedTexts().end() && --it->holders == 0) expectedTexts().erase(it);
}

int ExpectQtWarning::count() const
{
    const QMutexLocker lock(&g_mutex);
    return expectedTexts().value(m_text).seen;
}

void installQtWarningGuard()
{
    qInstallMessageHandler(onMessage);
}

}  // namespace viz_test
