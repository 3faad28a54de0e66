#include <string>

#include <shared/common/tvo/ipc/proxy/connection_builder.h>
#include <shared/common/tvo/ipc/proxy/printf_log_message.h>
#include <xo/connection.h>

namespace tvoipc::api_v1 {

namespace {

using tvoipc_detail::api_v1::EndpointHandle;
using tvoipc_detail::api_v1::PrintfLogMessage;

constexpr std::uint32_t Infinite = 0xFFFFFFFFU;
constexpr int RiidOutOfRange = static_cast<int>(0x90000002U);

template <typename Value>
void Report(ILogger& logger,
            const char* format,
            const std::string& server,
            const std::string& service,
            Value& value)
{
    PrintfLogMessage<const char*, const char*, Value&> message(
        format, server.c_str(), service.c_str(), value);
    logger.Print(ILogger::Verbosity::Error, message);
}

}  // namespace

ConnectionBuilder<ConnectViaDynamicChannel>::ConnectionBuilder(std::string_view server,
                                                               std::string_view service)
    : m_server(server), m_service(service)
{}

ConnectionBuilder<ConnectViaDynamicChannel>&
ConnectionBuilder<ConnectViaDynamicChannel>::SetTimeout(std::uint32_t timeoutMs)
{
    m_timeout = timeoutMs;
    m_infinite = false;
    return *this;
}

ConnectionBuilder<ConnectViaDynamicChannel>&
ConnectionBuilder<ConnectViaDynamicChannel>::SetInfinite()
{
    m_infinite = true;
    return *this;
}

int ConnectionBuilder<ConnectViaDynamicChannel>::Connect(
    EndpointHandle& endpoint,
    const tvoipc_detail::api_v1::SharedResourceProvider& provider)
{
    const std::string server(m_server);
    const std::string service(m_service);
    std::uint32_t handle = XoInvalidHandle;
    std::uint32_t riid = tvoipc_detail::api_v1::InvalidRiid;
    int result = XoCmConnect(
        server.c_str(), service.c_str(), m_infinite ? Infinite : m_timeout, &handle, &riid);
    if (result != XoOk)
    {
        Report(provider->Logger(),
               "Failed to connect to \"%s\":\"%s\" with rc = %d\n",
               server,
               service,
               result);
        return result;
    }
    if (riid > UINT16_MAX)
    {
        Report(provider->Logger(),
               "Invalid riid for \"%s\":\"%s\" because %u > UINT16_MAX\n",
               server,
               service,
               riid);
        if (handle != XoInvalidHandle)
        {
            XoHandleClose(handle);
        }
        return RiidOutOfRange;
    }
    endpoint =
        EndpointHandle(handle, EndpointHandle::Ownership::Owned, static_cast<std::uint16_t>(riid));
    return XoOk;
}

}  // namespace tvoipc::api_v1
