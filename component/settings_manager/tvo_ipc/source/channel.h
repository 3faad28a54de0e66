#pragma once

#include <cstdint>

#include <shared/common/tvo/ipc/proxy/endpoint_handle.h>
#include <wz/transport.h>

namespace settings_manager::ipc {

/// A limit as log lines show it: none as 0.
[[nodiscard]] constexpr std::uint32_t PrintableTimeout(std::uint32_t timeoutMs)
{
    return timeoutMs == WzInfinite ? 0 : timeoutMs;
}

/// A connection to one interface of the service. Calls have no time limit at first.
class Channel final
{
public:
    /// Connects through the connection manager; a service that is not there is tried again for
    /// five minutes.
    /// @throws zin::CheckFailedException
    static Channel Connect(const char* server, const char* interfaceName, std::uint32_t timeoutMs);

    /// Connects to an endpoint of a static connection.
    /// @throws zin::CheckFailedException
    static Channel Connect(const char* connection, const char* endpoint);

    /// @param timeoutMs  milliseconds; the limit of later calls
    void SetCallTimeout(std::uint32_t timeoutMs)
    {
        WzTvoSetTransportTimeouts(&m_transport, 0, timeoutMs);
    }

    /// The client of the interface; it stays valid as long as this object stays where it is.
    template <class Interface>
    Interface As() const
    {
        return {&m_transport, m_riid};
    }

    /// Ends the connection. Calls on their way fail, and so do all later ones.
    void Close()
    {
        m_endpoint = {};
    }

private:
    explicit Channel(tvoipc_detail::api_v1::EndpointHandle endpoint);

    tvoipc_detail::api_v1::EndpointHandle m_endpoint;
    std::uint16_t m_riid;
    WzTvoTransport m_transport;
};

}  // namespace settings_manager::ipc
