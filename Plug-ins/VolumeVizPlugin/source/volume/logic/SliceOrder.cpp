#include "volume/logic/SliceOrder.h"

#include <cmath>
#include <numeric>

namespace viz {

namespace {

using Indices = std::vector<std::size_t>;

// Halves, each sorted, then merged: the left one goes first only where it is smaller. The comparison calls
// equal positions unequal both ways round, which a merge, unlike std::sort, bears.
void mergeSort(const std::vector<float>& positions, Indices& order, Indices& merged, std::size_t begin,
               std::size_t end)
{
    if (end - begin < 2) return;
    const std::size_t middle = begin + (end - begin) / 2;
    mergeSort(positions, order, merged, begin, middle);
    mergeSort(positions, order, merged, middle, end);
    std::size_t left = begin;
    std::size_t right = middle;
    for (std::size_t to = begin; to < end; ++to) {
        const bool leftFirst =
            right == end || (left < middle && positions[order[left]] < positions[order[right]]);
        merged[to] = order[leftFirst ? left++ : right++];
    }
    for (std::size_t i = begin; i < end; ++i)
        order[i] = merged[i];
}

}  // namespace

SlicePoint difference(const SlicePoint& to, const SlicePoint& from)
{
    return {to[0] - from[0], to[1] - from[1], to[2] - from[2]};
}

float length(const SlicePoint& vector)
{
    return std::sqrt(vector[0] * vector[0] + vector[1] * vector[1] + vector[2] * vector[2]);
}

SlicePoint unit(const SlicePoint& vector)
{
    const float size = length(vector);
    if (size == 0.0F) return vector;
    return {vector[0] / size, vector[1] / size, vector[2] / size};
}

SeriesDirection seriesDirection(const SlicePoint& first, SlicePoint second, float sliceSpacing)
{
    SeriesDirection direction;
    SlicePoint step = difference(second, first);
    direction.distance = length(step);
    if (direction.distance == 0.0F) {
        second[2] = sliceSpacing;
        step = difference(second, first);
        direction.synthetic = true;
    }
    direction.unit = unit(step);
    return direction;
}

float slicePosition(const SlicePoint& direction, const SlicePoint& first, const SlicePoint& slice)
{
    const SlicePoint step = difference(slice, first);
    return direction[0] * step[0] + direction[1] * step[1] + direction[2] * step[2];
}

std::vector<std::size_t> sliceOrder(const std::vector<float>& positions)
{
    Indices order(positions.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    Indices merged(order.size());
    mergeSort(positions, order, merged, 0, order.size());
    return order;
}

float meanSpacing(float firstPosition, float lastPosition, std::size_t slices)
{
    return std::fabs(firstPosition - lastPosition) / static_cast<float>(slices - 1);
}

}  // namespace viz
