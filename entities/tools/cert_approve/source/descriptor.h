#pragma once

#include <utility>

#include <unistd.h>

namespace cert_approve {

/// Owns a file descriptor; -1 for none.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int descriptor) noexcept : m_descriptor(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~Descriptor()
    {
        if (m_descriptor >= 0)
        {
            ::close(m_descriptor);
        }
    }

    [[nodiscard]] int Get() const noexcept
    {
        return m_descriptor;
    }
    explicit operator bool() const noexcept
    {
        return m_descriptor >= 0;
    }

private:
    int m_descriptor = -1;
};

}  // namespace cert_approve
