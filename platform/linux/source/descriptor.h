#pragma once

#include <utility>

#include <unistd.h>

namespace platform {

/// Owns a file descriptor.
class Descriptor final
{
public:
    Descriptor() = default;
    explicit Descriptor(int value) : m_value(value) {}
    Descriptor(Descriptor&& other) noexcept : m_value(other.Release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        Reset(other.Release());
        return *this;
    }
    ~Descriptor()
    {
        Reset();
    }

    int Get() const
    {
        return m_value;
    }

    explicit operator bool() const
    {
        return m_value >= 0;
    }

    int Release()
    {
        return std::exchange(m_value, -1);
    }

    void Reset(int value = -1)
    {
        const int old = std::exchange(m_value, value);
        if (old >= 0)
        {
            ::close(old);
        }
    }

private:
    int m_value = -1;
};

}  // namespace platform
