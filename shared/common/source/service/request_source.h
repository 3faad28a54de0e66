#pragma once

#include <cstdint>
#include <vector>

#include <shared/common/tvo/ipc/arena/arena.h>
#include <shared/common/tvo/service/i_service_loop.h>

#include "i_source.h"

namespace tvo::service {

/// An interface that is served: its endpoint, its buffers and its handlers.
class RequestSource final : public ISource
{
public:
    /// Makes the endpoint; one with a static name can be reached from now on.
    /// @throws zin::Exception  when there is no endpoint to be had
    RequestSource(const ServedInterface& served, InterfaceHandlers handlers);
    ~RequestSource() override;
    RequestSource(const RequestSource&) = delete;
    RequestSource& operator=(const RequestSource&) = delete;

    std::uint32_t Endpoint() const
    {
        return m_transport.handle;
    }

    void OnReady(Amount amount) override;

private:
    enum class Step
    {
        Served,
        Nothing,     ///< no request is there
        SecondTime,  ///< served, and it was the client's second request of this round
    };

    void OpenEndpoint(const ServedInterface& served);
    Step ServeNext();
    Outcome Handle(const ServiceCall& call);
    void Reply(const ServiceCall& call, Outcome outcome);
    void Reject(wz_message& response);
    void TellEnded();
    void CloseHandles();

    wz_message& Request();
    wz_message& Response();

    const InterfaceHandlers m_handlers;
    const std::uint16_t m_riid;
    const std::uint32_t m_handleRoom;
    std::uint64_t m_registration = 0;  ///< of a static name; 0: none
    WzTvoTransport m_transport{};
    std::vector<unsigned char> m_request;
    std::vector<unsigned char> m_response;
    ipc::arena::Buffer m_requestArena;
    ipc::arena::Buffer m_responseArena;
    std::vector<std::uint64_t> m_servedClients;  ///< connections, in this round
};

}  // namespace tvo::service
