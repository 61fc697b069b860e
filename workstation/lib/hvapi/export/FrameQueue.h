#pragma once

#include "hvapi/hvapi_global.h"

#include <QImage>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// Hands frames to a thread of its own, so that the next one can be drawn while the last one is encoded. A
/// few frames wait at most: the memory does not grow with the movie.
class HVAPI_EXPORT FrameQueue
{
public:
    /// `encode` answers false when it failed; it gets no further frame then.
    explicit FrameQueue(std::function<bool(const QImage&)> encode);
    /// Drops what is waiting.
    ~FrameQueue();
    FrameQueue(const FrameQueue&) = delete;
    FrameQueue& operator=(const FrameQueue&) = delete;

    /// Waits for room. False once a frame has failed.
    bool append(QImage frame);
    /// Waits until all frames are encoded. False when one has failed.
    bool finish();

private:
    void run();

    std::function<bool(const QImage&)> m_encode;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<QImage> m_frames;
    bool m_busy = false;
    bool m_failed = false;
    bool m_ended = false;
    std::thread m_thread;
};
