#pragma once

/// The power of two above `v`: 1 shifted left by one more than the place of v's highest bit; 1 for 0.
/// With `keepPowerOfTwo`, a v that has at most one bit set (0 included) is returned as it is. A result that
/// needs a 33rd bit is 0.
unsigned nextPowerOfTwo(unsigned v, bool keepPowerOfTwo) noexcept;
