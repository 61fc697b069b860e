#include "hvspinbox/QDoubleSpinBoxEx.h"

#include "logic/RealText.h"

#include <limits>

QDoubleSpinBoxEx::QDoubleSpinBoxEx(QWidget* parent)
    : QDoubleSpinBox(parent)
{
    // More places than any number has: the base class rounds to them.
    setDecimals(std::numeric_limits<double>::max_exponent10 + std::numeric_limits<double>::digits10);
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this] { updateDynamicRange(); });
    setSingleStep(hvspinbox::stepFor(value()));
}

QDoubleSpinBoxEx::~QDoubleSpinBoxEx() = default;

QString QDoubleSpinBoxEx::bare(QString const& text) const
{
    QString number = text;
    if (!prefix().isEmpty() && number.startsWith(prefix())) number.remove(0, prefix().size());
    if (!suffix().isEmpty() && number.endsWith(suffix())) number.chop(suffix().size());
    return number.trimmed();
}

QString QDoubleSpinBoxEx::textFromValue(double value) const
{
    return hvspinbox::realText(value, locale());
}

double QDoubleSpinBoxEx::valueFromText(QString const& text) const
{
    if (!specialValueText().isEmpty() && text == specialValueText()) return minimum();
    return hvspinbox::realOf(bare(text), locale()).value_or(value());
}

QValidator::State QDoubleSpinBoxEx::validate(QString& text, int&) const
{
    if (!specialValueText().isEmpty() && text == specialValueText()) return QValidator::Acceptable;
    QString const number = bare(text);
    std::optional<double> const value = hvspinbox::realOf(number, locale());
    if (value && *value >= minimum() && *value <= maximum()) return QValidator::Acceptable;
    return hvspinbox::mayBecomeReal(number, locale()) ? QValidator::Intermediate : QValidator::Invalid;
}

void QDoubleSpinBoxEx::updateDynamicRange()
{
    setSingleStep(hvspinbox::stepFor(value()));
}
