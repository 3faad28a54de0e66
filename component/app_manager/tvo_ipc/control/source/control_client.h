#pragma once

#include <component/app_manager/tvo_ipc/control_client.h>
#include <shared/common/tvo/ipc/proxy/endpoint_handle.h>
#include <wz/transport.h>

namespace app_manager::control {

class ControlClient final : public IControlClient
{
public:
    /// @param endpoint  a connection to the control service
    /// @param limitMs   of each operation
    ControlClient(tvoipc_detail::api_v1::EndpointHandle endpoint, std::uint32_t limitMs);

    std::vector<Entry> List() override;
    ApplicationStatus Status(std::string_view name) override;
    void Send(std::string_view name, Command command) override;

private:
    /// @throws Refusal, NoManager
    template <class Request, class Response>
    void Call(std::uint16_t mid,
              Request& request,
              const wz_arena* requestArena,
              Response& response,
              wz_arena* responseArena) const;

    tvoipc_detail::api_v1::EndpointHandle m_endpoint;
    WzTvoTransport m_transport;
};

}  // namespace app_manager::control
