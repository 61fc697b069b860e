#include "logic/RealText.h"

#include <QLocale>
#include <QRegularExpression>

#include <cmath>

namespace hvspinbox {

QString realText(double value, QLocale const& locale)
{
    QLocale plain(locale);
    plain.setNumberOptions(QLocale::OmitGroupSeparator);
    return plain.toString(value, 'g', QLocale::FloatingPointShortest);
}

std::optional<double> realOf(QString const& text, QLocale const& locale)
{
    bool isNumber = false;
    double value = locale.toDouble(text.trimmed(), &isNumber);
    if (!isNumber) value = QLocale::c().toDouble(text.trimmed(), &isNumber);
    if (!isNumber || !std::isfinite(value)) return std::nullopt;
    return value;
}

bool mayBecomeReal(QString const& text, QLocale const& locale)
{
    static QRegularExpression const begun(QStringLiteral("^[+-]?\\d*(\\.\\d*)?([eE][+-]?\\d*)?$"));
    QString plain = text.trimmed();
    plain.replace(locale.decimalPoint(), QLatin1Char('.'));
    return begun.match(plain).hasMatch();
}

double stepFor(double value)
{
    if (value == 0.0 || !std::isfinite(value)) return 0.1;
    return std::pow(10.0, std::floor(std::log10(std::abs(value))) - 1.0);
}

}  // namespace hvspinbox
