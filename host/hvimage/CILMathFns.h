#pragma once

#include "hvimage/eRoundingStyle.h"
#include "hvimage/hvimage_global.h"

// Arithmetic that all modules do in the same way.
class HVIMAGE_EXPORT CILMathFns
{
public:
    CILMathFns() = delete;

    // `value` as an integer. Values beyond the range of a 64-bit integer give its nearer end, no number gives
    // 0.
    static long round(double value, eRoundingStyle style);
};
