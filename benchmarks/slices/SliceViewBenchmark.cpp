// Frames of the slice view at 1200 x 900 pixels over a head of 256 cubed: a montage of 21 tiles beside a
// single one, which is what all tiles together have in pixels, and a slider's step in the single view.

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "lib/hvutils/HostServices.h"
#include "render/CGLVolume.h"
#include "render/HeadVolume.h"
#include "render/gl/GlewSupport.h"
#include "slices/CHVMultiVolumeSliceView.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QImage>

namespace {

constexpr int kSide = 256;
constexpr float kHalf = 12.8F;  // millimetres

struct Bench
{
    Bench()
    {
        HostServices::install(&services);
        auto* node = new CGLVolume(QStringLiteral("GLVolume"));
        graph.addChild(graph.getRootNode(), node);
        view.resize(1200, 900);
        view.show();
        view.grabFramebuffer();
        view.makeCurrent();
        glew::initialise();
        std::vector<unsigned char> voxels = headVolume(kSide);
        float extent[3] = {2 * kHalf, 2 * kHalf, 2 * kHalf};
        node->loadVolume(voxels.data(), kSide, kSide, kSide, 255, 0, extent);
        node->setRenderInBestPerformance(true);
        node->setSliceMax(255.0F);
        Vec3f offsets[8];
        node->setCropBoxOffset(offsets);
        node->show(true);
        view.setOrientation(AxisZ);
        QCoreApplication::processEvents();
    }

    HostServices services;
    C3DSGManager graph;
    C3DScene scene{&graph};
    CHVMultiVolumeSliceView view{nullptr, &graph, QStringLiteral("Slices"), &scene};
};

void montage(benchmark::State& state)
{
    Bench bench;
    bench.view.setThickSliceMode(state.range(1) != 0);
    bench.view.setMIP(true);
    const auto tiles = static_cast<int>(state.range(0));
    bench.view.setSliceRange(-kHalf * (tiles > 1), kHalf, 2.0 * kHalf / std::max(1, tiles - 1) * 0.9999);
    QImage image;
    bench.view.grabImage(image);
    for (auto _ : state)
        bench.view.grabImage(image);
    state.counters["tiles"] = bench.view.tileCount();
}

void sliderStep(benchmark::State& state)
{
    Bench bench;
    bench.view.setSingleViewMode(true);
    bench.view.setSingleSlice(0.0F);
    QImage image;
    bench.view.grabImage(image);
    int step = 0;
    for (auto _ : state) {
        bench.view.setSinglePosition(static_cast<float>(step++ % 200 - 100) * 0.1F);
        bench.view.grabImage(image);
    }
    state.counters["positions_per_second"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

BENCHMARK(montage)
    ->ArgNames({"tiles", "slabs"})
    ->Args({1, 0})
    ->Args({21, 0})
    ->Args({21, 1})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(sliderStep)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
