#include "logic/SampleCounts.h"

#include "logic/SampleTypes.h"

#include <algorithm>
#include <cstring>
#include <system_error>
#include <thread>
#include <type_traits>
#include <utility>

namespace hvimage {

namespace {

using ByteCounts = std::array<std::uint64_t, 256>;

// 32 bits a counter hold one pass over so many bytes.
constexpr std::size_t bytesOfAPass = std::size_t(1) << 31;

// Below this a thread costs more than it saves.
constexpr std::size_t bytesOfAThread = std::size_t(4) << 20;

void addPass(std::uint8_t const* bytes, std::size_t count, ByteCounts& counts)
{
    std::uint32_t tables[8][256] = {};
    std::size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        std::uint64_t words[2];
        std::memcpy(words, bytes + i, sizeof words);
        for (std::uint64_t const word : words) {
            ++tables[0][word & 255];
            ++tables[1][(word >> 8) & 255];
            ++tables[2][(word >> 16) & 255];
            ++tables[3][(word >> 24) & 255];
            ++tables[4][(word >> 32) & 255];
            ++tables[5][(word >> 40) & 255];
            ++tables[6][(word >> 48) & 255];
            ++tables[7][word >> 56];
        }
    }
    for (; i < count; ++i)
        ++tables[0][bytes[i]];
    for (auto const& table : tables)
        for (std::size_t value = 0; value < 256; ++value)
            counts[value] += table[value];
}

ByteCounts countOnOneCore(std::uint8_t const* bytes, std::size_t count)
{
    ByteCounts counts{};
    for (std::size_t from = 0; from < count; from += bytesOfAPass)
        addPass(bytes + from, std::min(bytesOfAPass, count - from), counts);
    return counts;
}

class Bins
{
public:
    Bins(double low, double high, std::size_t bins)
        : m_low(low)
        , m_high(high)
        , m_span(high - low)
        , m_counts(bins, 0.0)
    {}

    void add(double value, double times)
    {
        if (!(value >= m_low && value <= m_high)) return;
        m_counts[indexOf(value)] += times;
    }

    std::vector<double> counts() && { return std::move(m_counts); }

private:
    std::size_t indexOf(double value) const
    {
        if (!(m_span > 0.0)) return 0;
        auto const bins = static_cast<double>(m_counts.size());
        // Multiplied first: whole numbers then never fall below their bin. A span near the end of all numbers
        // takes the other order, on halves.
        double const position = m_span < 1e290
                                    ? (value - m_low) * bins / m_span
                                    : (value / 2.0 - m_low / 2.0) / (m_high / 2.0 - m_low / 2.0) * bins;
        auto const index = static_cast<std::size_t>(position);
        return std::min(index, m_counts.size() - 1);
    }

    double m_low;
    double m_high;
    double m_span;
    std::vector<double> m_counts;
};

template <class T>
void addEachValue(T const* samples, std::size_t count, Bins& bins)
{
    if constexpr (sizeof(T) == 1) {
        auto const counts = countBytes(reinterpret_cast<std::uint8_t const*>(samples), count);
        for (std::size_t byte = 0; byte < counts.size(); ++byte)
            if (counts[byte] != 0)
                bins.add(static_cast<double>(static_cast<T>(byte)), static_cast<double>(counts[byte]));
    } else if constexpr (sizeof(T) == 2) {
        std::vector<std::uint64_t> counts(65536, 0);
        for (std::size_t i = 0; i < count; ++i)
            ++counts[static_cast<std::uint16_t>(samples[i])];
        for (std::size_t word = 0; word < counts.size(); ++word)
            if (counts[word] != 0)
                bins.add(static_cast<double>(static_cast<T>(word)), static_cast<double>(counts[word]));
    } else {
        for (std::size_t i = 0; i < count; ++i)
            bins.add(static_cast<double>(samples[i]), 1.0);
    }
}

}  // namespace

std::array<std::uint64_t, 256> countBytes(std::uint8_t const* bytes, std::size_t count, unsigned threads)
{
    std::size_t const cores = threads != 0 ? threads : std::max(1U, std::thread::hardware_concurrency());
    std::size_t const shares =
        std::clamp<std::size_t>(count / bytesOfAThread, 1, std::min<std::size_t>(cores, 16));
    std::size_t const share = count / shares;
    std::array<ByteCounts, 16> results{};
    std::array<std::thread, 16> workers;
    // The first share, with what does not divide, is this thread's.
    for (std::size_t i = 1; i < shares; ++i) {
        auto const work = [&result = results[i], from = bytes + count - i * share, share] {
            result = countOnOneCore(from, share);
        };
        try {
            workers[i] = std::thread(work);
        } catch (std::system_error const&) {
            work();
        }
    }
    results[0] = countOnOneCore(bytes, count - (shares - 1) * share);
    ByteCounts sum{};
    for (std::size_t i = 0; i < shares; ++i) {
        if (workers[i].joinable()) workers[i].join();
        for (std::size_t value = 0; value < sum.size(); ++value)
            sum[value] += results[i][value];
    }
    return sum;
}

std::vector<double> countInBins(HVSDataTypes type, void const* samples, std::size_t count, double low,
                                double high, std::size_t bins)
{
    Bins counted(low, high, bins);
    withSampleType(type, [&](auto const* tag) {
        using T = std::decay_t<decltype(*tag)>;
        addEachValue(static_cast<T const*>(samples), count, counted);
    });
    return std::move(counted).counts();
}

}  // namespace hvimage
