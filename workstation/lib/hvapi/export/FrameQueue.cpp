#include "lib/hvapi/export/FrameQueue.h"

namespace {

constexpr std::size_t kWaiting = 3;

}  // namespace

FrameQueue::FrameQueue(std::function<bool(const QImage&)> encode)
    : m_encode(std::move(encode))
    , m_thread([this] { run(); })
{}

FrameQueue::~FrameQueue()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_frames.clear();
        m_ended = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

bool FrameQueue::append(QImage frame)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_failed || m_frames.size() < kWaiting; });
    if (m_failed) return false;
    m_frames.push_back(std::move(frame));
    m_changed.notify_all();
    return true;
}

bool FrameQueue::finish()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_failed || (m_frames.empty() && !m_busy); });
    return !m_failed;
}

void FrameQueue::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_ended || !m_frames.empty(); });
        if (m_ended) return;
        const QImage frame = m_frames.front();
        m_frames.pop_front();
        m_busy = true;
        lock.unlock();
        const bool isEncoded = m_encode(frame);
        lock.lock();
        m_busy = false;
        if (!isEncoded) {
            m_failed = true;
            m_frames.clear();
        }
        m_changed.notify_all();
        if (m_failed) return;
    }
}
