#include "DateTimeOrder.h"

#include <QDateTime>
#include <QStringList>

namespace {

QString formatOf(const QString& part, QChar separator, const char* first, const char* second,
                 const QString& third)
{
    const QStringList numbers = part.split(separator);
    if (numbers.size() != 3) return {};
    const auto digits = [](const QString& number, const char* letter) {
        return QString(number.size() == 2 ? 2 : 1, QLatin1Char(*letter));
    };
    return QStringList{digits(numbers[0], first), digits(numbers[1], second), third}.join(separator);
}

QDateTime dateTimeOf(const QString& text)
{
    const DateTimeTexts parts = dateTimeTexts(text);
    const DateTimeTexts format = getDateTimeFormat(parts);
    return QDateTime(QDate::fromString(parts.date, format.date), QTime::fromString(parts.time, format.time),
                     Qt::UTC);
}

}  // namespace

DateTimeTexts dateTimeTexts(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return {parts.value(0), parts.value(1)};
}

DateTimeTexts getDateTimeFormat(const DateTimeTexts& parts)
{
    const QString year =
        parts.date.section(QLatin1Char('/'), 2).size() == 4 ? QStringLiteral("yyyy") : QStringLiteral("yy");
    const QString seconds =
        parts.time.section(QLatin1Char(':'), 2).size() == 2 ? QStringLiteral("ss") : QStringLiteral("s");
    return {formatOf(parts.date, QLatin1Char('/'), "M", "d", year),
            formatOf(parts.time, QLatin1Char(':'), "h", "m", seconds)};
}

bool isEarlier(const QString& left, const QString& right)
{
    if (left.trimmed().isEmpty() || right.trimmed().isEmpty()) return false;
    const QDateTime leftTime = dateTimeOf(left);
    const QDateTime rightTime = dateTimeOf(right);
    const qint64 days = rightTime.daysTo(leftTime);
    return (days != 0 ? days : rightTime.secsTo(leftTime)) < 0;
}
