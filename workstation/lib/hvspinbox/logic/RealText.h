#pragma once

#include <QString>

#include <optional>

class QLocale;

namespace hvspinbox {

// A number by its fewest digits that tell it from all others; with an exponent below 0.0001 and where it
// takes less room.
QString realText(double value, QLocale const& locale);

// The number that a text is, in the locale or with a decimal point. Nothing for what is none or not finite.
std::optional<double> realOf(QString const& text, QLocale const& locale);

// True for what may become a number when more is typed.
bool mayBecomeReal(QString const& text, QLocale const& locale);

// A tenth of the power of ten at or below the value's size; 0.1 for 0 and for what is not finite.
double stepFor(double value);

}  // namespace hvspinbox
