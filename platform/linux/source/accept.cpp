#include <algorithm>

#include <xo/connection.h>

#include "connection_requests.h"
#include "endpoint.h"
#include "handle_table.h"
#include "pause.h"

namespace platform {
namespace {

/// Lets a taken request join its endpoint and tells the client.
int Join(ConnectionRequests::Taken& taken, std::uint32_t riid, std::uint32_t listener)
{
    const auto endpoint = HandleTable::Instance().Find<Endpoint>(listener);
    if (endpoint == nullptr)
    {
        return XoObjectGone;
    }
    std::uint64_t id = 0;
    const int result = endpoint->Add(taken.socket, taken.peer, id);
    return result == XoOk ? endpoint->Welcome(id, riid) : result;
}

}  // namespace
}  // namespace platform

using namespace platform;

int XoCmListen(const char* /*filter*/, std::uint32_t timeoutMs, char* client, char* service)
{
    ConnectionRequests* requests = ConnectionRequests::Instance();
    ConnectRequest request;
    const int result =
        requests != nullptr ? requests->Listen(Deadline(timeoutMs), request) : XoObjectGone;
    if (result == XoOk)
    {
        // Both are bounded far below the buffers' size.
        std::copy_n(request.client.c_str(), request.client.size() + 1, client);
        std::copy_n(request.service.c_str(), request.service.size() + 1, service);
    }
    else if (result != XoTimedOut)
    {
        PauseAfterFailure();
    }
    return result;
}

int XoCmAccept(const char* client,
               const char* service,
               std::uint32_t riid,
               std::uint32_t listener,
               std::uint32_t* handle)
{
    HandleTable& table = HandleTable::Instance();
    ConnectionRequests* requests = ConnectionRequests::Instance();
    auto taken = requests != nullptr ? requests->Take(client, service) : std::nullopt;
    if (!taken)
    {
        return XoObjectGone;
    }
    std::uint32_t joined = listener;
    if (listener == XoInvalidHandle)
    {
        auto made = Endpoint::Make(std::nullopt);
        joined = made != nullptr ? table.Add(std::move(made)) : XoInvalidHandle;
    }
    const int result = joined != XoInvalidHandle ? Join(*taken, riid, joined) : XoNoResources;
    if (result == XoOk)
    {
        *handle = joined;
        return XoOk;
    }
    if (listener == XoInvalidHandle && joined != XoInvalidHandle)
    {
        table.Close(joined);
    }
    if (taken->socket)
    {
        requests->PutBack(std::move(*taken), client, service);
    }
    return result;
}

int XoCmDrop(const char* client, const char* service)
{
    ConnectionRequests* requests = ConnectionRequests::Instance();
    const auto taken = requests != nullptr ? requests->Take(client, service) : std::nullopt;
    if (!taken)
    {
        return XoObjectGone;
    }
    SendVerdict(taken->socket.Get(), XoRefused, InvalidRiid);
    return XoOk;
}
