// Required: under 200 us a frame for 600 slices, without an allocation per frame.

#include "render/logic/SliceStack.h"
#include "render/logic/VolumeBox.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> allocations{0};

}  // namespace

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* block = std::malloc(size)) return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

namespace {

/// The stack of a frame, as the volume pass builds it, for a box whose diagonal takes 600 slices.
void sliceStackOf600(benchmark::State& state)
{
    VolumeVertex vertices[8];
    VolumeEdge edges[12];
    placeVolumeVertices({-1, -1, -1}, {1, 1, 1}, {}, vertices);
    listVolumeEdges(edges);
    double modelview[16] = {};
    modelview[2] = -1.0;
    modelview[6] = -1.0;
    modelview[10] = -1.0;
    const VolumeVertex view = viewDirection(modelview);
    const double interval = 6.0 / 600.0;

    int slices = 0;
    const long before = allocations;
    for (auto _ : state) {
        const SliceStack stack(vertices, edges, view, interval);
        slices = stack.count();
        VolumeVertex polygon[6];
        for (int i = slices - 1; i >= 0; --i) {
            benchmark::DoNotOptimize(stack.polygon(i, polygon));
            benchmark::DoNotOptimize(polygon);
        }
    }
    state.counters["slices"] = slices;
    state.counters["required_us"] = 200;
    state.counters["allocations"] = static_cast<double>(allocations - before) / state.iterations();
}
BENCHMARK(sliceStackOf600)->Unit(benchmark::kMicrosecond);

}  // namespace
