#pragma once

// Ways of CILMathFns::round.
enum eRoundingStyle : int
{
    eRoundDown = 0,    // towards minus infinity
    eRoundUp = 1,      // towards plus infinity
    eRoundNearest = 2  // to the nearest integer, halves towards plus infinity
};
