#pragma once

/// Stopwatch for a frame. It has no clock: the caller hands over the present time in whole milliseconds, of
/// any clock that never goes back. Its results are seconds, to the millisecond.
class GPUTimer
{
public:
    /// Starts from 0.
    void start(long long milliseconds)
    {
        m_nRunning = 1;
        m_fAccumulated = 0.0;
        m_fStart = seconds(milliseconds);
    }

    /// Stops, and gives the time since the start; of a stopped one, the time that it gave last.
    double read(long long milliseconds)
    {
        if (m_nRunning) m_fAccumulated += seconds(milliseconds) - m_fStart;
        m_nRunning = 0;
        return m_fAccumulated;
    }

private:
    static double seconds(long long milliseconds) { return static_cast<double>(milliseconds) * 0.001; }

    int m_nRunning = 0;
    double m_fStart = 0.0;
    double m_fAccumulated = 0.0;
};
