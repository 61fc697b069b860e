#include "render/logic/NextPowerOfTwo.h"

unsigned nextPowerOfTwo(unsigned v, bool keepPowerOfTwo) noexcept
{
    if (keepPowerOfTwo && (v & (v - 1)) == 0) return v;
    unsigned power = 1;
    for (; v != 0; v >>= 1)
        power <<= 1;
    return power;
}
