#include "channel.h"

#include <utility>

#include <component/plk/exceptions.h>
#include <tvo/service_locator.h>
#include <xo/connection.h>
#include <xo/sleep.h>

namespace settings_manager::ipc {

namespace {

using tvoipc_detail::api_v1::EndpointHandle;
using tvoipc_detail::api_v1::InvalidRiid;

constexpr unsigned Attempts = 3001;
constexpr std::uint32_t PauseMs = 100;

EndpointHandle TakeOver(std::uint32_t handle, std::uint32_t riid)
{
    const auto number = riid < InvalidRiid ? static_cast<std::uint16_t>(riid) : InvalidRiid;
    return {handle, EndpointHandle::Ownership::Owned, number};
}

}  // namespace

Channel::Channel(EndpointHandle endpoint)
    : m_endpoint(std::move(endpoint)), m_riid(m_endpoint.Riid())
{
    WzTvoTransport_Init(&m_transport, m_endpoint.Handle(), nullptr, 0);
    WzTvoSetTransportTimeouts(&m_transport, WzInfinite, WzInfinite);
}

Channel Channel::Connect(const char* server, const char* interfaceName, std::uint32_t timeoutMs)
{
    std::uint32_t handle = XoInvalidHandle;
    std::uint32_t riid = InvalidRiid;
    int result = XoCmConnect(server, interfaceName, timeoutMs, &handle, &riid);
    for (unsigned left = Attempts - 1; result == XoObjectGone && left != 0; --left)
    {
        XoSleep(PauseMs);
        result = XoCmConnect(server, interfaceName, timeoutMs, &handle, &riid);
    }
    EndpointHandle endpoint = TakeOver(result == XoOk ? handle : XoInvalidHandle, riid);
    ZIN_CHECK(endpoint.Handle() != XoInvalidHandle && endpoint.Riid() != InvalidRiid,
              "XoCmConnect() fail: " << server << "." << interfaceName << ":" << riid << " ("
                                     << result << ")");
    return Channel(std::move(endpoint));
}

Channel Channel::Connect(const char* connection, const char* endpointName)
{
    const std::uint32_t handle = ServiceLocatorConnect(connection);
    ZIN_CHECK(handle != XoInvalidHandle, "ServiceLocatorConnect() fail: " << connection);
    EndpointHandle endpoint = TakeOver(handle, ServiceLocatorGetRiid(handle, endpointName));
    ZIN_CHECK(endpoint.Riid() != InvalidRiid,
              "ServiceLocatorGetRiid() fail: " << connection << " : " << endpointName);
    return Channel(std::move(endpoint));
}

}  // namespace settings_manager::ipc
