#include "volume/logic/SampleHistogram.h"

namespace viz {

namespace {

constexpr std::size_t values = 65536;

}  // namespace

SampleHistogram::SampleHistogram()
    : m_even(values, 0)
    , m_odd(values, 0)
{}

template <typename Sample>
void SampleHistogram::count(const Sample* samples, std::size_t number)
{
    std::uint32_t* const even = m_even.data();
    std::uint32_t* const odd = m_odd.data();
    for (std::size_t i = 0; i + 1 < number; i += 2) {
        ++even[samples[i]];
        ++odd[samples[i + 1]];
    }
    if (number % 2 != 0) ++even[samples[number - 1]];
}

void SampleHistogram::add(const std::uint8_t* samples, std::size_t number)
{
    count(samples, number);
}

void SampleHistogram::add(const std::uint16_t* samples, std::size_t number)
{
    count(samples, number);
}

std::vector<std::uint32_t> SampleHistogram::bins() const
{
    std::vector<std::uint32_t> sum = m_even;
    for (std::size_t i = 0; i < values; ++i)
        sum[i] += m_odd[i];
    return sum;
}

}  // namespace viz
