#pragma once

#include "plugin/RenderMeter.h"

#include <QStringList>

#include <functional>

/// A stopwatch that shows what it is told to, and keeps the order in which it is used.
class SetMeter : public RenderMeter
{
public:
    void startTimer() override { note("start"); }
    double readTimer() override
    {
        note("read");
        return seconds;
    }
    void sleep(unsigned long milliseconds) override { note("sleep " + QString::number(milliseconds)); }
    void finish(C3DScene* scene) override
    {
        note("finish");
        RenderMeter::finish(scene);
    }

    double seconds = 0.001;
    QStringList calls;
    std::function<void(const QString& call)> onCall;

private:
    void note(const QString& call)
    {
        calls.append(call);
        if (onCall) onCall(call);
    }
};
