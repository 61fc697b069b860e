#include "SliceOrder.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace hvdicom {

namespace {

Vector axisOfLargestExtent(std::vector<SlicePlace> const& slices)
{
    double largest = -1.0;
    Vector axis = {0.0, 0.0, 1.0};
    for (std::size_t component = 0; component < 3; ++component) {
        double low = std::numeric_limits<double>::infinity();
        double high = -low;
        for (SlicePlace const& slice : slices)
            if (slice.position) {
                low = std::min(low, (*slice.position)[component]);
                high = std::max(high, (*slice.position)[component]);
            }
        if (high - low > largest) {
            largest = high - low;
            axis = {};
            axis[component] = 1.0;
        }
    }
    return axis;
}

Vector direction(std::vector<SlicePlace> const& slices)
{
    for (SlicePlace const& slice : slices)
        if (slice.orientation) {
            auto const& [row, column] = *slice.orientation;
            Vector const normal = {row[1] * column[2] - row[2] * column[1],
                                   row[2] * column[0] - row[0] * column[2],
                                   row[0] * column[1] - row[1] * column[0]};
            double const length = std::hypot(normal[0], normal[1], normal[2]);
            if (length > 0.0 && std::isfinite(length))
                return {normal[0] / length, normal[1] / length, normal[2] / length};
        }
    return axisOfLargestExtent(slices);
}

}  // namespace

std::vector<std::size_t> slicesByPosition(std::vector<SlicePlace> const& slices)
{
    Vector const along = direction(slices);
    std::vector<double> distance(slices.size(), std::numeric_limits<double>::infinity());
    for (std::size_t i = 0; i < slices.size(); ++i)
        if (slices[i].position) {
            Vector const& p = *slices[i].position;
            double const d = p[0] * along[0] + p[1] * along[1] + p[2] * along[2];
            if (std::isfinite(d)) distance[i] = d;
        }
    std::vector<std::size_t> order(slices.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&distance](std::size_t a, std::size_t b) { return distance[a] < distance[b]; });
    return order;
}

}  // namespace hvdicom
