#pragma once

// Types of samples.
enum HVSDataTypes : int
{
    eTypeNone = 0,
    eTypeUInt8 = 1,
    eTypeUInt16 = 2,
    eTypeUInt32 = 3,
    eTypeFloat = 4,   // 32 bits
    eTypeDouble = 5,  // 64 bits
    eTypeInt8 = 6,
    eTypeInt16 = 7
};
