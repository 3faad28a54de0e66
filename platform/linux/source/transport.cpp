#include <wz/transport.h>

#include "client_connection.h"
#include "endpoint.h"
#include "handle_table.h"
#include "pause.h"

namespace platform {
namespace {

std::shared_ptr<Endpoint> FindEndpoint(std::uint32_t handle)
{
    return HandleTable::Instance().Find<Endpoint>(handle);
}

int DoCall(WzTvoTransport* transport,
           const wz_message* request,
           const wz_arena* requestArena,
           wz_message* response,
           wz_arena* responseArena)
{
    const auto connection = HandleTable::Instance().Find<ClientConnection>(transport->handle);
    if (connection == nullptr)
    {
        return XoObjectGone;
    }
    const Deadline deadline(transport->callTimeout);
    return connection->Call(deadline, request, requestArena, response, responseArena);
}

int DoReceive(WzTvoTransport* transport, wz_message* request, wz_arena* requestArena)
{
    transport->origin = {0, 0};
    const auto endpoint = FindEndpoint(transport->handle);
    const bool valid = request != nullptr && MessageBytes(*request) >= sizeof(wz_message);
    if (endpoint == nullptr || !valid)
    {
        PauseAfterFailure();
        return endpoint == nullptr ? XoObjectGone : XoInvalidArgument;
    }
    const Deadline deadline(transport->receiveTimeout);
    const int result = endpoint->Receive(deadline, request, requestArena, transport->origin);
    if (result != XoOk)
    {
        transport->origin = {0, 0};
    }
    if (result == XoBroken || result == XoNoResources)
    {
        PauseAfterFailure();
    }
    return result;
}

int Answer(ServerConnection::Debt debt,
           std::uint32_t handle,
           WzTvoOrigin& origin,
           const wz_message* response,
           const wz_arena* responseArena)
{
    const auto endpoint = FindEndpoint(handle);
    if (endpoint == nullptr)
    {
        return XoObjectGone;
    }
    const int result = endpoint->Answer(debt, origin, response, responseArena);
    // The connection stays known to `WzTvoTransportGetPeer`; a message that cannot be sent as it
    // stands may be mended and answered with once more.
    if (result != XoInvalidArgument && result != XoTooBig)
    {
        origin.sequence = 0;
    }
    return result;
}

int DoReply(WzTvoTransport* transport, const wz_message* response, const wz_arena* responseArena)
{
    return Answer(ServerConnection::Debt::Reply,
                  transport->handle,
                  transport->origin,
                  response,
                  responseArena);
}

constexpr WzTvoTransportOperations Operations{&DoCall, &DoReceive, &DoReply};

}  // namespace
}  // namespace platform

using namespace platform;

void WzTvoTransport_Init(WzTvoTransport* transport,
                         std::uint32_t handle,
                         const void* /*options*/,
                         std::uint32_t /*optionsSize*/)
{
    *transport = {&Operations, handle, WzInfinite, WzInfinite, 0, {0, 0}};
}

void WzTvoSetTransportTimeouts(WzTvoTransport* transport,
                               std::uint32_t receiveTimeout,
                               std::uint32_t callTimeout)
{
    transport->receiveTimeout = receiveTimeout;
    transport->callTimeout = callTimeout;
}

int WzTvoTransportDetach(WzTvoTransport* transport, WzTvoTicket* ticket)
{
    const auto endpoint = FindEndpoint(transport->handle);
    const int result = endpoint != nullptr ? endpoint->Detach(transport->origin) : XoObjectGone;
    if (result == XoOk)
    {
        *ticket = {transport->handle, 0, transport->origin};
        transport->origin.sequence = 0;
    }
    return result;
}

int WzTvoTicketReply(WzTvoTicket* ticket, const wz_message* response, const wz_arena* responseArena)
{
    return Answer(
        ServerConnection::Debt::Ticket, ticket->handle, ticket->origin, response, responseArena);
}

int WzTvoTransportGetPeer(const WzTvoTransport* transport, WzTvoPeer* peer)
{
    const auto endpoint = FindEndpoint(transport->handle);
    return endpoint != nullptr ? endpoint->Describe(transport->origin, *peer) : XoObjectGone;
}
