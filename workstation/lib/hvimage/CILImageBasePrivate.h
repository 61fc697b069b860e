#pragma once

#include "SampleBuffer.h"
#include "hvimage/CILImageBase.h"

#include <cstring>
#include <functional>
#include <utility>

// Samples of an image: its own, or the caller's until the image has to change them.
class CILImageBase::Private
{
public:
    HVSDataTypes type = eTypeNone;
    long width = 0;
    long height = 0;

    bool isEmpty() const { return data() == nullptr; }
    bool isBorrowed() const { return m_borrowed != nullptr; }
    void const* data() const { return m_borrowed ? m_borrowed : m_own.data(); }
    std::size_t bytes() const { return m_borrowed ? m_borrowedBytes : m_own.size(); }

    // True when `address` lies in the image's own samples.
    bool owns(void const* address) const
    {
        auto const* const start = static_cast<char const*>(m_own.data());
        auto const* const at = static_cast<char const*>(address);
        return start && !std::less<>()(at, start) && std::less<>()(at, start + m_own.size());
    }

    // The image's own samples, to be written; borrowed ones are copied first. Null for an empty image, and
    // when memory does not suffice for the copy.
    void* writable()
    {
        if (!m_borrowed) return m_own.data();
        SampleBuffer copy;
        if (!copy.allocate(m_borrowedBytes)) return nullptr;
        std::memcpy(copy.data(), m_borrowed, m_borrowedBytes);
        take(std::move(copy));
        return m_own.data();
    }

    void take(SampleBuffer samples)
    {
        m_own = std::move(samples);
        m_borrowed = nullptr;
        m_borrowedBytes = 0;
    }

    // `data` outlives its use by this image.
    void borrow(void const* data, std::size_t bytes)
    {
        m_own = SampleBuffer();
        m_borrowed = data;
        m_borrowedBytes = bytes;
    }

private:
    SampleBuffer m_own;
    void const* m_borrowed = nullptr;
    std::size_t m_borrowedBytes = 0;
};
