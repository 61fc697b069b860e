#include "logic/AreaAverage.h"

#include "logic/SampleTypes.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>

namespace hvimage {

namespace {

// The old pixels that a new one covers along one direction: the first and the last, and how much of them, in
// units of which an old pixel has `targetSize` and a new one `sourceSize`. All between are covered whole.
struct Cover
{
    std::int64_t first;
    std::int64_t last;
    double firstWeight;
    double lastWeight;  // counts only where last differs from first
};

Cover coverOf(std::int64_t target, std::int64_t sourceSize, std::int64_t targetSize)
{
    std::int64_t const begin = target * sourceSize;
    std::int64_t const end = begin + sourceSize;
    Cover cover{};
    cover.first = begin / targetSize;
    cover.last = (end - 1) / targetSize;
    cover.firstWeight = static_cast<double>(std::min(end, (cover.first + 1) * targetSize) - begin);
    cover.lastWeight = static_cast<double>(end - cover.last * targetSize);
    return cover;
}

template <class T>
void addRow(double* sums, T const* row, long width, double weight)
{
    for (long x = 0; x < width; ++x)
        sums[x] += weight * static_cast<double>(row[x]);
}

template <class T>
void averageRow(double const* sums, Cover const* covers, double wholeWeight, T* target, long targetWidth,
                double area)
{
    for (long x = 0; x < targetWidth; ++x) {
        Cover const& cover = covers[x];
        double sum = cover.firstWeight * sums[cover.first];
        for (std::int64_t i = cover.first + 1; i < cover.last; ++i)
            sum += wholeWeight * sums[i];
        if (cover.last > cover.first) sum += cover.lastWeight * sums[cover.last];
        target[x] = toSample<T>(sum / area);
    }
}

}  // namespace

bool areaAverage(HVSDataTypes type, void const* source, long sourceWidth, long sourceHeight, void* target,
                 long targetWidth, long targetHeight)
{
    std::unique_ptr<double[]> const sums(new (std::nothrow) double[static_cast<std::size_t>(sourceWidth)]);
    std::unique_ptr<Cover[]> const columns(new (std::nothrow) Cover[static_cast<std::size_t>(targetWidth)]);
    if (!sums || !columns) return false;
    for (long x = 0; x < targetWidth; ++x)
        columns[x] = coverOf(x, sourceWidth, targetWidth);
    // In units of 1 / (targetWidth targetHeight) each new pixel covers W x H.
    double const area = static_cast<double>(sourceWidth) * static_cast<double>(sourceHeight);
    return withSampleType(type, [&](auto const* tag) {
        using T = std::decay_t<decltype(*tag)>;
        for (long y = 0; y < targetHeight; ++y) {
            Cover const rows = coverOf(y, sourceHeight, targetHeight);
            std::fill_n(sums.get(), sourceWidth, 0.0);
            for (std::int64_t row = rows.first; row <= rows.last; ++row) {
                double const weight = row == rows.first  ? rows.firstWeight
                                      : row == rows.last ? rows.lastWeight
                                                         : static_cast<double>(targetHeight);
                addRow(sums.get(), static_cast<T const*>(source) + row * sourceWidth, sourceWidth, weight);
            }
            averageRow(sums.get(), columns.get(), static_cast<double>(targetWidth),
                       static_cast<T*>(target) + y * targetWidth, targetWidth, area);
        }
    });
}

}  // namespace hvimage
