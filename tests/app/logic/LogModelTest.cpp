#include "app/LogModel.h"

#include <gtest/gtest.h>

namespace {

LogEntry entry(long severity, const QString& message)
{
    return {QDateTime({2024, 5, 3}, {14, 3, 7, 250}), severity, message};
}

TEST(LogModel, SeveritiesHaveTheirWords)
{
    EXPECT_EQ(severityName(1), QString("Information"));
    EXPECT_EQ(severityName(2), QString("Warning"));
    EXPECT_EQ(severityName(3), QString("Error"));
    EXPECT_EQ(severityName(16), QString("Status"));
    EXPECT_EQ(severityName(5), QString("Information"));
}

TEST(LogModel, ALineOfAFileHasTimeKindAndMessage)
{
    EXPECT_EQ(formatLogLine(entry(2, "low memory")),
              QString("2024-05-03 14:03:07.250  Warning      low memory"));
}

TEST(LogModel, AMessageOfSeveralLinesStaysOneLine)
{
    EXPECT_TRUE(formatLogLine(entry(3, "first\r\nsecond\nthird\n")).endsWith("first / second / third"));
}

TEST(LogModel, ShowsEntriesInTheirOrder)
{
    LogModel model;
    model.add(entry(1, "one"));
    model.add(entry(16, "two\nlines"));
    ASSERT_EQ(model.rowCount(), 2);
    const auto text = [&model](int row, int column) { return model.index(row, column).data().toString(); };
    EXPECT_EQ(text(0, LogModel::MessageColumn), QString("one"));
    EXPECT_EQ(text(1, LogModel::KindColumn), QString("Status"));
    EXPECT_EQ(text(1, LogModel::MessageColumn), QString("two lines"));
    EXPECT_EQ(text(1, LogModel::TimeColumn), QString("14:03:07"));
    EXPECT_EQ(model.index(1, 0).data(LogModel::SeverityRole).toInt(), 16);
}

TEST(LogModel, SeveritiesDifferInColour)
{
    LogModel model;
    QList<QVariant> colours;
    for (const long severity : {1L, 2L, 3L, 16L}) {
        model.add(entry(severity, "text"));
        const QVariant colour =
            model.index(model.rowCount() - 1, LogModel::MessageColumn).data(Qt::ForegroundRole);
        EXPECT_FALSE(colours.contains(colour)) << severity;
        colours << colour;
    }
}

TEST(LogModel, ForgetsTheOldestWhenFull)
{
    LogModel model;
    for (int i = 0; i < LogModel::capacity + 3; ++i)
        model.add(entry(1, QString::number(i)));
    ASSERT_EQ(model.rowCount(), LogModel::capacity);
    EXPECT_EQ(model.entry(0).message, QString("3"));
    model.clear();
    EXPECT_EQ(model.rowCount(), 0);
}

}  // namespace
