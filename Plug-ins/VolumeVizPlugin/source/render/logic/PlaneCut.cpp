#include "render/logic/PlaneCut.h"

#include <algorithm>
#include <cmath>

namespace {

/// The edges that may carry each corner of the polygon, as places in the sequence, in the order of the test.
struct Candidates
{
    int count;
    int places[4];
};
constexpr Candidates kCandidates[6] = {
    {3, {0, 1, 3, 0}}, {4, {2, 0, 1, 3}},  {3, {4, 5, 7, 0}},
    {4, {6, 4, 5, 7}}, {3, {8, 9, 11, 0}}, {4, {10, 8, 9, 11}},
};

bool isOnEdge(float lambda, PlaneCut::Ends ends) noexcept
{
    return lambda >= 0.0F && (ends == PlaneCut::Ends::Both ? lambda <= 1.0F : lambda < 1.0F);
}

/// How far outside its edge a place is, in lengths of the edge.
float excess(float lambda) noexcept
{
    return std::max(std::max(-lambda, lambda - 1.0F), 0.0F);
}

int nearestOf(const Candidates& candidates, const float (&lambda)[12]) noexcept
{
    int nearest = candidates.places[candidates.count - 1];
    for (int i = 0; i + 1 < candidates.count; ++i)
        if (excess(lambda[candidates.places[i]]) < excess(lambda[nearest])) nearest = candidates.places[i];
    return nearest;
}

}  // namespace

PlaneCut::PlaneCut(const VolumeVertex (&vertices)[8], const VolumeEdge (&edges)[12],
                   const int (&sequence)[12]) noexcept
{
    for (int e = 0; e < 12; ++e) {
        const VolumeEdge& edge = edges[sequence[e]];
        start[e] = vertices[edge.first];
        direction[e] = vertices[edge.second] - vertices[edge.first];
    }
}

bool PlaneCut::corners(const float (&lambda)[12], Ends ends, VolumeVertex (&polygon)[6]) const noexcept
{
    for (int corner = 0; corner < 6; ++corner) {
        const Candidates& candidates = kCandidates[corner];
        int edge = -1;
        for (int i = 0; i < candidates.count && edge < 0; ++i)
            if (isOnEdge(lambda[candidates.places[i]], ends)) edge = candidates.places[i];
        if (edge < 0) {
            if (corner == 0) return false;
            edge = nearestOf(candidates, lambda);
        }
        // On an edge that was found, the clamp changes nothing.
        const double place = std::clamp(lambda[edge], 0.0F, 1.0F);
        polygon[corner] = start[edge] + direction[edge] * place;
    }
    return true;
}

int farthestVertex(const VolumeVertex (&vertices)[8], const VolumeVertex& direction) noexcept
{
    int farthest = 0;
    double largest = dot(direction, vertices[0]);
    for (int k = 1; k < 8; ++k) {
        const double distance = dot(direction, vertices[k]);
        if (distance > largest) {
            largest = distance;
            farthest = k;
        }
    }
    return farthest;
}
