#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace viz {

/// How often each value of 8 or 16 bits occurs in a volume, in 65,536 counters of 32 bits.
class SampleHistogram
{
public:
    SampleHistogram();

    void add(const std::uint8_t* samples, std::size_t count);
    void add(const std::uint16_t* samples, std::size_t count);

    std::vector<std::uint32_t> bins() const;

private:
    template <typename Sample>
    void count(const Sample* samples, std::size_t number);

    // Two sets of counters: neighbouring samples are often equal, and one counter would wait for itself.
    std::vector<std::uint32_t> m_even;
    std::vector<std::uint32_t> m_odd;
};

}  // namespace viz
