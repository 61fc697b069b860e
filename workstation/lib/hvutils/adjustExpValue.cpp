#include "hvutils/adjustExpValue.h"

#include <QRegularExpression>
#include <QString>

void adjustExpValue(QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("^([+-]?[0-9]+(?:\\.[0-9]+)?)[eE]([+-]?)0*([0-9]*)$"));
    const QRegularExpressionMatch parts = number.match(text);
    if (!parts.hasMatch()) return;
    const QString mantissa = parts.captured(1);
    const QString exponent = parts.captured(3);
    // "e" with nothing behind it is no exponent.
    if (!text.at(text.size() - 1).isDigit()) return;
    text = mantissa;
    if (exponent.isEmpty()) return;
    text += QLatin1Char('e');
    if (parts.captured(2) == QLatin1String("-")) text += QLatin1Char('-');
    text += exponent;
}
