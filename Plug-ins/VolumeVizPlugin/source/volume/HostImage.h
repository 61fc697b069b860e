#pragma once

#include "volume/logic/LoadSize.h"

class CILImage;

// What all readers ask of the host's image library in the same way.

/// CILMathFns::round to the nearest integer, as the rules of the load size take it.
double roundToNearest(double value);

/// Brings a source frame to the size at which it is stored: the picture reduced into the upper left corner,
/// padding 0 around it.
/// @return false when memory does not suffice; the frame is then not of that size
bool fitFrame(CILImage& frame, const viz::LoadSize& size);
