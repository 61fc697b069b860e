#pragma once

#include <vector>

/// Positions of slices along an axis, in millimetres, and their places on sliders.

/// More tiles than these are not laid out: far more than a screen has pixels to tell apart.
constexpr int kMostSlices = 100000;

/// From `start`, in steps of `spacing`, up to `end` inclusive. The running position is of single precision.
/// None for a spacing of 0 or less, and none when a number is not finite.
std::vector<double> slicePositions(float start, float end, double spacing);

/// How many slices a range has: its length and one spacing more, divided by the spacing and truncated. 0
/// where slicePositions() has none.
int totalSlices(double min, double max, double spacing);

/// The spacing that a range starts with: a twentieth of it.
float startSpacing(double min, double max);

/// A slider's two ends.
struct SliderRange
{
    int minimum = 0;
    int maximum = 0;
};

/// The place on a slider of `value` between `low` and `high`, truncated; its minimum when they are one.
int sliderPosition(double value, double low, double high, const SliderRange& slider);

/// The reverse, in single precision; `low` on a slider of one place.
float sliderValue(int position, double low, double high, const SliderRange& slider);
