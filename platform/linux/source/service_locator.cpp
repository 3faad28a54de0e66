#include <tvo/service_locator.h>

#include "client_connection.h"
#include "connect.h"
#include "endpoint.h"
#include "handle_table.h"
#include "names.h"
#include "process_name.h"
#include "rendezvous.h"

using namespace platform;

namespace {

/// A server that is overrun may take a while to make room.
constexpr std::uint32_t ConnectLimit = 5000;

}  // namespace

std::uint32_t ServiceLocatorRegister(const char* connectionId,
                                     const void* /*options*/,
                                     std::uint32_t /*optionsSize*/,
                                     std::uint64_t* identifier)
{
    *identifier = 0;
    const auto encodedName = EncodeName(connectionId);
    const int folder =
        encodedName ? Rendezvous::Instance().Open(Place::Connections, Purpose::Create) : -1;
    if (folder < 0)
    {
        return XoInvalidHandle;
    }
    auto name = BoundName::Take(folder, *encodedName, OwnLines());
    auto endpoint = name ? Endpoint::Make(std::move(name)) : nullptr;
    if (endpoint == nullptr)
    {
        return XoInvalidHandle;
    }
    const std::uint32_t handle = HandleTable::Instance().Add(std::move(endpoint));
    *identifier = handle == XoInvalidHandle ? 0 : handle;
    return handle;
}

void ServiceLocatorUnregister(std::uint64_t identifier)
{
    // The identifier is the endpoint's handle; that of another object is none.
    const auto handle = static_cast<std::uint32_t>(identifier);
    const auto endpoint = HandleTable::Instance().Find<Endpoint>(handle);
    if (endpoint != nullptr && endpoint->HasName())
    {
        HandleTable::Instance().Close(handle);
    }
}

std::uint32_t ServiceLocatorConnect(const char* connectionId)
{
    const auto encodedName = EncodeName(connectionId);
    Descriptor socket;
    Peer server;
    if (!encodedName ||
        ConnectTo(Place::Connections, *encodedName, Deadline(ConnectLimit), socket, server) != XoOk)
    {
        return XoInvalidHandle;
    }
    return HandleTable::Instance().Add(std::make_shared<ClientConnection>(
        std::move(socket), server, Place::Connections, *encodedName));
}

std::uint16_t ServiceLocatorGetRiid(std::uint32_t connection, const char* endpoint)
{
    const auto found = HandleTable::Instance().Find<ClientConnection>(connection);
    return found != nullptr && endpoint != nullptr ? found->FindRiid(endpoint) : InvalidRiid;
}
