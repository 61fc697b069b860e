#include "plugin/RenderMeter.h"

#include "hvapi/scene/C3DScene.h"
#include "hvutils/Sleep.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <chrono>

namespace {

long long nowInMilliseconds()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace

RenderMeter::~RenderMeter() = default;

void RenderMeter::startTimer()
{
    m_timer.start(nowInMilliseconds());
}

double RenderMeter::readTimer()
{
    return m_timer.read(nowInMilliseconds());
}

void RenderMeter::sleep(unsigned long milliseconds)
{
    Sleep(milliseconds);
}

void RenderMeter::finish(C3DScene* scene)
{
    if (!scene || !scene->isValid()) return;
    scene->makeCurrent();
    if (QOpenGLContext* context = QOpenGLContext::currentContext()) context->functions()->glFinish();
    scene->doneCurrent();
}
