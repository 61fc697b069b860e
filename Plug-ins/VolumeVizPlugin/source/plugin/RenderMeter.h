#pragma once

#include "render/logic/GPUTimer.h"

class C3DScene;

/// What the measurement of a frame needs of the machine. Tests put a set stopwatch in its place.
class RenderMeter
{
public:
    RenderMeter() = default;
    virtual ~RenderMeter();

    /// Wall time: that of the processor would leave out what the card does.
    virtual void startTimer();
    /// Seconds since the start, to the millisecond.
    virtual double readTimer();
    virtual void sleep(unsigned long milliseconds);
    /// Waits until everything is drawn that was asked of the card. Null, or a scene without a context, is
    /// nothing to wait for.
    virtual void finish(C3DScene* scene);

private:
    RenderMeter(const RenderMeter&) = delete;
    RenderMeter& operator=(const RenderMeter&) = delete;

    GPUTimer m_timer;
};
