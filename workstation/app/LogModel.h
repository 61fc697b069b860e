#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QString>

#include <deque>

/// One entry of the session's log.
struct LogEntry
{
    QDateTime time;
    long severity = 1;  ///< 1 information, 2 warning, 3 error, 16 status line
    QString message;
};

/// The word that stands for a severity in the dock and in files: "Information", "Warning", "Error", "Status".
/// A number that is none of the four counts as information.
QString severityName(long severity);

/// "2024-05-03 14:03:07.250  Warning      text": one line of a log file, without its end. Line breaks in the
/// message become " / ", so that an entry stays one line.
QString formatLogLine(const LogEntry& entry);

/// The log as a table of time, kind and message, oldest first. Keeps the newest 20000 entries.
class LogModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        TimeColumn,
        KindColumn,
        MessageColumn,
        ColumnCount
    };
    enum Role
    {
        SeverityRole = Qt::UserRole
    };
    static constexpr int capacity = 20000;

    explicit LogModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const LogEntry& entry(int row) const;

public slots:
    void add(const LogEntry& entry);
    void clear();

private:
    std::deque<LogEntry> m_entries;
};
