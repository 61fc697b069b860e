#include "LogModel.h"

#include "Icons.h"
#include "Theme.h"

namespace {

QIcon severityIcon(long severity)
{
    static const QIcon information = Icons::make(Icons::Shape::Information);
    static const QIcon status = Icons::make(Icons::Shape::Status);
    static const QIcon warning = Icons::make(Icons::Shape::Warning);
    static const QIcon error = Icons::make(Icons::Shape::Error);
    switch (severity) {
    case 2:
        return warning;
    case 3:
        return error;
    case 16:
        return status;
    default:
        return information;
    }
}

QColor severityColour(long severity)
{
    switch (severity) {
    case 2:
        return Theme::warning;
    case 3:
        return Theme::error;
    case 16:
        return Theme::status;
    default:
        return Theme::text;
    }
}

}  // namespace

QString severityName(long severity)
{
    switch (severity) {
    case 2:
        return QStringLiteral("Warning");
    case 3:
        return QStringLiteral("Error");
    case 16:
        return QStringLiteral("Status");
    default:
        return QStringLiteral("Information");
    }
}

QString formatLogLine(const LogEntry& entry)
{
    QString message = entry.message.trimmed();
    message.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    message.replace(QLatin1Char('\n'), QStringLiteral(" / "));
    return QStringLiteral("%1  %2  %3")
        .arg(entry.time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")),
             severityName(entry.severity).leftJustified(11), message);
}

LogModel::LogModel(QObject* parent)
    : QAbstractTableModel(parent)
{}

int LogModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

int LogModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(ColumnCount);
}

QVariant LogModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const LogEntry& logged = entry(index.row());
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == TimeColumn) return logged.time.toString(QStringLiteral("hh:mm:ss"));
        if (index.column() == KindColumn) return severityName(logged.severity);
        return QString(logged.message).replace(QLatin1Char('\n'), QLatin1Char(' '));
    case Qt::ToolTipRole:
        return index.column() == MessageColumn ? logged.message : QVariant();
    case Qt::DecorationRole:
        return index.column() == KindColumn ? severityIcon(logged.severity) : QVariant();
    case Qt::ForegroundRole:
        return index.column() == TimeColumn ? Theme::quietText : severityColour(logged.severity);
    case SeverityRole:
        return static_cast<int>(logged.severity);
    default:
        return {};
    }
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (section) {
    case TimeColumn:
        return QStringLiteral("Time");
    case KindColumn:
        return QStringLiteral("Kind");
    default:
        return QStringLiteral("Message");
    }
}

const LogEntry& LogModel::entry(int row) const
{
    return m_entries[static_cast<std::size_t>(row)];
}

void LogModel::add(const LogEntry& entry)
{
    if (rowCount() == capacity) {
        beginRemoveRows({}, 0, 0);
        m_entries.pop_front();
        endRemoveRows();
    }
    beginInsertRows({}, rowCount(), rowCount());
    m_entries.push_back(entry);
    endInsertRows();
}

void LogModel::clear()
{
    beginResetModel();
    m_entries.clear();
    endResetModel();
}
