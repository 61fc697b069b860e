#pragma once

#include "hvutils/hvutils_global.h"

// Blocks the calling thread for at least the given number of milliseconds without using the processor.
HVUTILS_EXPORT void Sleep(unsigned long milliseconds);
