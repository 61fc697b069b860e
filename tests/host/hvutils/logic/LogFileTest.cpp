#include "lib/hvutils/RotatingFile.h"
#include "lib/hvutils/logic/LogLine.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

QByteArray contentsOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(absent)");
}

HostLogEntry entryOf(QString const& message, long severity)
{
    HostLogEntry entry;
    entry.message = message;
    entry.severity = severity;
    return entry;
}

QDateTime const noon(QDate(2024, 3, 9), QTime(12, 0, 5, 7));

}  // namespace

TEST(LogLine, TimeSeverityAndMessage)
{
    EXPECT_EQ(hvutils::logLine(entryOf(QStringLiteral("Loaded"), 1), noon),
              QStringLiteral("2024-03-09 12:00:05.007 INFO    Loaded"));
    EXPECT_EQ(hvutils::logLine(entryOf(QStringLiteral("Low"), 2), noon),
              QStringLiteral("2024-03-09 12:00:05.007 WARNING Low"));
    EXPECT_EQ(hvutils::severityName(3), QStringLiteral("ERROR"));
    EXPECT_EQ(hvutils::severityName(16), QStringLiteral("STATUS"));
    EXPECT_EQ(hvutils::severityName(7), QStringLiteral("INFO"));
}

TEST(LogLine, SourceLineAndContextWhereTold)
{
    HostLogEntry entry = entryOf(QStringLiteral("Loaded"), 1);
    entry.source = QStringLiteral("reader");
    entry.line = 12;
    entry.context = QStringLiteral("10:11:12");
    EXPECT_EQ(hvutils::logLine(entry, noon),
              QStringLiteral("2024-03-09 12:00:05.007 INFO    reader:12: Loaded [10:11:12]"));
}

TEST(LogLine, AnEntryIsOneLineWhateverItHolds)
{
    QString const line = hvutils::logLine(entryOf(QStringLiteral("a\nb\r\x1b[2Jc") + QChar(0x2028), 1), noon);
    EXPECT_FALSE(line.contains(QLatin1Char('\n')));
    EXPECT_FALSE(line.contains(QLatin1Char('\r')));
    EXPECT_FALSE(line.contains(QChar(0x1b)));
    EXPECT_FALSE(line.contains(QChar(0x2028)));
}

TEST(RotatingFile, AppendsLinesAndMakesItsFolder)
{
    QTemporaryDir folder;
    QString const path = folder.path() + QStringLiteral("/a/b/x.log");
    hvutils::RotatingFile file(1000, 2);
    EXPECT_TRUE(file.append(path, QStringLiteral("one")));
    EXPECT_TRUE(file.append(path, QStringLiteral("zw\u00f6lf")));
    EXPECT_EQ(contentsOf(path), QByteArray("one\nzw\xc3\xb6lf\n"));
}

TEST(RotatingFile, KeepsAFewOldFilesOfLimitedSize)
{
    QTemporaryDir folder;
    QString const path = folder.path() + QStringLiteral("/x.log");
    hvutils::RotatingFile file(10, 2);
    for (char const* line : {"aaaa", "bbbb", "cccc", "dddd", "eeee", "ffff", "gggg"})
        EXPECT_TRUE(file.append(path, QString::fromLatin1(line)));
    EXPECT_EQ(contentsOf(path), QByteArray("gggg\n"));
    EXPECT_EQ(contentsOf(path + QStringLiteral(".1")), QByteArray("eeee\nffff\n"));
    EXPECT_EQ(contentsOf(path + QStringLiteral(".2")), QByteArray("cccc\ndddd\n"));
    EXPECT_FALSE(QFile::exists(path + QStringLiteral(".3")));
}

TEST(RotatingFile, ALineBeyondTheLimitIsStillWritten)
{
    QTemporaryDir folder;
    QString const path = folder.path() + QStringLiteral("/x.log");
    hvutils::RotatingFile file(4, 1);
    EXPECT_TRUE(file.append(path, QStringLiteral("0123456789")));
    EXPECT_EQ(contentsOf(path), QByteArray("0123456789\n"));
}

TEST(RotatingFile, SaysWhenItCannotWrite)
{
    hvutils::RotatingFile file(100, 1);
    EXPECT_FALSE(file.append(QStringLiteral("/proc/no/such/folder/x.log"), QStringLiteral("a")));
}
