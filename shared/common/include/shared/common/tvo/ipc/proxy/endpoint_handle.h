#pragma once

#include <cstdint>

#include <xo/handle.h>

namespace tvoipc_detail::api_v1 {

inline constexpr std::uint16_t InvalidRiid = 65535;

/// A client's connection and the number of the interface at its other end. Closes the connection
/// at its end when it owns it.
class EndpointHandle final
{
public:
    enum class Ownership : bool
    {
        Borrowed,
        Owned,
    };

    EndpointHandle() = default;
    EndpointHandle(std::uint32_t handle, Ownership ownership, std::uint16_t riid);
    EndpointHandle(EndpointHandle&& other) noexcept;
    EndpointHandle& operator=(EndpointHandle&& other) noexcept;
    ~EndpointHandle();

    std::uint32_t Handle() const
    {
        return m_handle;
    }

    std::uint16_t Riid() const
    {
        return m_riid;
    }

private:
    void Close() noexcept;

    std::uint32_t m_handle = XoInvalidHandle;
    Ownership m_ownership = Ownership::Borrowed;
    std::uint16_t m_riid = InvalidRiid;
};

static_assert(sizeof(EndpointHandle) == 8);

}  // namespace tvoipc_detail::api_v1
