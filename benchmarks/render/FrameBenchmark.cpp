// Whole frames of a volume of 128 and 256 cubed at 512 x 512 pixels by the volume node. CPU time of all
// threads is what a software renderer costs; `per_fragment` lets frames of other sizes be compared,
// `per_cpu_second` is the number of frames. `prototype` is what a fragment cost in texts written straight
// down, measured with the same method on another machine of the kind.

#include "hvutils/CHVProcess.h"
#include "lib/hvutils/HostServices.h"
#include "render/CGLVolume.h"
#include "render/HeadVolume.h"
#include "support/GlCanvas.h"

#include <benchmark/benchmark.h>

#include <QOpenGLExtraFunctions>

#include <map>
#include <string>

namespace {

constexpr int kSides[] = {128, 256};
constexpr int kPixels = 512;

struct Setup
{
    const char* name;
    bool quality;
    bool lit;
    bool mip;
    bool median;
    bool smoothGradient;
    bool dragging;
    double prototypeNs;
};

constexpr Setup kSetups[] = {
    {"performance/plain", false, false, false, false, false, false, 15},
    {"performance/lit", false, true, false, false, false, false, 54},
    {"performance/MIP", false, false, true, false, false, false, 15},
    {"performance/dragging", false, true, false, false, false, true, 54},
    {"quality/plain", true, false, false, false, false, false, 470},
    {"quality/lit", true, true, false, false, false, false, 470},
    {"quality/MIP", true, false, true, false, false, false, 470},
    {"quality/denoised", true, true, false, true, false, false, 470},
    {"quality/all", true, true, false, true, true, false, 470},
    {"quality/dragging", true, true, false, true, true, true, 470},
};

/// Made once a size.
std::vector<unsigned char>& head(int side)
{
    static std::map<int, std::vector<unsigned char>> volumes;
    auto& voxels = volumes[side];
    if (voxels.empty()) voxels = headVolume(side);
    return voxels;
}

class Scene
{
public:
    Scene(const Setup& setup, int side)
        : m_canvas(kPixels)
        , m_node(std::make_unique<CGLVolume>(QStringLiteral("GLVolume")))
    {
        m_services.setFastRenderingMode(setup.dragging);
        HostServices::install(&m_services);
        float extent[3] = {2.0F, 2.0F, 2.0F};
        m_node->loadVolume(head(side).data(), side, side, side, 255, 0, extent);
        m_node->setMIP(setup.mip);
        m_node->setLighting(setup.lit);
        m_node->setMedianFilterDenoise(setup.median);
        m_node->setFilterDenoiseGradient(setup.smoothGradient);
        m_node->setRenderInBestPerformance(!setup.quality);
        glRotated(20, 1, 0, 0);
        glRotated(30, 0, 1, 0);
    }
    ~Scene() { m_node.reset(); }

    void draw()
    {
        m_canvas.clear();
        glPushMatrix();
        m_node->renderNode(GL_RENDER);
        glPopMatrix();
        glFinish();
    }

    /// All fragments of a frame: the depth test must not take any out of the count.
    double fragments()
    {
        QOpenGLExtraFunctions& gl = *m_canvas.context().extraFunctions();
        GLuint query = 0;
        GLuint samples = 0;
        gl.glGenQueries(1, &query);
        glDepthFunc(GL_ALWAYS);
        gl.glBeginQuery(GL_SAMPLES_PASSED, query);
        draw();
        gl.glEndQuery(GL_SAMPLES_PASSED);
        glDepthFunc(GL_LEQUAL);
        gl.glGetQueryObjectuiv(query, GL_QUERY_RESULT, &samples);
        gl.glDeleteQueries(1, &query);
        return samples;
    }

private:
    HostServices m_services;
    GlCanvas m_canvas;
    std::unique_ptr<CGLVolume> m_node;
};

void frame(benchmark::State& state, const Setup& setup, int side)
{
    Scene scene(setup, side);
    const double fragments = scene.fragments();  // compiles the shader as well
    for (auto _ : state)
        scene.draw();
    using benchmark::Counter;
    state.counters["fragments"] = fragments;
    state.counters["per_fragment"] =
        Counter(fragments, Counter::kIsIterationInvariantRate | Counter::kInvert);
    state.counters["per_cpu_second"] = Counter(1, Counter::kIsIterationInvariantRate);
    state.counters["prototype"] = setup.prototypeNs * 1e-9;
}

const bool registered = [] {
    for (const int side : kSides)
        for (const Setup& setup : kSetups)
            benchmark::RegisterBenchmark(
                ("frame/" + std::to_string(side) + '/' + setup.name).c_str(),
                [setup, side](benchmark::State& state) { frame(state, setup, side); })
                ->Unit(benchmark::kMillisecond)
                ->MeasureProcessCPUTime()
                ->MinTime(0.2);
    return true;
}();

}  // namespace
