#pragma once

/// Values of the source that the darkest and the brightest voxel stand for.
struct SourceLimits
{
    double min = 0.0;
    double max = 0.0;
};

/// Limits as numbers, from two 32-bit patterns. A maximum that lies below its minimum as a signed number
/// tells that both are unsigned.
SourceLimits sourceLimits(int minPattern, int maxPattern);

/// The number that a 32-bit pattern stands for in a source with these limits.
double sourceValue(int pattern, const SourceLimits& limits);

/// The number without its fraction, at the nearest end of the 32-bit range when it lies beyond; 0 for a value
/// that is no number.
int truncatedToInt(double value);

/// Length of a stack of slices, in mm: `length` as it was found, or where that is no length above 0 (a single
/// slice has none, and slices of different planes may all come to lie in one place) that many slices of the
/// distance that the source tells, or where that is no length either, of the pixels' distance.
float stackLength(float length, unsigned slices, float sliceSpacing, float pixelSpacing);
