// The histogram of 512 x 512 x 300 voxels in 255 bins, as the plug-in asks for it: wrap, range, count. Limit:
// twice the loop over eight tables. The plain loop over one table shows what the eight are good for.

#include "hvimage/CILHistogram.h"
#include "hvimage/CILImage.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

// Noise in the air and in tissue, metal with none, as in a scan.
const std::vector<std::uint8_t>& voxels()
{
    static const std::vector<std::uint8_t> block = [] {
        std::vector<std::uint8_t> made(std::size_t(512) * 512 * 300);
        std::uint32_t random = 1;
        for (std::size_t i = 0; i < made.size(); ++i) {
            random = random * 1664525U + 1013904223U;
            const std::size_t run = (i >> 7) % 8;
            const std::uint32_t noise = (random >> 24) % 16;
            made[i] = static_cast<std::uint8_t>(run < 4 ? noise : run < 7 ? 80 + noise : 255);
        }
        return made;
    }();
    return block;
}

void plugInsWay(benchmark::State& state)
{
    auto* const data = const_cast<std::uint8_t*>(voxels().data());
    for (auto _ : state) {
        CILImage image;
        image.initWithData(eTypeUInt8, static_cast<long>(voxels().size()), 1, data);
        image.RefreshImageStats();
        CILHistogram histogram;
        histogram.setImageMax(image.getMax());
        histogram.setImageMin(image.getMin());
        histogram.setMaxBins(255);
        image.Histogram(histogram);
        std::array<double, 255> bins{};
        histogram.getData(eTypeDouble, bins.data());
        benchmark::DoNotOptimize(bins);
    }
}

void eightTables(benchmark::State& state)
{
    for (auto _ : state) {
        std::uint32_t tables[8][256] = {};
        const std::uint8_t* const data = voxels().data();
        for (std::size_t i = 0; i + 8 <= voxels().size(); i += 8) {
            std::uint64_t word = 0;
            std::memcpy(&word, data + i, 8);
            for (int table = 0; table < 8; ++table)
                ++tables[table][(word >> (8 * table)) & 255];
        }
        benchmark::DoNotOptimize(tables);
    }
}

void oneTable(benchmark::State& state)
{
    for (auto _ : state) {
        std::uint32_t table[256] = {};
        for (const std::uint8_t voxel : voxels())
            ++table[voxel];
        benchmark::DoNotOptimize(table);
    }
}

BENCHMARK(plugInsWay)->Name("histogram/plugin")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(eightTables)->Name("histogram/eight_tables")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(oneTable)->Name("histogram/one_table")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
