#include "volume/logic/LoadSize.h"

namespace viz {

namespace {

constexpr unsigned smallestSide = 64;
constexpr unsigned textureStep = 64;
constexpr unsigned paddingStep = 20;

// The product is taken in single precision, like the factor itself.
unsigned scaled(unsigned count, float factor, Rounding round)
{
    const float product = static_cast<float>(count) * factor;
    return static_cast<unsigned>(round(static_cast<double>(product)));
}

// The test is on 64 and the step on 20: a multiple of 20 that is none of 64 grows by a whole step.
unsigned padded(unsigned side)
{
    return side % textureStep == 0 ? side : side + paddingStep - side % paddingStep;
}

}  // namespace

float resolutionFactor(int sliderPercent)
{
    return static_cast<float>(sliderPercent / 100.0);
}

LoadSize loadSize(unsigned columns, unsigned rows, float factor, Rounding round)
{
    LoadSize size{columns, rows, columns, rows, factor};
    if (factor == 1.0F || columns == 0 || rows == 0) return size;

    size.rows = scaled(rows, factor, round);
    size.columns = scaled(columns, factor, round);
    if (size.rows < smallestSide || size.columns < smallestSide) {
        if (size.rows >= size.columns) {
            size.columns = smallestSide;
            size.factor = static_cast<float>(smallestSide) / static_cast<float>(columns);
            size.rows = scaled(rows, size.factor, round);
        } else {
            size.rows = smallestSide;
            size.factor = static_cast<float>(smallestSide) / static_cast<float>(rows);
            size.columns = scaled(columns, size.factor, round);
        }
    }
    size.reducedColumns = scaled(columns, size.factor, round);
    size.reducedRows = scaled(rows, size.factor, round);
    size.rows = padded(size.rows);
    size.columns = padded(size.columns);
    return size;
}

bool excludesFullResolution(unsigned columns, unsigned rows)
{
    const auto fits = [](unsigned side) { return side % textureStep == 0 || side % paddingStep == 0; };
    return !fits(columns) || !fits(rows);
}

float paddedExtent(float extent, unsigned reduced, unsigned stored)
{
    if (reduced == 0) return extent;
    const float pixel = extent / static_cast<float>(reduced);
    return extent + pixel * (static_cast<float>(stored) - static_cast<float>(reduced));
}

std::array<float, 3> rawExtents(const RawSpacing& spacing, unsigned columns, unsigned rows, unsigned frames,
                                const LoadSize& size)
{
    std::array<float, 3> extent{spacing.column * static_cast<float>(columns),
                                spacing.slice * static_cast<float>(frames),
                                spacing.row * static_cast<float>(rows)};
    if (size.changesFrame()) {
        extent[0] = paddedExtent(extent[0], size.reducedColumns, size.columns);
        extent[1] = paddedExtent(extent[1], size.reducedRows, size.rows);
    }
    return extent;
}

}  // namespace viz
