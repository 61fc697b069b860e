#pragma once

#include "hvutils/hvutils_global.h"

class QString;

// Shortens a number in exponent notation for a narrow label: no "+", no leading zeros in the exponent, and no
// exponent of 0. "1.20e+03" becomes "1.20e3", "-5.00e-01" becomes "-5.00e-1", "4.00e+00" becomes "4.00".
// Other texts stay.
HVUTILS_EXPORT void adjustExpValue(QString& text);
