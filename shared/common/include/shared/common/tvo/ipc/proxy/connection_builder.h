#pragma once

#include <cstdint>
#include <string_view>

#include <shared/common/tvo/ipc/proxy/endpoint_handle.h>
#include <shared/common/tvo/ipc/proxy/resource_provider.h>

namespace tvoipc::api_v1 {

/// Makes the connection under a proxy.
class IConnector
{
public:
    /// @param endpoint  receives the connection; what it held before is closed. Unchanged on
    /// failure
    /// @returns 0 or a failure code
    virtual int Connect(tvoipc_detail::api_v1::EndpointHandle& endpoint,
                        const tvoipc_detail::api_v1::SharedResourceProvider& provider) = 0;

protected:
    ~IConnector() = default;
};

/// Asks the operating system's connection service for a channel to a named service of a server.
struct ConnectViaDynamicChannel;

template <typename Way>
class ConnectionBuilder;

/// The names are not copied and have to live until `Connect` has returned. Without a time limit
/// unless one is set.
template <>
class ConnectionBuilder<ConnectViaDynamicChannel> final : public IConnector
{
public:
    ConnectionBuilder(std::string_view server, std::string_view service);

    /// @param timeoutMs  milliseconds; 0xFFFFFFFF waits without a limit
    ConnectionBuilder& SetTimeout(std::uint32_t timeoutMs);

    ConnectionBuilder& SetInfinite();

    /// Blocks until the server has decided. A failure leaves one line with the provider's logger.
    int Connect(tvoipc_detail::api_v1::EndpointHandle& endpoint,
                const tvoipc_detail::api_v1::SharedResourceProvider& provider) override;

private:
    std::string_view m_server;
    std::string_view m_service;
    std::uint32_t m_timeout = 0;
    bool m_infinite = true;
};

}  // namespace tvoipc::api_v1
