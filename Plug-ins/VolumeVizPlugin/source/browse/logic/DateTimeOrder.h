#pragma once

#include <QString>

/// The parts of a text with a date and a time between blanks; empty where there is none.
struct DateTimeTexts
{
    QString date;
    QString time;
};
DateTimeTexts dateTimeTexts(const QString& text);

/// Formats of QDateTime for such parts, made from the number of their digits: "1/2/2024" gives "M/d/yyyy",
/// "01/02/24" gives "MM/dd/yy", "9:05:00" gives "h:mm:ss". A part that is not of three numbers gives an empty
/// one.
DateTimeTexts getDateTimeFormat(const DateTimeTexts& parts);

/// True when `left` is a date and time before `right`. An empty text, and one that is no date, is neither
/// before nor after another.
bool isEarlier(const QString& left, const QString& right);
