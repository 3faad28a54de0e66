#include <wz/endpoint.h>

#include "endpoint.h"
#include "handle_table.h"

using namespace platform;

int WzTvoEndpointCreate(std::uint32_t* handle)
{
    auto endpoint = Endpoint::Make(std::nullopt);
    *handle =
        endpoint != nullptr ? HandleTable::Instance().Add(std::move(endpoint)) : XoInvalidHandle;
    return *handle != XoInvalidHandle ? XoOk : XoNoResources;
}

int WzTvoEndpointGetEnded(std::uint32_t handle,
                          unsigned long count,
                          std::uint64_t* connections,
                          unsigned long* received)
{
    *received = 0;
    const auto endpoint = HandleTable::Instance().Find<Endpoint>(handle);
    if (endpoint == nullptr)
    {
        return XoObjectGone;
    }
    *received = endpoint->TakeEnded(count, connections);
    return XoOk;
}
