#include "logic/AreaAverage.h"

#include "logic/SampleTypes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <new>

namespace hvimage {

namespace {

// Length that the old interval [i w, (i + 1) w) and the new one [x W, (x + 1) W) have in common.
std::int64_t overlap(std::int64_t oldIndex, std::int64_t oldUnits, std::int64_t newIndex,
                     std::int64_t newUnits)
{
    std::int64_t const begin = std::max(oldIndex * oldUnits, newIndex * newUnits);
    std::int64_t const end = std::min((oldIndex + 1) * oldUnits, (newIndex + 1) * newUnits);
    return end - begin;
}

template <class T>
void addRow(double* sums, T const* row, long width, double weight)
{
    for (long x = 0; x < width; ++x)
        sums[x] += weight * static_cast<double>(row[x]);
}

template <class T>
void averageRow(double const* sums, std::int64_t sourceWidth, T* target, std::int64_t targetWidth,
                double area)
{
    for (std::int64_t x = 0; x < targetWidth; ++x) {
        std::int64_t const first = x * sourceWidth / targetWidth;
        std::int64_t const last = ((x + 1) * sourceWidth - 1) / targetWidth;
        double sum = 0.0;
        for (std::int64_t i = first; i <= last; ++i)
            sum += static_cast<double>(overlap(i, targetWidth, x, sourceWidth)) * sums[i];
        target[x] = toSample<T>(sum / area);
    }
}

}  // namespace

bool areaAverage(HVSDataTypes type, void const* source, long sourceWidth, long sourceHeight, void* target,
                 long targetWidth, long targetHeight)
{
    std::unique_ptr<double[]> const sums(new (std::nothrow) double[static_cast<std::size_t>(sourceWidth)]);
    if (!sums) return false;
    // In units of 1 / (targetWidth targetHeight) each new pixel covers W x H.
    double const area = static_cast<double>(sourceWidth) * static_cast<double>(sourceHeight);
    return withSampleType(type, [&](auto const* tag) {
        using T = std::decay_t<decltype(*tag)>;
        for (std::int64_t y = 0; y < targetHeight; ++y) {
            std::int64_t const first = y * sourceHeight / targetHeight;
            std::int64_t const last = ((y + 1) * sourceHeight - 1) / targetHeight;
            std::fill_n(sums.get(), sourceWidth, 0.0);
            for (std::int64_t row = first; row <= last; ++row)
                addRow(sums.get(), static_cast<T const*>(source) + row * sourceWidth, sourceWidth,
                       static_cast<double>(overlap(row, targetHeight, y, sourceHeight)));
            averageRow(sums.get(), sourceWidth, static_cast<T*>(target) + y * targetWidth, targetWidth, area);
        }
    });
}

}  // namespace hvimage
