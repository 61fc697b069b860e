// The reduction of a colour table of 4096 entries to control points: wanted in under a millisecond, whatever
// the table.

#include "transfer/logic/KeyIndices.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

namespace {

constexpr int entries = 4096;

void reduce(benchmark::State& state, const std::vector<unsigned char>& table)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(keyIndices(table.data(), entries));
}

void greys(benchmark::State& state)
{
    std::vector<unsigned char> table;
    for (int i = 0; i < entries; ++i)
        table.insert(table.end(), 4, static_cast<unsigned char>(i / 16));
    reduce(state, table);
}

// Every entry begins another hue.
void noise(benchmark::State& state)
{
    std::vector<unsigned char> table;
    std::uint32_t random = 1;
    for (int i = 0; i < entries * 4; ++i)
        table.push_back(static_cast<unsigned char>((random = random * 1664525U + 1013904223U) >> 24));
    reduce(state, table);
}

BENCHMARK(greys)->Name("key_indices/greys_4096")->Unit(benchmark::kMicrosecond);
BENCHMARK(noise)->Name("key_indices/noise_4096")->Unit(benchmark::kMicrosecond);

}  // namespace
